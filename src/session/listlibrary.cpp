#include "session/listlibrary.h"

#include "core/codelists/listwriter.h"
#include "core/settings/locations.h"
#include "session/userprompts.h"

namespace parlex::session {

ListLibrary::ListLibrary(UserPrompts& prompts, const std::filesystem::path& programDir)
    : prompts_(prompts), folder_(locations(programDir).listFolder), lists_(folder_) {
    lists_.setReadErrorHandler([this](const Error& error) { prompts_.tell(error); });
}

std::vector<std::string> ListLibrary::rows(ListKey key) {
    ListRows rows = lists_.rows(key, prompts_.language());
    if (rows.warning)
        prompts_.message(UserPrompts::Icon::Exclamation, QString::fromUtf8(kMessageTitle),
                         QString::fromStdString(*rows.warning));
    return std::move(rows.rows);
}

void ListLibrary::extract(ListKey key, bool askBeforeReplace) {
    const std::tm local = platform::localNow();
    const Language language = prompts_.language();
    auto written = writeListFile(key, folder_, local, !askBeforeReplace, language);
    const QString title = QString::fromUtf8(kMessageTitle);
    if (!written && written.error().kind == ErrorKind::Exists) {
        if (prompts_.question(title, QString::fromStdString(written.error().text(language)),
                              false) != UserPrompts::Answer::Yes)
            return;
        written = writeListFile(key, folder_, local, true, language);
    }
    if (!written)
        prompts_.message(UserPrompts::Icon::Critical, title,
                         QString::fromStdString(written.error().text(language)));
}

} // namespace parlex::session
