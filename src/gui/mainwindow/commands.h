#pragma once

namespace parlex::gui {

// Everything the user can ask of the main window, from its menus, its keys or both.
// The window runs each through one table; the menus and the key map only name them.
enum class Command {
    None,
    // The script file.
    Open,
    New,
    Save,
    SaveAs,
    Exit,
    // Records; only while a script is open.
    FirstRecord,
    LastRecord,
    Next,
    Back,
    ForwardFive,
    BackFive,
    DeleteStandard,
    Delete,
    Copy,
    Paste,
    Undo,
    Redo,
    // Tools and help.
    ConvertLayout,
    CurrentInfo,
    Edit,
    Overview,
    Options,
    Help,
    About,
    // The speech pane.
    SpeechInfo,
    SpeechSaveAs,
    PopupMenu,
    PhraseColour,
    PhraseFont,
    PhraseHome,
    PhraseBack,
    PhraseNext,
    PhraseEnd,
    PhraseFirstFilled,
    PhraseLastFilled,
};

// The menu item, by its object name, of each command that has one.
struct MenuCommand {
    const char* name;
    Command command;
};
inline constexpr MenuCommand kMenuCommands[] = {
    {"nOpen", Command::Open},           {"nNew", Command::New},
    {"nSave", Command::Save},           {"nSaveAs", Command::SaveAs},
    {"nExit", Command::Exit},           {"nFrec", Command::FirstRecord},
    {"nLrec", Command::LastRecord},     {"nNext", Command::Next},
    {"nBack", Command::Back},           {"nDelStand", Command::DeleteStandard},
    {"nDel", Command::Delete},          {"nCopy", Command::Copy},
    {"nPaste", Command::Paste},         {"nUndo", Command::Undo},
    {"nRedo", Command::Redo},           {"nSelect", Command::ConvertLayout},
    {"nCurrent", Command::CurrentInfo}, {"nEdit", Command::Edit},
    {"nOptions", Command::Options},     {"nContecst", Command::Help},
    {"nOverview", Command::Overview},   {"nAbout", Command::About},
    {"nFon", Command::PhraseColour},    {"nFont", Command::PhraseFont},
};

} // namespace parlex::gui
