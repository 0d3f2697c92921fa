#include "core/text/json.h"

#include "core/text/cp1251.h"
#include "core/text/escape.h"

namespace parlex::text {

std::string jsonString(std::string_view s) {
    std::string out;
    out.reserve(s.size() + 2);
    out += '"';
    // Runs of characters that need no escape are appended whole.
    std::size_t run = 0;
    for (std::size_t i = 0; i < s.size();) {
        const auto c = static_cast<unsigned char>(s[i]);
        if (c >= 0x80) {
            std::size_t next = i;
            if (nextUtf8(s, next)) {
                i = next;
                continue;
            }
            // A byte that begins no UTF-8 character (a file name in another code
            // page): the replacement character, so that the output still parses.
            out.append(s.substr(run, i - run));
            out += "\xEF\xBF\xBD";
            run = ++i;
            continue;
        }
        if (c >= 0x20 && !needsEscape(static_cast<char>(c), "\"")) {
            ++i;
            continue;
        }
        out.append(s.substr(run, i - run));
        run = ++i;
        if (c >= 0x20 || needsEscape(static_cast<char>(c), {})) {
            appendEscaped(out, static_cast<char>(c), "\"");
            continue;
        }
        // Other control characters by their code point.
        static constexpr char digits[] = "0123456789abcdef";
        out += "\\u00";
        out += digits[c >> 4];
        out += digits[c & 0xF];
    }
    out.append(s.substr(run));
    return out + '"';
}

} // namespace parlex::text
