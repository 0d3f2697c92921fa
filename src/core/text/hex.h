#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// Bytes as the user reads them: two upper-case hex digits each.
namespace parlex::text {

// "0C" for 12.
std::string byteHex(std::uint8_t byte);

// Every byte as two digits, with `separator` between them: "0C 01 ..." or "0C01...".
std::string hexBytes(std::span<const std::uint8_t> bytes, std::string_view separator = " ");

} // namespace parlex::text
