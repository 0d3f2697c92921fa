// The main window as a user sees it: names, painting, keys, focus and layout. The
// flows behind the menus are tested in the session.
#include "core/explain/fieldlayout.h"
#include "gui/mainwindow/bytegrid.h"
#include "gui/mainwindow/helptext.h"
#include "gui/mainwindow/mainwindow.h"
#include "windowtest.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <functional>
#include <memory>

using namespace parlex;
using namespace parlex::gui;
using testutil::ScriptedPrompts;
using Answer = session::UserPrompts::Answer;

class MainWindowTest : public testutil::WindowTest {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void controlsAndMenusHaveTheirNamesAndStartStates();
    void openingShowsFileNameAndRecord();
    void hoverPaintsTheField_data();
    void hoverPaintsTheField();
    void pinIsYellowAndFollowsRecords();
    void alertAndRemarkAreShown();
    void longSentencesAreElidedWithTheirTextAsToolTip();
    void theGridTellsWhatClicksDoWhenToolTipsAreOn();
    void theLongestHelpTextCanBeReadWhole();
    void selfDrawnTextsAreReadByAssistiveTechnology();
    void keysReachTheMapFromAnyControl();
    void undoAndRedoFromTheMenuAndKeys();
    void pathIsShortenedAtNarrowWidth();
    void helpLabelClicksCycleSizeAndAlignment();
    void closeAsksAndCancelKeepsTheWindow();

private:
    QString panel(const QString& bar, int i) {
        return child<QLabel>(bar + "_" + QString::number(i))->text();
    }
    QColor normal() { return grid()->palette().color(QPalette::Button); }
    void padKey(Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier, QWidget* to = nullptr) {
        QTest::keyClick(to ? to : &win(), key, mods | Qt::KeypadModifier);
    }
};

void MainWindowTest::init() {
    makeWindow();
}

void MainWindowTest::cleanup() {
    QCOMPARE(f->prompts.unexpected, 0);
    f.reset();
}

void MainWindowTest::controlsAndMenusHaveTheirNamesAndStartStates() {
    for (int i = 0; i < 32; ++i)
        QVERIFY2(win().findChild<QObject*>("Lbl" + QString::number(i)),
                 qPrintable("Lbl" + QString::number(i)));
    for (const char* name : {"LblInfo", "LblSize", "LblHelp", "List", "Txt", "TBar", "SBar",
                             "SBarD", "SBarInf", "Slider", "Frame", "Frame1", "Pic1", "Pic3"})
        QVERIFY2(child(name), name);
    QCOMPARE(win().windowTitle(), QString("PARLEX"));
    QVERIFY(!child<QSlider>("Slider")->isEnabled());
    for (const char* off : {"nSave", "nSaveAs", "nRec", "nCurrent", "nEdit", "nFrec", "nNext",
                            "nPaste", "nUndo", "nRedo", "TBar_SaveAs", "TBar_Print"})
        QVERIFY2(!act(off)->isEnabled(), off);
    for (const char* on :
         {"nOpen", "nNew", "nExit", "nSelect", "nReact", "nAbout", "nOptions", "TBar_Info"})
        QVERIFY2(act(on)->isEnabled(), on);
    QCOMPARE(act("nRedo")->shortcuts(),
             (QList<QKeySequence>{QKeySequence("Ctrl+Y"), QKeySequence("Ctrl+Shift+Z")}));
    QCOMPARE(win().minimumSize(), QSize(600, 467));
    // No list is shown at start: the pane stands in for one until the first.
    QVERIFY(!child("List")->findChild<QListWidget*>());
    QCOMPARE(QAccessible::queryAccessibleInterface(child("List"))->role(), QAccessible::List);
    act("nReact")->trigger();
    QVERIFY(child("List")->findChild<QListWidget*>()->count() > 0);
}

void MainWindowTest::openingShowsFileNameAndRecord() {
    const QString path = write("057.npc", testutil::script({3}));
    QVERIFY(open(path));
    QCOMPARE(panel("SBar", 2), path);
    QCOMPARE(panel("SBar", 3), QString("Мигель\\PGMale 4"));
    QVERIFY(child("Slider")->isEnabled() && act("nSave")->isEnabled());
    QVERIFY(!act("nBack")->isEnabled());  // position 1
    QVERIFY(!act("nPaste")->isEnabled()); // nothing copied yet
    act("nCopy")->trigger();
    QVERIFY(act("nPaste")->isEnabled());
    QCOMPARE(cellText(0), QString("00"));
    QCOMPARE(info(), QString("Запись пустая"));
    QCOMPARE(panel("SBarInf", 1), QString("01:01 (01-02 as Word)"));
    child<QSlider>("Slider")->setValue(3);
    QCOMPARE(cellText(4), QString("FF"));
    QCOMPARE(panel("SBarInf", 1), QString("03:01 (01-02 as Word)"));
    QVERIFY(act("nBack")->isEnabled());
}

void MainWindowTest::hoverPaintsTheField_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("position");
    QTest::addColumn<QList<int>>("marked");
    QTest::addColumn<QString>("helpStart");
    QTest::newRow("word 03-04") << 3 << "01:04 (03-04 as Word)" << QList<int>{2, 3}
                                << "Байты 03-04 (as Word) - Код получаемого НПЦ";
    QTest::newRow("bytes 29-32") << 31 << "01:32 (29-32 as Bytes)" << QList<int>{28, 29, 30, 31}
                                 << "Байты 29-32";
    QTest::newRow("byte 13") << 12 << "01:13 (13 as Byte)" << QList<int>{12} << "Байт 13";
}

void MainWindowTest::hoverPaintsTheField() {
    QFETCH(int, index);
    QFETCH(QString, position);
    QFETCH(QList<int>, marked);
    QFETCH(QString, helpStart);
    QCOMPARE(ByteGrid::kHover, QColor(192, 255, 192)); // light green
    QVERIFY(open(write("h.npc", testutil::script({1}))));
    hoverOn(index);
    QCOMPARE(panel("SBarInf", 1), position);
    for (int i = 0; i < 32; ++i)
        QCOMPARE(grid()->colour(i), marked.contains(i) ? ByteGrid::kHover : normal());
    const QImage painted = grid()->grab().toImage(); // what is shown is what is painted
    for (int i = 0; i < 32; ++i)
        QCOMPARE(painted.pixelColor(grid()->cellRect(i).topLeft() + QPoint(2, 2)),
                 grid()->colour(i));
    QVERIFY2(child<HelpText>("LblHelp")->text().startsWith(helpStart),
             qPrintable(child<HelpText>("LblHelp")->text()));
}

void MainWindowTest::pinIsYellowAndFollowsRecords() {
    QVERIFY(open(write("p.npc", testutil::script({1, 2}))));
    hoverOn(12);
    clickOn(12, Qt::RightButton);
    hoverOn(20);
    padKey(Qt::Key_Plus); // the pin stays across records
    QCOMPARE(child<QSlider>("Slider")->value(), 2);
    QCOMPARE(std::pair(grid()->colour(12), grid()->colour(20)),
             std::pair(ByteGrid::kPinned, normal()));
    QCOMPARE(panel("SBarInf", 1), QString("02:13 (13 as Byte)"));
    clickOn(20, Qt::LeftButton); // the pin moves
    QCOMPARE(std::pair(grid()->colour(21), grid()->colour(12)),
             std::pair(ByteGrid::kPinned, normal()));
    clickOn(5, Qt::RightButton); // freed: the field under the mouse is shown
    QCOMPARE(grid()->colour(4), ByteGrid::kHover);
}

void MainWindowTest::alertAndRemarkAreShown() {
    auto bytes = testutil::script({1});
    bytes[0] = 3;                  // fire mode 3: a remark
    bytes[9] = 10, bytes[10] = 10; // days 10 to 10
    QVERIFY(open(write("r.npc", bytes)));
    hoverOn(0);
    QCOMPARE(info(), QString("№_3 "));
    auto* remark = child<QLabel>("LblSize");
    QVERIFY(remark->isVisible());
    QVERIFY(remark->font().bold());
    QCOMPARE(remark->text(), QString("(возможны только три значения: 0, 2 или 4)"));
    hoverOn(10);
    QCOMPARE(info(), QString("Запись не может сработать с 10 и до 10 дня!"));
    QCOMPARE(child<QLabel>("LblInfo")->palette().color(QPalette::WindowText), QColor(192, 0, 0));
    QVERIFY(!remark->isVisible()); // no stale remark
    hoverOn(2);
    QVERIFY(child<QLabel>("LblInfo")->palette().color(QPalette::WindowText) != QColor(192, 0, 0));
}

void MainWindowTest::longSentencesAreElidedWithTheirTextAsToolTip() {
    auto bytes = testutil::script({1});
    bytes[0] = 4; // once a day: one of the longest sentences
    QVERIFY(open(write("e.npc", bytes)));
    hoverOn(0);
    auto* sentence = child<QLabel>("LblInfo");
    win().resize(1600, 600);
    QTRY_VERIFY(sentence->toolTip().isEmpty());
    win().resize(600, 467);
    QTRY_COMPARE(sentence->toolTip(), sentence->text());
    QVERIFY(sentence->width() < sentence->fontMetrics().horizontalAdvance(sentence->text()));
    QVERIFY(sentence->geometry().right() < win().width());
}

void MainWindowTest::theGridTellsWhatClicksDoWhenToolTipsAreOn() {
    QVERIFY(open(write("t.npc", testutil::script({1}))));
    for (const bool on : {true, false}) {
        win().session().updateOptions([on](Options& o) { o.toolTips = on; });
        hoverOn(5);
        QCOMPARE(grid()->toolTip(),
                 on ? QString("П. клик-выделить Дв. клик-редактировать") : QString());
    }
}

// Either the help area shows the whole of the longest text, or it scrolls to it.
void MainWindowTest::theLongestHelpTextCanBeReadWhole() {
    QVERIFY(open(write("l.npc", testutil::script({1}))));
    auto* area = child<QScrollArea>("HelpArea");
    auto* help = child<HelpText>("LblHelp");
    std::pair<int, int> tallest{0, 0}; // pixels, field
    for (const auto& field : fieldTable()) {
        hoverOn(field.index);
        tallest = std::max(tallest, {help->heightForWidth(area->viewport()->width()), field.index});
    }
    hoverOn(tallest.second);
    QVERIFY2(area->viewport()->height() >= tallest.first ||
                 area->verticalScrollBar()->maximum() > 0,
             qPrintable(QString("field %1: %2 pixels").arg(tallest.second).arg(tallest.first)));
}

// What the window draws itself is published as static text whose name and value are
// the text shown at the moment of asking.
void MainWindowTest::selfDrawnTextsAreReadByAssistiveTechnology() {
    QVERIFY(open(write("a.npc", testutil::script({1}))));
    const auto reader = [&](const char* name) {
        return QAccessible::queryAccessibleInterface(child(name));
    };
    const char* const names[] = {"LblHelp", "LblInfo",   "LblSize", "SBarD_1", "SBarD_2",
                                 "SBarD_3", "SBarInf_1", "SBar_1",  "SBar_2",  "SBar_3"};
    for (int byte : {3, 19}) { // the item needed; byte 20, wrong
        hoverOn(byte);
        for (const char* name : names) {
            QAccessibleInterface* read = reader(name);
            QVERIFY2(read, name);
            QCOMPARE(read->role(), QAccessible::StaticText);
            const QString shown = child(name)->property("text").toString();
            QCOMPARE(read->text(QAccessible::Name), shown);
            QCOMPARE(read->text(QAccessible::Value), shown);
        }
    }
    QVERIFY(reader("LblHelp")->text(QAccessible::Name).startsWith("Байт 20"));
    QVERIFY(reader("LblInfo")->text(QAccessible::Name).startsWith("Данный байт"));
    QVERIFY(!reader("SBarInf_1")->text(QAccessible::Name).isEmpty());

    // The grid reads as a row of its 32 bytes, each where it is drawn.
    QAccessibleInterface* row = reader("Frame");
    QCOMPARE(row->childCount(), 32);
    for (int i : {0, 4, 31}) {
        QAccessibleInterface* cell = row->child(i);
        QCOMPARE(cell->object(), win().findChild<QObject*>("Lbl" + QString::number(i)));
        QCOMPARE(cell->role(), QAccessible::StaticText);
        QCOMPARE(cell->text(QAccessible::Name), cellText(i));
        QCOMPARE(row->indexOfChild(cell), i);
        QCOMPARE(cell->parent()->object(), grid());
        const QPoint centre = cell->rect().center();
        QCOMPARE(row->childAt(centre.x(), centre.y()), cell);
    }
    QCOMPARE(cellText(4), QString("FF"));
}

// Which key means what is the key map's; here: that keys reach it from any control.
void MainWindowTest::keysReachTheMapFromAnyControl() {
    QVERIFY(open(write("k.npc", testutil::script({2, 4}))));
    auto* slider = child<QSlider>("Slider");
    padKey(Qt::Key_Plus, Qt::NoModifier, child("Txt"));
    QCOMPARE(slider->value(), 2);
    padKey(Qt::Key_Asterisk, Qt::NoModifier, child("List"));
    QCOMPARE(slider->value(), 4);
    padKey(Qt::Key_Slash);
    QCOMPARE(slider->value(), 2);
    QCOMPARE(child<QPlainTextEdit>("Txt")->toPlainText(), QString()); // nothing typed into the pane
    padKey(Qt::Key_6);                                                // speech keys find no file
    QCOMPARE(f->prompts.beeps, 1);
    padKey(Qt::Key_Period);
    QTest::keyClick(&win(), Qt::Key_F2);
    QVERIFY(!changed());
    QCOMPARE(testutil::readBytes(f->dir / "k.npc")[32 + 4], 0);
}

// Ctrl+Z in the speech text is the text's own undo, not a record's.
void MainWindowTest::undoAndRedoFromTheMenuAndKeys() {
    QVERIFY(open(write("u.npc", testutil::script({1}))));
    padKey(Qt::Key_Period); // wipe record 1
    auto* text = child<QPlainTextEdit>("Txt");
    text->setFocus();
    QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(cellText(4), QString("00"));
    child("List")->setFocus();
    const std::pair<std::function<void()>, const char*> steps[] = {
        {[&] { QTest::keyClick(child("List"), Qt::Key_Z, Qt::ControlModifier); }, "FF"},
        {[&] { QTest::keyClick(&win(), Qt::Key_Y, Qt::ControlModifier); }, "00"},
        {[&] { act("nUndo")->trigger(); }, "FF"},
        {[&] { QTest::keyClick(&win(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); },
         "00"},
    };
    for (const auto& [step, byte] : steps) {
        step();
        QCOMPARE(cellText(4), QString(byte));
    }
    QVERIFY(changed());
}

void MainWindowTest::pathIsShortenedAtNarrowWidth() {
    std::filesystem::path deep = f->dir.path();
    for (const char* folder : {"a-rather-long-folder-name", "another-long-folder-name",
                               "yet-another-long-folder", "and-one-more-folder-name"})
        deep /= folder;
    std::filesystem::create_directories(deep);
    testutil::writeBytes(deep / "053.npc", testutil::script({1}));
    const QString full = QString::fromStdString((deep / "053.npc").string());
    win().resize(1600, 600);
    QVERIFY(open(full));
    QTRY_COMPARE(panel("SBar", 2), full);
    win().resize(600, 467);
    QTRY_VERIFY(panel("SBar", 2).endsWith(".../053.npc"));
}

void MainWindowTest::helpLabelClicksCycleSizeAndAlignment() {
    auto* help = child<HelpText>("LblHelp");
    const int startSize = help->font().pointSize();
    QTest::mouseClick(help, Qt::LeftButton); // no text yet: nothing happens
    QCOMPARE(help->font().pointSize(), startSize);
    QVERIFY(open(write("l.npc", testutil::script({1}))));
    QCOMPARE(startSize, 8);
    hoverOn(0);
    int height = help->heightForWidth(help->width());
    for (int expected : {10, 12, 14, 8}) {
        QTest::mouseClick(help, Qt::LeftButton);
        QCOMPARE(help->font().pointSize(), expected);
        // the kept line breaking follows the font: larger text, more height
        const int now = help->heightForWidth(help->width());
        QVERIFY2(expected == 8 ? now < height : now > height, qPrintable(QString::number(now)));
        height = now;
        QCOMPARE(win().session().options().helpFontSize, expected);
    }
    for (Qt::AlignmentFlag expected : {Qt::AlignRight, Qt::AlignHCenter, Qt::AlignLeft}) {
        QTest::mouseClick(help, Qt::RightButton);
        QVERIFY(help->alignment().testFlag(expected));
    }
}

void MainWindowTest::closeAsksAndCancelKeepsTheWindow() {
    QVERIFY(open(write("x.npc", testutil::script({1}))));
    padKey(Qt::Key_Period);
    f->prompts.answers = {Answer::Cancel};
    QVERIFY(!win().close());
    QVERIFY(win().isVisible());
    f->prompts.answers = {Answer::No};
    QVERIFY(win().close());
    QCOMPARE(f->prompts.questions.size(), size_t(2));
}

QTEST_MAIN(MainWindowTest)
#include "mainwindow_test.moc"
