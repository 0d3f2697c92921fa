#include "session/scriptflows.h"

#include "session/diskwatch.h"
#include "session/pathtext.h"
#include "session/saveflow.h"
#include "session/scriptdocument.h"
#include "session/speechdocument.h"

#include <QCoreApplication>

namespace parlex::session {
namespace {

using Icon = UserPrompts::Icon;
using Answer = UserPrompts::Answer;

const QString kTitle = QString::fromUtf8(kMessageTitle);

QString q(const std::string& s) {
    return QString::fromStdString(s);
}

std::vector<UserPrompts::Filter> openFilters() {
    return {{"*.npc", "*.npc"},
            {QCoreApplication::translate("ScriptFlows", "все файлы (*.*)"), "*"}};
}

} // namespace

ScriptFlows::ScriptFlows(UserPrompts& prompts, ScriptDocument& document, DiskWatch& disk,
                         SpeechDocument& speech, std::filesystem::path programDir)
    : prompts_(prompts), document_(document), disk_(disk), speech_(speech),
      programDir_(std::move(programDir)) {}

QString ScriptFlows::startFolder() const {
    return pathText(lastPath_.empty() ? programDir_ : lastPath_.parent_path());
}

bool ScriptFlows::askSave() {
    const NpcFile* npc = document_.file();
    if (!npc || !npc->isChanged())
        return true;
    const QString text =
        npc->isNew() ? QCoreApplication::translate("ScriptFlows", "Сохранть новый NPC файл?")
                     : QCoreApplication::translate("ScriptFlows", "Сохранть %1 ?")
                           .arg(pathText(npc->path()));
    return askToSave(prompts_, text, [this] { return save() == SaveOutcome::Saved; });
}

bool ScriptFlows::open() {
    if (!askSave())
        return false;
    auto choice =
        prompts_.openFile({QCoreApplication::translate("ScriptFlows", "ОТКРЫТИЕ NPC ФАЙЛА"),
                           startFolder(), pathText(lastPath_.filename()), openFilters(), 1});
    if (!choice)
        return false;
    return openPath(pathOf(choice->path));
}

bool ScriptFlows::openPath(const std::filesystem::path& path) {
    if (!load(path))
        return false;
    speech_.followScript(path);
    return true;
}

bool ScriptFlows::reload() {
    const NpcFile* npc = document_.file();
    return npc && !npc->isNew() && load(npc->path());
}

bool ScriptFlows::load(const std::filesystem::path& path) {
    auto loaded = NpcFile::load(path);
    if (!loaded) {
        prompts_.tell(loaded.error());
        return false;
    }
    lastPath_ = path;
    document_.replace(std::move(*loaded));
    return true;
}

void ScriptFlows::newScript() {
    if (askSave())
        document_.replace(NpcFile::makeNew());
}

ScriptFlows::SaveOutcome ScriptFlows::save() {
    const NpcFile* npc = document_.file();
    if (!npc)
        return SaveOutcome::Failed;
    switch (npc->saveRoute()) {
    case NpcFile::SaveRoute::AskForName:
        return saveAs();
    case NpcFile::SaveRoute::ReadOnlyDrive:
        prompts_.tell(platform::readOnlyDriveError(npc->path(), true));
        return saveAs();
    case NpcFile::SaveRoute::InPlace:
        break;
    }
    if (disk_.changedSinceLoad() &&
        prompts_.question(kTitle,
                          QCoreApplication::translate(
                              "ScriptFlows", "Файл\n%1\nизменён другой программой после "
                                             "загрузки.\nЗаменить его содержимым редактора?")
                              .arg(pathText(npc->path())),
                          false) != Answer::Yes)
        return SaveOutcome::Cancelled;
    return writeTo(npc->path());
}

ScriptFlows::SaveOutcome ScriptFlows::saveAs() {
    const NpcFile* npc = document_.file();
    if (!npc)
        return SaveOutcome::Failed;
    const UserPrompts::FileRequest request{
        QCoreApplication::translate("ScriptFlows", "СОХРАНИТЬ NPC ФАЙЛ КАК..."),
        startFolder(),
        npc->isNew() ? QString() : q(npc->title()),
        {{"*.NPC", "*.npc", "npc"}, {QCoreApplication::translate("ScriptFlows", "Все файлы"), "*"}},
        1};
    const auto target = prompts_.saveTarget(request);
    return target ? writeTo(target->path) : SaveOutcome::Cancelled;
}

ScriptFlows::SaveOutcome ScriptFlows::writeTo(const std::filesystem::path& path) {
    auto saved = writeCopy(prompts_, *document_.file(), path);
    if (!saved)
        return SaveOutcome::Failed;
    lastPath_ = saved->path();
    document_.replace(std::move(*saved));
    return SaveOutcome::Saved;
}

void ScriptFlows::convertLayout() {
    auto source = prompts_.openFile(
        {QCoreApplication::translate("ScriptFlows", "ИЗМЕНЕНИЕ ФОРМАТА NPC ФАЙЛА"), startFolder(),
         QString(), openFilters(), 1});
    if (!source)
        return;
    const auto sourcePath = pathOf(source->path);
    if (auto checked = npcformat::readScript(sourcePath); !checked) {
        prompts_.tell(checked.error());
        return;
    }
    const auto isOpen = [this](const std::filesystem::path& path) {
        const NpcFile* npc = document_.file();
        return npc && !npc->isNew() && platform::samePath(npc->path(), path);
    };
    // The bytes read next must be the latest ones.
    if (isOpen(sourcePath) && !askSave())
        return;
    auto bytes = npcformat::readScript(sourcePath);
    if (!bytes) {
        prompts_.tell(bytes.error());
        return;
    }
    const NpcFileType from = npcformat::detectType(*bytes);
    const UserPrompts::FileRequest request{
        from == NpcFileType::Ja
            ? QCoreApplication::translate("ScriptFlows",
                                          "ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:АВ (БУКА). СОХРАНИТЬ КАК...")
            : QCoreApplication::translate(
                  "ScriptFlows",
                  "ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:ENG., JA2UB:ENG. & RUS. СОХРАНИТЬ КАК..."),
        startFolder(),
        pathText(sourcePath.filename()),
        {{QCoreApplication::translate("ScriptFlows", "Buka: АВ"), "*.npc", "npc"},
         {"Ja2:eng.,UB:eng.&rus.", "*.npc", "npc"}},
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
    if (const auto loss = npcformat::conversionLoss(*bytes, layoutOf(*target), prompts_.language());
        loss && prompts_.question(
                    kTitle,
                    q(*loss) + "\n" +
                        QCoreApplication::translate("ScriptFlows", "Преобразовать всё равно?"),
                    false) != Answer::Yes)
        return;
    if (auto done = npcformat::convertFile(sourcePath, target->path, layoutOf(*target)); !done) {
        prompts_.tell(done.error());
        return;
    }
    if (!isOpen(target->path))
        return;
    disk_.acknowledge();
    if (prompts_.question(
            kTitle,
            QCoreApplication::translate("ScriptFlows",
                                        "Формат файла\n%1 был изменен.\nЗагрузить файл заново?")
                .arg(pathText(target->path)),
            false) == Answer::Yes)
        reload();
}

void ScriptFlows::showCurrentInfo() {
    if (const NpcFile* npc = document_.file())
        prompts_.message(Icon::Information,
                         QCoreApplication::translate("ScriptFlows", "Текущий файл..."),
                         q(npc->summary(prompts_.language())));
}

} // namespace parlex::session
