#pragma once

#include "core/settings/options.h"
#include "core/speech/edtfile.h"
#include "session/userprompts.h"

#include <QObject>
#include <filesystem>
#include <optional>

namespace parlex::session {

// The open speech file beside the script, the phrase the pane shows, and the flows
// of speech files: open (the filter chosen says the kind), new documents of the three
// kinds, save, save as, the save question, and the companion that follows a script.
// It asks the user only through `UserPrompts`.
class SpeechDocument : public QObject {
    Q_OBJECT
public:
    enum class Step { Home, Back, Next, End, FirstFilled, LastFilled };

    SpeechDocument(UserPrompts& prompts, const Options& options, std::filesystem::path programDir,
                   QObject* parent = nullptr);

    const Options& options() const { return options_; }
    const EdtFile* file() const { return edt_ ? &*edt_ : nullptr; }
    int lastPhrase() const { return edt_ ? edt_->lastPhrase() : 0; } // 0: nothing open
    int phraseIndex() const { return phraseIndex_; }
    // Where the next dialog starts and what it proposes; a new document keeps it.
    const std::filesystem::path& rememberedPath() const { return rememberedPath_; }
    void setRememberedPath(std::filesystem::path path) { rememberedPath_ = std::move(path); }

    // ------------------------------------------------------------ flows
    // False when the user stops the flow that asked (Cancel, or a failed save).
    bool askSave();
    bool open();                                                    // after the save question
    bool openPath(const std::filesystem::path& path, EdtKind kind); // no dialog, no question
    void newDocument(EdtKind kind);                                 // after the save question
    bool save();
    bool saveAs();
    // NPC dialogues written out as a readable text, to a file the user chooses.
    bool decompile();
    // After a script was opened (not reloaded): its companion speech file is
    // remembered for the open dialog, or opened when AutoLoad is on. A companion
    // that is not there is told by companionMissing.
    void followScript(const std::filesystem::path& scriptPath);

    // ------------------------------------------------------------ the pane
    // The pane's text after an edit: line breaks are removed (a phrase is one line)
    // and the text is stored into the current phrase, over the limit too. Text with
    // characters that Windows-1251 cannot hold is refused whole with a message;
    // returns the text the pane is to show.
    QString editPhrase(const QString& text);
    QString phraseText() const; // the current phrase
    // Moves the pane; a beep where it cannot go. With nothing open the pane says so.
    void step(Step step);
    // The phrase a record speaks (byte 14), when it lies within the open file.
    void showPhrase(int index);

    bool canSave() const;      // a changed file, or a new document
    bool canDecompile() const; // NPC dialogues only
    bool isNew() const { return edt_ && edt_->isNew(); }
    int textLimit() const;
    QString lengthCounter() const; // "017:240"
    QString phraseCounter() const; // "(007:142)", "(07:34)"

signals:
    void documentReplaced(); // opened, new, saved and read back
    void phraseShown();      // the pane shows another phrase or its text changed
    void notOpen();          // a command needed an open speech file
    void companionMissing(const QString& title);

private:
    void replace(EdtFile file);
    bool writeTo(const std::filesystem::path& path);
    QString startFolder() const;

    UserPrompts& prompts_;
    const Options& options_;
    std::filesystem::path programDir_;
    std::optional<EdtFile> edt_;
    std::filesystem::path rememberedPath_;
    int phraseIndex_ = 0;
};

} // namespace parlex::session
