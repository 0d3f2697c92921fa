#pragma once

#include "core/common/error.h"

#include <optional>
#include <string>
#include <string_view>

// Windows-1251 is the code page of every text file and every phrase that Parlex
// reads or writes; inside the program text is UTF-8. These are the only converters.
namespace parlex::text {

// The Unicode character of a Windows-1251 byte. Byte 0x98, which the code page
// leaves undefined, maps to U+0098 so that no byte is ever lost.
char32_t fromCp1251(unsigned char byte);

// The Windows-1251 byte of a Unicode character, or nothing if the code page has none.
std::optional<unsigned char> toCp1251(char32_t ch);

// Whole strings. Decoding always succeeds; encoding fails on the first character
// that Windows-1251 cannot hold (and on malformed UTF-8), naming that character.
std::string cp1251ToUtf8(std::string_view bytes);
Result<std::string> utf8ToCp1251(std::string_view utf8);

// The text of a file a user may have saved in either code page, as Windows-1251:
// UTF-8 when it starts with a byte-order mark (which is dropped) or is valid UTF-8
// with at least one character beyond ASCII; else Windows-1251 as it stands. Characters
// that Windows-1251 cannot hold become '?'.
std::string textFileAsCp1251(std::string_view bytes);

// Decodes one UTF-8 character at `pos`, advancing it; nothing on malformed input.
std::optional<char32_t> nextUtf8(std::string_view utf8, std::size_t& pos);
void appendUtf8(std::string& out, char32_t ch);

} // namespace parlex::text
