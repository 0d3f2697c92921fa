#pragma once

#include <string>
#include <string_view>

namespace parlex::text {

// The one backslash escaping of the string formats we write (JSON, gettext
// catalogues, desktop entries): a backslash, a line feed, a carriage return and a
// tab become \\ \n \r \t, and each character of `more` gets a backslash before it.
bool needsEscape(char c, std::string_view more);
void appendEscaped(std::string& out, char c, std::string_view more);
std::string backslashEscaped(std::string_view text, std::string_view more = {});

} // namespace parlex::text
