#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace parlex::mod {

enum class Severity {
    Error,   // a wrong value, or a file that cannot be read as a script
    Warning, // something to look at: a remark, a missing phrase, bytes a save would drop
    Match,   // what a search found
};

// One thing said about a place in a script, as compilers say it.
struct Finding {
    std::filesystem::path file;
    std::optional<int> record; // position 1-50; nothing for the file as a whole
    std::optional<int> field;  // the field's first byte, 0-31; nothing for a whole record
    Severity severity = Severity::Warning;
    std::string message;
    bool operator==(const Finding&) const = default;
};

// Orders by file, record and field, the file's own findings first.
bool findingBefore(const Finding& a, const Finding& b);
void sortFindings(std::vector<Finding>& findings);

// "FILE:RECORD:FIELD: error: message" ("FILE: error: ..." for the file as a whole);
// a match has no severity word. Always one line: a message of several lines is
// joined with "; ".
std::string formatFinding(const Finding& finding);

const char* severityName(Severity severity); // "error", "warning", "match"

} // namespace parlex::mod
