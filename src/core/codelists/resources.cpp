#include "core/codelists/resources.h"

#include "core/codelists/codelist.h"
#include "core/codelists/embedded.h"
#include "core/text/lines.h"

#include <charconv>
#include <map>
#include <string_view>

namespace parlex {
namespace {

const std::map<std::uint32_t, std::string>& strings() {
    static const std::map<std::uint32_t, std::string> table =
        codeTable(embedded::file("strings.txt"));
    return table;
}

// Sections "[index]" followed by the title line and the body lines.
std::map<int, std::string> readHelpTexts(std::string_view file) {
    std::map<int, std::string> t;
    int current = -1;
    int lineNo = 0;
    for (auto line : text::splitLines(file)) {
        if (line.starts_with('[')) {
            std::from_chars(line.data() + 1, line.data() + line.size() - 1, current);
            lineNo = 0;
            continue;
        }
        std::string& text = t[current];
        text += lineNo == 0 ? "" : lineNo == 1 ? "\r\n\r\n" : "\r\n";
        text += line;
        ++lineNo;
    }
    return t;
}

// The help texts in each language: help.txt in Russian, help_en.txt in English.
const std::map<int, std::string>& helpTexts(Language language) {
    static const std::map<int, std::string> russian = readHelpTexts(embedded::file("help.txt"));
    static const std::map<int, std::string> english = readHelpTexts(embedded::file("help_en.txt"));
    return language == Language::English ? english : russian;
}

} // namespace

std::optional<std::string> resourceString(int number) {
    if (number < 0)
        return std::nullopt;
    const auto it = strings().find(static_cast<std::uint32_t>(number));
    if (it == strings().end())
        return std::nullopt;
    return it->second;
}

std::vector<std::uint32_t> resourceCodes(int number) {
    std::vector<std::uint32_t> codes;
    const auto text = resourceString(number);
    if (!text)
        return codes;
    std::uint32_t value = 0;
    for (char c : *text) {
        if (c == '\\') {
            codes.push_back(value);
            value = 0;
        } else {
            value = value * 10 + static_cast<std::uint32_t>(c - '0');
        }
    }
    return codes;
}

std::optional<std::string> helpText(int fieldIndex, Language language) {
    const auto& texts = helpTexts(language);
    const auto it = texts.find(fieldIndex);
    if (it == texts.end())
        return std::nullopt;
    return it->second;
}

} // namespace parlex
