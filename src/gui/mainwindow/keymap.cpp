#include "gui/mainwindow/keymap.h"

#include <string>

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

// The letters of the main block by XKB key code, row by row (Q W E ..., A S D ..., Z X C ...).
constexpr struct {
    quint32 firstCode;
    const char* letters;
} kX11Rows[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

} // namespace

KeySource keySourceFor(const QString& platformName) {
    if (platformName == "xcb" || platformName.startsWith("wayland"))
        return KeySource::X11;
    if (platformName == "windows")
        return KeySource::Windows;
    return KeySource::Other;
}

int latinKey(int key, quint32 nativeScanCode, quint32 nativeVirtualKey, KeySource source) {
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return key;
    switch (source) {
    case KeySource::X11:
        for (const auto& row : kX11Rows) {
            const quint32 column = nativeScanCode - row.firstCode;
            if (nativeScanCode >= row.firstCode &&
                column < std::char_traits<char>::length(row.letters))
                return Qt::Key_A + (row.letters[column] - 'A');
        }
        break;
    case KeySource::Windows:
        if (nativeVirtualKey >= 'A' && nativeVirtualKey <= 'Z')
            return Qt::Key_A + static_cast<int>(nativeVirtualKey - 'A');
        break;
    case KeySource::Other:
        break;
    }
    return key;
}

KeyAction keyAction(int key, Qt::KeyboardModifiers modifiers, bool documentOpen) {
    const Mods mods = modsOf(modifiers);
    const bool keypad = modifiers.testFlag(Qt::KeypadModifier);

    if (keypad) {
        const int k = padKey(key);
        if (documentOpen) {
            switch (k) {
            case Qt::Key_Slash:
                return KeyAction::FirstRecord;
            case Qt::Key_Asterisk:
                return KeyAction::LastRecord;
            case Qt::Key_Period:
                return mods == Mods::Ctrl ? KeyAction::DeleteStandard : KeyAction::Delete;
            case Qt::Key_Plus:
                return mods == Mods::Ctrl ? KeyAction::ForwardFive : KeyAction::Next;
            case Qt::Key_Minus:
                return mods == Mods::Ctrl ? KeyAction::BackFive : KeyAction::Back;
            default:
                break;
            }
        }
        switch (k) {
        case Qt::Key_7:
            return KeyAction::PhraseHome;
        case Qt::Key_4:
            return KeyAction::PhraseBack;
        case Qt::Key_6:
            return KeyAction::PhraseNext;
        case Qt::Key_1:
            return KeyAction::PhraseEnd;
        case Qt::Key_3:
            return KeyAction::PhraseFirstFilled;
        case Qt::Key_9:
            return KeyAction::PhraseLastFilled;
        default:
            return KeyAction::None;
        }
    }

    if (documentOpen) {
        if (mods == Mods::Alt && key == Qt::Key_S)
            return KeyAction::Save;
        if (mods == Mods::None && key == Qt::Key_F2)
            return KeyAction::Save;
        if (mods == Mods::Alt && key == Qt::Key_C)
            return KeyAction::Copy;
        if (mods == Mods::Alt && key == Qt::Key_V)
            return KeyAction::Paste;
    }
    if (mods == Mods::Ctrl && key == Qt::Key_F1)
        return KeyAction::SpeechInfo;
    if (mods == Mods::Ctrl && key == Qt::Key_F2)
        return KeyAction::SpeechSaveAs;
    if (mods == Mods::Ctrl && key == Qt::Key_F3)
        return KeyAction::PopupMenu;
    if (mods == Mods::Alt && key == Qt::Key_X)
        return KeyAction::Exit;
    return KeyAction::None;
}

} // namespace parlex::gui
