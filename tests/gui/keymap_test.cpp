// The key map as a function: which key does what, with and without a script.
#include "gui/mainwindow/keymap.h"

#include <QTest>

using parlex::gui::KeyAction;
using parlex::gui::keyAction;
using parlex::gui::KeySource;
using parlex::gui::latinKey;

// Qt names a letter outside Latin by its upper-case Unicode code point.
constexpr int cyr(int codePoint) {
    return codePoint;
}

class KeyMapTest : public QObject {
    Q_OBJECT
private slots:
    void recordKeysNeedAnOpenScript();
    void numericPadIsToldApartFromOtherKeys();
    void f2SavesOnlyWithoutModifiers();
    void lettersAreTakenByTheirPlaceOnTheKeyboard_data();
    void lettersAreTakenByTheirPlaceOnTheKeyboard();
    void keySourceByPlatform();
};

namespace {
constexpr auto Pad = Qt::KeypadModifier;
constexpr auto Ctrl = Qt::ControlModifier;
constexpr auto Alt = Qt::AltModifier;
constexpr auto Shift = Qt::ShiftModifier;
} // namespace

void KeyMapTest::recordKeysNeedAnOpenScript() {
    const struct {
        int key;
        Qt::KeyboardModifiers mods;
        KeyAction open;
    } cases[] = {
        {Qt::Key_Slash, Pad, KeyAction::FirstRecord},
        {Qt::Key_Asterisk, Pad | Shift, KeyAction::LastRecord},
        {Qt::Key_S, Alt, KeyAction::Save},
        {Qt::Key_C, Alt, KeyAction::Copy},
        {Qt::Key_Period, Pad | Ctrl, KeyAction::DeleteStandard},
        {Qt::Key_Period, Pad, KeyAction::Delete},
        {Qt::Key_Plus, Pad | Ctrl, KeyAction::ForwardFive},
        {Qt::Key_Plus, Pad, KeyAction::Next},
        {Qt::Key_Minus, Pad | Ctrl, KeyAction::BackFive},
    };
    for (const auto& c : cases) {
        QCOMPARE(keyAction(c.key, c.mods, true), c.open);
        QCOMPARE(keyAction(c.key, c.mods, false), KeyAction::None);
    }
    // Keys that always work.
    QCOMPARE(keyAction(Qt::Key_F1, Ctrl, false), KeyAction::SpeechInfo);
    QCOMPARE(keyAction(Qt::Key_F2, Ctrl, false), KeyAction::SpeechSaveAs);
    QCOMPARE(keyAction(Qt::Key_F3, Ctrl, true), KeyAction::PopupMenu);
    QCOMPARE(keyAction(Qt::Key_X, Alt, false), KeyAction::Exit);
}

void KeyMapTest::numericPadIsToldApartFromOtherKeys() {
    const struct {
        int numLockOn, numLockOff;
        KeyAction action;
    } pad[] = {
        {Qt::Key_7, Qt::Key_Home, KeyAction::PhraseHome},
        {Qt::Key_4, Qt::Key_Left, KeyAction::PhraseBack},
        {Qt::Key_6, Qt::Key_Right, KeyAction::PhraseNext},
        {Qt::Key_1, Qt::Key_End, KeyAction::PhraseEnd},
        {Qt::Key_3, Qt::Key_PageDown, KeyAction::PhraseFirstFilled},
        {Qt::Key_9, Qt::Key_PageUp, KeyAction::PhraseLastFilled},
    };
    for (const auto& p : pad) {
        QCOMPARE(keyAction(p.numLockOn, Pad, true), p.action);
        QCOMPARE(keyAction(p.numLockOff, Pad, false), p.action);
        // The same keys off the pad belong to the text.
        QCOMPARE(keyAction(p.numLockOn, Qt::NoModifier, true), KeyAction::None);
        QCOMPARE(keyAction(p.numLockOff, Qt::NoModifier, true), KeyAction::None);
    }
    for (int digit : {Qt::Key_2, Qt::Key_5, Qt::Key_8, Qt::Key_0})
        QCOMPARE(keyAction(digit, Pad, true), KeyAction::None);
    QCOMPARE(keyAction(Qt::Key_Plus, Qt::NoModifier, true), KeyAction::None);
    QCOMPARE(keyAction(Qt::Key_Delete, Qt::NoModifier, true), KeyAction::None);
}

void KeyMapTest::f2SavesOnlyWithoutModifiers() {
    QCOMPARE(keyAction(Qt::Key_F2, Qt::NoModifier, true), KeyAction::Save);
    QCOMPARE(keyAction(Qt::Key_F2, Shift, true), KeyAction::None);
    QCOMPARE(keyAction(Qt::Key_F2, Ctrl | Shift, true), KeyAction::None);
    QCOMPARE(keyAction(Qt::Key_F2, Ctrl, true), KeyAction::SpeechSaveAs);
    QCOMPARE(keyAction(Qt::Key_S, Alt | Shift, true), KeyAction::None);
}

void KeyMapTest::lettersAreTakenByTheirPlaceOnTheKeyboard_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<quint32>("scanCode");
    QTest::addColumn<quint32>("virtualKey");
    QTest::addColumn<int>("source");
    QTest::addColumn<int>("latin");
    const int x11 = int(KeySource::X11), win = int(KeySource::Windows),
              other = int(KeySource::Other);
    // A Russian layout: the keys of S, C, V, X, B, W type Ы, С, М, Ч, И, Ц.
    QTest::newRow("X11 Ы is S") << cyr(0x42B) << 39u << 0u << x11 << int(Qt::Key_S);
    QTest::newRow("X11 Ь is M") << cyr(0x42C) << 58u << 0u << x11 << int(Qt::Key_M);
    QTest::newRow("X11 Ж is not a letter") << cyr(0x416) << 47u << 0u << x11 << cyr(0x416);
    QTest::newRow("Windows Ы is S") << cyr(0x42B) << 31u << quint32('S') << win << int(Qt::Key_S);
    QTest::newRow("Latin letters stay")
        << int(Qt::Key_S) << 40u << quint32('D') << x11 << int(Qt::Key_S);
    QTest::newRow("F2 stays") << int(Qt::Key_F2) << 68u << 0u << x11 << int(Qt::Key_F2);
    QTest::newRow("no codes: as typed") << cyr(0x42B) << 39u << quint32('S') << other << cyr(0x42B);
}

void KeyMapTest::lettersAreTakenByTheirPlaceOnTheKeyboard() {
    QFETCH(int, key);
    QFETCH(quint32, scanCode);
    QFETCH(quint32, virtualKey);
    QFETCH(int, source);
    QFETCH(int, latin);
    QCOMPARE(latinKey(key, scanCode, virtualKey, KeySource(source)), latin);
}

void KeyMapTest::keySourceByPlatform() {
    QCOMPARE(parlex::gui::keySourceFor("xcb"), KeySource::X11);
    QCOMPARE(parlex::gui::keySourceFor("wayland-egl"), KeySource::X11);
    QCOMPARE(parlex::gui::keySourceFor("windows"), KeySource::Windows);
    QCOMPARE(parlex::gui::keySourceFor("offscreen"), KeySource::Other);
}

QTEST_MAIN(KeyMapTest)
#include "keymap_test.moc"
