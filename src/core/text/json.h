#pragma once

#include <string>
#include <string_view>

namespace parlex::text {

// A JSON string literal of UTF-8 text, quotes included: quotes, backslashes and
// control characters escaped, everything else as it stands. A byte that is not part
// of a valid UTF-8 character becomes U+FFFD, so the literal is always valid UTF-8.
std::string jsonString(std::string_view utf8);

} // namespace parlex::text
