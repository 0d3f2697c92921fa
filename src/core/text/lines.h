#pragma once

#include <string_view>
#include <vector>

namespace parlex::text {

// The lines of a text, without their CR LF (or bare LF) ends. A final line end does
// not open another, empty line.
std::vector<std::string_view> splitLines(std::string_view text);

} // namespace parlex::text
