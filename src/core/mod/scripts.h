#pragma once

#include "core/mod/findings.h"
#include "core/npc/npcformat.h"
#include "core/text/language.h"

#include <filesystem>
#include <functional>
#include <span>
#include <vector>

// Working on a whole mod: the scripts named on a command line, and work spread over
// the cores.
namespace parlex {
class CodeLists;
}

namespace parlex::mod {

// The scripts of `paths`: a folder gives every "*.npc" below it (any case, at any
// depth), a file is taken as it is named (even when it is not there, so that its
// reader can say why). Sorted, each once.
std::vector<std::filesystem::path> collectScripts(std::span<const std::filesystem::path> paths);

// Runs a worker for every i below `count` on up to as many threads as the machine
// has cores. Each thread makes its own worker with `makeWorker` (so a worker may keep
// state, such as its own code lists); workers of different threads run at once.
// Small counts stay on the calling thread.
using Worker = std::function<void(std::size_t)>;
void forEachParallel(std::size_t count, const std::function<Worker()>& makeWorker);

// Runs `check` over every script on all cores, each thread with its own copy of the
// code lists read once; a file that is no script is an error finding of its own.
// The findings of all, sorted.
using ScriptCheck = std::function<void(const std::filesystem::path&, const npcformat::FileBytes&,
                                       const CodeLists&, std::vector<Finding>&)>;
std::vector<Finding> checkScripts(std::span<const std::filesystem::path> scripts,
                                  const CodeLists& lists, const ScriptCheck& check,
                                  Language language = Language::Russian);

} // namespace parlex::mod
