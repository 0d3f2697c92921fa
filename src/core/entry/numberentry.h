#pragma once

#include "core/explain/fieldlayout.h"
#include "core/text/language.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The rules of typing a new value for a field: which keys the entry takes, when an
// entry is out of range, and how a value is encoded as the bytes of a field.
namespace parlex::entry {

// What a character typed into the entry does.
enum class KeyEffect {
    Pass,   // digits and Backspace
    Encode, // Enter: encode in the present mode; the character itself is dropped
    Drop,   // everything else, control characters (Ctrl+V among them) too
};
KeyEffect keyEffect(char32_t character);

// Text that counts as a number in the wide sense: blanks around it, a sign, a
// fraction, an exponent, or a "&H"/"&O" prefix. Such text is kept in the entry but
// never encoded unless it is also a plain number.
bool looksNumeric(std::string_view text);

// Only the digits 0-9, at least one.
bool isPlainNumber(std::string_view text);

// An entry is out of range by its length (leading zeros count) or by its value:
// more than 3 characters or above 255 for a Byte, more than 5 or above 65535 for a
// Word. A text that is not a plain number is out of range too: it must never be
// encoded.
bool outOfRange(std::string_view text, FieldWidth mode);

// The value of an entry that can be encoded in `mode`, or nothing.
std::optional<std::uint32_t> encodableValue(std::string_view text, FieldWidth mode);

// A value as the bytes of a field, low byte first: "0A" for a Byte, "0C 01" for a Word.
std::string encoded(std::uint32_t value, FieldWidth mode);

// The number of characters an encoded text has in `mode`: 2 or 5.
std::size_t encodedLength(FieldWidth mode);

// The rows of the field chooser: "Байты 01-02" for a Word, "Байт 09" for a Byte.
std::string rowText(const EditableField& field, Language language = Language::Russian);

// The row of the field chooser that byte `byteIndex` belongs to: the second byte of
// a Word gives the Word's row; each of bytes 29-32 has its own.
int rowOfByte(int byteIndex);

} // namespace parlex::entry
