#pragma once

#include "core/settings/options.h"
#include "core/settings/settingsfile.h"
#include "session/diskwatch.h"
#include "session/listlibrary.h"
#include "session/recordcursor.h"
#include "session/scriptdocument.h"
#include "session/scriptflows.h"
#include "session/speechdocument.h"
#include "session/userprompts.h"

#include <QObject>
#include <QStringList>
#include <filesystem>
#include <functional>

namespace parlex::session {

// What a change of the options touches on the screen, so that a window repaints
// only that: the help text's look, the hints, the phrase text's colour and font.
// Options that change how the program acts, not how it looks, are Behaviour.
enum class OptionChange {
    HelpText = 1,
    ToolTips = 2,
    PhraseStyle = 4,
    Behaviour = 8,
    Language = 16, // every text of the window
};
Q_DECLARE_FLAGS(OptionChanges, OptionChange)
Q_DECLARE_OPERATORS_FOR_FLAGS(OptionChanges)
// The groups in which two sets of options differ.
OptionChanges optionChanges(const Options& before, const Options& after);

// Everything that is open and everything the user does with it, below the widgets.
// It owns the parts and wires them together:
//   document()  the open script, its edit history and the record buffer
//   cursor()    the record position, the field shown, its explanation
//   flows()     open, new, save, save as, convert
//   disk()      the watch on the script's file
//   speech()    the speech file and its flows
//   lists()     the code lists
// and it keeps the options. It asks the user only through `UserPrompts`.
class Session : public QObject {
    Q_OBJECT
public:
    using SaveOutcome = ScriptFlows::SaveOutcome;

    Session(UserPrompts& prompts, std::filesystem::path programDir, QObject* parent = nullptr);

    ScriptDocument& document() { return document_; }
    const ScriptDocument& document() const { return document_; }
    RecordCursor& cursor() { return cursor_; }
    const RecordCursor& cursor() const { return cursor_; }
    ScriptFlows& flows() { return flows_; }
    DiskWatch& disk() { return disk_; }
    SpeechDocument& speech() { return speech_; }
    const SpeechDocument& speech() const { return speech_; }
    ListLibrary& lists() { return lists_; }
    const CodeLists& codeLists() const { return lists_.lists(); }
    const std::filesystem::path& programDir() const { return programDir_; }
    // The open script, or null.
    const NpcFile* script() const { return document_.file(); }

    // ------------------------------------------------------------ options
    const Options& options() const { return options_; }
    // The one way an option changes; optionsChanged tells the window.
    void setOptions(const Options& options);
    // The same, as a change of the options as they are: `change` edits a copy.
    void updateOptions(const std::function<void(Options&)>& change);
    // The colour and the font of the phrase text, chosen by the user (sizes 4-18).
    void choosePhraseColour();
    void choosePhraseFont();
    // The options and the last paths of a past run, and what is kept for the next
    // one. The window's geometry is the window's own: restore leaves it alone and
    // remembered leaves it as `base` has it.
    void restore(const Settings& settings);
    Settings remembered(Settings base) const;

    // ------------------------------------------------------------ start and end
    // The command line (without the program's name); false: the program is to end.
    bool start(const QStringList& arguments, const QString& programName);
    // The save questions before the program ends, the speech file's first; false
    // keeps it running.
    bool queryClose();
    // Lets go of everything at the end: the record buffer, the history, the watch.
    void shutdown();

    // ------------------------------------------------------------ edits at the cursor
    void deleteRecord(bool standard); // empty, or the neutral record of a standard deletion
    void copyRecord();
    void pasteRecord();
    // A step through the history; the cursor moves to the record it changed.
    void undo();
    void redo();

signals:
    // Restored, set, or the phrase text's colour or font chosen; `changed` names
    // what differs (everything, after a restore).
    void optionsChanged(parlex::session::OptionChanges changed);

private:
    UserPrompts& prompts_;
    std::filesystem::path programDir_;
    Options options_;
    ListLibrary lists_;
    ScriptDocument document_;
    SpeechDocument speech_;
    DiskWatch disk_;
    RecordCursor cursor_;
    ScriptFlows flows_;
};

} // namespace parlex::session
