#include "core/mod/findings.h"
#include "core/platform/files.h"
#include "core/text/lines.h"

#include <algorithm>
#include <utility>

namespace parlex::mod {

bool findingBefore(const Finding& a, const Finding& b) {
    if (const int files = a.file.native().compare(b.file.native()); files != 0)
        return files < 0;
    return std::pair(a.record.value_or(0), a.field.value_or(-1)) <
           std::pair(b.record.value_or(0), b.field.value_or(-1));
}

void sortFindings(std::vector<Finding>& findings) {
    std::ranges::stable_sort(findings, findingBefore);
}

const char* severityName(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Match:
        return "match";
    }
    return "";
}

std::string formatFinding(const Finding& finding) {
    std::string out = platform::utf8(finding.file);
    if (finding.record)
        out += ":" + std::to_string(*finding.record);
    if (finding.field)
        out += ":" + std::to_string(*finding.field);
    out += ": ";
    if (finding.severity != Severity::Match)
        out += std::string(severityName(finding.severity)) + ": ";
    return out + text::joinLines(finding.message);
}

} // namespace parlex::mod
