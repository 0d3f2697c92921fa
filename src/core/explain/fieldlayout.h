#pragma once

#include "common/error.h"
#include "npc/npcrecord.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// What each byte of a record means: the field table and the reading of values.
namespace parlex {

enum class FieldWidth {
    Byte,  // one byte
    Word,  // two bytes, low byte first
    Bytes, // bytes 29-32 taken together
};

struct FieldInfo {
    int index; // index of the field's first byte
    FieldWidth width;
    std::string_view name;
    std::optional<std::uint32_t> absent; // the value that switches the field off
    std::uint32_t neutral;               // what a standard deletion writes
    std::string_view listKey;            // the code list that names the value, or empty
};

// The 21 fields in file order.
std::span<const FieldInfo> fieldTable();

struct FieldStart {
    int fieldIndex;
    std::string label; // " (01-02 as Word)", " (9 as Byte)", " (29-32 as Bytes)"
};

// Maps a byte index 0-31 to the field it belongs to.
FieldStart fieldStart(int byteIndex);

// The value of a field: Words low byte first; bytes 29-32 give 1 if any is non-zero.
std::uint32_t fieldValue(const NpcRecord& record, int fieldIndex);

// The fields that can be typed in: the Words, bytes 9-20 and bytes 29-32 one by one.
std::optional<FieldWidth> editableFieldWidth(int fieldIndex);

// Writes a decimal value into an editable field, refusing values that do not fit.
Result<void> setFieldValue(NpcRecord& record, int fieldIndex, std::uint32_t value);

} // namespace parlex
