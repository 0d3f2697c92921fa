#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace parlex {

// One behaviour rule of a script: 32 bytes in file order.
using NpcRecord = std::array<std::uint8_t, 32>;

inline constexpr NpcRecord kEmptyRecord{};

// What a standard deletion writes: every field switched off, silent, firing always.
inline constexpr NpcRecord kNeutralRecord{
    0x00, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0xFF, 0x00, 0x00, 0xFF, 0x01, 0xFF,
    0xFF, 0xFF, 0xFF, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00};

inline bool isEmptyRecord(const NpcRecord& record) {
    return record == kEmptyRecord;
}

// Two upper-case hex digits per byte, with `separator` between bytes ("0C 01 ..." or "0C01...").
std::string toHex(const NpcRecord& record, std::string_view separator = " ");
std::string byteHex(std::uint8_t byte);

} // namespace parlex
