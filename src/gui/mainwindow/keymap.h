#pragma once

#include <Qt>

namespace parlex::gui {

// What a key pressed anywhere in the main window asks for.
enum class KeyAction {
    None,
    // Only while a script is open:
    FirstRecord,
    LastRecord,
    Save,
    Copy,
    Paste,
    DeleteStandard,
    Delete,
    ForwardFive,
    Next,
    BackFive,
    Back,
    // Always:
    SpeechInfo,
    SpeechSaveAs,
    PopupMenu,
    Exit,
    PhraseHome,
    PhraseBack,
    PhraseNext,
    PhraseEnd,
    PhraseFirstFilled,
    PhraseLastFilled,
};

// The key map. `keypad` tells the numeric pad from the other keys (both NumLock
// states are understood); `documentOpen` enables the script keys.
KeyAction keyAction(int key, Qt::KeyboardModifiers modifiers, bool documentOpen);

} // namespace parlex::gui
