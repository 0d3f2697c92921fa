#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace parlex {

// The speech file that goes with a script: 053.npc -> 053.EDT in the same folder. A
// title ending in ".npc" (any case) has its extension replaced, any other title gets
// ".EDT" added.
std::filesystem::path companionPath(const std::filesystem::path& scriptPath);

// The companions as they lie on disk beside many scripts, each folder read once: the
// same name with its extension in any case (053.EDT, 053.edt, 053.Edt), since a file
// system may tell cases apart; of several spellings the first by name, which is the
// exact one when it is there.
class CompanionIndex {
public:
    explicit CompanionIndex(std::span<const std::filesystem::path> scripts);
    // Nothing when no speech file of the script is there.
    std::optional<std::filesystem::path> find(const std::filesystem::path& scriptPath) const;

private:
    // By folder as given and title without extension (UTF-8): the file's name.
    std::map<std::pair<std::filesystem::path, std::string>, std::filesystem::path> files_;
};

// The companion of one script as it lies on disk, or nothing.
std::optional<std::filesystem::path> findCompanion(const std::filesystem::path& scriptPath);

} // namespace parlex
