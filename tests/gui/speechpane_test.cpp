// The speech pane as a user meets it: typing into a phrase, its counters and colour,
// the save button, the toolbar and the phrase keys, and byte 14 moving the pane. The
// flows behind the buttons are tested in the session.
#include "speech/edtfile.h"
#include "speech/speechpane.h"
#include "windowtest.h"

#include <QPlainTextEdit>

using namespace parlex;
using namespace parlex::gui;

class SpeechPaneTest : public testutil::WindowTest {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void newDocumentsFromTheToolbar_data();
    void newDocumentsFromTheToolbar();
    void anOverLongPhraseIsRedAndCutOnSave();
    void pastedLinesBecomeOnePhrase();
    void typingBackMakesAFileUnchanged();
    void phraseKeysAndByteFourteenMoveThePane();

private:
    SpeechPane* pane() { return win().findChild<SpeechPane*>(); }
    QPlainTextEdit* text() { return pane()->text(); }
    QString panel(int i) { return child<QLabel>("SBarD_" + QString::number(i))->text(); }
    void type(const QString& s) { QTest::keyClicks(text(), s); }
};

void SpeechPaneTest::init() {
    makeWindow();
}

void SpeechPaneTest::cleanup() {
    f->prompts.answers = {session::UserPrompts::Answer::No, session::UserPrompts::Answer::No};
    QVERIFY(win().close());
    f.reset();
}

void SpeechPaneTest::newDocumentsFromTheToolbar_data() {
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("counter");
    QTest::addColumn<QString>("length");
    QTest::newRow("NPC dialogues") << "TBar_New"
                                   << "(000:142)"
                                   << "000:240";
    QTest::newRow("remarks") << "TBar_New_Rem"
                             << "(00:34)"
                             << "000:240";
    QTest::newRow("civilian") << "TBar_New_Civ"
                              << "(00:14)"
                              << "000:160";
}

void SpeechPaneTest::newDocumentsFromTheToolbar() {
    QFETCH(QString, action);
    QFETCH(QString, counter);
    QFETCH(QString, length);
    QVERIFY(text()->isReadOnly());
    win().findChild<QAction*>(action)->trigger();
    QVERIFY(!text()->isReadOnly());
    QCOMPARE(panel(2), counter);
    QCOMPARE(panel(1), length);
    QCOMPARE(panel(3), "Новый");
    QVERIFY(act("TBar_SaveAs")->isEnabled());
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

void SpeechPaneTest::pastedLinesBecomeOnePhrase() {
    act("TBar_New")->trigger();
    text()->insertPlainText("первая\nвторая");
    QCOMPARE(text()->toPlainText(), "перваявторая");
    QCOMPARE(QString::fromStdString(win().session().speech().file()->phrase(0)), "перваявторая");
    QTest::keyClick(text(), Qt::Key_Return); // Enter makes no line either
    QCOMPARE(text()->toPlainText(), "перваявторая");
}

void SpeechPaneTest::typingBackMakesAFileUnchanged() {
    EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
    QVERIFY(file.setPhrase(0, "Hi"));
    QVERIFY(win().session().speech().openPath(write("d.edt", file.toBytes()).toStdString(),
                                              EdtKind::NpcDialogues));
    QVERIFY(!act("TBar_SaveAs")->isEnabled());
    text()->moveCursor(QTextCursor::End);
    type("!");
    QVERIFY(act("TBar_SaveAs")->isEnabled());
    QTest::keyClick(text(), Qt::Key_Backspace);
    QVERIFY(!act("TBar_SaveAs")->isEnabled()); // in a file: back to unchanged
    act("TBar_New")->trigger();
    type("x");
    QTest::keyClick(text(), Qt::Key_Backspace);
    QVERIFY(act("TBar_SaveAs")->isEnabled()); // a new document: always
}

void SpeechPaneTest::phraseKeysAndByteFourteenMoveThePane() {
    QTest::keyClick(text(), Qt::Key_6, Qt::KeypadModifier); // nothing open
    QCOMPARE(panel(3), "Файл не открыт!");
    QCOMPARE(f->prompts.beeps, 1);
    auto bytes = testutil::script({1});
    bytes[13] = 9; // the record speaks phrase 9
    QVERIFY(open(write("p.npc", bytes)));
    EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
    QVERIFY(file.setPhrase(9, "Девять"));
    QVERIFY(win().session().speech().openPath(write("p.edt", file.toBytes()).toStdString(),
                                              EdtKind::NpcDialogues));
    hoverOn(13);
    QCOMPARE(text()->toPlainText(), "Девять");
    QCOMPARE(panel(2), "(009:142)");
    QTest::keyClick(text(), Qt::Key_6, Qt::KeypadModifier);
    QCOMPARE(panel(2), "(010:142)");
    QCOMPARE(text()->toPlainText(), QString()); // the key typed nothing
    QTest::keyClick(text(), Qt::Key_1, Qt::KeypadModifier);
    QCOMPARE(panel(2), "(142:142)");
    QTest::keyClick(text(), Qt::Key_3, Qt::KeypadModifier);
    QCOMPARE(panel(2), "(009:142)");
}

QTEST_MAIN(SpeechPaneTest)
#include "speechpane_test.moc"
