// The byte editor as a user meets it: opening, typing, keys, Replace and Apply seen
// on the grid and in the document, the code lists, the clipboard and its place on
// the screen. The rules behind it are tested in the session and the core.
#include "gui/app/placement.h"
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
    void opensOnTheFieldOfTheByte_data();
    void opensOnTheFieldOfTheByte();
    void opensOnlyOnARecord();
    void controlsHaveTheirNamesTextsAndStartStates();
    void typeReplaceApplyAndUndo();
    void theEntryTakesDigitsOnly_data();
    void theEntryTakesDigitsOnly();
    void outOfRangeIsRedAndOnlyBeeps();
    void lettersBAndWEncodeInTheirMode();
    void codeListsAreShownOnTheMainWindowAndScrolled();
    void greatestValuesAndTheClipboard();
    void closingShrinksAwayUnlessBlocked();
    void placedOnTheScreen_data();
    void placedOnTheScreen();

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
        QTest::mouseDClick(lbl(byte), Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
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

void EditDialogTest::opensOnTheFieldOfTheByte_data() {
    QTest::addColumn<bool>("byMenu"); // Ctrl+E: the byte of the position text
    QTest::addColumn<int>("byte");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("hex");
    QTest::newRow("word, second byte") << false << 5 << "Байты 05-06"
                                       << "FF FF";
    QTest::newRow("word by Ctrl+E") << true << 21 << "Байты 21-22"
                                    << "FF FF";
    QTest::newRow("byte 13") << false << 12 << "Байт 13"
                             << "00";
    QTest::newRow("byte 31 its own row") << false << 30 << "Байт 31"
                                         << "00";
    QTest::newRow("byte 30 by Ctrl+E") << true << 29 << "Байт 30"
                                       << "00";
}

void EditDialogTest::opensOnTheFieldOfTheByte() {
    QFETCH(bool, byMenu);
    QFETCH(int, byte);
    QFETCH(QString, row);
    QFETCH(QString, hex);
    if (byMenu) {
        hoverOn(byte);
        QTest::keyClick(&win(), Qt::Key_E, Qt::ControlModifier);
        QTRY_VERIFY(dialog());
        QVERIFY(QTest::qWaitForWindowActive(dialog()));
    } else {
        openOn(byte);
    }
    QCOMPARE(in<QListWidget>("List")->currentItem()->text(), row);
    QCOMPARE(dialog()->windowTitle(), "Запись 01 : " + row);
    QCOMPARE(in<QLabel>("L_H")->text(), hex);
    QCOMPARE(dialog()->focusWidget(), entry());
    QVERIFY(dialog()->isModal());
}

void EditDialogTest::opensOnlyOnARecord() {
    QVERIFY(open(write("ja.npc", testutil::jaBytes())));
    win().session().cursor().setPosition(50); // no record there
    QTest::mouseDClick(lbl(3), Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
    QVERIFY(!act("nEdit")->isEnabled());
    act("nEdit")->trigger();
    QVERIFY(!dialog());
}

void EditDialogTest::controlsHaveTheirNamesTextsAndStartStates() {
    openOn(12);
    const std::pair<const char*, const char*> texts[] = {{"Lbl1", "Hex"},
                                                         {"Lbl2", "Dec"},
                                                         {"Lbl4", "(Максимум 65535)"},
                                                         {"Lbl5", "(255)"},
                                                         {"Lbl3", ""}};
    for (const auto& [name, text] : texts)
        QCOMPARE(in<QLabel>(name)->text(), QString(text));
    for (const char* name : {"Frame1", "Frame2", "Frame3", "Img", "VS", "L_H", "L_D", "nPopUp"})
        QVERIFY2(in<QObject>(name), name);
    QCOMPARE(in<QPushButton>("Com1")->text(), "&Заменить");
    QCOMPARE(in<QPushButton>("Com2")->text(), "&Применить");
    QCOMPARE(in<QPushButton>("Com3")->text(), "Закр&ыть");
    QVERIFY(!in<QPushButton>("Com1")->isEnabled());
    QVERIFY(!in<QPushButton>("Com2")->isEnabled());
    QVERIFY(!in<QScrollBar>("VS")->isEnabled());
    QVERIFY(in<QRadioButton>("OptByte")->isEnabled());
    QVERIFY(!in<QRadioButton>("OptWord")->isEnabled());
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
    QCOMPARE(lbl(4)->text(), "FF"); // the grid waits for Apply
    QVERIFY(in<QPushButton>("Com2")->isEnabled());
    QVERIFY(!changed());

    click("Com2");
    QVERIFY(dialog()); // Apply keeps the dialog open
    QVERIFY(!in<QPushButton>("Com2")->isEnabled());
    QCOMPARE(lbl(4)->text(), "0C");
    QCOMPARE(lbl(5)->text(), "01");
    QCOMPARE(win().session().cursor().currentRecord()->at(4), 0x0C);
    QVERIFY(info().contains("268"));
    QVERIFY(changed());
    closeDialog();

    act("nUndo")->trigger(); // one Apply, one step
    QCOMPARE(lbl(4)->text(), "FF");
    QCOMPARE(lbl(5)->text(), "FF");
    QVERIFY(!changed());
}

void EditDialogTest::theEntryTakesDigitsOnly_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::newRow("digits") << "0123"
                            << "0123";
    QTest::newRow("letters and signs") << "1a-2.+3 e"
                                       << "123";
    QTest::newRow("cyrillic") << "4ф5ы"
                              << "45";
}

void EditDialogTest::theEntryTakesDigitsOnly() {
    QFETCH(QString, typed);
    QFETCH(QString, kept);
    openOn(0);
    for (const QChar c : typed) { // as typed, whatever the alphabet
        QKeyEvent press(QEvent::KeyPress,
                        c.isDigit() ? Qt::Key_0 + c.digitValue() : Qt::Key_unknown, Qt::NoModifier,
                        QString(c));
        QApplication::sendEvent(entry(), &press);
    }
    QCOMPARE(entry()->text(), kept);
    // the numeric pad types digits here; the main window's keys wait for the dialog
    QTest::keyClick(entry(), Qt::Key_7, Qt::KeypadModifier);
    QTest::keyClick(entry(), Qt::Key_Plus, Qt::KeypadModifier);
    QCOMPARE(entry()->text(), kept + "7");
    QCOMPARE(win().session().cursor().position(), 1);
    QCOMPARE(f->prompts.beeps, 0);
    QTest::keyClick(entry(), Qt::Key_Backspace);
    QTest::keyClick(entry(), Qt::Key_V, Qt::ControlModifier); // no paste by the keyboard
    QCOMPARE(entry()->text(), kept);
    QTest::keyClick(entry(), Qt::Key_Backspace);
    QCOMPARE(entry()->text(), kept.chopped(1));
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
    QCOMPARE(entry()->text(), "10");                    // the letter itself is dropped
    QVERIFY(!in<QRadioButton>("OptByte")->isChecked()); // the option never stays marked
    in<QListWidget>("List")->setCurrentRow(1);
    QVERIFY(!in<QPushButton>("Com1")->isEnabled()); // a Byte text on a Word row
    in<QListWidget>("List")->setFocus();            // whichever control has the focus
    QTest::keyClick(in<QListWidget>("List"), Qt::Key_W);
    QCOMPARE(encoded(), "0A 00");
    QVERIFY(in<QPushButton>("Com1")->isEnabled());
}

void EditDialogTest::codeListsAreShownOnTheMainWindowAndScrolled() {
    openOn(4);
    QTest::keyClick(entry(), Qt::Key_F5);
    auto* codes = child<QListWidget>("List");
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

void EditDialogTest::placedOnTheScreen_data() {
    QTest::addColumn<QRect>("main");
    QTest::addColumn<QPoint>("expected");
    const QRect screen(0, 0, 1024, 768); // the dialog is 400 x 300
    QTest::newRow("centred") << QRect(100, 100, 760, 560) << QPoint(280, 230);
    QTest::newRow("right part sticks out: stays") << QRect(700, 100, 760, 560) << QPoint(880, 230);
    QTest::newRow("left beyond the edge") << QRect(1100, 100, 760, 560) << QPoint(617, 230);
    QTest::newRow("left below 0") << QRect(-500, 100, 760, 560) << QPoint(7, 230);
    QTest::newRow("top beyond the edge") << QRect(100, 900, 760, 560) << QPoint(280, 395);
    QTest::newRow("top below 0") << QRect(100, -400, 760, 100) << QPoint(280, 7);
}

void EditDialogTest::placedOnTheScreen() {
    QFETCH(QRect, main);
    QFETCH(QPoint, expected);
    QCOMPARE(centredOver(main, QSize(400, 300), QRect(0, 0, 1024, 768)), expected);
}

QTEST_MAIN(EditDialogTest)
#include "editdialog_test.moc"
