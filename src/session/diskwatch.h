#pragma once

#include "core/platform/files.h"
#include "session/userprompts.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <optional>

namespace parlex::session {

class ScriptDocument;

// Watches the file of the open script and asks the user when another program
// changed or removed it. It follows the document: each document replaced is watched
// from then on, as its file then was.
class DiskWatch : public QObject {
    Q_OBJECT
public:
    DiskWatch(UserPrompts& prompts, const ScriptDocument& document, QObject* parent = nullptr);

    // True when the file on disk is no longer the one the document was read from.
    bool changedSinceLoad() const;
    // Our own write onto the file: no news from another program.
    void acknowledge();
    // Stops watching (the program ends).
    void stop();

public slots:
    // Compares the file with what was loaded and asks the user about a change. The
    // file watch calls it; so may anyone.
    void check();

signals:
    // The user wants the file read again (its changes told, theirs thrown away).
    void reloadWanted();

private:
    void follow();

    UserPrompts& prompts_;
    const ScriptDocument& document_;
    QFileSystemWatcher watcher_;
    std::optional<platform::FileStatus> loadedStatus_; // the file as the document was read
    std::optional<platform::FileStatus> seenStatus_;   // the file as last looked at
    bool checking_ = false;
};

} // namespace parlex::session
