// The key map as a function: which key does what, with and without a script.
#include "gui/mainwindow/keymap.h"

#include <QTest>

using parlex::gui::Command;
using parlex::gui::keyCommand;
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
        Command open;
    } cases[] = {
        {Qt::Key_Slash, Pad, Command::FirstRecord},
        {Qt::Key_Asterisk, Pad | Shift, Command::LastRecord},
        {Qt::Key_S, Alt, Command::Save},
        {Qt::Key_C, Alt, Command::Copy},
        {Qt::Key_Period, Pad | Ctrl, Command::DeleteStandard},
        {Qt::Key_Period, Pad, Command::Delete},
        {Qt::Key_Plus, Pad | Ctrl, Command::ForwardFive},
        {Qt::Key_Plus, Pad, Command::Next},
        {Qt::Key_Minus, Pad | Ctrl, Command::BackFive},
    };
    for (const auto& c : cases) {
        QCOMPARE(keyCommand(c.key, c.mods, true), c.open);
        QCOMPARE(keyCommand(c.key, c.mods, false), Command::None);
    }
    // Keys that always work.
    QCOMPARE(keyCommand(Qt::Key_F1, Ctrl, false), Command::SpeechInfo);
    QCOMPARE(keyCommand(Qt::Key_F2, Ctrl, false), Command::SpeechSaveAs);
    QCOMPARE(keyCommand(Qt::Key_F3, Ctrl, true), Command::PopupMenu);
    QCOMPARE(keyCommand(Qt::Key_X, Alt, false), Command::Exit);
}

void KeyMapTest::numericPadIsToldApartFromOtherKeys() {
    const struct {
        int numLockOn, numLockOff;
        Command action;
    } pad[] = {
        {Qt::Key_7, Qt::Key_Home, Command::PhraseHome},
        {Qt::Key_4, Qt::Key_Left, Command::PhraseBack},
        {Qt::Key_6, Qt::Key_Right, Command::PhraseNext},
        {Qt::Key_1, Qt::Key_End, Command::PhraseEnd},
        {Qt::Key_3, Qt::Key_PageDown, Command::PhraseFirstFilled},
        {Qt::Key_9, Qt::Key_PageUp, Command::PhraseLastFilled},
    };
    for (const auto& p : pad) {
        QCOMPARE(keyCommand(p.numLockOn, Pad, true), p.action);
        QCOMPARE(keyCommand(p.numLockOff, Pad, false), p.action);
        // The same keys off the pad belong to the text.
        QCOMPARE(keyCommand(p.numLockOn, Qt::NoModifier, true), Command::None);
        QCOMPARE(keyCommand(p.numLockOff, Qt::NoModifier, true), Command::None);
    }
    for (int digit : {Qt::Key_2, Qt::Key_5, Qt::Key_8, Qt::Key_0})
        QCOMPARE(keyCommand(digit, Pad, true), Command::None);
    QCOMPARE(keyCommand(Qt::Key_Plus, Qt::NoModifier, true), Command::None);
    QCOMPARE(keyCommand(Qt::Key_Delete, Qt::NoModifier, true), Command::None);
}

void KeyMapTest::f2SavesOnlyWithoutModifiers() {
    QCOMPARE(keyCommand(Qt::Key_F2, Qt::NoModifier, true), Command::Save);
    QCOMPARE(keyCommand(Qt::Key_F2, Shift, true), Command::None);
    QCOMPARE(keyCommand(Qt::Key_F2, Ctrl | Shift, true), Command::None);
    QCOMPARE(keyCommand(Qt::Key_F2, Ctrl, true), Command::SpeechSaveAs);
    QCOMPARE(keyCommand(Qt::Key_S, Alt | Shift, true), Command::None);
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
