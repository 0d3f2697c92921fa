#pragma once

#include <string>
#include <string_view>

namespace parlex::cli {

// A JSON string literal of UTF-8 text, quotes included.
std::string jsonString(std::string_view utf8);

} // namespace parlex::cli
