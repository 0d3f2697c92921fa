#include "session/speechdocument.h"

#include "core/platform/files.h"
#include "core/settings/options.h"
#include "core/speech/companion.h"
#include "core/speech/decompiler.h"
#include "core/text/numbers.h"
#include "session/pathtext.h"
#include "session/saveflow.h"

#include <QRegularExpression>

#include <QCoreApplication>

namespace parlex::session {
namespace {

using Answer = UserPrompts::Answer;

QString q(const std::string& s) {
    return QString::fromStdString(s);
}

// The open dialog's filters, in the order of the kinds' filter indexes.
std::vector<UserPrompts::Filter> openFilters() {
    return {
        {QCoreApplication::translate("SpeechDocument", "Диалоги НПЦ (<3номера>.EDT)"), "*.edt"},
        {QCoreApplication::translate("SpeechDocument", "Гражд.(<CIV+2н.>.EDTили <сектор>.EDT)"),
         "*.edt"},
        {QCoreApplication::translate("SpeechDocument", "Комменнтарии НПЦ (<D_+3номера>.EDT)"),
         "*.edt"},
    };
}

struct KindTexts {
    EdtKind kind;
    const char* saveFilter; // the first filter of the save dialog
    const char* newName;    // what the save dialog proposes for a new document
};
constexpr KindTexts kKindTexts[] = {
    {EdtKind::NpcDialogues, QT_TRANSLATE_NOOP("SpeechDocument", "(Диалоги НПЦ).EDT"),
     "NPC_NEW.EDT"},
    {EdtKind::Civilian, QT_TRANSLATE_NOOP("SpeechDocument", "(Диалоги гражданских).EDT"),
     "CIV_NEW.EDT"},
    {EdtKind::Remarks, QT_TRANSLATE_NOOP("SpeechDocument", "(Комметтарии НПЦ).EDT"), "REM_NEW.EDT"},
};

const KindTexts& textsOf(EdtKind kind) {
    for (const KindTexts& t : kKindTexts)
        if (t.kind == kind)
            return t;
    return kKindTexts[0];
}

std::optional<EdtKind> kindOfFilter(int filterIndex) {
    for (const KindTexts& t : kKindTexts)
        if (kindInfo(t.kind).filterIndex == filterIndex)
            return t.kind;
    return std::nullopt;
}

} // namespace

SpeechDocument::SpeechDocument(UserPrompts& prompts, const Options& options,
                               std::filesystem::path programDir, QObject* parent)
    : QObject(parent), prompts_(prompts), options_(options), programDir_(std::move(programDir)) {}

// ---------------------------------------------------------------- flows

QString SpeechDocument::startFolder() const {
    return pathText(rememberedPath_.empty() ? programDir_ : rememberedPath_.parent_path());
}

bool SpeechDocument::askSave() {
    if (!canSave())
        return true;
    if (edt_->isNew() && edt_->nonEmptyCount() == 0)
        return true; // a new document with nothing in it is not worth a question
    const QString name = edt_->isNew() ? tr("Новый EDT файл") : pathText(edt_->path());
    return askToSave(prompts_, tr("Сохранть %1?").arg(name), [this] { return save(); });
}

bool SpeechDocument::open() {
    if (!askSave())
        return false;
    auto choice = prompts_.openFile({tr("ОТКРЫТИЕ (SPEECH).EDT ФАЙЛА..."), startFolder(),
                                     pathText(rememberedPath_.filename()), openFilters(), 1});
    if (!choice)
        return false;
    const auto kind = kindOfFilter(choice->filterIndex);
    return openPath(pathOf(choice->path), kind.value_or(EdtKind::NpcDialogues));
}

bool SpeechDocument::openPath(const std::filesystem::path& path, EdtKind kind) {
    auto loaded = EdtFile::load(path, kind);
    if (!loaded) {
        prompts_.tell(loaded.error());
        return false;
    }
    rememberedPath_ = path;
    replace(std::move(*loaded));
    return true;
}

void SpeechDocument::newDocument(EdtKind kind) {
    if (!askSave())
        return;
    phraseIndex_ = 0;
    replace(EdtFile::makeNew(kind));
}

// A new file shows the phrase number the last one showed, as far as it reaches.
void SpeechDocument::replace(EdtFile file) {
    edt_ = std::move(file);
    phraseIndex_ = std::min(phraseIndex_, edt_->lastPhrase());
    emit documentReplaced();
    emit phraseShown();
}

bool SpeechDocument::save() {
    if (!edt_)
        return false;
    // A new document, a file on a read-only medium or one gone from disk: ask for a name.
    if (edt_->isNew() || platform::driveKind(edt_->path()) == platform::DriveKind::ReadOnly ||
        !platform::fileExists(edt_->path()))
        return saveAs();
    return writeTo(edt_->path());
}

bool SpeechDocument::saveAs() {
    if (!edt_) {
        prompts_.beep(); // nothing to save
        return false;
    }
    const KindTexts& texts = textsOf(edt_->kind());
    const UserPrompts::FileRequest request{
        tr("СОХРАНИТЬ EDT ФАЙЛ КАК..."),
        startFolder(),
        edt_->isNew() ? QString(texts.newName) : q(edt_->title()),
        {{QCoreApplication::translate("SpeechDocument", texts.saveFilter), "*.EDT", "EDT"},
         {tr("все файлы"), "*"}},
        1};
    const auto target = prompts_.saveTarget(request);
    return target && writeTo(target->path);
}

// Writes atomically and reads the file back, so the pane shows what the disk holds.
bool SpeechDocument::writeTo(const std::filesystem::path& path) {
    // A file read as another kind than it is would lose its end over itself.
    if (edt_->bytesLostOnSave() > 0 && !edt_->isNew() && platform::samePath(path, edt_->path()) &&
        prompts_.question(q(kMessageTitle),
                          q(edt_->lossWarning(prompts_.language())) + "\n" +
                              tr("Сохранить всё равно?"),
                          false) != Answer::Yes)
        return false;
    auto saved = writeCopy(prompts_, *edt_, path);
    if (!saved)
        return false;
    rememberedPath_ = path;
    replace(std::move(*saved));
    return true;
}

bool SpeechDocument::decompile() {
    if (!canDecompile()) {
        prompts_.beep();
        return false;
    }
    const UserPrompts::FileRequest request{
        tr("ДЕКОМПИЛИРОВАТЬ EDT ФАЙЛ И СОХРАНИТЬ КАК..."),
        pathText(programDir_),
        "Quotes.txt",
        {{"*.txt", "*.txt", "txt"}, {tr("все файлы (*.*)"), "*"}},
        1};
    const auto target = prompts_.saveTarget(request);
    if (!target)
        return false;
    // Written to a temporary file and renamed: a failure leaves an old text as it was.
    if (auto written = decompileToFile(*edt_, target->path, prompts_.language()); !written) {
        prompts_.tell(written.error());
        return false;
    }
    return true;
}

void SpeechDocument::followScript(const std::filesystem::path& scriptPath) {
    if (!options_.findEdtName)
        return;
    const std::filesystem::path companion = companionPath(scriptPath);
    if (!options_.autoLoad) {
        rememberedPath_ = findCompanion(scriptPath).value_or(companion);
        return;
    }
    if (!askSave())
        return;
    if (const auto found = findCompanion(scriptPath))
        openPath(*found, EdtKind::NpcDialogues);
    else
        emit companionMissing(pathText(companion.filename()));
}

// ---------------------------------------------------------------- the pane

QString SpeechDocument::phraseText() const {
    return edt_ ? q(edt_->phrase(phraseIndex_)) : QString();
}

QString SpeechDocument::editPhrase(const QString& text) {
    static const QRegularExpression lineBreaks(R"([\r\n\x{2028}\x{2029}])");
    QString oneLine = text;
    oneLine.remove(lineBreaks);
    if (!edt_)
        return oneLine;
    if (auto stored = edt_->setPhrase(phraseIndex_, oneLine.toStdString()); !stored) {
        prompts_.beep();
        prompts_.tell(stored.error());
        return phraseText(); // nothing else is ever written in place of such characters
    }
    emit phraseShown();
    return oneLine;
}

void SpeechDocument::step(Step step) {
    if (!edt_) {
        emit notOpen();
        prompts_.beep();
        return;
    }
    const int last = edt_->lastPhrase();
    std::optional<int> target;
    switch (step) {
    case Step::Home:
        target = 0;
        break;
    case Step::Back:
        target = phraseIndex_ - 1;
        break;
    case Step::Next:
        target = phraseIndex_ + 1;
        break;
    case Step::End:
        target = last;
        break;
    case Step::FirstFilled:
        target = edt_->firstNonEmpty();
        break;
    case Step::LastFilled:
        target = edt_->lastNonEmpty();
        break;
    }
    if (!target || *target < 0 || *target > last ||
        (*target == phraseIndex_ && step != Step::FirstFilled && step != Step::LastFilled)) {
        prompts_.beep();
        return;
    }
    phraseIndex_ = *target;
    emit phraseShown();
}

void SpeechDocument::showPhrase(int index) {
    if (!edt_ || index < 0 || index > edt_->lastPhrase() || index == phraseIndex_)
        return;
    phraseIndex_ = index;
    emit phraseShown();
}

bool SpeechDocument::canSave() const {
    return edt_ && (edt_->isNew() || edt_->isChanged());
}

bool SpeechDocument::canDecompile() const {
    return edt_ && edt_->kind() == EdtKind::NpcDialogues;
}

int SpeechDocument::textLimit() const {
    return edt_ ? static_cast<int>(edt_->info().textLimit) : 0;
}

QString SpeechDocument::lengthCounter() const {
    if (!edt_)
        return {};
    const auto length = edt_->phraseBytes(phraseIndex_).size(); // one byte a character
    return q(text::zeroPadded(static_cast<unsigned>(length), 3) + ":" +
             std::to_string(textLimit()));
}

QString SpeechDocument::phraseCounter() const {
    if (!edt_)
        return {};
    const int last = edt_->lastPhrase();
    return q("(" +
             text::zeroPadded(static_cast<unsigned>(phraseIndex_), last == kNpcLastPhrase ? 3 : 2) +
             ":" + std::to_string(last) + ")");
}

} // namespace parlex::session
