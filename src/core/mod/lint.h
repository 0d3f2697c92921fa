#pragma once

#include "core/mod/findings.h"

#include <span>

namespace parlex {
class CodeLists;
}

namespace parlex::mod {

// What is worth a look in one script:
// - an error for every field the explainer marks as wrong (dark red in the window),
//   and for a file that is no script;
// - a warning for every remark behind a sentence;
// - a warning for phrases of a record that its speech file (053.npc -> 053.EDT, any
//   case, beside it) lacks or holds empty;
// - a warning for a "ja" script whose tail holds bytes a save would set to zero.
std::vector<Finding> lintScript(const std::filesystem::path& path, const CodeLists& lists);

// Every script, spread over the cores, in file, record and field order.
std::vector<Finding> lintScripts(std::span<const std::filesystem::path> scripts,
                                 const CodeLists& lists);

// "12, 14-16": numbers in ascending order with runs joined.
std::string numberRanges(const std::vector<int>& numbers);

} // namespace parlex::mod
