#include "session/session.h"

#include "codelists/listwriter.h"
#include "explain/fieldlayout.h"
#include "session/pathtext.h"
#include "settings/locations.h"
#include "text/numbers.h"

#include <QDir>
#include <algorithm>
#include <cmath>
#include <ctime>

namespace parlex::session {
namespace {

using Icon = UserPrompts::Icon;
using Answer = UserPrompts::Answer;

const QString kTitle = QString::fromUtf8(kMessageTitle);

QString q(const std::string& s) {
    return QString::fromStdString(s);
}
QString q(const std::filesystem::path& p) {
    return pathText(p);
}
std::filesystem::path fsPath(const QString& s) {
    return pathOf(s);
}

using platform::samePath;

const std::vector<UserPrompts::Filter> kOpenFilters = {{"*.npc", "*.npc"},
                                                       {"все файлы (*.*)", "*"}};

} // namespace

Session::Session(UserPrompts& prompts, std::filesystem::path programDir, QObject* parent)
    : QObject(parent), prompts_(prompts), programDir_(std::move(programDir)),
      lists_(locations(programDir_).listFolder), speech_(prompts, options_, programDir_) {
    // A list file that cannot be read is said where the lookup happens; the lookup
    // goes on with an empty list.
    lists_.setReadErrorHandler([this](const Error& error) { prompts_.tell(error); });
    // Queued: the check may reload the script, which changes what is watched.
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &Session::checkDisk,
            Qt::QueuedConnection);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &Session::checkDisk,
            Qt::QueuedConnection);
}

// ---------------------------------------------------------------- start and end

bool Session::start(const QStringList& arguments, const QString& programName) {
    if (arguments.isEmpty())
        return true;
    // The command line is one whole path, blanks and all.
    const QString line = arguments.join(' ');
    const auto path = fsPath(line);
    if (platform::fileExists(path)) {
        const auto size = platform::fileSize(path);
        if (size && *size == npcformat::kFileSize)
            openPath(path);
        else if (size)
            prompts_.message(Icon::Exclamation, "PARLEX - ОШИБКА ЗАГРУЗКИ",
                             q(npcformat::sizeRefusal(line.toStdString(), *size)));
        return true;
    }
    const QString lower = line.toLower();
    if (lower == "/help" || lower == "help" || line == "/?" || line == "?") {
        prompts_.message(Icon::Information, "Parlex <DOS>",
                         "Usage:\n<" + programName + "> <FileName> for open current file\n<" +
                             programName + "> without parameters for run programm");
        return false;
    }
    return true;
}

bool Session::queryClose() {
    return speech_.askSave() && askSaveScript() == Ask::Continue;
}

void Session::shutdown() {
    buffer_.clear();
    history_.clear();
    if (!watcher_.files().isEmpty() || !watcher_.directories().isEmpty())
        watcher_.removePaths(watcher_.files() + watcher_.directories());
    emit bufferChanged();
    emit historyChanged();
}

// ---------------------------------------------------------------- script flows

QString Session::startFolder() const {
    return q(lastPath_.empty() ? programDir_ : lastPath_.parent_path());
}

Session::Ask Session::askSaveScript() {
    if (!npc_ || !npc_->isChanged())
        return Ask::Continue;
    const QString text =
        npc_->isNew() ? QString("Сохранть новый NPC файл?") : "Сохранть " + q(npc_->path()) + " ?";
    switch (prompts_.question(kTitle, text, true)) {
    case Answer::Cancel:
        return Ask::Cancel;
    case Answer::No:
        return Ask::Continue;
    case Answer::Yes:
        break;
    }
    // A save that failed has said so; the flow that asked stops, so that the
    // changes are not thrown away with the document.
    return save() == SaveOutcome::Saved ? Ask::Continue : Ask::Cancel;
}

bool Session::open() {
    if (askSaveScript() == Ask::Cancel)
        return false;
    auto choice = prompts_.openFile(
        {"ОТКРЫТИЕ NPC ФАЙЛА", startFolder(), q(lastPath_.filename()), kOpenFilters, 1});
    if (!choice)
        return false;
    return openPath(fsPath(choice->path));
}

// A script opened, not reloaded, brings its speech file along.
bool Session::openPath(const std::filesystem::path& path) {
    if (!load(path))
        return false;
    speech_.followScript(path);
    return true;
}

bool Session::load(const std::filesystem::path& path) {
    auto loaded = NpcFile::load(path);
    if (!loaded) {
        prompts_.tell(loaded.error());
        return false;
    }
    lastPath_ = path;
    replaceDocument(std::move(*loaded));
    return true;
}

void Session::newScript() {
    if (askSaveScript() == Ask::Cancel)
        return;
    replaceDocument(NpcFile::makeNew());
}

// Everything that follows a new document in memory: the history is emptied, the
// watch follows the file, and the record at the position is shown anew.
void Session::replaceDocument(NpcFile file) {
    npc_ = std::move(file);
    history_.clear();
    watch();
    emit historyChanged();
    emit documentReplaced();
    setChanged();
    refreshField();
}

Session::SaveOutcome Session::save() {
    if (!npc_)
        return SaveOutcome::Failed;
    switch (npc_->saveRoute()) {
    case NpcFile::SaveRoute::AskForName:
        return saveAs();
    case NpcFile::SaveRoute::ReadOnlyDrive:
        prompts_.tell(platform::readOnlyDriveError(npc_->path(), true));
        return saveAs();
    case NpcFile::SaveRoute::InPlace:
        break;
    }
    if (!confirmOverwriteOfChangedFile())
        return SaveOutcome::Cancelled;
    return writeTo(npc_->path());
}

Session::SaveOutcome Session::saveAs() {
    if (!npc_)
        return SaveOutcome::Failed;
    const UserPrompts::FileRequest request{"СОХРАНИТЬ NPC ФАЙЛ КАК...",
                                           startFolder(),
                                           npc_->isNew() ? QString() : q(npc_->title()),
                                           {{"*.NPC", "*.npc", "npc"}, {"Все файлы", "*"}},
                                           1};
    const auto target = prompts_.saveTarget(request);
    return target ? writeTo(target->path) : SaveOutcome::Cancelled;
}

// Writes the script and reads it back, so that what is shown is what the disk holds.
Session::SaveOutcome Session::writeTo(const std::filesystem::path& path) {
    NpcFile saved = *npc_;
    if (auto written = saved.saveAs(path); !written) {
        prompts_.tell(written.error());
        return SaveOutcome::Failed;
    }
    lastPath_ = saved.path();
    replaceDocument(std::move(saved));
    return SaveOutcome::Saved;
}

bool Session::confirmOverwriteOfChangedFile() {
    const auto now = platform::fileStatus(npc_->path());
    if (!now || !loadedStatus_ || *now == *loadedStatus_)
        return true;
    return prompts_.question(kTitle,
                             "Файл\n" + q(npc_->path()) +
                                 "\nизменён другой программой после загрузки.\n"
                                 "Заменить его содержимым редактора?",
                             false) == Answer::Yes;
}

void Session::convertLayout() {
    auto source = prompts_.openFile(
        {"ИЗМЕНЕНИЕ ФОРМАТА NPC ФАЙЛА", startFolder(), QString(), kOpenFilters, 1});
    if (!source)
        return;
    const auto sourcePath = fsPath(source->path);
    if (auto checked = npcformat::readScript(sourcePath); !checked) {
        prompts_.tell(checked.error());
        return;
    }
    const bool sourceIsOpen = npc_ && !npc_->isNew() && samePath(npc_->path(), sourcePath);
    // The bytes read next must be the latest ones.
    if (sourceIsOpen && askSaveScript() == Ask::Cancel)
        return;
    auto bytes = npcformat::readScript(sourcePath);
    if (!bytes) {
        prompts_.tell(bytes.error());
        return;
    }
    const NpcFileType from = npcformat::detectType(*bytes);
    const UserPrompts::FileRequest request{
        from == NpcFileType::Ja
            ? "ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:АВ (БУКА). СОХРАНИТЬ КАК..."
            : "ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:ENG., JA2UB:ENG. & RUS. СОХРАНИТЬ КАК...",
        startFolder(),
        q(sourcePath.filename()),
        {{"Buka: АВ", "*.npc", "npc"}, {"Ja2:eng.,UB:eng.&rus.", "*.npc", "npc"}},
        from == NpcFileType::Ja ? 2 : 1};
    const auto layoutOf = [](const UserPrompts::SaveTarget& t) {
        return t.filterIndex == 1 ? NpcFileType::Ja : NpcFileType::Ub;
    };
    // Nothing to convert into the same layout: said, and the dialog comes back.
    const auto target =
        prompts_.saveTarget(request, [&](const UserPrompts::SaveTarget& t) -> std::optional<Error> {
            if (auto allowed = npcformat::checkConversion(from, layoutOf(t)); !allowed)
                return allowed.error();
            return std::nullopt;
        });
    if (!target)
        return;
    const auto& targetPath = target->path;
    if (const auto loss = npcformat::conversionLoss(*bytes, layoutOf(*target));
        loss &&
        prompts_.question(kTitle, q(*loss) + "\nПреобразовать всё равно?", false) != Answer::Yes)
        return;
    if (auto done = npcformat::convertFile(sourcePath, targetPath, layoutOf(*target)); !done) {
        prompts_.tell(done.error());
        return;
    }
    if (!npc_ || npc_->isNew() || !samePath(npc_->path(), targetPath))
        return;
    // Our own write onto the open file is no news from another program.
    acknowledgeDisk();
    if (prompts_.question(
            kTitle, "Формат файла\n" + q(targetPath) + " был изменен.\nЗагрузить файл заново?",
            false) == Answer::Yes)
        load(npc_->path());
}

void Session::showCurrentInfo() {
    if (npc_)
        prompts_.message(Icon::Information, "Текущий файл...", q(npc_->summary()));
}

namespace {

// The file keeps colours as the platform's colour value, 0x00BBGGRR; a system colour
// (negative) stands for the usual white of a text box.
unsigned rgbOf(std::int32_t colourRef) {
    if (colourRef < 0 || colourRef > 0xFFFFFF)
        return 0xFFFFFF;
    const auto c = static_cast<unsigned>(colourRef);
    return ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF);
}

std::int32_t colourRefOf(unsigned rgb) {
    return static_cast<std::int32_t>(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF));
}

} // namespace

void Session::restore(const Settings& s) {
    options_.toolTips = s.toolTips;
    options_.animation = s.animation;
    options_.flagOverwrite = s.flagOverwrite;
    options_.showMessages = s.showMessages;
    options_.helpFontSize = static_cast<int>(std::lround(s.helpFontSize));
    options_.helpAlignment = s.helpAlignment;
    options_.phraseFont = {s.fontName, s.fontSize, s.bold, s.italic};
    options_.phraseBackColour = rgbOf(s.backColour);
    options_.rememberPath = s.rememberPath;
    options_.findEdtName = s.findEdtName;
    options_.autoLoad = s.autoLoad;
    if (!s.scriptPath.empty())
        lastPath_ = platform::pathFromUtf8(s.scriptPath);
    if (!s.speechPath.empty())
        speech_.setRememberedPath(platform::pathFromUtf8(s.speechPath));
    emit optionsChanged();
}

Settings Session::remembered(Settings s) const {
    s.toolTips = options_.toolTips;
    s.animation = options_.animation;
    s.flagOverwrite = options_.flagOverwrite;
    s.showMessages = options_.showMessages;
    s.helpFontSize = options_.helpFontSize;
    s.helpAlignment = options_.helpAlignment;
    s.fontName = options_.phraseFont.family;
    s.fontSize = options_.phraseFont.pointSize;
    s.bold = options_.phraseFont.bold;
    s.italic = options_.phraseFont.italic;
    s.backColour = colourRefOf(options_.phraseBackColour);
    s.rememberPath = options_.rememberPath;
    s.findEdtName = options_.findEdtName;
    s.autoLoad = options_.autoLoad;
    s.scriptPath = platform::utf8(lastPath_);
    s.speechPath = platform::utf8(speech_.rememberedPath());
    return s;
}

void Session::setOptions(const Options& options) {
    if (options == options_)
        return;
    options_ = options;
    emit optionsChanged();
}

void Session::choosePhraseColour() {
    if (const auto colour = prompts_.chooseColour(options_.phraseBackColour)) {
        options_.phraseBackColour = *colour & 0xFFFFFFu;
        emit optionsChanged();
    }
}

void Session::choosePhraseFont() {
    if (const auto font = prompts_.chooseFont(options_.phraseFont, 4, 18)) {
        options_.phraseFont = *font;
        emit optionsChanged();
    }
}

void Session::extractList(ListKey key, bool askBeforeReplace) {
    const auto folder = locations(programDir_).listFolder;
    const std::tm local = platform::localNow();
    auto written = writeListFile(key, folder, local, !askBeforeReplace);
    if (!written && written.error().kind == ErrorKind::Exists) {
        if (prompts_.question(kTitle, q(written.error().message), false) != Answer::Yes)
            return;
        written = writeListFile(key, folder, local, true);
    }
    if (!written)
        prompts_.message(Icon::Critical, kTitle, q(written.error().message));
}

std::vector<std::string> Session::listRows(ListKey key) {
    ListRows rows = lists_.rows(key);
    if (rows.warning)
        prompts_.message(Icon::Exclamation, kTitle, q(*rows.warning));
    return std::move(rows.rows);
}

// ---------------------------------------------------------------- position

const NpcRecord* Session::currentRecord() const {
    return npc_ ? npc_->recordAt(position_) : nullptr;
}

void Session::setPosition(int position) {
    position = std::clamp(position, 1, kPositions);
    if (position == position_)
        return;
    position_ = position;
    emit positionChanged(position_);
    refreshField();
}

void Session::nextRecord() {
    if (npc_ && position_ < kPositions)
        setPosition(position_ + 1);
}

void Session::previousRecord() {
    if (npc_ && position_ > 1)
        setPosition(position_ - 1);
}

void Session::stepRecords(int delta) {
    if (npc_)
        setPosition(position_ + delta);
}

void Session::firstRecord() {
    if (!npc_)
        return;
    if (const auto found = npc_->firstNonEmptyPosition())
        setPosition(*found);
    else
        prompts_.beep();
}

void Session::lastRecord() {
    if (!npc_)
        return;
    if (const auto found = npc_->lastNonEmptyPosition())
        setPosition(*found);
    else
        prompts_.beep();
}

// ---------------------------------------------------------------- the field shown

// Shows the record at the position again, at the byte of the position text: the
// pin moves there if a field is pinned, else the field is shown as under the mouse.
void Session::refreshField() {
    const int byte = positionByte_.value_or(0);
    if (pinned_)
        press(byte, false);
    else
        hover(byte);
}

void Session::showNoRecord() {
    mark_ = FieldMark::None;
    noRecordShown_ = true;
    emit fieldShown();
}

void Session::showField(int byteIndex, FieldMark mark) {
    noRecordShown_ = false;
    positionByte_ = byteIndex;
    positionRecord_ = position_;
    mark_ = mark;
    markedByte_ = byteIndex;
    // Byte 14 names the first phrase of the record: the speech pane shows it.
    constexpr int kPhraseFirstField = 13;
    if (fieldStart(byteIndex).fieldIndex == kPhraseFirstField)
        if (const auto phrase = explanation().phrase)
            speech_.showPhrase(*phrase);
    emit fieldShown();
}

void Session::hover(int byteIndex) {
    if (!npc_ || pinned_)
        return;
    if (!currentRecord())
        showNoRecord();
    else
        showField(byteIndex, FieldMark::Hover);
}

void Session::press(int byteIndex, bool rightButton) {
    if (!npc_)
        return;
    if (!currentRecord()) {
        showNoRecord();
        return;
    }
    if (!rightButton) {
        if (pinned_)
            showField(byteIndex, FieldMark::Pinned); // the pin moves
        return;
    }
    if (pinned_) {
        pinned_ = false;
        hover(byteIndex);
        return;
    }
    // Pinning changes the colour only: position text and help are this field's already.
    pinned_ = true;
    mark_ = FieldMark::Pinned;
    markedByte_ = byteIndex;
    emit fieldShown();
}

QString Session::positionText() const {
    if (!positionByte_)
        return {};
    return q(text::zeroPadded(static_cast<unsigned>(positionRecord_), 2) + ":" +
             text::zeroPadded(static_cast<unsigned>(*positionByte_ + 1), 2) +
             fieldStart(*positionByte_).label);
}

std::optional<int> Session::shownField() const {
    if (!npc_ || noRecordShown_ || !positionByte_)
        return std::nullopt;
    return fieldStart(*positionByte_).fieldIndex;
}

Explanation Session::explanation() const {
    const ExplainContext context{npc_ ? std::optional(npc_->type()) : std::nullopt, &lists_,
                                 options_.showMessages, speech_.lastPhrase()};
    if (npc_ && noRecordShown_)
        return explain(nullptr, 0, context);
    const auto field = shownField();
    if (!field)
        return {};
    return explain(currentRecord(), *field, context);
}

// ---------------------------------------------------------------- edits

void Session::setChanged() {
    const bool changed = npc_ && npc_->isChanged();
    if (changed == wasChanged_)
        return;
    wasChanged_ = changed;
    emit changedStateChanged(changed);
}

bool Session::editRecord(std::size_t index, const NpcRecord& record) {
    if (!npc_ || index >= npc_->recordCount() || npc_->record(index) == record)
        return false;
    history_.push({index, npc_->record(index), record});
    storeRecord(index, record, false);
    return true;
}

// Puts new bytes into a record and tells everyone. Undo and redo also move to the
// record they change, so that the user sees what happened.
void Session::storeRecord(std::size_t index, const NpcRecord& record, bool moveThere) {
    npc_->setRecord(index, record);
    const int position = static_cast<int>(index) + 1;
    emit recordChanged(position - 1);
    emit historyChanged();
    setChanged();
    if (moveThere && position != position_)
        setPosition(position);
    else if (position == position_)
        refreshField();
}

void Session::deleteRecord(bool standard) {
    if (currentRecord())
        editRecord(static_cast<std::size_t>(position_ - 1),
                   standard ? kNeutralRecord : kEmptyRecord);
}

void Session::copyRecord() {
    if (const NpcRecord* record = currentRecord()) {
        buffer_.copy(*record);
        emit bufferChanged();
    }
}

void Session::pasteRecord() {
    if (currentRecord() && buffer_.record())
        editRecord(static_cast<std::size_t>(position_ - 1), *buffer_.record());
}

void Session::undo() {
    if (const auto edit = npc_ ? history_.undo() : std::nullopt)
        storeRecord(edit->index, edit->before, true);
}

void Session::redo() {
    if (const auto edit = npc_ ? history_.redo() : std::nullopt)
        storeRecord(edit->index, edit->after, true);
}

// ---------------------------------------------------------------- the file on disk

void Session::acknowledgeDisk() {
    loadedStatus_ = seenStatus_ =
        npc_ && !npc_->isNew() ? platform::fileStatus(npc_->path()) : std::nullopt;
}

void Session::watch() {
    const QStringList watched = watcher_.files() + watcher_.directories();
    if (!watched.isEmpty())
        watcher_.removePaths(watched);
    acknowledgeDisk();
    if (!npc_ || npc_->isNew())
        return;
    // The folder too: a file replaced by renaming another over it drops out of a
    // plain file watch.
    const QString file = q(npc_->path());
    watcher_.addPath(
        QDir::cleanPath(q(npc_->path().parent_path().empty() ? std::filesystem::path(".")
                                                             : npc_->path().parent_path())));
    if (platform::fileExists(npc_->path()))
        watcher_.addPath(file);
}

void Session::checkDisk() {
    if (!npc_ || npc_->isNew() || checking_)
        return;
    const auto now = platform::fileStatus(npc_->path());
    if (now && !watcher_.files().contains(q(npc_->path())))
        watcher_.addPath(q(npc_->path()));
    if (now == seenStatus_)
        return;
    seenStatus_ = now;
    checking_ = true;
    const QString path = q(npc_->path());
    if (!now) {
        prompts_.message(Icon::Information, kTitle,
                         "Файл\n" + path +
                             "\nудалён или переименован другой программой.\n"
                             "При сохранении будет предложено указать имя файла.");
    } else if (now != loadedStatus_) {
        const QString text =
            npc_->isChanged()
                ? "Файл\n" + path +
                      "\nизменён другой программой.\nЗагрузить его заново? "
                      "Изменения, сделанные в редакторе, будут потеряны."
                : "Файл\n" + path + "\nизменён другой программой.\nЗагрузить его заново?";
        if (prompts_.question(kTitle, text, false) == Answer::Yes)
            load(npc_->path());
    }
    checking_ = false;
}

} // namespace parlex::session
