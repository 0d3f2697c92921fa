#pragma once

#include "core/npc/npcfile.h"
#include "session/userprompts.h"

#include <QString>
#include <filesystem>

namespace parlex::session {

class DiskWatch;
class ScriptDocument;
class SpeechDocument;

// The flows of script files, each with its dialogs and questions: open, new, save,
// save as, the save question before a document is replaced, converting any script
// into the other layout, and the summary of the open script.
class ScriptFlows {
public:
    enum class SaveOutcome { Saved, Cancelled, Failed };

    ScriptFlows(UserPrompts& prompts, ScriptDocument& document, DiskWatch& disk,
                SpeechDocument& speech, std::filesystem::path programDir);

    // The open dialog, after the save question. A script opened brings its speech
    // file along.
    bool open();
    bool openPath(const std::filesystem::path& path); // without dialog or question
    // The open script read again from its file (no question, no speech file).
    bool reload();
    void newScript();
    SaveOutcome save();
    SaveOutcome saveAs();
    // The save question of a changed script; false stops the flow that asked.
    bool askSave();
    void convertLayout(); // any script into the other layout, file to file
    void showCurrentInfo();

    // The last script opened or saved: it outlives a new document, so the open dialog
    // starts where the user last was.
    const std::filesystem::path& lastPath() const { return lastPath_; }
    void setLastPath(std::filesystem::path path) { lastPath_ = std::move(path); }

private:
    bool load(const std::filesystem::path& path);
    SaveOutcome writeTo(const std::filesystem::path& path);
    QString startFolder() const;

    UserPrompts& prompts_;
    ScriptDocument& document_;
    DiskWatch& disk_;
    SpeechDocument& speech_;
    std::filesystem::path programDir_;
    std::filesystem::path lastPath_;
};

} // namespace parlex::session
