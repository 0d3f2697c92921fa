#include "core/entry/numberentry.h"

#include "core/explain/explaintexts.h"

#include "core/text/hex.h"
#include "core/text/lines.h"
#include "core/text/numbers.h"

#include <algorithm>
#include <cctype>

namespace parlex::entry {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Digits with at most one decimal point, at least one digit; consumed from `s`.
bool takeDecimal(std::string_view& s) {
    bool digits = false, point = false;
    std::size_t i = 0;
    for (; i < s.size(); ++i) {
        if (isDigit(s[i]))
            digits = true;
        else if (s[i] == '.' && !point)
            point = true;
        else
            break;
    }
    s.remove_prefix(i);
    return digits;
}

} // namespace

KeyEffect keyEffect(char32_t character) {
    if (character == 8)
        return KeyEffect::Pass;
    if (character == 13)
        return KeyEffect::Encode;
    return character >= '0' && character <= '9' ? KeyEffect::Pass : KeyEffect::Drop;
}

bool isPlainNumber(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

bool looksNumeric(std::string_view text) {
    std::string_view s = parlex::text::trimmed(text);
    if (s.size() > 2 && s[0] == '&' && (s[1] == 'H' || s[1] == 'h' || s[1] == 'O' || s[1] == 'o')) {
        const bool hex = s[1] == 'H' || s[1] == 'h';
        return std::all_of(s.begin() + 2, s.end(), [hex](char c) {
            return hex ? std::isxdigit(static_cast<unsigned char>(c)) != 0 : c >= '0' && c <= '7';
        });
    }
    if (!s.empty() && (s[0] == '+' || s[0] == '-'))
        s.remove_prefix(1);
    if (!takeDecimal(s))
        return false;
    if (!s.empty() && (s[0] == 'e' || s[0] == 'E' || s[0] == 'd' || s[0] == 'D')) {
        s.remove_prefix(1);
        if (!s.empty() && (s[0] == '+' || s[0] == '-'))
            s.remove_prefix(1);
        if (s.empty() || !std::all_of(s.begin(), s.end(), isDigit))
            return false;
        s = {};
    }
    return s.empty();
}

std::size_t encodedLength(FieldWidth mode) {
    return mode == FieldWidth::Word ? 5 : 2;
}

bool outOfRange(std::string_view text, FieldWidth mode) {
    return !encodableValue(text, mode).has_value();
}

std::optional<std::uint32_t> encodableValue(std::string_view text, FieldWidth mode) {
    const std::size_t longest = mode == FieldWidth::Word ? 5 : 3;
    if (!isPlainNumber(text) || text.size() > longest)
        return std::nullopt;
    std::uint32_t value = 0;
    for (char c : text)
        value = value * 10 + static_cast<std::uint32_t>(c - '0');
    if (value > widthMaximum(mode))
        return std::nullopt;
    return value;
}

std::string encoded(std::uint32_t value, FieldWidth mode) {
    const auto low = static_cast<std::uint8_t>(value & 0xFF);
    if (mode != FieldWidth::Word)
        return text::byteHex(low);
    return text::byteHex(low) + " " + text::byteHex(static_cast<std::uint8_t>(value >> 8));
}

std::string rowText(const EditableField& field, Language language) {
    const auto number = [](int index) {
        return text::zeroPadded(static_cast<unsigned>(index + 1), 2);
    };
    using explaintexts::Say;
    if (field.width == FieldWidth::Word)
        return fill(explaintexts::kTexts(Say::BytesRow, language),
                    {number(field.index), number(field.index + 1)});
    return fill(explaintexts::kTexts(Say::ByteRow, language), {number(field.index)});
}

int rowOfByte(int byteIndex) {
    const auto rows = editableFields();
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (byteIndex >= rows[row].index &&
            byteIndex < rows[row].index + byteCount(rows[row].width))
            return static_cast<int>(row);
    return 0;
}

} // namespace parlex::entry
