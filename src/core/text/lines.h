#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace parlex::text {

// The lines of a text, without their CR LF (or bare LF) ends. A final line end does
// not open another, empty line.
std::vector<std::string_view> splitLines(std::string_view text);

// A "key=value" line (a code list's "code=text", a settings or desktop entry line)
// split at its first "=", both parts as written; nothing when the line has no "=".
struct KeyValue {
    std::string_view key;
    std::string_view value;
};
std::optional<KeyValue> splitAtEquals(std::string_view line);

// The text without the blanks and tabs around it.
std::string_view trimmed(std::string_view text);

// The text on one line: its non-empty lines joined with "; " (a message of several
// lines as one line of a report that grep and editors read line by line).
std::string joinLines(std::string_view text);

} // namespace parlex::text
