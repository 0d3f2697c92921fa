#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// One phrase record of a speech file: 16-bit little-endian units, one per character,
// then zero bytes to the record's end. The unit of character c (Windows-1251) is c+1,
// except the blank (0x20) and "я" (0xFF, unit 0x0100).
namespace parlex::phrasecodec {

// The phrase of a record as Windows-1251 bytes. The record is read byte by byte:
// every non-zero byte b is the character b-1 (b = 1 gives "я", b = 0x20 and 0x21 a
// blank), three zero bytes in a row end the phrase. A record that begins with two
// zero bytes is empty; one that begins 00 01 starts with "я".
std::string decode(std::span<const std::uint8_t> record);

// The record of a phrase (Windows-1251 bytes), padded with zeros to `recordSize`.
// Characters beyond recordSize / 2 are cut.
std::vector<std::uint8_t> encode(std::string_view phrase, std::size_t recordSize);

// Whether bytes could be phrase records as encode writes them: the high byte of every
// unit is 0, or 1 for "я". A script is not: its neutral records hold FF FF.
bool couldBePhrases(std::span<const std::uint8_t> bytes);

} // namespace parlex::phrasecodec
