#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/common/error.h"
#include "core/text/language.h"

namespace parlex {
class CodeLists;
}

namespace parlex::mod {

// A field that two scripts hold differently at the same position.
struct FieldChange {
    int record;                   // position 1-50
    int field;                    // the field's first byte, 0-31
    std::string oldHex, newHex;   // "0C 01"; "-" where the script has no record there
    std::string oldText, newText; // the sentences of both
};

// The fields that differ, record by record by position (the layouts may differ: a
// "ja" script has no record 50, which counts as an empty one).
Result<std::vector<FieldChange>> diffScripts(const std::filesystem::path& a,
                                             const std::filesystem::path& b, const CodeLists& lists,
                                             Language language = Language::Russian);

} // namespace parlex::mod
