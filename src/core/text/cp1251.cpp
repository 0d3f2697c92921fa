#include "core/text/cp1251.h"

#include "core/text/encodingtexts.h"

#include <array>

namespace parlex::text {
namespace {

// Characters of bytes 0x80-0xBF; 0xC0-0xFF are U+0410-U+044F in order.
constexpr std::array<char32_t, 64> kHigh = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, // 80
    0x20AC, 0x2030, 0x0409, 0x2039, 0x040A, 0x040C, 0x040B, 0x040F, // 88
    0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90
    0x0098, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, // 98
    0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7, // A0
    0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407, // A8
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7, // B0
    0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457, // B8
};

std::string describe(char32_t ch) {
    static const char* digits = "0123456789ABCDEF";
    std::string hex;
    for (int shift = 12; shift >= 0; shift -= 4)
        hex += digits[(ch >> shift) & 0xF];
    if (ch > 0xFFFF)
        hex = std::string(1, digits[(ch >> 16) & 0xF]) + hex;
    std::string shown;
    appendUtf8(shown, ch);
    return "\"" + shown + "\" (U+" + hex + ")";
}

} // namespace

char32_t fromCp1251(unsigned char byte) {
    if (byte < 0x80)
        return byte;
    if (byte >= 0xC0)
        return 0x0410 + (byte - 0xC0);
    return kHigh[byte - 0x80];
}

std::optional<unsigned char> toCp1251(char32_t ch) {
    if (ch < 0x80)
        return static_cast<unsigned char>(ch);
    if (ch >= 0x0410 && ch <= 0x044F)
        return static_cast<unsigned char>(0xC0 + (ch - 0x0410));
    for (std::size_t i = 0; i < kHigh.size(); ++i)
        if (kHigh[i] == ch)
            return static_cast<unsigned char>(0x80 + i);
    return std::nullopt;
}

void appendUtf8(std::string& out, char32_t ch) {
    if (ch < 0x80) {
        out += static_cast<char>(ch);
    } else if (ch < 0x800) {
        out += static_cast<char>(0xC0 | (ch >> 6));
        out += static_cast<char>(0x80 | (ch & 0x3F));
    } else if (ch < 0x10000) {
        out += static_cast<char>(0xE0 | (ch >> 12));
        out += static_cast<char>(0x80 | ((ch >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (ch & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (ch >> 18));
        out += static_cast<char>(0x80 | ((ch >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((ch >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (ch & 0x3F));
    }
}

std::optional<char32_t> nextUtf8(std::string_view s, std::size_t& pos) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(s[i]); };
    const unsigned char lead = byte(pos);
    int extra;
    char32_t ch;
    if (lead < 0x80) {
        ++pos;
        return lead;
    } else if ((lead & 0xE0) == 0xC0) {
        extra = 1;
        ch = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        extra = 2;
        ch = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        extra = 3;
        ch = lead & 0x07;
    } else {
        return std::nullopt;
    }
    if (pos + extra >= s.size())
        return std::nullopt;
    for (int i = 1; i <= extra; ++i) {
        const unsigned char b = byte(pos + i);
        if ((b & 0xC0) != 0x80)
            return std::nullopt;
        ch = (ch << 6) | (b & 0x3F);
    }
    static constexpr char32_t kMin[] = {0, 0x80, 0x800, 0x10000};
    if (ch < kMin[extra] || ch > 0x10FFFF || (ch >= 0xD800 && ch <= 0xDFFF))
        return std::nullopt;
    pos += extra + 1;
    return ch;
}

std::string cp1251ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() * 2);
    for (char c : bytes)
        appendUtf8(out, fromCp1251(static_cast<unsigned char>(c)));
    return out;
}

Result<std::string> utf8ToCp1251(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    std::size_t pos = 0;
    while (pos < utf8.size()) {
        const auto ch = nextUtf8(utf8, pos);
        if (!ch)
            return fail(ErrorKind::Invalid,
                        say(encodingtexts::kTexts[encodingtexts::Say::NotUtf8]));
        const auto byte = toCp1251(*ch);
        if (!byte)
            return fail(
                ErrorKind::Invalid,
                say(encodingtexts::kTexts[encodingtexts::Say::NotInCp1251], {describe(*ch)}));
        out += static_cast<char>(*byte);
    }
    return out;
}

std::string textFileAsCp1251(std::string_view bytes) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const bool marked = bytes.starts_with(kByteOrderMark);
    if (marked)
        bytes.remove_prefix(kByteOrderMark.size());
    std::string out;
    out.reserve(bytes.size());
    bool beyondAscii = false;
    for (std::size_t pos = 0; pos < bytes.size();) {
        const auto ch = nextUtf8(bytes, pos);
        if (!ch) {
            if (marked) { // marked as UTF-8 all the same: a broken character is unknown
                out += '?';
                ++pos;
                continue;
            }
            return std::string(bytes);
        }
        beyondAscii = beyondAscii || *ch >= 0x80;
        out += static_cast<char>(toCp1251(*ch).value_or('?'));
    }
    return marked || beyondAscii ? out : std::string(bytes);
}

} // namespace parlex::text
