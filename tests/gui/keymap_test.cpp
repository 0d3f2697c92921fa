#include "gui/testclasses.h"
#include "mainwindow/keymap.h"

#include <QTest>

using parlex::gui::KeyAction;
using parlex::gui::keyAction;

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
        {Qt::Key_V, Alt, KeyAction::Paste},
        {Qt::Key_Period, Pad | Ctrl, KeyAction::DeleteStandard},
        {Qt::Key_Delete, Pad | Ctrl, KeyAction::DeleteStandard}, // NumLock off
        {Qt::Key_Period, Pad, KeyAction::Delete},
        {Qt::Key_Period, Pad | Alt, KeyAction::Delete},
        {Qt::Key_Plus, Pad | Ctrl, KeyAction::ForwardFive},
        {Qt::Key_Plus, Pad, KeyAction::Next},
        {Qt::Key_Minus, Pad | Ctrl, KeyAction::BackFive},
        {Qt::Key_Minus, Pad | Shift, KeyAction::Back},
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
