#include "gui/mainwindow/mainwindow.h"

#include "gui/app/translations.h"

#include "core/explain/fieldlayout.h"
#include "gui/app/drawings.h"
#include "gui/app/startclock.h"
#include "gui/app/statuspanels.h"
#include "gui/codes/codelistpane.h"
#include "gui/mainwindow/bytegrid.h"
#include "gui/mainwindow/captionwarning.h"
#include "gui/mainwindow/explanationbar.h"
#include "gui/mainwindow/helppanel.h"
#include "gui/mainwindow/menus.h"
#include "gui/overview/overviewpane.h"
#include "gui/speech/speechpane.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
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
    StartClock::mark("window: session");
    setWindowTitle("PARLEX");
    setWindowIcon(programIcon());
    setMinimumSize(kMinWidth, kMinHeight);
    buildControls();
    menus_ = std::make_unique<MainMenus>(this);
    menus_->action("nOverview")->setCheckable(true);
    StartClock::mark("window: menus");
    wireMenus();
    wireSession();
    updateCommands();
    qApp->installEventFilter(this);
    StartClock::mark("window: wired");
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
    StartClock::mark("window: slider and byte grid");

    help_ = new HelpPanel(central);
    StartClock::mark("window: help panel");
    codes_ = new CodeListPane(session_.lists(), central);
    StartClock::mark("window: code-list pane");
    speech_ = new SpeechPane(session_.speech(), central);
    speech_->text()->installEventFilter(this);
    StartClock::mark("window: speech pane");

    paneBar_ = new QSplitter(Qt::Horizontal, central);
    paneBar_->setObjectName("Pic1");
    paneBar_->setChildrenCollapsible(false);
    paneBar_->addWidget(codes_);
    paneBar_->addWidget(speech_);
    paneBar_->setStretchFactor(0, 1);
    paneBar_->setStretchFactor(1, 2);
    paneBar_->setMinimumHeight(60);

    helpBar_ = new QSplitter(Qt::Vertical, central);
    helpBar_->setObjectName("Pic3");
    helpBar_->setChildrenCollapsible(false);
    helpBar_->addWidget(help_);
    helpBar_->addWidget(paneBar_);
    helpBar_->setStretchFactor(0, 0);
    helpBar_->setStretchFactor(1, 1);
    layout->addWidget(helpBar_, 1);

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
    StartClock::mark("window: bars and status panels");
}

void MainWindow::wireMenus() {
    for (const auto& [name, command] : kMenuCommands)
        connect(menus_->action(name), &QAction::triggered, this, [this, c = command] { run(c); });
    for (const auto& [name, caption, key] : kListMenus)
        connect(menus_->action(name), &QAction::triggered, codes_,
                [this, k = key] { codes_->showList(k); });
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
    // What shows the options shows them anew when they change: only what changed.
    const auto showOptions = [this](session::OptionChanges changed) {
        const Options& o = session_.options();
        if (changed.testFlag(session::OptionChange::HelpText)) {
            help_->setFontSize(o.helpFontSize);
            help_->setAlignmentIndex(o.helpAlignment);
        }
        if (changed.testFlag(session::OptionChange::ToolTips))
            help_->setToolTipsShown(o.toolTips);
        if (changed.testFlag(session::OptionChange::PhraseStyle))
            speech_->applyStyle();
        // The new translators tell every widget at once (changeEvent).
        if (changed.testFlag(session::OptionChange::Language)) {
            help_->setLanguage(o.language);
            applyLanguage(o.language);
        }
    };
    connect(&session_, &S::optionsChanged, this, showOptions);
    showOptions(session::OptionChange::HelpText | session::OptionChange::ToolTips |
                session::OptionChange::PhraseStyle);

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
    sbar_->setPicture(2, scriptIcon());
    if (script->isNew()) {
        sbar_->setText(2, tr("Новый"));
        sbar_->setText(3, tr("Новый"));
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
        script->isNew() ? tr("Новый").toStdString() : script->title()));
    sbar_->setText(3, shown);
    const QFontMetrics metrics(sbar_->label(3)->font());
    sbar_->label(3)->setToolTip(metrics.horizontalAdvance(shown) > kNameToolTip ? shown
                                                                                : QString());
}

// ---------------------------------------------------------------- close and keys

void MainWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) {
        menus_->retranslate();
        if (session_.script())
            documentReplaced();
        showField();
    }
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!session_.queryClose()) {
        event->ignore();
        return;
    }
    session_.shutdown();
    clipboard_.clearIfOurs();
    event->accept();
}

// The one table of what each command does, for its menu item and its keys alike.
OverviewPane* MainWindow::overviewPane(bool make) {
    if (overview_ || !make)
        return overview_;
    overview_ = new OverviewPane(session_, prompts_, this);
    addDockWidget(Qt::BottomDockWidgetArea, overview_);
    overview_->show();
    menus_->action("nOverview")->setChecked(true);
    connect(overview_, &QDockWidget::visibilityChanged, menus_->action("nOverview"),
            &QAction::setChecked);
    return overview_;
}

void MainWindow::toggleOverview() {
    if (overview_) {
        overview_->setVisible(!overview_->isVisible());
        return;
    }
    overviewPane(true);
    // The pane gets room of its own below; the grid and its panes keep theirs.
    if (!isMaximized() && !isFullScreen())
        resize(width(), height() + kOverviewHeight);
}

void MainWindow::run(Command command) {
    using C = Command;
    using Step = session::SpeechDocument::Step;
    const auto phrase = [this](Step step) {
        return [this, step] { session_.speech().step(step); };
    };
    const std::pair<C, std::function<void()>> commands[] = {
        {C::Open, [this] { session_.flows().open(); }},
        {C::New, [this] { session_.flows().newScript(); }},
        {C::Save, [this] { session_.flows().save(); }},
        {C::SaveAs, [this] { session_.flows().saveAs(); }},
        {C::Exit, [this] { close(); }},
        {C::FirstRecord, [this] { session_.cursor().firstRecord(); }},
        {C::LastRecord, [this] { session_.cursor().lastRecord(); }},
        {C::Next, [this] { session_.cursor().nextRecord(); }},
        {C::Back, [this] { session_.cursor().previousRecord(); }},
        {C::ForwardFive, [this] { session_.cursor().stepRecords(5); }},
        {C::BackFive, [this] { session_.cursor().stepRecords(-5); }},
        {C::DeleteStandard, [this] { session_.deleteRecord(true); }},
        {C::Delete, [this] { session_.deleteRecord(false); }},
        {C::Copy, [this] { session_.copyRecord(); }},
        {C::Paste, [this] { session_.pasteRecord(); }},
        {C::Undo, [this] { session_.undo(); }},
        {C::Redo, [this] { session_.redo(); }},
        {C::ConvertLayout, [this] { session_.flows().convertLayout(); }},
        {C::CurrentInfo, [this] { session_.flows().showCurrentInfo(); }},
        {C::Edit, [this] { openEditor({}); }},
        {C::Overview, [this] { toggleOverview(); }},
        {C::Options, [this] { openOptions(); }},
        {C::Help, [this] { openHelp(); }},
        {C::About, [this] { showAbout(); }},
        {C::SpeechInfo, [this] { speech_->showProperties(); }},
        {C::SpeechSaveAs, [this] { session_.speech().saveAs(); }},
        {C::PopupMenu, [this] { menus_->popup()->popup(QCursor::pos()); }},
        {C::PhraseColour, [this] { session_.choosePhraseColour(); }},
        {C::PhraseFont, [this] { session_.choosePhraseFont(); }},
        {C::PhraseHome, phrase(Step::Home)},
        {C::PhraseBack, phrase(Step::Back)},
        {C::PhraseNext, phrase(Step::Next)},
        {C::PhraseEnd, phrase(Step::End)},
        {C::PhraseFirstFilled, phrase(Step::FirstFilled)},
        {C::PhraseLastFilled, phrase(Step::LastFilled)},
    };
    for (const auto& [c, action] : commands)
        if (c == command)
            action();
}

// Keys reach the map first, whichever control of this window has the focus.
bool MainWindow::handleKey(QObject* watched, QKeyEvent* key) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != this || QApplication::activeModalWidget() ||
        QApplication::activePopupWidget())
        return false;
    const int latin =
        latinKey(key->key(), key->nativeScanCode(), key->nativeVirtualKey(), keySource_);
    const Command command = keyCommand(latin, key->modifiers(), session_.script() != nullptr);
    if (command == Command::None)
        return false;
    run(command);
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
            slider_->setToolTip(session_.options().toolTips && slider_->isEnabled()
                                    ? tr("Выбор записи")
                                    : QString());
        else if (watched == grid_)
            grid_->setToolTip(session_.options().toolTips && session_.cursor().currentRecord()
                                  ? tr("П. клик-выделить Дв. клик-редактировать")
                                  : QString());
        return false;
    default:
        return QMainWindow::eventFilter(watched, event);
    }
}

} // namespace parlex::gui
