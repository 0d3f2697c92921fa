#pragma once

#include "codelists/codelists.h"
#include "explain/explainer.h"
#include "npc/edithistory.h"
#include "npc/npcfile.h"
#include "platform/files.h"
#include "session/options.h"
#include "session/speechdocument.h"
#include "session/userprompts.h"
#include "settings/settingsfile.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <filesystem>
#include <optional>

namespace parlex::session {

// How the field under the mouse is marked on the grid.
enum class FieldMark {
    None,   // nothing is marked: no script, or a position without a record
    Hover,  // light green: follows the mouse
    Pinned, // yellow: stays when the mouse moves on
};

// Everything that is open and everything the user does with it, below the widgets:
// the script, the record buffer, the code lists, the options, the view state (record
// position, the field shown and whether it is pinned), the edit history, and the
// flows of opening, saving, converting and closing. It asks the user only through
// `UserPrompts` and tells its listeners what changed by its signals.
class Session : public QObject {
    Q_OBJECT
public:
    enum class SaveOutcome { Saved, Cancelled, Failed };

    Session(UserPrompts& prompts, std::filesystem::path programDir, QObject* parent = nullptr);

    // ------------------------------------------------------------ what is open
    const NpcFile* script() const { return npc_ ? &*npc_ : nullptr; }
    const RecordBuffer& recordBuffer() const { return buffer_; }
    const CodeLists& codeLists() const { return lists_; }
    const std::filesystem::path& programDir() const { return programDir_; }
    Options& options() { return options_; }
    const Options& options() const { return options_; }
    // New options, told by optionsChanged when they differ from the old.
    void setOptions(const Options& options);
    SpeechDocument& speech() { return speech_; }
    const SpeechDocument& speech() const { return speech_; }

    // ------------------------------------------------------------ start and end
    // The words of the command line (without the program's name). A script of the
    // right size is opened; a help switch shows the usage and returns false: the
    // program is to end at once.
    bool start(const QStringList& arguments, const QString& programName);
    // The save questions before the program ends, the speech file's first; false
    // keeps it running.
    bool queryClose();
    // Lets go of everything at the end: the record buffer, the history, the watch.
    void shutdown();
    // The options and the last paths of a past run, and what is kept for the next
    // one. The window's geometry is the window's own: restore leaves it alone and
    // remembered leaves it as `base` has it.
    void restore(const Settings& settings);
    Settings remembered(Settings base) const;

    // ------------------------------------------------------------ script flows
    bool open();                                      // the open dialog, after the save question
    bool openPath(const std::filesystem::path& path); // without dialog or question
    void newScript();
    SaveOutcome save();
    SaveOutcome saveAs();
    void convertLayout();   // any script into the other layout, file to file
    void showCurrentInfo(); // the layout and the number of records of the open script
    // The colour and the font of the phrase text, chosen by the user (sizes 4-18).
    void choosePhraseColour();
    void choosePhraseFont();
    // The rows of a code list; a list file too long to show is told to the user.
    std::vector<std::string> listRows(ListKey key);
    // Writes a built-in list out as the file that then replaces it, into the folder
    // where lists are looked for. An existing file is replaced after the user's yes
    // with `askBeforeReplace`, silently without. Success is not told.
    void extractList(ListKey key, bool askBeforeReplace);

    // ------------------------------------------------------------ position
    int position() const { return position_; }
    void setPosition(int position); // kept within 1..50
    void nextRecord();
    void previousRecord();
    void stepRecords(int delta); // five at a time, stopping at the ends
    void firstRecord();          // to the first record that is not empty, or a beep
    void lastRecord();
    // The record at the position, or null: nothing open, or position 50 of a "ja" script.
    const NpcRecord* currentRecord() const;

    // ------------------------------------------------------------ the field shown
    // The mouse over byte `byteIndex` of the grid, and a click on it. A right click
    // pins the field or frees it; another click moves the pin.
    void hover(int byteIndex);
    void press(int byteIndex, bool rightButton);
    bool isPinned() const { return pinned_; }
    FieldMark mark() const { return mark_; }
    int markedByte() const { return markedByte_; }
    // "07:04 (03-04 as Word)": record, byte under the mouse, field. Empty until a
    // field was first shown; a position without a record leaves it as it was.
    QString positionText() const;
    // The byte the position text names, once a field was shown.
    std::optional<int> positionByte() const { return positionByte_; }
    // The field of the position text, while a field is shown.
    std::optional<int> shownField() const;
    // The sentence about the field shown, or "Запись не существует".
    Explanation explanation() const;

    // ------------------------------------------------------------ edits
    // The one way a record of the open script changes: recorded for undo, then told
    // by recordChanged. Returns false when nothing changed.
    bool editRecord(std::size_t index, const NpcRecord& record);
    void deleteRecord(bool standard); // empty, or the neutral record of a standard deletion
    void copyRecord();
    void pasteRecord();
    void undo();
    void redo();
    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }

public slots:
    // Compares the open script's file with what was loaded and asks the user when
    // another program changed or removed it. The file watch calls it; so may anyone.
    void checkDisk();

signals:
    void documentReplaced();       // opened, new, reloaded: everything is to be shown anew
    void recordChanged(int index); // one record of the open script has new bytes
    void changedStateChanged(bool changed);
    void positionChanged(int position);
    void fieldShown();     // mark, position text or explanation changed
    void historyChanged(); // undo or redo became possible or impossible
    void bufferChanged();  // a record was copied
    void optionsChanged(); // restored, set, or the phrase text's colour or font chosen

private:
    enum class Ask { Continue, Cancel };

    Ask askSaveScript();
    bool load(const std::filesystem::path& path);
    void replaceDocument(NpcFile file);
    SaveOutcome writeTo(const std::filesystem::path& path);
    bool confirmOverwriteOfChangedFile();
    QString startFolder() const;
    void refreshField();
    void storeRecord(std::size_t index, const NpcRecord& record, bool moveThere);
    void setChanged();
    void watch();
    void acknowledgeDisk();
    void showNoRecord();
    void showField(int byteIndex, FieldMark mark);

    UserPrompts& prompts_;
    std::filesystem::path programDir_;
    CodeLists lists_;
    Options options_;
    SpeechDocument speech_;
    std::optional<NpcFile> npc_;
    // The last script opened or saved: it outlives a new document, so the open dialog
    // starts where the user last was.
    std::filesystem::path lastPath_;
    RecordBuffer buffer_;
    EditHistory history_;
    bool wasChanged_ = false;

    int position_ = 1;
    bool pinned_ = false;
    FieldMark mark_ = FieldMark::None;
    int markedByte_ = 0;
    std::optional<int> positionByte_; // the byte the position text names, once written
    int positionRecord_ = 1;          // and its record
    bool noRecordShown_ = false;

    QFileSystemWatcher watcher_;
    std::optional<platform::FileStatus> loadedStatus_; // the file as the document was read
    std::optional<platform::FileStatus> seenStatus_;   // the file as last looked at
    bool checking_ = false;
};

} // namespace parlex::session
