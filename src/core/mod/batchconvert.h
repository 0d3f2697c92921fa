#pragma once

#include "core/npc/npcfiletype.h"
#include "core/text/language.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace parlex::mod {

struct ConvertOutcome {
    // Exists: the target is another file that is there already and was left alone.
    enum class Status { Converted, Skipped, Failed, Exists };
    std::filesystem::path source;
    std::filesystem::path target;
    Status status;
    std::string message; // why it was skipped or failed
    std::string loss{};  // what the conversion lost (a filled record 50), or empty
};

// Rewrites every script not yet in the `to` layout: in place, or into `outDir` (made
// when missing) under the same name. A script already in that layout is skipped, and
// so is a second script whose name would overwrite one written in this run. A file
// already in `outDir` is replaced only with `replaceExisting`. Each file is written
// atomically; one failure does not stop the others. What a conversion loses is told
// with its outcome.
std::vector<ConvertOutcome> convertScripts(std::span<const std::filesystem::path> scripts,
                                           NpcFileType to,
                                           const std::optional<std::filesystem::path>& outDir,
                                           bool replaceExisting = false,
                                           Language language = Language::Russian);

} // namespace parlex::mod
