#pragma once

#include <string>
#include <string_view>

namespace parlex::text {

// A JSON string literal of UTF-8 text, quotes included: quotes, backslashes and
// control characters escaped, everything else as it stands.
std::string jsonString(std::string_view utf8);

} // namespace parlex::text
