#include "core/speech/companion.h"
#include "core/platform/files.h"

#include <set>
#include <string>

namespace parlex {

std::filesystem::path companionPath(const std::filesystem::path& scriptPath) {
    const bool npc = platform::lowerExtension(scriptPath) == ".npc";
    const std::string title = platform::utf8(npc ? scriptPath.stem() : scriptPath.filename());
    return scriptPath.parent_path() / platform::pathFromUtf8(title + ".EDT");
}

CompanionIndex::CompanionIndex(std::span<const std::filesystem::path> scripts) {
    std::set<std::filesystem::path> folders;
    for (const auto& script : scripts)
        folders.insert(script.parent_path());
    for (const auto& folder : folders) {
        std::error_code ec;
        for (auto it = std::filesystem::directory_iterator(folder.empty() ? "." : folder, ec);
             !ec && it != std::filesystem::directory_iterator(); it.increment(ec)) {
            const auto name = it->path().filename();
            if (platform::lowerExtension(name) != ".edt" || !it->is_regular_file(ec))
                continue;
            auto [at, added] = files_.try_emplace({folder, platform::utf8(name.stem())}, name);
            if (!added && name < at->second)
                at->second = name; // several spellings: the first by name, the same every time
        }
    }
}

std::optional<std::filesystem::path>
CompanionIndex::find(const std::filesystem::path& scriptPath) const {
    const std::filesystem::path wanted = companionPath(scriptPath);
    const auto found = files_.find({wanted.parent_path(), platform::utf8(wanted.stem())});
    if (found == files_.end())
        return std::nullopt;
    return wanted.parent_path() / found->second;
}

std::optional<std::filesystem::path> findCompanion(const std::filesystem::path& scriptPath) {
    return CompanionIndex(std::span(&scriptPath, 1)).find(scriptPath);
}

} // namespace parlex
