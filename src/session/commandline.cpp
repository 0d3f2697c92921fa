#include "session/commandline.h"

#include "core/npc/npcformat.h"
#include "session/pathtext.h"
#include "session/userprompts.h"

#include <QCoreApplication>

namespace parlex::session {

bool runCommandLine(const QStringList& arguments, const QString& programName, UserPrompts& prompts,
                    const std::function<void(const std::filesystem::path&)>& open) {
    if (arguments.isEmpty())
        return true;
    const QString line = arguments.join(' ');
    const auto path = pathOf(line);
    if (platform::fileExists(path)) {
        const auto size = platform::fileSize(path);
        if (size && *size == npcformat::kFileSize)
            open(path);
        else if (size)
            prompts.message(UserPrompts::Icon::Exclamation,
                            QCoreApplication::translate("CommandLine", "PARLEX - ОШИБКА ЗАГРУЗКИ"),
                            QString::fromStdString(npcformat::sizeRefusal(line.toStdString(), *size,
                                                                          prompts.language())));
        return true;
    }
    const QString lower = line.toLower();
    if (lower == "/help" || lower == "help" || line == "/?" || line == "?") {
        prompts.message(UserPrompts::Icon::Information, "Parlex <DOS>",
                        "Usage:\n<" + programName + "> <FileName> for open current file\n<" +
                            programName + "> without parameters for run programm");
        return false;
    }
    return true;
}

} // namespace parlex::session
