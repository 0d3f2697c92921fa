#include "mainwindow/mainwindow.h"

#include "codelists/resources.h"
#include "explain/fieldlayout.h"
#include "mainwindow/bytegrid.h"
#include "mainwindow/statuspanels.h"
#include "platform/files.h"
#include "text/numbers.h"
#include "text/pathfit.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSlider>
#include <QSplitter>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

namespace parlex::gui {
namespace {

const QString kTitle = QString::fromUtf8(kMessageTitle);
const QString kNew = "Новый";
const QString kNotOpen = "Файл не открыт!";
const QColor kAlert{192, 0, 0};

QString q(const std::string& s) {
    return QString::fromStdString(s);
}
std::filesystem::path fsPath(const QString& s) {
    return std::filesystem::path(s.toStdString());
}

bool samePath(const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code ea, eb;
    const auto ca = std::filesystem::weakly_canonical(a, ea);
    const auto cb = std::filesystem::weakly_canonical(b, eb);
    return (ea ? a : ca) == (eb ? b : cb);
}

const std::vector<UserPrompts::Filter> kNpcOpenFilters = {{"*.npc", "*.npc"},
                                                          {"все файлы (*.*)", "*"}};

} // namespace

MainWindow::MainWindow(UserPrompts& prompts, std::filesystem::path programDir, QWidget* parent)
    : QMainWindow(parent), prompts_(prompts), programDir_(std::move(programDir)),
      lists_(programDir_) {
    setWindowTitle("PARLEX");
    setMinimumSize(kMinWidth, kMinHeight);
    buildControls();
    buildMenus();
    setScriptCommandsEnabled();
    qApp->installEventFilter(this);
}

MainWindow::~MainWindow() {
    qApp->removeEventFilter(this);
}

// ---------------------------------------------------------------- building

QAction* MainWindow::addItem(QMenu* menu, const QString& name, const QString& caption,
                             const QString& hotKeys, const QKeySequence& shortcut) {
    auto* item = menu->addAction(hotKeys.isEmpty() ? caption : caption + "\t" + hotKeys);
    item->setObjectName(name);
    if (!shortcut.isEmpty())
        item->setShortcut(shortcut);
    return item;
}

QAction* MainWindow::action(const QString& name) const {
    return findChild<QAction*>(name);
}

void MainWindow::buildMenus() {
    QMenuBar* bar = menuBar();
    auto menu = [&](const QString& name, const QString& caption) {
        QMenu* m = bar->addMenu(caption);
        m->setObjectName(name);
        m->menuAction()->setObjectName(name);
        return m;
    };

    QMenu* file = menu("nFile", "&Файл");
    connect(addItem(file, "nOpen", "&Открыть...", {}, QKeySequence("Ctrl+O")), &QAction::triggered,
            this, [this] { openFile(); });
    connect(addItem(file, "nNew", "Созд&ать", {}, QKeySequence("Ctrl+N")), &QAction::triggered,
            this, &MainWindow::newFile);
    connect(addItem(file, "nSave", "&Сохранить", "Alt+S (F2)"), &QAction::triggered, this,
            [this] { save(); });
    connect(addItem(file, "nSaveAs", "Сохранить &как...", {}, QKeySequence("Ctrl+S")),
            &QAction::triggered, this, [this] { saveAs(); });
    file->addSeparator()->setObjectName("n1");
    connect(addItem(file, "nExit", "В&ыход", "Alt+X"), &QAction::triggered, this, &QWidget::close);

    QMenu* rec = menu("nRec", "&Запись");
    connect(addItem(rec, "nFrec", "Перейти к пе&рвой", "Numpad /"), &QAction::triggered, this,
            &MainWindow::firstRecord);
    connect(addItem(rec, "nLrec", "Перейти к п&оследней", "Numpad *"), &QAction::triggered, this,
            &MainWindow::lastRecord);
    connect(addItem(rec, "nNext", "С&ледующая", "Numpad + (Ctrl+Numpad +)"), &QAction::triggered,
            this, &MainWindow::nextRecord);
    connect(addItem(rec, "nBack", "Пре&дыдущая", "Numpad - (Ctrl+Numpad -)"), &QAction::triggered,
            this, &MainWindow::previousRecord);
    rec->addSeparator()->setObjectName("n2");
    connect(addItem(rec, "nDelStand", "Удалит&ь стандартно", "Ctrl+Numpad Del"),
            &QAction::triggered, this, [this] { deleteRecord(true); });
    connect(addItem(rec, "nDel", "&Удалить полностью", "Numpad Del"), &QAction::triggered, this,
            [this] { deleteRecord(false); });
    connect(addItem(rec, "nCopy", "&Копировать", "Alt+C"), &QAction::triggered, this,
            &MainWindow::copyRecord);
    connect(addItem(rec, "nPaste", "Вст&авить", "Alt+V"), &QAction::triggered, this,
            &MainWindow::pasteRecord);

    QMenu* tools = menu("nTools", "&Инструменты");
    QMenu* type = tools->addMenu("&Тип файла");
    type->setObjectName("nType");
    type->menuAction()->setObjectName("nType");
    connect(addItem(type, "nSelect", "Выбрать и &Изменить", {}, QKeySequence("Ctrl+F11")),
            &QAction::triggered, this, &MainWindow::convertLayout);
    connect(addItem(type, "nCurrent", "&Текущий", {}, QKeySequence("Ctrl+F12")),
            &QAction::triggered, this, &MainWindow::showCurrentInfo);
    // The byte editor comes with its own dialog; until then the command does nothing.
    addItem(tools, "nEdit", "&Редактировать", {}, QKeySequence("Ctrl+E"));
    tools->addSeparator()->setObjectName("n3");
    addItem(tools, "nOptions", "&Параметры", {}, QKeySequence("Ctrl+P"));

    QMenu* keys = menu("nKeys", "&Коды");
    const struct {
        const char* name;
        const char* caption;
        ListKey key;
        Qt::Key shortcut;
    } lists[] = {
        {"nReact", "Коды &Реакций", ListKey::R, Qt::Key_F3},
        {"nAction", "Коды &Воздействий", ListKey::A, Qt::Key_F4},
        {"nTrig", "Коды &Триггеров", ListKey::T, Qt::Key_F5},
        {"nName", "Список &Имен", ListKey::N, Qt::Key_F6},
        {"nItem", "Коды &Предметов", ListKey::I, Qt::Key_F7},
        {"nIq", "Коды При&немаемых квестов", ListKey::Qi, Qt::Key_F8},
        {"nOq", "Коды Завершенных &квестов", ListKey::Qo, Qt::Key_F9},
    };
    for (const auto& l : lists) {
        if (l.key == ListKey::T)
            keys->addSeparator()->setObjectName("n4");
        const ListKey key = l.key;
        connect(addItem(keys, l.name, l.caption, {}, QKeySequence(l.shortcut)), &QAction::triggered,
                this, [this, key] { showList(key); });
    }

    QMenu* help = menu("nHelp", "Помо&щь");
    connect(addItem(help, "nContecst", "&Справка", {}, QKeySequence(Qt::Key_F1)),
            &QAction::triggered, this, &MainWindow::openHelp);
    help->addSeparator()->setObjectName("n5");
    connect(addItem(help, "nAbout", "&О Программе..."), &QAction::triggered, this,
            &MainWindow::showAbout);

    popup_ = new QMenu(this);
    popup_->setObjectName("nPopUp");
    addItem(popup_, "nFon", "&Фон Текста");
    addItem(popup_, "nFont", "&Шрифт Текста");
}

void MainWindow::buildControls() {
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(4, 4, 4, 2);
    layout->setSpacing(3);

    slider_ = new QSlider(Qt::Horizontal, central);
    slider_->setObjectName("Slider");
    slider_->setRange(1, 50);
    slider_->setPageStep(5);
    slider_->setTickPosition(QSlider::TicksBelow);
    slider_->setEnabled(false);
    slider_->setMouseTracking(true);
    slider_->installEventFilter(this);
    connect(slider_, &QSlider::valueChanged, this, &MainWindow::sliderChanged);
    layout->addWidget(slider_);

    grid_ = new ByteGrid(central);
    connect(grid_, &ByteGrid::hovered, this, &MainWindow::hover);
    connect(grid_, &ByteGrid::pressed, this, &MainWindow::press);
    layout->addWidget(grid_);

    help_ = new QLabel(central);
    help_->setObjectName("LblHelp");
    help_->setWordWrap(true);
    help_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    help_->setTextFormat(Qt::PlainText);
    help_->setMinimumHeight(40);
    help_->setMouseTracking(true);
    help_->installEventFilter(this);
    QFont helpFont = help_->font();
    helpFont.setPointSize(helpFontSize_);
    help_->setFont(helpFont);

    list_ = new QListWidget(central);
    list_->setObjectName("List");
    list_->setMinimumWidth(33); // the splitter stops 500 twips from the left

    auto* pane = new QWidget(central);
    pane->setMinimumWidth(257); // and 3850 twips from the right
    auto* paneLayout = new QVBoxLayout(pane);
    paneLayout->setContentsMargins(0, 0, 0, 0);
    paneLayout->setSpacing(1);
    text_ = new QPlainTextEdit(pane);
    text_->setObjectName("Txt");
    text_->setReadOnly(true); // locked until a speech document exists
    text_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    sbarD_ = new StatusPanels("SBarD", 3, 3, pane);
    speechBar_ = new QToolBar(pane);
    speechBar_->setObjectName("TBar");
    speechBar_->setIconSize(QSize(16, 16));
    const struct {
        const char* key;
        const char* label;
        const char* tip;
    } buttons[] = {
        {"Open", "Открыть", "Открыть EDT файл..."},
        {"New", "Создать", "Создать EDT файл (Диалоги НПЦ)"},
        {"SaveAs", "Сохранить", "Сохранить EDT файл"},
        {"Print", "Текст", "Раскомпилировать (!!!только для (НПЦ).*EDT)"},
        {nullptr, nullptr, nullptr},
        {"Home", "|<", "Перейти к началу"},
        {"Back", "<", "Предыдущая фраза"},
        {"Next", ">", "Следующая фраза"},
        {"End", ">|", "Перейти в конец"},
        {nullptr, nullptr, nullptr},
        {"Info", "i", "Информация о файле"},
    };
    for (const auto& b : buttons) {
        if (!b.key) {
            speechBar_->addSeparator();
            continue;
        }
        QAction* a = speechBar_->addAction(b.label);
        a->setObjectName(QString("TBar_") + b.key);
        a->setToolTip(b.tip);
        const QString key = b.key;
        connect(a, &QAction::triggered, this, [this, key] {
            // The speech pane is not built yet: the phrase commands find no file.
            if (key == "Home" || key == "Back" || key == "Next" || key == "End")
                speechNotOpen();
            else
                prompts_.beep();
        });
    }
    action("TBar_SaveAs")->setEnabled(false);
    action("TBar_Print")->setEnabled(false);
    paneLayout->addWidget(text_, 1);
    paneLayout->addWidget(sbarD_);
    paneLayout->addWidget(speechBar_);

    paneSplitter_ = new QSplitter(Qt::Horizontal, central);
    paneSplitter_->setObjectName("Pic1");
    paneSplitter_->setChildrenCollapsible(false);
    paneSplitter_->addWidget(list_);
    paneSplitter_->addWidget(pane);
    paneSplitter_->setStretchFactor(0, 1);
    paneSplitter_->setStretchFactor(1, 2);
    paneSplitter_->setMinimumHeight(60);

    helpSplitter_ = new QSplitter(Qt::Vertical, central);
    helpSplitter_->setObjectName("Pic3");
    helpSplitter_->setChildrenCollapsible(false);
    helpSplitter_->addWidget(help_);
    helpSplitter_->addWidget(paneSplitter_);
    helpSplitter_->setStretchFactor(0, 1);
    helpSplitter_->setStretchFactor(1, 2);
    layout->addWidget(helpSplitter_, 1);

    auto* frame1 = new QFrame(central);
    frame1->setObjectName("Frame1");
    frame1->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* infoLayout = new QHBoxLayout(frame1);
    infoLayout->setContentsMargins(4, 2, 4, 2);
    infoLayout->setSpacing(0);
    info_ = new QLabel(frame1);
    info_->setObjectName("LblInfo");
    info_->setTextFormat(Qt::PlainText);
    remark_ = new QLabel(frame1);
    remark_->setObjectName("LblSize");
    remark_->setTextFormat(Qt::PlainText);
    QFont bold = remark_->font();
    bold.setBold(true);
    remark_->setFont(bold);
    QPalette red = remark_->palette();
    red.setColor(QPalette::WindowText, kAlert);
    remark_->setPalette(red);
    remark_->hide();
    infoLayout->addWidget(info_);
    infoLayout->addWidget(remark_);
    infoLayout->addStretch(1);
    frame1->setMinimumHeight(info_->sizeHint().height() + 8);
    layout->addWidget(frame1);

    sbarInf_ = new StatusPanels("SBarInf", 1, 1, central);
    layout->addWidget(sbarInf_);
    sbar_ = new StatusPanels("SBar", 3, 2, central);
    sbar_->label(1)->setFixedWidth(24);
    sbar_->label(3)->setMinimumWidth(120);
    pathPanel_ = sbar_->label(2);
    pathPanel_->installEventFilter(this); // the path is fitted again whenever the panel resizes
    layout->addWidget(sbar_);

    setCentralWidget(central);
    resize(760, 560);
}

// ---------------------------------------------------------------- start and end

bool MainWindow::start(const QStringList& arguments, const QString& programName) {
    if (arguments.isEmpty())
        return true;
    // The command line is one whole path, blanks and all.
    const QString line = arguments.join(' ');
    const auto path = fsPath(line);
    if (platform::fileExists(path)) {
        const auto size = platform::fileSize(path);
        if (size && *size == npcformat::kFileSize) {
            load(path, false);
        } else if (size) {
            prompts_.message(UserPrompts::Icon::Exclamation, "PARLEX - ОШИБКА ЗАГРУЗКИ",
                             "Размер файла " + line + "\n" +
                                 (*size < npcformat::kFileSize ? "меньше" : "больше") +
                                 " чем 1600 байт");
        }
        return true;
    }
    const QString lower = line.toLower();
    if (lower == "/help" || lower == "help" || line == "/?" || line == "?") {
        prompts_.message(UserPrompts::Icon::Information, "Parlex <DOS>",
                         "Usage:\n<" + programName + "> <FileName> for open current file\n<" +
                             programName + "> without parameters for run programm");
        return false;
    }
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (askSaveNpc() == Ask::Cancel) {
        event->ignore();
        return;
    }
    buffer_.clear();
    QGuiApplication::clipboard()->clear();
    event->accept();
}

// ---------------------------------------------------------------- documents

void MainWindow::showError(const Error& error) {
    const bool refusal = error.kind == ErrorKind::TooSmall || error.kind == ErrorKind::TooLarge ||
                         error.kind == ErrorKind::ReadOnlyDrive ||
                         error.kind == ErrorKind::Invalid || error.kind == ErrorKind::Exists;
    prompts_.message(refusal ? UserPrompts::Icon::Exclamation : UserPrompts::Icon::Critical,
                     error.title.empty() ? kTitle : q(error.title), q(error.message));
}

QString MainWindow::startFolder() const {
    if (npc_ && !npc_->path().empty())
        return q(npc_->path().parent_path().string());
    return q(programDir_.string());
}

MainWindow::Ask MainWindow::askSaveNpc() {
    if (!npc_ || !npc_->isChanged())
        return Ask::Continue;
    const QString text = npc_->isNew() ? QString("Сохранть новый NPC файл?")
                                       : "Сохранть " + q(npc_->path().string()) + " ?";
    switch (prompts_.question(kTitle, text, true)) {
    case UserPrompts::Answer::Cancel:
        return Ask::Cancel;
    case UserPrompts::Answer::No:
        return Ask::Continue;
    case UserPrompts::Answer::Yes:
        break;
    }
    // A save that failed has said so; the flow that asked stops, so that the
    // changes are not thrown away with the document.
    const SaveOutcome outcome =
        npc_->saveRoute() == NpcFile::SaveRoute::AskForName ? saveAs() : save();
    return outcome == SaveOutcome::Saved ? Ask::Continue : Ask::Cancel;
}

bool MainWindow::load(const std::filesystem::path& path, bool reload) {
    auto loaded = NpcFile::load(path);
    if (!loaded) {
        showError(loaded.error());
        return false;
    }
    npc_ = std::move(*loaded);
    (void)reload; // a reload does not look for the speech file; nothing else differs
    afterLoad();
    return true;
}

void MainWindow::afterLoad() {
    if (npc_->isNew()) {
        sbar_->setText(2, kNew);
        sbar_->setText(3, kNew);
    } else {
        updatePathPanel();
        sbar_->setText(3, q(npc_->title()));
    }
    updateNamePanel();
    setScriptCommandsEnabled();
    sliderChanged();
}

void MainWindow::setScriptCommandsEnabled() {
    const bool open = npc_.has_value();
    slider_->setEnabled(open);
    for (const char* name : {"nSave", "nSaveAs", "nRec", "nCurrent", "nEdit", "nDelStand", "nCopy",
                             "nDel", "nFrec", "nLrec"})
        action(name)->setEnabled(open);
    if (!open)
        for (const char* name : {"nNext", "nBack", "nPaste"})
            action(name)->setEnabled(false);
}

bool MainWindow::openFile() {
    if (askSaveNpc() == Ask::Cancel)
        return false;
    auto choice = prompts_.openFile({"ОТКРЫТИЕ NPC ФАЙЛА", startFolder(),
                                     npc_ ? q(npc_->title()) : QString(), kNpcOpenFilters, 1});
    if (!choice)
        return false;
    return load(fsPath(choice->path), false);
}

void MainWindow::newFile() {
    if (askSaveNpc() == Ask::Cancel)
        return;
    npc_ = NpcFile::makeNew();
    afterLoad();
}

MainWindow::SaveOutcome MainWindow::save() {
    if (!npc_)
        return SaveOutcome::Failed;
    if (npc_->isNew() || npc_->path().empty())
        return saveAs();
    if (platform::driveKind(npc_->path()) == platform::DriveKind::ReadOnly) {
        showError(platform::readOnlyDriveError(npc_->path(), true));
        return saveAs();
    }
    if (!platform::fileExists(npc_->path()))
        return saveAs();
    if (auto saved = npc_->save(); !saved) {
        showError(saved.error());
        return SaveOutcome::Failed;
    }
    afterLoad();
    return SaveOutcome::Saved;
}

MainWindow::SaveOutcome MainWindow::saveAs() {
    if (!npc_)
        return SaveOutcome::Failed;
    for (;;) {
        auto choice = prompts_.saveFile({"СОХРАНИТЬ NPC ФАЙЛ КАК...",
                                         startFolder(),
                                         npc_->isNew() ? QString() : q(npc_->title()),
                                         {{"*.NPC", "*.npc"}, {"Все файлы", "*"}},
                                         1});
        if (!choice)
            return SaveOutcome::Cancelled;
        const auto path = fsPath(choice->path);
        if (platform::driveKind(path) == platform::DriveKind::ReadOnly) {
            showError(platform::readOnlyDriveError(path, true));
            continue; // the dialog returns until a writable place is chosen
        }
        if (auto saved = npc_->saveAs(path); !saved) {
            showError(saved.error());
            return SaveOutcome::Failed;
        }
        afterLoad();
        return SaveOutcome::Saved;
    }
}

void MainWindow::convertLayout() {
    auto source = prompts_.openFile(
        {"ИЗМЕНЕНИЕ ФОРМАТА NPC ФАЙЛА", startFolder(), QString(), kNpcOpenFilters, 1});
    if (!source)
        return;
    const auto sourcePath = fsPath(source->path);
    if (auto checked = npcformat::readScript(sourcePath); !checked) {
        showError(checked.error());
        return;
    }
    // The bytes read next must be the latest ones.
    if (npc_ && !npc_->isNew() && samePath(npc_->path(), sourcePath) && askSaveNpc() == Ask::Cancel)
        return;
    auto bytes = npcformat::readScript(sourcePath);
    if (!bytes) {
        showError(bytes.error());
        return;
    }
    const NpcFileType from = npcformat::detectType(*bytes);
    for (;;) {
        const QString title =
            from == NpcFileType::Ja
                ? "ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:АВ (БУКА). СОХРАНИТЬ КАК..."
                : "ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:ENG., JA2UB:ENG. & RUS. СОХРАНИТЬ КАК...";
        auto target =
            prompts_.saveFile({title,
                               startFolder(),
                               q(sourcePath.filename().string()),
                               {{"Buka: АВ", "*.npc"}, {"Ja2:eng.,UB:eng.&rus.", "*.npc"}},
                               from == NpcFileType::Ja ? 2 : 1});
        if (!target)
            return;
        const auto targetPath = fsPath(target->path);
        const NpcFileType to = target->filterIndex == 1 ? NpcFileType::Ja : NpcFileType::Ub;
        if (platform::driveKind(targetPath) == platform::DriveKind::ReadOnly) {
            showError(platform::readOnlyDriveError(targetPath, true));
            continue;
        }
        if (to == from) { // nothing to convert: say so and ask again
            showError(npcformat::convertLayout(*bytes, to).error());
            continue;
        }
        if (auto done = npcformat::convertFile(sourcePath, targetPath, to); !done) {
            showError(done.error());
            return;
        }
        if (npc_ && !npc_->isNew() && samePath(npc_->path(), targetPath) &&
            prompts_.question(
                kTitle, "Формат файла\n" + target->path + " был изменен.\nЗагрузить файл заново?",
                false) == UserPrompts::Answer::Yes)
            load(npc_->path(), true);
        return;
    }
}

void MainWindow::showCurrentInfo() {
    if (!npc_)
        return;
    prompts_.message(UserPrompts::Icon::Information, "Текущий файл...",
                     "Тип файла:\n" + q(std::string(typeText(npc_->type()))) +
                         "\nЗаписей: " + QString::number(npc_->nonEmptyCount()));
}

// ---------------------------------------------------------------- records

int MainWindow::position() const {
    return slider_->value();
}

const NpcRecord* MainWindow::currentRecord() const {
    if (!npc_ || !npc_->hasRecordAt(position()))
        return nullptr;
    return &npc_->record(static_cast<std::size_t>(position() - 1));
}

void MainWindow::firstRecord() {
    if (!npc_)
        return;
    for (std::size_t i = 0; i < npc_->recordCount(); ++i)
        if (!isEmptyRecord(npc_->record(i))) {
            slider_->setValue(static_cast<int>(i) + 1);
            return;
        }
    prompts_.beep();
}

void MainWindow::lastRecord() {
    if (!npc_)
        return;
    for (std::size_t i = npc_->recordCount(); i-- > 0;)
        if (!isEmptyRecord(npc_->record(i))) {
            slider_->setValue(static_cast<int>(i) + 1);
            return;
        }
    prompts_.beep();
}

void MainWindow::nextRecord() {
    if (npc_ && position() < 50)
        slider_->setValue(position() + 1);
}

void MainWindow::previousRecord() {
    if (npc_ && position() > 1)
        slider_->setValue(position() - 1);
}

void MainWindow::stepRecords(int delta) {
    if (npc_)
        slider_->setValue(std::clamp(position() + delta, 1, 50));
}

void MainWindow::deleteRecord(bool standard) {
    if (!currentRecord())
        return;
    const auto index = static_cast<std::size_t>(position() - 1);
    npc_->setRecord(index, standard ? kNeutralRecord : kEmptyRecord);
    grid_->showRecord(*currentRecord());
    repaintCurrentByte();
}

void MainWindow::copyRecord() {
    if (!currentRecord())
        return;
    buffer_.copy(*currentRecord());
    action("nPaste")->setEnabled(true);
}

void MainWindow::pasteRecord() {
    if (!currentRecord() || !buffer_.isFilled())
        return;
    npc_->setRecord(static_cast<std::size_t>(position() - 1), *buffer_.record());
    grid_->showRecord(*currentRecord());
    repaintCurrentByte();
}

void MainWindow::sliderChanged() {
    action("nBack")->setEnabled(npc_ && position() > 1);
    action("nNext")->setEnabled(npc_ && position() < 50);
    const NpcRecord* record = currentRecord();
    grid_->showRecord(record ? std::optional<NpcRecord>(*record) : std::nullopt);
    repaintCurrentByte();
    const bool shown = record != nullptr;
    for (const char* name : {"nEdit", "nCopy", "nDel", "nDelStand"})
        action(name)->setEnabled(shown);
    action("nPaste")->setEnabled(shown && buffer_.isFilled());
}

void MainWindow::repaintCurrentByte() {
    const int byte = std::max(0, positionByte_.value_or(0));
    if (pinned_)
        press(byte, Qt::LeftButton);
    else
        hover(byte);
}

// ---------------------------------------------------------------- the grid

void MainWindow::hover(int index) {
    grid_->label(index)->setToolTip(
        toolTips_ && grid_->hasRecord() ? "П. клик-выделить Дв. клик-редактировать" : QString());
    if (!npc_ || pinned_)
        return;
    grid_->resetColours();
    if (!grid_->hasRecord()) {
        explainField(0);
        return;
    }
    showField(index, ByteGrid::kHover);
}

void MainWindow::press(int index, Qt::MouseButton button) {
    if (!npc_)
        return;
    if (!grid_->hasRecord()) {
        grid_->resetColours();
        explainField(0);
        return;
    }
    if (button != Qt::RightButton) {
        if (!pinned_)
            return;
        grid_->resetColours();
        showField(index, ByteGrid::kPinned);
        return;
    }
    if (pinned_) {
        pinned_ = false;
        hover(index);
    } else {
        pinned_ = true;
        grid_->markField(index, ByteGrid::kPinned);
    }
}

// Position text, the field's colour, its help text and its sentence.
void MainWindow::showField(int index, const QColor& colour) {
    showPosition(index);
    grid_->markField(index, colour);
    const int field = fieldStart(index).fieldIndex;
    help_->setText(q(helpText(field).value_or(std::string())).replace("\r\n", "\n"));
    explainField(field);
}

void MainWindow::showPosition(int index) {
    positionByte_ = index;
    sbarInf_->setText(1, q(text::zeroPadded(static_cast<unsigned>(position()), 2)) + ":" +
                             q(text::zeroPadded(static_cast<unsigned>(index + 1), 2)) +
                             q(fieldStart(index).label));
}

void MainWindow::explainField(int fieldIndex) {
    const ExplainContext context{npc_ ? std::optional(npc_->type()) : std::nullopt, &lists_,
                                 showMessages_, 0};
    const Explanation e = explain(currentRecord(), fieldIndex, context);
    info_->setText(q(e.text));
    QPalette p = info_->palette();
    p.setColor(QPalette::WindowText, e.alert ? kAlert : palette().color(QPalette::ButtonText));
    info_->setPalette(p);
    remark_->setText(q(e.remark));
    remark_->setVisible(!e.remark.empty());
}

void MainWindow::helpLabelClicked(Qt::MouseButton button) {
    if (help_->text().isEmpty())
        return;
    if (button == Qt::RightButton) {
        helpAlignment_ = (helpAlignment_ + 1) % 3;
        const Qt::Alignment horizontal[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
        help_->setAlignment(horizontal[helpAlignment_] | Qt::AlignTop);
    } else {
        helpFontSize_ += 2;
        if (helpFontSize_ > 14)
            helpFontSize_ = 8;
        QFont f = help_->font();
        f.setPointSize(helpFontSize_);
        help_->setFont(f);
    }
}

// ---------------------------------------------------------------- status bars

void MainWindow::updatePathPanel() {
    if (!npc_ || npc_->isNew())
        return;
    QLabel* panel = sbar_->label(2);
    const QFontMetrics metrics(panel->font());
    const int available = panel->contentsRect().width();
    sbar_->setText(2, q(text::fitPath(npc_->path().string(), npc_->title(), available, kPathSpare,
                                      [&](std::string_view s) {
                                          return metrics.horizontalAdvance(QString::fromUtf8(
                                              s.data(), static_cast<int>(s.size())));
                                      })));
}

void MainWindow::updateNamePanel() {
    const QString shown = q(lists_.characterNameForTitle(sbar_->text(3).toStdString()));
    sbar_->setText(3, shown);
    const QFontMetrics metrics(sbar_->label(3)->font());
    sbar_->label(3)->setToolTip(metrics.horizontalAdvance(shown) > kNameToolTip ? shown
                                                                                : QString());
}

// ---------------------------------------------------------------- lists, help, About

void MainWindow::showList(ListKey key) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ListRows rows = lists_.rows(key);
    list_->clear();
    for (const auto& row : rows.rows)
        list_->addItem(q(row));
    QApplication::restoreOverrideCursor();
    if (rows.warning)
        prompts_.message(UserPrompts::Icon::Exclamation, kTitle, q(*rows.warning));
}

void MainWindow::openHelp() {
    const auto path = programDir_ / "Parlex.html";
    if (platform::fileExists(path) &&
        QDesktopServices::openUrl(QUrl::fromLocalFile(q(path.string()))))
        return;
    prompts_.message(UserPrompts::Icon::Exclamation, kTitle,
                     "Не удается найти файл справки Parlex.html\n"
                     "Этот файл должен быть в папке с запускаемой програмой");
}

void MainWindow::showAbout() {
    prompts_.about(kTitle, "Parlex (v.2.02)\nРедактор скриптов и речи НПЦ "
                           "Jagged Alliance 2 и Unfinished Business");
}

// ---------------------------------------------------------------- keys

void MainWindow::speechNotOpen() {
    sbarD_->setText(3, kNotOpen);
    prompts_.beep();
}

void MainWindow::runKey(KeyAction key) {
    switch (key) {
    case KeyAction::FirstRecord:
        firstRecord();
        break;
    case KeyAction::LastRecord:
        lastRecord();
        break;
    case KeyAction::Save:
        save();
        break;
    case KeyAction::Copy:
        copyRecord();
        break;
    case KeyAction::Paste:
        pasteRecord();
        break;
    case KeyAction::DeleteStandard:
        deleteRecord(true);
        break;
    case KeyAction::Delete:
        deleteRecord(false);
        break;
    case KeyAction::ForwardFive:
        stepRecords(5);
        break;
    case KeyAction::Next:
        nextRecord();
        break;
    case KeyAction::BackFive:
        stepRecords(-5);
        break;
    case KeyAction::Back:
        previousRecord();
        break;
    case KeyAction::PopupMenu:
        popup_->popup(QCursor::pos());
        break;
    case KeyAction::Exit:
        close();
        break;
    case KeyAction::SpeechInfo:
    case KeyAction::SpeechSaveAs:
        prompts_.beep();
        break;
    case KeyAction::PhraseHome:
    case KeyAction::PhraseBack:
    case KeyAction::PhraseNext:
    case KeyAction::PhraseEnd:
    case KeyAction::PhraseFirstFilled:
    case KeyAction::PhraseLastFilled:
        speechNotOpen();
        break;
    case KeyAction::None:
        break;
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* widget = qobject_cast<QWidget*>(watched);
        // Keys reach the map first, whichever control of this window has the focus.
        if (widget && widget->window() == this && !QApplication::activeModalWidget() &&
            !QApplication::activePopupWidget()) {
            const auto* key = static_cast<QKeyEvent*>(event);
            const KeyAction act = keyAction(key->key(), key->modifiers(), slider_->isEnabled());
            if (act != KeyAction::None) {
                runKey(act);
                return true;
            }
        }
        return false;
    }
    if (watched == pathPanel_ && event->type() == QEvent::Resize)
        updatePathPanel();
    if (watched == help_ && event->type() == QEvent::MouseButtonPress) {
        helpLabelClicked(static_cast<QMouseEvent*>(event)->button());
        return true;
    }
    if (watched == help_ && event->type() == QEvent::MouseMove)
        help_->setToolTip(toolTips_ && !help_->text().isEmpty()
                              ? "Л. клик-размер шрифта П. клик-положение"
                              : QString());
    if (watched == slider_ && event->type() == QEvent::MouseMove)
        slider_->setToolTip(toolTips_ && slider_->isEnabled() ? "Выбор записи" : QString());
    return QMainWindow::eventFilter(watched, event);
}

} // namespace parlex::gui
