// The key map as a function: which key does what, with and without a script.
#include "gui/mainwindow/keymap.h"

#include <QTest>

using parlex::gui::Command;
using parlex::gui::keyCommand;
using parlex::gui::KeySource;
using parlex::gui::latinKey;

class KeyMapTest : public QObject {
    Q_OBJECT
private slots:
    void everyKeyHasItsCommand();
    void lettersAreTakenByTheirPlaceOnTheKeyboard();
};

namespace {
constexpr auto None = Qt::NoModifier;
constexpr auto Pad = Qt::KeypadModifier;
constexpr auto Ctrl = Qt::ControlModifier;
constexpr auto Alt = Qt::AltModifier;
constexpr auto Shift = Qt::ShiftModifier;
} // namespace

void KeyMapTest::everyKeyHasItsCommand() {
    // A key with its modifiers; its command with a script open and without one.
    const std::tuple<int, Qt::KeyboardModifiers, Command, Command> cases[] = {
        {Qt::Key_Slash, Pad, Command::FirstRecord, Command::None},
        {Qt::Key_Asterisk, Pad | Shift, Command::LastRecord, Command::None},
        {Qt::Key_S, Alt, Command::Save, Command::None},
        {Qt::Key_S, Alt | Shift, Command::None, Command::None},
        {Qt::Key_C, Alt, Command::Copy, Command::None},
        {Qt::Key_Period, Pad | Ctrl, Command::DeleteStandard, Command::None},
        {Qt::Key_Period, Pad, Command::Delete, Command::None},
        {Qt::Key_Plus, Pad | Ctrl, Command::ForwardFive, Command::None},
        {Qt::Key_Plus, Pad, Command::Next, Command::None},
        {Qt::Key_Minus, Pad | Ctrl, Command::BackFive, Command::None},
        {Qt::Key_F2, None, Command::Save, Command::None},
        {Qt::Key_F2, Shift, Command::None, Command::None},
        {Qt::Key_F2, Ctrl | Shift, Command::None, Command::None},
        {Qt::Key_F2, Ctrl, Command::SpeechSaveAs, Command::SpeechSaveAs},
        {Qt::Key_F1, Ctrl, Command::SpeechInfo, Command::SpeechInfo},
        {Qt::Key_F3, Ctrl, Command::PopupMenu, Command::PopupMenu},
        {Qt::Key_X, Alt, Command::Exit, Command::Exit},
        // The pad's phrase keys with Num Lock on and off; the same keys off the pad
        // belong to the text, and so do the pad's other digits.
        {Qt::Key_7, Pad, Command::PhraseHome, Command::PhraseHome},
        {Qt::Key_Home, Pad, Command::PhraseHome, Command::PhraseHome},
        {Qt::Key_4, Pad, Command::PhraseBack, Command::PhraseBack},
        {Qt::Key_Left, Pad, Command::PhraseBack, Command::PhraseBack},
        {Qt::Key_6, Pad, Command::PhraseNext, Command::PhraseNext},
        {Qt::Key_Right, Pad, Command::PhraseNext, Command::PhraseNext},
        {Qt::Key_1, Pad, Command::PhraseEnd, Command::PhraseEnd},
        {Qt::Key_End, Pad, Command::PhraseEnd, Command::PhraseEnd},
        {Qt::Key_3, Pad, Command::PhraseFirstFilled, Command::PhraseFirstFilled},
        {Qt::Key_PageDown, Pad, Command::PhraseFirstFilled, Command::PhraseFirstFilled},
        {Qt::Key_9, Pad, Command::PhraseLastFilled, Command::PhraseLastFilled},
        {Qt::Key_PageUp, Pad, Command::PhraseLastFilled, Command::PhraseLastFilled},
        {Qt::Key_7, None, Command::None, Command::None},
        {Qt::Key_Home, None, Command::None, Command::None},
        {Qt::Key_2, Pad, Command::None, Command::None},
        {Qt::Key_0, Pad, Command::None, Command::None},
        {Qt::Key_Plus, None, Command::None, Command::None},
        {Qt::Key_Delete, None, Command::None, Command::None},
    };
    for (const auto& [key, mods, open, closed] : cases) {
        QCOMPARE(keyCommand(key, mods, true), open);
        QCOMPARE(keyCommand(key, mods, false), closed);
    }
}

void KeyMapTest::lettersAreTakenByTheirPlaceOnTheKeyboard() {
    // Qt names a letter outside Latin by its upper-case code point. A Russian layout:
    // the keys of S and M type Ы and Ь. The key, its scan code (X11) and virtual key
    // (Windows), where the codes come from, the key it counts as.
    const std::tuple<int, quint32, quint32, KeySource, int> cases[] = {
        {0x42B, 39, 0, KeySource::X11, Qt::Key_S},
        {0x42C, 58, 0, KeySource::X11, Qt::Key_M},
        {0x416, 47, 0, KeySource::X11, 0x416}, // Ж is not a letter of the Latin layout
        {0x42B, 31, 'S', KeySource::Windows, Qt::Key_S},
        {Qt::Key_S, 40, 'D', KeySource::X11, Qt::Key_S}, // Latin letters stay
        {Qt::Key_F2, 68, 0, KeySource::X11, Qt::Key_F2},
        {0x42B, 39, 'S', KeySource::Other, 0x42B}, // no codes: as typed
    };
    for (const auto& [key, scanCode, virtualKey, source, latin] : cases)
        QCOMPARE(latinKey(key, scanCode, virtualKey, source), latin);
    QCOMPARE(parlex::gui::keySourceFor("xcb"), KeySource::X11);
    QCOMPARE(parlex::gui::keySourceFor("wayland-egl"), KeySource::X11);
    QCOMPARE(parlex::gui::keySourceFor("windows"), KeySource::Windows);
    QCOMPARE(parlex::gui::keySourceFor("offscreen"), KeySource::Other);
}

QTEST_MAIN(KeyMapTest)
#include "keymap_test.moc"
