#pragma once

#include <filesystem>
#include <optional>

namespace parlex {

// The speech file that goes with a script: 053.npc -> 053.EDT in the same folder. A
// title ending in ".npc" (any case) has its extension replaced, any other title gets
// ".EDT" added.
std::filesystem::path companionPath(const std::filesystem::path& scriptPath);

// The companion as it lies on disk: the same name with its extension in any case
// (053.edt, 053.Edt), since a file system may tell cases apart. Nothing when none
// is there.
std::optional<std::filesystem::path> findCompanion(const std::filesystem::path& scriptPath);

} // namespace parlex
