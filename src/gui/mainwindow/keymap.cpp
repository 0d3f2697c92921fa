#include "gui/mainwindow/keymap.h"

namespace parlex::gui {
namespace {

// The modifier state as the map compares it: Alt, Ctrl, Shift, or none.
enum class Mods { None, Ctrl, Alt, Other };

Mods modsOf(Qt::KeyboardModifiers m) {
    const auto held = m & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    if (held == Qt::NoModifier)
        return Mods::None;
    if (held == Qt::ControlModifier)
        return Mods::Ctrl;
    if (held == Qt::AltModifier)
        return Mods::Alt;
    return Mods::Other;
}

// A key of the numeric pad by what it means with NumLock on.
int padKey(int key) {
    switch (key) {
    case Qt::Key_Home:
        return Qt::Key_7;
    case Qt::Key_Left:
        return Qt::Key_4;
    case Qt::Key_Right:
        return Qt::Key_6;
    case Qt::Key_End:
        return Qt::Key_1;
    case Qt::Key_PageDown:
        return Qt::Key_3;
    case Qt::Key_PageUp:
        return Qt::Key_9;
    case Qt::Key_Delete:
    case Qt::Key_Comma:
        return Qt::Key_Period;
    default:
        return key;
    }
}

} // namespace

Command keyCommand(int key, Qt::KeyboardModifiers modifiers, bool documentOpen) {
    const Mods mods = modsOf(modifiers);
    const bool keypad = modifiers.testFlag(Qt::KeypadModifier);

    if (keypad) {
        const int k = padKey(key);
        if (documentOpen) {
            switch (k) {
            case Qt::Key_Slash:
                return Command::FirstRecord;
            case Qt::Key_Asterisk:
                return Command::LastRecord;
            case Qt::Key_Period:
                return mods == Mods::Ctrl ? Command::DeleteStandard : Command::Delete;
            case Qt::Key_Plus:
                return mods == Mods::Ctrl ? Command::ForwardFive : Command::Next;
            case Qt::Key_Minus:
                return mods == Mods::Ctrl ? Command::BackFive : Command::Back;
            default:
                break;
            }
        }
        switch (k) {
        case Qt::Key_7:
            return Command::PhraseHome;
        case Qt::Key_4:
            return Command::PhraseBack;
        case Qt::Key_6:
            return Command::PhraseNext;
        case Qt::Key_1:
            return Command::PhraseEnd;
        case Qt::Key_3:
            return Command::PhraseFirstFilled;
        case Qt::Key_9:
            return Command::PhraseLastFilled;
        default:
            return Command::None;
        }
    }

    if (documentOpen) {
        if (mods == Mods::Alt && key == Qt::Key_S)
            return Command::Save;
        if (mods == Mods::None && key == Qt::Key_F2)
            return Command::Save;
        if (mods == Mods::Alt && key == Qt::Key_C)
            return Command::Copy;
        if (mods == Mods::Alt && key == Qt::Key_V)
            return Command::Paste;
    }
    if (mods == Mods::Ctrl && key == Qt::Key_F1)
        return Command::SpeechInfo;
    if (mods == Mods::Ctrl && key == Qt::Key_F2)
        return Command::SpeechSaveAs;
    if (mods == Mods::Ctrl && key == Qt::Key_F3)
        return Command::PopupMenu;
    if (mods == Mods::Alt && key == Qt::Key_X)
        return Command::Exit;
    return Command::None;
}

} // namespace parlex::gui
