#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace parlex {

inline constexpr std::size_t kRecordSize = 32;
inline constexpr std::uint32_t kMaxByteValue = 255;
inline constexpr std::uint32_t kMaxWordValue = 65535;

// One behaviour rule of a script: 32 bytes in file order.
using NpcRecord = std::array<std::uint8_t, kRecordSize>;

inline constexpr NpcRecord kEmptyRecord{};

inline bool isEmptyRecord(const NpcRecord& record) {
    return record == kEmptyRecord;
}

} // namespace parlex
