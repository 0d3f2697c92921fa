#include "speech/companion.h"
#include "platform/files.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace parlex {
namespace {

std::string upper(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return s;
}

} // namespace

std::filesystem::path companionPath(const std::filesystem::path& scriptPath) {
    const std::string title = platform::utf8(scriptPath.filename());
    const bool npc = title.size() >= 5 && upper(title.substr(title.size() - 4)) == ".NPC";
    return scriptPath.parent_path() /
           platform::pathFromUtf8(npc ? title.substr(0, title.size() - 3) + "EDT" : title + ".EDT");
}

std::optional<std::filesystem::path> findCompanion(const std::filesystem::path& scriptPath) {
    const std::filesystem::path wanted = companionPath(scriptPath);
    std::error_code ec;
    if (std::filesystem::is_regular_file(wanted, ec))
        return wanted;
    const std::string stem = platform::utf8(wanted.stem());
    const std::filesystem::path folder = wanted.parent_path().empty() ? "." : wanted.parent_path();
    std::optional<std::filesystem::path> found;
    for (auto it = std::filesystem::directory_iterator(folder, ec);
         !ec && it != std::filesystem::directory_iterator(); it.increment(ec)) {
        const auto& name = it->path().filename();
        if (platform::utf8(name.stem()) == stem &&
            upper(platform::utf8(name.extension())) == ".EDT" && it->is_regular_file(ec) &&
            (!found || name < found->filename()))
            found = it->path(); // several spellings: the first by name, the same every time
    }
    return found;
}

} // namespace parlex
