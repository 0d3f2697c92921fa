// The byte editor as a user meets it: opening, typing, keys, Replace and Apply seen
// on the grid and in the document, the code lists, the clipboard and its place on
// the screen. The rules behind it are tested in the session and the core.
#include "gui/app/placement.h"
#include "gui/codes/codelistpane.h"
#include "gui/editor/editdialog.h"
#include "windowtest.h"

#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

using namespace parlex;
using namespace parlex::gui;

class EditDialogTest : public testutil::WindowTest {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void controlsHaveTheirNamesTextsAndStartStates();
    void typeReplaceApplyAndUndo();
    void theEntryTakesDigitsOnly();
    void outOfRangeIsRedAndOnlyBeeps();
    void lettersBAndWEncodeInTheirMode();
    void codeListsAreShownOnTheMainWindowAndScrolled();
    void greatestValuesAndTheClipboard();
    void closingShrinksAwayUnlessBlocked();

private:
    EditDialog* dialog() { return win().findChild<EditDialog*>(); }
    template <typename T = QWidget> T* in(const QString& name) {
        return dialog()->findChild<T*>(name);
    }
    QLineEdit* entry() { return in<QLineEdit>("Txt"); }
    QString encoded() { return in<QLabel>("Lbl3")->text(); }
    void click(const char* button) { QTest::mouseClick(in<QPushButton>(button), Qt::LeftButton); }
    void openOn(int byte) {
        hoverOn(byte);
        QTest::mouseDClick(grid(), Qt::LeftButton, Qt::NoModifier, cellCentre(byte));
        QVERIFY(dialog());
        QVERIFY(QTest::qWaitForWindowExposed(dialog()));
    }
    void closeDialog() {
        QPointer<EditDialog> d = dialog();
        d->reject();
        QTRY_VERIFY(d.isNull());
    }
};

void EditDialogTest::init() {
    makeWindow();
    win().session().updateOptions(
        [&](auto& o) { o.animationOff = true; }); // closes at once; one test plays it
    QVERIFY(open(write("e.npc", testutil::script({1, 2}))));
}

void EditDialogTest::cleanup() {
    if (dialog())
        closeDialog();
    QCOMPARE(f->prompts.unexpected, 0);
    f.reset();
}

void EditDialogTest::controlsHaveTheirNamesTextsAndStartStates() {
    openOn(12);
    for (const char* name : {"Lbl1", "Lbl2", "Lbl3", "Lbl4", "Lbl5", "Frame1", "Frame2", "Frame3",
                             "Img", "VS", "L_H", "L_D", "nPopUp", "Com3"})
        QVERIFY2(in<QObject>(name), name);
    for (const char* off : {"Com1", "Com2", "VS", "OptWord"})
        QVERIFY2(!in(off)->isEnabled(), off);
    QVERIFY(in<QRadioButton>("OptByte")->isEnabled());
    QCOMPARE(in<QListWidget>("List")->count(), 24);
    // the pop-up offers the main menu's code lists under their captions
    const QStringList main = {"nReact", "nAction", "nTrig", "nName", "nItem", "nIq", "nOq"};
    for (int i = 0; i < main.size(); ++i)
        QCOMPARE(in<QAction>("n" + QString::number(i + 1))->text(), act(main[i])->text());
}

void EditDialogTest::typeReplaceApplyAndUndo() {
    openOn(5); // bytes 05-06: a trigger
    QTest::keyClicks(entry(), "268");
    QCOMPARE(in<QLabel>("TxtMeaning")->text(),
             QString::fromStdString(win().session().codeLists().lookupCode(4, 268)));
    QTest::keyClick(entry(), Qt::Key_Return);
    QCOMPARE(encoded(), "0C 01");
    click("Com1");
    QCOMPARE(in<QLabel>("L_H")->text(), "0C 01");
    QCOMPARE(in<QLabel>("L_D")->text(), "268");
    QCOMPARE(cellText(4), "FF"); // the grid waits for Apply
    QVERIFY(in<QPushButton>("Com2")->isEnabled());
    QVERIFY(!changed());

    click("Com2");
    QVERIFY(dialog()); // Apply keeps the dialog open
    QVERIFY(!in<QPushButton>("Com2")->isEnabled());
    QCOMPARE(cellText(4), "0C");
    QCOMPARE(cellText(5), "01");
    QCOMPARE(win().session().cursor().currentRecord()->at(4), 0x0C);
    QVERIFY(info().contains("268"));
    QVERIFY(changed());
}

// Which key passes is the core's rule; here: that typing and the pad go through it.
void EditDialogTest::theEntryTakesDigitsOnly() {
    openOn(0);
    for (const QChar c : QString("1aф2")) { // as typed, whatever the alphabet
        const int key = c.isDigit() ? Qt::Key_0 + c.digitValue() : Qt::Key_unknown;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(entry(), &press);
    }
    // the numeric pad types digits here; the main window's keys wait for the dialog
    QTest::keyClick(entry(), Qt::Key_7, Qt::KeypadModifier);
    QTest::keyClick(entry(), Qt::Key_Plus, Qt::KeypadModifier);
    QCOMPARE(entry()->text(), "127");
    QCOMPARE(win().session().cursor().position(), 1);
    QCOMPARE(f->prompts.beeps, 0);
    entry()->setText("abc"); // as a paste from the context menu: no number at all
    QCOMPARE(entry()->text(), QString());
    QCOMPARE(f->prompts.beeps, 1);
}

void EditDialogTest::outOfRangeIsRedAndOnlyBeeps() {
    openOn(12); // a Byte
    QTest::keyClicks(entry(), "300");
    const QColor red(255, 0, 0);
    QCOMPARE(entry()->palette().color(QPalette::Text), red);
    QTest::keyClick(entry(), Qt::Key_Return);
    QCOMPARE(f->prompts.beeps, 1);
    QCOMPARE(encoded(), "");
    QVERIFY(!in<QPushButton>("Com1")->isEnabled());
    in<QListWidget>("List")->setCurrentRow(0); // a Word: 300 fits, without a key press
    QVERIFY(entry()->palette().color(QPalette::Text) != red);
    QTest::keyClick(entry(), Qt::Key_Return);
    QCOMPARE(encoded(), "2C 01");
    QVERIFY(in<QPushButton>("Com1")->isEnabled());
}

void EditDialogTest::lettersBAndWEncodeInTheirMode() {
    openOn(12);
    QTest::keyClicks(entry(), "10");
    QTest::keyClick(entry(), Qt::Key_W); // the Word button is the disabled one
    QCOMPARE(encoded(), "");
    QTest::keyClick(entry(), Qt::Key_B);
    QCOMPARE(encoded(), "0A");
    QCOMPARE(entry()->text(), "10");           // the letter itself is dropped
    in<QListWidget>("List")->setCurrentRow(1); // a Word
    in<QListWidget>("List")->setFocus();       // whichever control has the focus
    QTest::keyClick(in<QListWidget>("List"), Qt::Key_W);
    QCOMPARE(encoded(), "0A 00");
}

void EditDialogTest::codeListsAreShownOnTheMainWindowAndScrolled() {
    openOn(4);
    QTest::keyClick(entry(), Qt::Key_F5);
    auto* codes = &child<CodeListPane>("List")->rows();
    QCOMPARE(codes->count(), 500);
    auto* scroll = in<QScrollBar>("VS");
    QVERIFY(scroll->isEnabled());
    QCOMPARE(scroll->maximum(), 499);
    QCOMPARE(scroll->singleStep(), 10);
    scroll->triggerAction(QAbstractSlider::SliderPageStepAdd);
    scroll->triggerAction(QAbstractSlider::SliderPageStepAdd);
    QCOMPARE(codes->currentRow(), 20);
    in<QAction>("n1")->trigger(); // another list: back to its first row
    QCOMPARE(scroll->value(), 0);
    QCOMPARE(codes->currentRow(), 0);
    closeDialog();
    codes->setCurrentRow(7);
    openOn(4); // VS starts where the list is
    QCOMPARE(in<QScrollBar>("VS")->value(), 7);
}

void EditDialogTest::greatestValuesAndTheClipboard() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    for (bool userCopiedAfter : {false, true}) {
        clipboard->setText("the user's own text");
        openOn(12);                                            // a Byte
        QTest::mouseClick(in<QLabel>("Lbl4"), Qt::LeftButton); // the Word label: plain text
        QCOMPARE(entry()->text(), QString());
        QTest::mouseClick(in<QLabel>("Lbl5"), Qt::RightButton);
        QCOMPARE(clipboard->text(), "255");
        QTest::mouseClick(in<QLabel>("Lbl5"), Qt::LeftButton);
        QCOMPARE(entry()->text(), "255");
        QCOMPARE(encoded(), "FF");
        QTest::mouseClick(in<QLabel>("Lbl5"), Qt::RightButton);
        if (userCopiedAfter)
            clipboard->setText("copied meanwhile");
        closeDialog();
        QCOMPARE(clipboard->text(), userCopiedAfter ? "copied meanwhile" : QString());
    }
}

void EditDialogTest::closingShrinksAwayUnlessBlocked() {
    for (bool blocked : {true, false}) {
        win().session().updateOptions([&](auto& o) { o.animationOff = blocked; });
        openOn(0);
        QPointer<EditDialog> d = dialog();
        const QSize before = d->size();
        QTest::keyClick(entry(), Qt::Key_Tab); // moves on, types nothing
        QCOMPARE(entry()->text(), QString());
        QTest::keyClick(dialog()->focusWidget(), Qt::Key_Escape); // closes without a question
        if (blocked) {
            QTRY_VERIFY(d.isNull());
            continue;
        }
        QVERIFY(d && d->isVisible()); // still shrinking
        QTRY_VERIFY(d.isNull() || d->width() < before.width());
        QTRY_VERIFY(d.isNull());
    }
    QVERIFY(f->prompts.messages.empty());
}

QTEST_MAIN(EditDialogTest)
#include "editdialog_test.moc"
