#pragma once

#include "core/codelists/listkey.h"
#include "core/mod/findings.h"
#include "core/text/language.h"

#include <cstdint>
#include <span>

namespace parlex {
class CodeLists;
}

namespace parlex::mod {

// Every field whose code list is `key` and whose value is `code`, with its sentence;
// a file that is no script is an error finding. Spread over the cores, sorted.
std::vector<Finding> findCode(std::span<const std::filesystem::path> scripts, ListKey key,
                              std::uint32_t code, const CodeLists& lists,
                              Language language = Language::Russian);

// Every record whose phrases (the first and the count behind it) include `phrase`.
std::vector<Finding> findPhrase(std::span<const std::filesystem::path> scripts, int phrase,
                                const CodeLists& lists, Language language = Language::Russian);

} // namespace parlex::mod
