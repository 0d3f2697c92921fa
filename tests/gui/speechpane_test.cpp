// The speech pane as a user meets it: typing into a phrase, its counters and colour,
// the save button, the toolbar and the phrase keys, and byte 14 moving the pane. The
// flows behind the buttons are tested in the session.
#include "core/speech/edtfile.h"
#include "gui/mainwindow/captionwarning.h"
#include "gui/speech/filepropwindow.h"
#include "gui/speech/speechpane.h"
#include "windowtest.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QHelpEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>

using namespace parlex;
using namespace parlex::gui;

class SpeechPaneTest : public testutil::WindowTest {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void newDocumentsFromTheToolbar();
    void anOverLongPhraseIsRedAndCutOnSave();
    void phraseKeysMoveThePane();
    void padKeysOfCommandsTypeNothing();
    void decompilingOnlyForDialogues();
    void propertiesTellWhatTheFileHolds();
    void aMissingSpeechFileBlinksInTheCaption();
    void colourAndFontFromThePopUp();

private:
    SpeechPane* pane() { return win().findChild<SpeechPane*>(); }
    QPlainTextEdit* text() { return pane()->text(); }
    QString panel(int i) { return child<QLabel>("SBarD_" + QString::number(i))->text(); }
    void type(const QString& s) { QTest::keyClicks(text(), s); }
    session::SpeechDocument& speech() { return win().session().speech(); }
    // Opens a speech file of `kind` with the phrases given filled.
    void openEdt(const std::string& name, EdtKind kind,
                 std::vector<std::pair<int, const char*>> filled, std::size_t records = 0) {
        EdtFile file = EdtFile::makeNew(kind);
        for (const auto& [index, phrase] : filled)
            QVERIFY(file.setPhrase(index, phrase));
        auto bytes = file.toBytes();
        if (records)
            bytes.resize(records * file.info().recordSize);
        QVERIFY(speech().openPath(write(name, bytes).toStdString(), kind));
    }
};

void SpeechPaneTest::init() {
    makeWindow();
}

void SpeechPaneTest::cleanup() {
    f->prompts.answers = {session::UserPrompts::Answer::No, session::UserPrompts::Answer::No};
    QVERIFY(win().close());
    f.reset();
}

void SpeechPaneTest::newDocumentsFromTheToolbar() {
    QVERIFY(text()->isReadOnly());
    const char* const cases[][3] = {{"TBar_New", "(000:142)", "000:240"},
                                    {"TBar_New_Civ", "(00:14)", "000:160"}};
    for (const auto& [action, counter, length] : cases) {
        act(action)->trigger();
        QVERIFY(!text()->isReadOnly());
        QCOMPARE(panel(2), counter);
        QCOMPARE(panel(1), length);
        QCOMPARE(panel(3), "Новый");
        QVERIFY(act("TBar_SaveAs")->isEnabled());
    }
}

void SpeechPaneTest::anOverLongPhraseIsRedAndCutOnSave() {
    act("TBar_New_Civ")->trigger();
    type(QString(161, QChar('a')));
    QCOMPARE(panel(1), "161:160");
    QCOMPARE(text()->palette().color(QPalette::Text), QColor(255, 0, 0));
    f->prompts.choose(write("c.edt", {}));
    act("TBar_SaveAs")->trigger();
    QCOMPARE(panel(1), "160:160");
    QCOMPARE(text()->toPlainText().size(), 160);
    QVERIFY(text()->palette().color(QPalette::Text) != QColor(255, 0, 0));
    QVERIFY(!act("TBar_SaveAs")->isEnabled());
}

// The pad's phrase keys reach the steps (each step is the session's); the digits
// without a step type themselves.
void SpeechPaneTest::phraseKeysMoveThePane() {
    QTest::keyClick(text(), Qt::Key_6, Qt::KeypadModifier); // nothing open
    QCOMPARE(panel(3), "Файл не открыт!");
    openEdt("p.edt", EdtKind::NpcDialogues, {{9, "Девять"}});
    QTest::keyClick(text(), Qt::Key_3, Qt::KeypadModifier);
    QCOMPARE(panel(2), "(009:142)");
    QTest::keyClick(text(), Qt::Key_8, Qt::KeypadModifier); // 2, 5, 8 and 0 type their digit
    QCOMPARE(text()->toPlainText(), "Девять8");
}

// The pad's record keys type nothing in the text, even with no script open to use them.
void SpeechPaneTest::padKeysOfCommandsTypeNothing() {
    act("TBar_New")->trigger();
    for (int key : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Asterisk, Qt::Key_Slash, Qt::Key_Period,
                    Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(text(), Qt::Key(key), Qt::KeypadModifier);
    QCOMPARE(text()->toPlainText(), QString());
    QTest::keyClick(text(), Qt::Key_5, Qt::KeypadModifier);
    QTest::keyClick(text(), Qt::Key_Plus); // the main keyboard's plus types
    QCOMPARE(text()->toPlainText(), "5+");
}

void SpeechPaneTest::decompilingOnlyForDialogues() {
    QVERIFY(!act("TBar_Print")->isEnabled());
    act("TBar_New_Rem")->trigger();
    QVERIFY(!act("TBar_Print")->isEnabled());
    openEdt("d.edt", EdtKind::NpcDialogues, {});
    QVERIFY(act("TBar_Print")->isEnabled());
    f->prompts.choose(write("Quotes.txt", {}));
    act("TBar_Print")->trigger();
    QVERIFY(testutil::readBytes(f->dir / "Quotes.txt").size() > 143 * 80);
}

// The window shows the file's summary; the numbers themselves are the core's.
void SpeechPaneTest::propertiesTellWhatTheFileHolds() {
    openEdt("r.edt", EdtKind::Remarks, {{3, "c"}, {7, "g"}});
    speech().showPhrase(7);
    text()->clear();
    FilePropWindow window(speech(), false, &win());
    QCOMPARE(window.windowTitle(), "r.edt");
    const QStringList values{"Комментарии НПЦ", "1 (35)", "3", "3", "3840 байт", "1920 байт"};
    for (int i = 0; i < values.size(); ++i)
        QCOMPARE(window.value(i), values[i]);
    // The painted caption of a value reaches a screen reader with the value.
    QAccessibleInterface* count =
        QAccessible::queryAccessibleInterface(window.findChild<QLabel*>("Lbl1"));
    QCOMPARE(count->text(QAccessible::Name), window.value(1));
    QCOMPARE(count->text(QAccessible::Description), QString("Число существующих строк"));
    // Centred over the main window.
    QVERIFY(qAbs(window.frameGeometry().center().x() - win().frameGeometry().center().x()) <= 2);
}

void SpeechPaneTest::aMissingSpeechFileBlinksInTheCaption() {
    win().session().updateOptions([&](auto& o) { o.autoLoad = true; });
    openEdt("old.edt", EdtKind::NpcDialogues, {{0, "старый"}});
    QVERIFY(open(write("053.npc", testutil::script({1}))));
    const QString warning = "PARLEX    (Автозагрузка: Файл 053.EDT - не найден)";
    QCOMPARE(win().windowTitle(), warning);
    QCOMPARE(text()->toPlainText(), "старый"); // the old speech file stays
    auto* blink = win().findChild<CaptionWarning*>();
    QVERIFY(blink && blink->isRunning());
    const QString bare = "PARLEX";
    for (const QString& expected : {bare, warning, bare, warning, bare}) {
        blink->tick();
        QCOMPARE(win().windowTitle(), expected);
    }
    blink->tick(); // the fourth warning ends it at once
    QCOMPARE(win().windowTitle(), bare);
    QVERIFY(!blink->isRunning());
}

void SpeechPaneTest::colourAndFontFromThePopUp() {
    QTest::keyClick(text(), Qt::Key_F3, Qt::ControlModifier);
    auto* popup = child<QMenu>("nPopUp");
    QTRY_VERIFY(popup->isVisible());
    popup->hide();
    f->prompts.colourAnswer = 0xFFFF80;
    act("nFon")->trigger();
    QCOMPARE(text()->palette().color(QPalette::Base), QColor(0xFF, 0xFF, 0x80));
    openEdt("p.edt", EdtKind::NpcDialogues, {{1, "Один"}}); // the font shows with a phrase
    f->prompts.fontAnswer = TextFont{"Serif", 14, true, true};
    act("nFont")->trigger();
    QVERIFY(text()->font().bold() && text()->font().italic());
    f->prompts.fontAnswer.reset(); // cancelled: nothing changes
    act("nFont")->trigger();
    QCOMPARE(text()->font().pointSizeF(), 14.0);
}

QTEST_MAIN(SpeechPaneTest)
#include "speechpane_test.moc"
