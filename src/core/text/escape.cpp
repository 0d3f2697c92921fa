#include "core/text/escape.h"

namespace parlex::text {

bool needsEscape(char c, std::string_view more) {
    return c == '\\' || c == '\n' || c == '\r' || c == '\t' ||
           more.find(c) != std::string_view::npos;
}

void appendEscaped(std::string& out, char c, std::string_view more) {
    if (!needsEscape(c, more)) {
        out += c;
        return;
    }
    out += '\\';
    out += c == '\n' ? 'n' : c == '\r' ? 'r' : c == '\t' ? 't' : c;
}

std::string backslashEscaped(std::string_view text, std::string_view more) {
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        appendEscaped(out, c, more);
    return out;
}

} // namespace parlex::text
