#include "explain/fieldlayout.h"
#include "gui/scriptedprompts.h"
#include "gui/testclasses.h"
#include "mainwindow/bytegrid.h"
#include "mainwindow/mainwindow.h"
#include "npc/npcformat.h"
#include "platform/files.h"
#include "testutil.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTest>
#include <fstream>
#include <memory>

using namespace parlex;
using namespace parlex::gui;
using guitest::ScriptedPrompts;
using Answer = UserPrompts::Answer;

namespace {

struct Fixture {
    testutil::TempDir dir;
    ScriptedPrompts prompts;
    std::unique_ptr<MainWindow> window;
};
std::unique_ptr<Fixture> f;

MainWindow& win() {
    return *f->window;
}
template <typename T = QWidget> T* child(const QString& name) {
    return win().findChild<T*>(name);
}
QAction* act(const QString& name) {
    return win().findChild<QAction*>(name);
}
QString panel(const QString& bar, int i) {
    return child<QLabel>(bar + "_" + QString::number(i))->text();
}
QLabel* lbl(int i) {
    return child<QLabel>("Lbl" + QString::number(i));
}
QString info() {
    return child<QLabel>("LblInfo")->text();
}

QString write(const std::string& name, const std::vector<std::uint8_t>& bytes) {
    const auto path = f->dir / name;
    testutil::writeBytes(path, bytes);
    return QString::fromStdString(path.string());
}

// A "ub" script with some records filled from the neutral one.
std::vector<std::uint8_t> script(std::initializer_list<int> filled) {
    std::vector<std::uint8_t> bytes(1600, 0);
    for (int position : filled)
        std::copy(kNeutralRecord.begin(), kNeutralRecord.end(),
                  bytes.begin() + (position - 1) * 32);
    return bytes;
}

void hoverOn(int index) {
    QLabel* l = lbl(index);
    QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), l->mapToGlobal(QPointF(3, 3)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(l, &move);
}

void clickOn(int index, Qt::MouseButton button) {
    QLabel* l = lbl(index);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(3, 3), l->mapToGlobal(QPointF(3, 3)),
                      button, button, Qt::NoModifier);
    QApplication::sendEvent(l, &press);
}

void padKey(Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier, QWidget* to = nullptr) {
    QTest::keyClick(to ? to : &win(), key, mods | Qt::KeypadModifier);
}

bool open(const QString& path) {
    f->prompts.choose(path);
    return win().openFile();
}

const QColor kNormal() {
    return QApplication::palette().color(QPalette::Button);
}

} // namespace

void MainWindowTest::init() {
    f = std::make_unique<Fixture>();
    f->window = std::make_unique<MainWindow>(f->prompts, f->dir.path());
    win().show();
    win().activateWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&win()));
}

void MainWindowTest::cleanup() {
    QCOMPARE(f->prompts.unexpected, 0);
    f.reset();
}

void MainWindowTest::controlsAndMenusHaveTheirNamesAndStartStates() {
    for (int i = 0; i < 32; ++i)
        QVERIFY2(lbl(i), qPrintable("Lbl" + QString::number(i)));
    for (const char* name : {"LblInfo", "LblSize", "LblHelp", "List", "Txt", "TBar", "SBar",
                             "SBarD", "SBarInf", "Slider", "Frame", "Frame1", "Pic1", "Pic3"})
        QVERIFY2(child(name), name);
    QCOMPARE(win().windowTitle(), QString("PARLEX"));
    QVERIFY(!child<QSlider>("Slider")->isEnabled());
    for (const char* off :
         {"nSave", "nSaveAs", "nRec", "nCurrent", "nEdit", "nFrec", "nNext", "nPaste"})
        QVERIFY2(!act(off)->isEnabled(), off);
    for (const char* on : {"nOpen", "nNew", "nExit", "nSelect", "nOptions", "nReact", "nAbout"})
        QVERIFY2(act(on)->isEnabled(), on);
    QCOMPARE(act("nSave")->text(), QString("&Сохранить\tAlt+S (F2)"));
    QCOMPARE(act("nDelStand")->text(), QString("Удалит&ь стандартно\tCtrl+Numpad Del"));
    QCOMPARE(act("nNext")->text(), QString("С&ледующая\tNumpad + (Ctrl+Numpad +)"));
    QCOMPARE(act("nOq")->text(), QString("Коды Завершенных &квестов"));
    QCOMPARE(act("nTrig")->shortcut(), QKeySequence(Qt::Key_F5));
    QCOMPARE(act("nOpen")->shortcut(), QKeySequence("Ctrl+O"));
    QVERIFY(!act("TBar_SaveAs")->isEnabled());
    QVERIFY(!act("TBar_Print")->isEnabled());
    QCOMPARE(win().minimumSize(), QSize(600, 467));
}

void MainWindowTest::commandLineSizesAndHelpSwitches() {
    const QString good = write("053.npc", script({1}));
    const QString shortFile = write("short.npc", std::vector<std::uint8_t>(1599, 0));
    const QString longFile = write("long.npc", std::vector<std::uint8_t>(1601, 0));

    QVERIFY(win().start({shortFile}, "parlex"));
    QCOMPARE(f->prompts.messages.size(), size_t(1));
    QCOMPARE(f->prompts.messages[0].title, QString("PARLEX - ОШИБКА ЗАГРУЗКИ"));
    QCOMPARE(f->prompts.messages[0].text, "Размер файла " + shortFile + "\nменьше чем 1600 байт");
    QVERIFY(!win().document());
    QVERIFY(win().start({longFile}, "parlex"));
    QVERIFY(f->prompts.messages[1].text.endsWith("больше чем 1600 байт"));
    QVERIFY(!win().document());

    for (const char* helpSwitch : {"/HELP", "help", "/?", "?"}) {
        f->prompts.messages.clear();
        QVERIFY2(!win().start({helpSwitch}, "parlex"), helpSwitch);
        QCOMPARE(f->prompts.messages.size(), size_t(1));
        QCOMPARE(f->prompts.messages[0].title, QString("Parlex <DOS>"));
        QCOMPARE(f->prompts.messages[0].text,
                 QString("Usage:\n<parlex> <FileName> for open current file\n"
                         "<parlex> without parameters for run programm"));
    }
    f->prompts.messages.clear();
    QVERIFY(win().start({"/nonexistent/zzz"}, "parlex")); // ignored, no message
    QVERIFY(f->prompts.messages.empty());

    QVERIFY(win().start({good}, "parlex"));
    QVERIFY(win().document());
    QVERIFY(f->prompts.requests.empty()); // no dialog for a command-line file
    QCOMPARE(info(),
             QString("Эта запись будет срабатывать всегда, без передачи на стандартные записи"));
}

void MainWindowTest::openFromMenuShowsFileAndName() {
    const QString path = write("057.npc", script({3}));
    QVERIFY(open(path));
    const auto& request = f->prompts.requests.back();
    QCOMPARE(request.title, QString("ОТКРЫТИЕ NPC ФАЙЛА"));
    QCOMPARE(request.filters.size(), size_t(2));
    QCOMPARE(request.filters[1].text, QString("все файлы (*.*)"));
    QCOMPARE(panel("SBar", 2), path);
    QCOMPARE(panel("SBar", 3), QString("Мигель\\PGMale 4"));
    QVERIFY(child<QSlider>("Slider")->isEnabled());
    QVERIFY(act("nSave")->isEnabled());
    QVERIFY(act("nFrec")->isEnabled());
    QVERIFY(!act("nBack")->isEnabled()); // position 1
    QCOMPARE(lbl(0)->text(), QString("00"));
    QCOMPARE(info(), QString("Запись пустая"));
    // A second open while the slider stands at 20 shows record 20 of the new file.
    child<QSlider>("Slider")->setValue(20);
    auto bytes = script({20});
    bytes[19 * 32] = 0x04;
    QVERIFY(open(write("other.npc", bytes)));
    QCOMPARE(win().position(), 20);
    QCOMPARE(lbl(0)->text(), QString("04"));
    QCOMPARE(panel("SBar", 3), QString("other.npc"));
    // A wrong size is refused and the open document stays.
    QVERIFY(!open(write("bad.npc", std::vector<std::uint8_t>(10, 0))));
    QCOMPARE(f->prompts.messages.back().title, QString("Parlex"));
    QCOMPARE(win().document()->title(), std::string("other.npc"));
    // A cancelled dialog changes nothing and says nothing.
    const auto shown = f->prompts.messages.size();
    f->prompts.cancelDialog();
    QVERIFY(!win().openFile());
    QCOMPARE(f->prompts.messages.size(), shown);
}

void MainWindowTest::jaPositionFiftyHasNoRecord() {
    QVERIFY(open(write("ja.npc", testutil::jaBytes())));
    hoverOn(3);
    const QString position = panel("SBarInf", 1);
    child<QSlider>("Slider")->setValue(50);
    for (int i = 0; i < 32; ++i)
        QVERIFY(lbl(i)->text().isEmpty());
    QCOMPARE(info(), QString("Запись не существует"));
    QVERIFY(!act("nNext")->isEnabled());
    QVERIFY(act("nBack")->isEnabled());
    for (const char* off : {"nEdit", "nCopy", "nPaste", "nDel", "nDelStand"})
        QVERIFY2(!act(off)->isEnabled(), off);
    QCOMPARE(panel("SBarInf", 1), position);
    // The record commands do nothing there, also through the keys.
    padKey(Qt::Key_Period);
    QVERIFY(!win().document()->isChanged());
}

void MainWindowTest::hoverMarksTheFieldAndWritesPositionHelpAndSentence() {
    QVERIFY(open(write("h.npc", script({1}))));
    hoverOn(3);
    QCOMPARE(panel("SBarInf", 1), QString("01:04 (03-04 as Word)"));
    for (int i = 0; i < 32; ++i)
        QCOMPARE(child<ByteGrid>("Frame")->colour(i),
                 (i == 2 || i == 3) ? ByteGrid::kHover : kNormal());
    QVERIFY(
        child<QLabel>("LblHelp")->text().startsWith("Байты 03-04 (as Word) - Код получаемого НПЦ"));
    QCOMPARE(info(), QString("Запись не проверяет наличия предметов у НПЦ"));
    hoverOn(31);
    QCOMPARE(panel("SBarInf", 1), QString("01:32 (29-32 as Bytes)"));
    for (int i = 0; i < 32; ++i)
        QCOMPARE(child<ByteGrid>("Frame")->colour(i), i >= 28 ? ByteGrid::kHover : kNormal());
    hoverOn(12);
    QCOMPARE(panel("SBarInf", 1), QString("01:13 (13 as Byte)"));
    QCOMPARE(child<ByteGrid>("Frame")->colour(12), ByteGrid::kHover);
    QCOMPARE(child<ByteGrid>("Frame")->colour(11), kNormal());
    QCOMPARE(child<ByteGrid>("Frame")->colour(13), kNormal());
}

void MainWindowTest::pinSurvivesRecordChangesAndMovesOnLeftClick() {
    auto bytes = script({1, 2});
    bytes[32 + 12] = 50; // leadership 50 in record 2
    QVERIFY(open(write("p.npc", bytes)));
    auto* grid = child<ByteGrid>("Frame");
    hoverOn(12);
    clickOn(12, Qt::LeftButton); // not pinned: a left click does nothing
    QVERIFY(!win().isPinned());
    clickOn(12, Qt::RightButton);
    QVERIFY(win().isPinned());
    QCOMPARE(grid->colour(12), ByteGrid::kPinned);
    hoverOn(20); // the mouse moves on; the pinned field stays shown
    QCOMPARE(panel("SBarInf", 1), QString("01:13 (13 as Byte)"));
    QCOMPARE(grid->colour(20), kNormal());
    padKey(Qt::Key_Plus);
    QCOMPARE(win().position(), 2);
    QVERIFY(win().isPinned());
    QCOMPARE(grid->colour(12), ByteGrid::kPinned);
    QCOMPARE(panel("SBarInf", 1), QString("02:13 (13 as Byte)"));
    QCOMPARE(info(), QString("Запись сработает только если уровень лидерства говорящего с НПЦ "
                             "наемника будет не меньше чем 50"));
    clickOn(20, Qt::LeftButton); // the pin moves
    QCOMPARE(panel("SBarInf", 1), QString("02:21 (21-22 as Word)"));
    QCOMPARE(grid->colour(20), ByteGrid::kPinned);
    QCOMPARE(grid->colour(21), ByteGrid::kPinned);
    QCOMPARE(grid->colour(12), kNormal());
    clickOn(5, Qt::RightButton); // unpin: the field under the mouse is shown
    QVERIFY(!win().isPinned());
    QCOMPARE(panel("SBarInf", 1), QString("02:06 (05-06 as Word)"));
    QCOMPARE(grid->colour(4), ByteGrid::kHover);
}

void MainWindowTest::alertAndRemarkAreShown() {
    auto bytes = script({1});
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

void MainWindowTest::keysReachTheMapFromAnyControl() {
    QVERIFY(open(write("k.npc", script({2, 4}))));
    padKey(Qt::Key_Plus, Qt::NoModifier, child("Txt"));
    QCOMPARE(win().position(), 2);
    padKey(Qt::Key_Asterisk, Qt::NoModifier, child("List"));
    QCOMPARE(win().position(), 4);
    padKey(Qt::Key_Slash);
    QCOMPARE(win().position(), 2);
    padKey(Qt::Key_Minus);
    QCOMPARE(win().position(), 1);
    QCOMPARE(child<QPlainTextEdit>("Txt")->toPlainText(), QString()); // nothing typed into the pane
    // Speech keys have no file to work on yet.
    padKey(Qt::Key_6);
    QCOMPARE(panel("SBarD", 3), QString("Файл не открыт!"));
    QCOMPARE(f->prompts.beeps, 1);
    // F2 with Shift does not save; F2 alone does.
    padKey(Qt::Key_Period); // record 1 is empty: wiping it changes nothing
    QVERIFY(!win().document()->isChanged());
    win().lastRecord();
    padKey(Qt::Key_Period);
    QVERIFY(win().document()->isChanged());
    QTest::keyClick(&win(), Qt::Key_F2, Qt::ShiftModifier);
    QVERIFY(win().document()->isChanged());
    QTest::keyClick(&win(), Qt::Key_F2);
    QVERIFY(!win().document()->isChanged());
    QCOMPARE(testutil::readBytes(f->dir / "k.npc")[3 * 32 + 4], 0);
}

void MainWindowTest::ctrlStepsOfFive() {
    QVERIFY(open(write("c.npc", script({}))));
    auto* slider = child<QSlider>("Slider");
    const std::pair<int, int> forward[] = {{44, 49}, {45, 50}, {46, 50}};
    for (auto [from, to] : forward) {
        slider->setValue(from);
        padKey(Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(win().position(), to);
    }
    const std::pair<int, int> back[] = {{5, 1}, {6, 1}, {7, 2}};
    for (auto [from, to] : back) {
        slider->setValue(from);
        padKey(Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(win().position(), to);
    }
    // No non-empty record: first and last beep and stay.
    slider->setValue(7);
    padKey(Qt::Key_Slash);
    padKey(Qt::Key_Asterisk);
    QCOMPARE(win().position(), 7);
    QCOMPARE(f->prompts.beeps, 2);
}

void MainWindowTest::saveQuestionAnswers() {
    const QString path = write("q.npc", script({1}));
    QVERIFY(open(path));
    win().deleteRecord(false);
    QVERIFY(win().document()->isChanged());
    // Cancel: the new document is not made.
    f->prompts.answers = {Answer::Cancel};
    win().newFile();
    QCOMPARE(f->prompts.questions.back(), "Сохранть " + path + " ?");
    QVERIFY(!win().document()->isNew());
    // No: the changes are dropped.
    f->prompts.answers = {Answer::No};
    win().newFile();
    QVERIFY(win().document()->isNew());
    QCOMPARE(panel("SBar", 2), QString("Новый"));
    QCOMPARE(panel("SBar", 3), QString("Новый"));
    QVERIFY(!win().document()->isChanged()); // a new file closes without a question
    // Yes on a new document asks for a name and writes there.
    win().deleteRecord(true);
    f->prompts.answers = {Answer::Yes};
    f->prompts.choose(QString::fromStdString((f->dir / "saved.npc").string()));
    f->prompts.choose(path); // the open that follows
    QVERIFY(win().openFile());
    QCOMPARE(f->prompts.questions.back(), QString("Сохранть новый NPC файл?"));
    QCOMPARE(testutil::readBytes(f->dir / "saved.npc")[4], 0xFF);
    QCOMPARE(win().document()->title(), std::string("q.npc"));
    // Yes on an existing file saves it in place; a cancelled save-as stops the flow.
    win().deleteRecord(true);
    f->prompts.answers = {Answer::Yes};
    win().newFile();
    QVERIFY(win().document()->isNew());
    QCOMPARE(testutil::readBytes(path.toStdString())[4], 0xFF);
    win().deleteRecord(true);
    f->prompts.answers = {Answer::Yes};
    f->prompts.cancelDialog();
    QVERIFY(!win().openFile());
    QVERIFY(win().document()->isNew());
    // A save that fails keeps the changed document instead of dropping it.
    testutil::writeText(f->dir / "plain", "x");
    f->prompts.answers = {Answer::Yes};
    f->prompts.choose(QString::fromStdString((f->dir / "plain" / "x.npc").string()));
    QVERIFY(!win().close());
    QCOMPARE(f->prompts.messages.back().icon, UserPrompts::Icon::Critical);
    QVERIFY(f->prompts.messages.back().text.startsWith("Ошибка во время сохранения файла"));
    QVERIFY(win().document()->isChanged());
}

void MainWindowTest::closeAsksAndCancelKeepsTheWindow() {
    QVERIFY(open(write("x.npc", script({1}))));
    win().deleteRecord(false);
    f->prompts.answers = {Answer::Cancel};
    QVERIFY(!win().close());
    QVERIFY(win().isVisible());
    f->prompts.answers = {Answer::No};
    QVERIFY(win().close());
    QCOMPARE(f->prompts.questions.size(), size_t(2));
    QVERIFY(!win().recordBuffer().isFilled());
}

void MainWindowTest::saveAsChangesTypeAfterReload() {
    QVERIFY(open(write("t.npc", script({}))));
    NpcRecord r{};
    r[0] = 0x39, r[2] = 0x35, r[4] = 0x77;
    // Edit record 1 through the document, as the byte editor will.
    const_cast<NpcFile&>(*win().document()).setRecord(0, r);
    f->prompts.choose(QString::fromStdString((f->dir / "as.npc").string()));
    QCOMPARE(win().saveAs(), MainWindow::SaveOutcome::Saved);
    QCOMPARE(f->prompts.requests.back().title, QString("СОХРАНИТЬ NPC ФАЙЛ КАК..."));
    QCOMPARE(f->prompts.requests.back().proposedName, QString("t.npc"));
    QCOMPARE(win().document()->type(), NpcFileType::Ja);
    QCOMPARE(lbl(0)->text(), QString("77"));
    win().showCurrentInfo();
    QCOMPARE(f->prompts.messages.back().title, QString("Текущий файл..."));
    QCOMPARE(f->prompts.messages.back().text, QString("Тип файла:\nАгония Власти\nЗаписей: 1"));
}

void MainWindowTest::readOnlyDriveMessageAndDialogLoop() {
    // A read-only mount of this machine, if it has one.
    std::ifstream mounts("/proc/self/mounts");
    std::string device, dir, type, options, rest;
    std::string readOnly;
    while (mounts >> device >> dir >> type >> options && std::getline(mounts, rest))
        if ((options.starts_with("ro,") || options == "ro") && std::filesystem::is_directory(dir) &&
            platform::driveKind(dir) == platform::DriveKind::ReadOnly)
            readOnly = dir;
    if (readOnly.empty())
        QSKIP("no read-only file system on this machine");
    QVERIFY(open(write("ro.npc", script({1}))));
    f->prompts.choose(QString::fromStdString(readOnly + "/x.npc"));
    f->prompts.cancelDialog();
    QCOMPARE(win().saveAs(), MainWindow::SaveOutcome::Cancelled);
    QCOMPARE(f->prompts.requests.size(), size_t(3)); // open, then the dialog twice
    QVERIFY(f->prompts.messages.back().text.endsWith("\nтолько для чтения\nУкажите другой путь"));
}

void MainWindowTest::conversionOfTheOpenFileOntoItselfWithReload() {
    const QString path = write("conv.npc", script({1, 50}));
    QVERIFY(open(path));
    f->prompts.choose(path);            // the source
    f->prompts.choose(path, 1);         // the target, "Buka: АВ"
    f->prompts.answers = {Answer::Yes}; // reload
    win().convertLayout();
    QCOMPARE(f->prompts.requests[1].title, QString("ИЗМЕНЕНИЕ ФОРМАТА NPC ФАЙЛА"));
    QCOMPARE(f->prompts.requests[2].title,
             QString("ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:ENG., JA2UB:ENG. & RUS. СОХРАНИТЬ КАК..."));
    QCOMPARE(f->prompts.requests[2].filterIndex, 1);
    QCOMPARE(f->prompts.questions.back(),
             "Формат файла\n" + path + " был изменен.\nЗагрузить файл заново?");
    QCOMPARE(win().document()->type(), NpcFileType::Ja);
    child<QSlider>("Slider")->setValue(50);
    QCOMPARE(info(), QString("Запись не существует"));
    // Back again, choosing the layout the file already has first: refused, asked again.
    f->prompts.choose(path);
    f->prompts.choose(path, 1);        // "ja" again: refused
    f->prompts.choose(path, 2);        // "ub"
    f->prompts.answers = {Answer::No}; // keep the document as it is
    win().convertLayout();
    QCOMPARE(f->prompts.requests.back().filterIndex, 2);
    QCOMPARE(f->prompts.messages.back().icon, UserPrompts::Icon::Exclamation);
    QCOMPARE(win().document()->type(), NpcFileType::Ja);
    QCOMPARE(npcformat::detectType(testutil::readBytes(path.toStdString())), NpcFileType::Ub);
}

void MainWindowTest::recordCommandsAndChangeTest() {
    QVERIFY(open(write("rc.npc", script({2}))));
    win().deleteRecord(false); // record 1 is empty already
    QVERIFY(!win().document()->isChanged());
    win().deleteRecord(true);
    QVERIFY(win().document()->isChanged());
    QVERIFY(info() != QString("Запись пустая"));
    QCOMPARE(lbl(4)->text(), QString("FF"));
    win().deleteRecord(false);
    QVERIFY(!win().document()->isChanged());
    QCOMPARE(info(), QString("Запись пустая"));
    // Copy record 2 and paste it over record 5: grid and sentence follow at once.
    win().nextRecord();
    QTest::keyClick(&win(), Qt::Key_C, Qt::AltModifier);
    QVERIFY(act("nPaste")->isEnabled());
    child<QSlider>("Slider")->setValue(5);
    QCOMPARE(info(), QString("Запись пустая"));
    QTest::keyClick(&win(), Qt::Key_V, Qt::AltModifier);
    QCOMPARE(lbl(13)->text(), QString("FF"));
    QVERIFY(info() != QString("Запись пустая"));
    QVERIFY(win().document()->isChanged());
    padKey(Qt::Key_Period, Qt::ControlModifier); // standard wipe over an equal record
    QVERIFY(win().document()->isChanged());
    padKey(Qt::Key_Period);
    QVERIFY(!win().document()->isChanged());
    // The buffer outlives a load.
    QVERIFY(open(write("other.npc", script({}))));
    QVERIFY(act("nPaste")->isEnabled());
}

void MainWindowTest::listDisplayRowCounts() {
    auto* list = child<QListWidget>("List");
    const std::pair<const char*, int> menus[] = {{"nReact", 14}, {"nAction", 15}, {"nTrig", 500},
                                                 {"nName", 170}, {"nItem", 351},  {"nIq", 30},
                                                 {"nOq", 30}};
    for (auto [name, rows] : menus) {
        act(name)->trigger();
        QCOMPARE(list->count(), rows);
    }
    QCOMPARE(list->item(0)->text(),
             QString("№_0 (00) ") + QString::fromStdString(*builtInText(ListKey::Qo, 0)));
    QTest::keyClick(&win(), Qt::Key_F5);
    QCOMPARE(list->count(), 500);
    QCOMPARE(list->item(268)->text().left(14), QString("№_268 (0C 01) "));
}

void MainWindowTest::pathIsShortenedAtNarrowWidth() {
    std::filesystem::path deep = f->dir.path();
    for (const char* folder : {"a-rather-long-folder-name", "another-long-folder-name",
                               "yet-another-long-folder", "and-one-more-folder-name"})
        deep /= folder;
    std::filesystem::create_directories(deep);
    testutil::writeBytes(deep / "053.npc", script({1}));
    const QString full = QString::fromStdString((deep / "053.npc").string());
    win().resize(1600, 600);
    QVERIFY(open(full));
    QTest::qWait(20);
    QCOMPARE(panel("SBar", 2), full);
    win().resize(600, 467);
    QTest::qWait(20);
    const QString narrow = panel("SBar", 2);
    QVERIFY2(narrow.endsWith(".../053.npc"), qPrintable(narrow));
    QVERIFY(full.startsWith(narrow.left(narrow.size() - QString(".../053.npc").size())));
    QVERIFY(narrow.size() < full.size());
    win().resize(1600, 600);
    QTest::qWait(20);
    QCOMPARE(panel("SBar", 2), full);
}

void MainWindowTest::helpWithoutFileSaysSo() {
    win().openHelp();
    QCOMPARE(f->prompts.messages.back().text,
             QString("Не удается найти файл справки Parlex.html\n"
                     "Этот файл должен быть в папке с запускаемой програмой"));
    win().showAbout();
    QVERIFY(f->prompts.messages.back().text.startsWith("Parlex (v.2.02)\n"));
}

void MainWindowTest::helpLabelClicksCycleSizeAndAlignment() {
    auto* help = child<QLabel>("LblHelp");
    const int startSize = help->font().pointSize();
    QTest::mouseClick(help, Qt::LeftButton); // no text yet: nothing happens
    QCOMPARE(help->font().pointSize(), startSize);
    QVERIFY(open(write("l.npc", script({1}))));
    hoverOn(0);
    QVERIFY(!help->text().isEmpty());
    QCOMPARE(startSize, 8);
    for (int expected : {10, 12, 14, 8}) {
        QTest::mouseClick(help, Qt::LeftButton);
        QCOMPARE(help->font().pointSize(), expected);
    }
    for (Qt::AlignmentFlag expected : {Qt::AlignRight, Qt::AlignHCenter, Qt::AlignLeft}) {
        QTest::mouseClick(help, Qt::RightButton);
        QVERIFY(help->alignment().testFlag(expected));
    }
}
