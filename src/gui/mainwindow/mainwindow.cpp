#include "gui/mainwindow/mainwindow.h"

#include "core/explain/fieldlayout.h"
#include "gui/mainwindow/bytegrid.h"
#include "gui/mainwindow/captionwarning.h"
#include "gui/mainwindow/explanationbar.h"
#include "gui/mainwindow/helppanel.h"
#include "gui/mainwindow/menus.h"
#include "gui/mainwindow/statuspanels.h"
#include "gui/speech/speechpane.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSlider>
#include <QSplitter>
#include <QVBoxLayout>

namespace parlex::gui {
namespace {

using session::FieldMark;
using session::UserPrompts;

const QString kTitle = QString::fromUtf8(kMessageTitle);

QString q(const std::string& s) {
    return QString::fromStdString(s);
}

} // namespace

MainWindow::MainWindow(UserPrompts& prompts, std::filesystem::path programDir, QWidget* parent)
    : QMainWindow(parent), prompts_(prompts), session_(prompts, std::move(programDir)),
      keySource_(keySourceFor(QGuiApplication::platformName())) {
    setWindowTitle("PARLEX");
    setWindowIcon(QIcon(":/icons/org.parlex.Parlex.svg"));
    setMinimumSize(kMinWidth, kMinHeight);
    buildControls();
    menus_ = std::make_unique<MainMenus>(this);
    wireMenus();
    wireSession();
    updateCommands();
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow() {
    qApp->removeEventFilter(this);
}

// ---------------------------------------------------------------- building

void MainWindow::buildControls() {
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(4, 4, 4, 2);
    layout->setSpacing(3);

    slider_ = new QSlider(Qt::Horizontal, central);
    slider_->setObjectName("Slider");
    slider_->setRange(1, kPositions);
    slider_->setPageStep(5);
    slider_->setTickPosition(QSlider::TicksBelow);
    slider_->setMouseTracking(true);
    slider_->installEventFilter(this);
    layout->addWidget(slider_);

    grid_ = new ByteGrid(central);
    layout->addWidget(grid_);

    help_ = new HelpPanel(central);
    list_ = new QListWidget(central);
    list_->setObjectName("List");
    list_->setMinimumWidth(33);       // the splitter stops 500 twips from the left
    list_->setUniformItemSizes(true); // thousands of one-line rows: no measuring each
    speech_ = new SpeechPane(session_.speech(), central);
    speech_->text()->installEventFilter(this);

    auto* paneSplitter = new QSplitter(Qt::Horizontal, central);
    paneSplitter->setObjectName("Pic1");
    paneSplitter->setChildrenCollapsible(false);
    paneSplitter->addWidget(list_);
    paneSplitter->addWidget(speech_);
    paneSplitter->setStretchFactor(0, 1);
    paneSplitter->setStretchFactor(1, 2);
    paneSplitter->setMinimumHeight(60);

    auto* helpSplitter = new QSplitter(Qt::Vertical, central);
    helpSplitter->setObjectName("Pic3");
    helpSplitter->setChildrenCollapsible(false);
    helpSplitter->addWidget(help_);
    helpSplitter->addWidget(paneSplitter);
    helpSplitter->setStretchFactor(0, 0);
    helpSplitter->setStretchFactor(1, 1);
    layout->addWidget(helpSplitter, 1);

    explanation_ = new ExplanationBar(central);
    layout->addWidget(explanation_);
    sbarInf_ = new StatusPanels("SBarInf", 1, 1, central);
    layout->addWidget(sbarInf_);
    sbar_ = new StatusPanels("SBar", 3, 2, central);
    sbar_->label(1)->setFixedWidth(24);
    sbar_->label(3)->setMinimumWidth(120);
    sbar_->label(2)->installEventFilter(this); // the path is fitted anew when the panel resizes
    layout->addWidget(sbar_);

    setCentralWidget(central);
    resize(760, 560);
}

void MainWindow::wireMenus() {
    const std::pair<const char*, std::function<void()>> commands[] = {
        {"nOpen", [this] { session_.flows().open(); }},
        {"nNew", [this] { session_.flows().newScript(); }},
        {"nSave", [this] { session_.flows().save(); }},
        {"nSaveAs", [this] { session_.flows().saveAs(); }},
        {"nExit", [this] { close(); }},
        {"nFrec", [this] { session_.cursor().firstRecord(); }},
        {"nLrec", [this] { session_.cursor().lastRecord(); }},
        {"nNext", [this] { session_.cursor().nextRecord(); }},
        {"nBack", [this] { session_.cursor().previousRecord(); }},
        {"nDelStand", [this] { session_.deleteRecord(true); }},
        {"nDel", [this] { session_.deleteRecord(false); }},
        {"nCopy", [this] { session_.copyRecord(); }},
        {"nPaste", [this] { session_.pasteRecord(); }},
        {"nUndo", [this] { session_.undo(); }},
        {"nRedo", [this] { session_.redo(); }},
        {"nSelect", [this] { session_.flows().convertLayout(); }},
        {"nCurrent", [this] { session_.flows().showCurrentInfo(); }},
        {"nContecst", [this] { openHelp(); }},
        {"nAbout", [this] { showAbout(); }},
        {"nFon", [this] { session_.choosePhraseColour(); }},
        {"nFont", [this] { session_.choosePhraseFont(); }},
    };
    for (const auto& [name, run] : commands)
        connect(menus_->action(name), &QAction::triggered, this, run);
    for (const auto& [name, key] : kListMenus)
        connect(menus_->action(name), &QAction::triggered, this, [this, k = key] { showList(k); });
    connect(menus_->action("nEdit"), &QAction::triggered, this, [this] { openEditor({}); });
    connect(menus_->action("nOptions"), &QAction::triggered, this, [this] { openOptions(); });
}

void MainWindow::wireSession() {
    using S = session::Session;
    using Document = session::ScriptDocument;
    using Cursor = session::RecordCursor;
    session::RecordCursor* cursor = &session_.cursor();
    const session::ScriptDocument* document = &session_.document();
    connect(slider_, &QSlider::valueChanged, cursor, &Cursor::setPosition);
    connect(grid_, &ByteGrid::hovered, cursor, &Cursor::hover);
    connect(grid_, &ByteGrid::doubleClicked, this, [this](int index) { openEditor(index); });
    connect(grid_, &ByteGrid::pressed, this, [this](int index, Qt::MouseButton button) {
        session_.cursor().press(index, button == Qt::RightButton);
    });
    connect(help_, &HelpPanel::styleChanged, this, [this](int size, int alignment) {
        session_.updateOptions([&](Options& o) {
            o.helpFontSize = size;
            o.helpAlignment = alignment;
        });
    });
    // What shows the options shows them anew when they change (restored, chosen).
    const auto showOptions = [this] {
        help_->setFontSize(session_.options().helpFontSize);
        help_->setAlignmentIndex(session_.options().helpAlignment);
        help_->setToolTipsShown(session_.options().toolTips);
        speech_->applyStyle();
    };
    connect(&session_, &S::optionsChanged, this, showOptions);
    showOptions();

    connect(document, &Document::replaced, this, &MainWindow::documentReplaced);
    connect(cursor, &Cursor::positionChanged, this, [this](int position) {
        const QSignalBlocker block(slider_);
        slider_->setValue(position);
        showRecord();
    });
    connect(document, &Document::recordChanged, this, [this](int index) {
        if (index == session_.cursor().position() - 1)
            showRecord();
    });
    connect(cursor, &Cursor::fieldShown, this, &MainWindow::showField);
    connect(document, &Document::historyChanged, this, &MainWindow::updateCommands);
    connect(document, &Document::bufferChanged, this, &MainWindow::updateCommands);
    auto* warning = new CaptionWarning(this, windowTitle());
    connect(&session_.speech(), &session::SpeechDocument::companionMissing, warning,
            &CaptionWarning::start);
}

// ---------------------------------------------------------------- showing the session

void MainWindow::documentReplaced() {
    const NpcFile* script = session_.script();
    sbar_->setPicture(2, QIcon(":/icons/script.svg"));
    if (script->isNew()) {
        sbar_->setText(2, "Новый");
        sbar_->setText(3, "Новый");
    } else {
        updatePathPanel();
        sbar_->setText(3, q(script->title()));
    }
    updateNamePanel();
    showRecord();
}

void MainWindow::showRecord() {
    const NpcRecord* record = session_.cursor().currentRecord();
    grid_->showRecord(record ? std::optional<NpcRecord>(*record) : std::nullopt);
    updateCommands();
}

void MainWindow::showField() {
    const FieldMark mark = session_.cursor().mark();
    grid_->markField(mark == FieldMark::None ? std::nullopt
                                             : std::optional<int>(session_.cursor().markedByte()),
                     mark == FieldMark::Pinned ? ByteGrid::kPinned : ByteGrid::kHover);
    sbarInf_->setText(1, session_.cursor().positionText());
    if (const auto field = session_.cursor().shownField())
        help_->showFieldHelp(*field);
    explanation_->showExplanation(session_.cursor().explanation());
}

void MainWindow::updateCommands() {
    const bool open = session_.script() != nullptr;
    const bool shown = session_.cursor().currentRecord() != nullptr;
    const int position = session_.cursor().position();
    slider_->setEnabled(open);
    for (const char* name : {"nSave", "nSaveAs", "nRec", "nCurrent", "nFrec", "nLrec"})
        menus_->action(name)->setEnabled(open);
    menus_->action("nBack")->setEnabled(open && position > 1);
    menus_->action("nNext")->setEnabled(open && position < kPositions);
    for (const char* name : {"nEdit", "nCopy", "nDel", "nDelStand"})
        menus_->action(name)->setEnabled(shown);
    menus_->action("nPaste")->setEnabled(shown && session_.document().buffer().isFilled());
    menus_->action("nUndo")->setEnabled(session_.document().canUndo());
    menus_->action("nRedo")->setEnabled(session_.document().canRedo());
}

void MainWindow::updatePathPanel() {
    const NpcFile* script = session_.script();
    if (!script || script->isNew())
        return;
    sbar_->setPath(2, script->path(), kPathSpare);
}

void MainWindow::updateNamePanel() {
    const NpcFile* script = session_.script();
    const QString shown = q(session_.codeLists().characterNameForTitle(
        script->isNew() ? std::string("Новый") : script->title()));
    sbar_->setText(3, shown);
    const QFontMetrics metrics(sbar_->label(3)->font());
    sbar_->label(3)->setToolTip(metrics.horizontalAdvance(shown) > kNameToolTip ? shown
                                                                                : QString());
}

// ---------------------------------------------------------------- lists and help

void MainWindow::showList(ListKey key) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const std::vector<std::string> rows = session_.lists().rows(key);
    QStringList items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const auto& row : rows)
        items << q(row);
    list_->setUpdatesEnabled(false);
    list_->clear();
    list_->addItems(items);
    list_->setUpdatesEnabled(true);
    QApplication::restoreOverrideCursor();
}

void MainWindow::showFieldHelp(int fieldIndex) {
    help_->showFieldHelp(fieldIndex);
}

QString MainWindow::menuCaption(const char* name) const {
    return menus_->action(name)->text();
}

// ---------------------------------------------------------------- close and keys

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!session_.queryClose()) {
        event->ignore();
        return;
    }
    session_.shutdown();
    clipboard_.clearIfOurs();
    event->accept();
}

void MainWindow::runKey(KeyAction key) {
    using K = KeyAction;
    using Step = session::SpeechDocument::Step;
    const auto phraseKey = [this](Step step) {
        return [this, step] { session_.speech().step(step); };
    };
    const std::pair<K, std::function<void()>> actions[] = {
        {K::FirstRecord, [this] { session_.cursor().firstRecord(); }},
        {K::LastRecord, [this] { session_.cursor().lastRecord(); }},
        {K::Save, [this] { session_.flows().save(); }},
        {K::Copy, [this] { session_.copyRecord(); }},
        {K::Paste, [this] { session_.pasteRecord(); }},
        {K::DeleteStandard, [this] { session_.deleteRecord(true); }},
        {K::Delete, [this] { session_.deleteRecord(false); }},
        {K::ForwardFive, [this] { session_.cursor().stepRecords(5); }},
        {K::Next, [this] { session_.cursor().nextRecord(); }},
        {K::BackFive, [this] { session_.cursor().stepRecords(-5); }},
        {K::Back, [this] { session_.cursor().previousRecord(); }},
        {K::PopupMenu, [this] { menus_->popup()->popup(QCursor::pos()); }},
        {K::Exit, [this] { close(); }},
        {K::SpeechInfo, [this] { speech_->showProperties(); }},
        {K::SpeechSaveAs, [this] { session_.speech().saveAs(); }},
        {K::PhraseHome, phraseKey(Step::Home)},
        {K::PhraseBack, phraseKey(Step::Back)},
        {K::PhraseNext, phraseKey(Step::Next)},
        {K::PhraseEnd, phraseKey(Step::End)},
        {K::PhraseFirstFilled, phraseKey(Step::FirstFilled)},
        {K::PhraseLastFilled, phraseKey(Step::LastFilled)},
    };
    for (const auto& [k, run] : actions)
        if (k == key)
            run();
}

// Keys reach the map first, whichever control of this window has the focus.
bool MainWindow::handleKey(QObject* watched, QKeyEvent* key) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != this || QApplication::activeModalWidget() ||
        QApplication::activePopupWidget())
        return false;
    const int latin =
        latinKey(key->key(), key->nativeScanCode(), key->nativeVirtualKey(), keySource_);
    const KeyAction act = keyAction(latin, key->modifiers(), session_.script() != nullptr);
    if (act == KeyAction::None)
        return false;
    runKey(act);
    return true;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        return handleKey(watched, static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride:
        // In the speech text Ctrl+Z and Ctrl+Y undo typing, not record edits.
        if (watched == speech_->text()) {
            auto* key = static_cast<QKeyEvent*>(event);
            if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo) ||
                key->keyCombination() == QKeyCombination(Qt::ControlModifier, Qt::Key_Y)) {
                event->accept();
                return true;
            }
        }
        return false;
    case QEvent::Resize:
        if (watched == sbar_->label(2))
            updatePathPanel();
        return false;
    case QEvent::MouseMove:
        if (watched == slider_)
            slider_->setToolTip(session_.options().toolTips && slider_->isEnabled() ? "Выбор записи"
                                                                                    : QString());
        else if (auto* label = qobject_cast<QLabel*>(watched); label && label->parent() == grid_)
            label->setToolTip(session_.options().toolTips && session_.cursor().currentRecord()
                                  ? "П. клик-выделить Дв. клик-редактировать"
                                  : QString());
        return false;
    default:
        return QMainWindow::eventFilter(watched, event);
    }
}

} // namespace parlex::gui
