#include "core/text/lines.h"

namespace parlex::text {

std::vector<std::string_view> splitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto nl = text.find('\n');
        std::string_view line = text.substr(0, nl);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        if (nl == std::string_view::npos)
            break;
        text = text.substr(nl + 1);
    }
    return lines;
}

std::optional<KeyValue> splitAtEquals(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    return KeyValue{line.substr(0, equals), line.substr(equals + 1)};
}

std::string_view trimmed(std::string_view text) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string joinLines(std::string_view text) {
    if (text.find('\n') == std::string_view::npos)
        return std::string(text);
    std::string out;
    for (std::string_view line : splitLines(text)) {
        if (line.empty())
            continue;
        if (!out.empty())
            out += "; ";
        out += line;
    }
    return out;
}

} // namespace parlex::text
