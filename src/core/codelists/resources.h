#pragma once

#include "core/text/language.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The program's table of strings and the help text of every field.
namespace parlex {

// String `number` of the table: 0 and 1 are the code strings of the action and
// reaction lists.
std::optional<std::string> resourceString(int number);

// The codes of resource string 0 or 1 ("0\1\4\...\"), in their order.
std::vector<std::uint32_t> resourceCodes(int number);

// The help text of a field: title line, empty line, body lines; CR LF between lines,
// none at the end. Nothing for an index where no field starts.
std::optional<std::string> helpText(int fieldIndex, Language language = Language::Russian);

} // namespace parlex
