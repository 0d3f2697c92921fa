#include "explain/fieldlayout.h"

#include "text/numbers.h"

#include <array>

namespace parlex {
namespace {

constexpr std::uint32_t kNoWord = 0xFFFF;
constexpr std::uint32_t kNoByte = 0xFF;

constexpr std::array<FieldInfo, 21> kFields{{
    {0, FieldWidth::Word, "FireMode", std::nullopt, 0x0000, ""},
    {2, FieldWidth::Word, "NeededItem", 0, 0x0000, "I"},
    {4, FieldWidth::Word, "TriggerTrue", kNoWord, 0xFFFF, "T"},
    {6, FieldWidth::Word, "TriggerFalse", kNoWord, 0xFFFF, "T"},
    {8, FieldWidth::Byte, "QuestHeld", kNoByte, 0xFF, "Qi"},
    {9, FieldWidth::Byte, "FirstDay", kNoByte, 0x00, ""},
    {10, FieldWidth::Byte, "LastDay", kNoByte, 0xFF, ""},
    {11, FieldWidth::Byte, "ActionCode", std::nullopt, 0x00, "A"},
    {12, FieldWidth::Byte, "Leadership", 0, 0x00, ""},
    {13, FieldWidth::Byte, "PhraseFirst", kNoByte, 0xFF, ""},
    {14, FieldWidth::Byte, "PhraseCount", 1, 0x01, ""},
    {15, FieldWidth::Byte, "QuestGiven", kNoByte, 0xFF, "Qi"},
    {16, FieldWidth::Byte, "QuestClosed", kNoByte, 0xFF, "Qo"},
    {17, FieldWidth::Byte, "JumpNpc", kNoByte, 0xFF, "N"},
    {18, FieldWidth::Byte, "JumpRecord", kNoByte, 0xFF, ""},
    {19, FieldWidth::Byte, "Spare20", std::nullopt, 0x00, ""},
    {20, FieldWidth::Word, "TriggerSet", kNoWord, 0xFFFF, "T"},
    {22, FieldWidth::Word, "GivenItem", 0, 0x0000, "I"},
    {24, FieldWidth::Word, "MoveTo", kNoWord, 0xFFFF, ""},
    {26, FieldWidth::Word, "ReactionCode", std::nullopt, 0x0000, "R"},
    {28, FieldWidth::Bytes, "Spare29", std::nullopt, 0x00, ""},
}};

} // namespace

std::span<const FieldInfo> fieldTable() {
    return kFields;
}

FieldStart fieldStart(int byteIndex) {
    if (byteIndex >= 8 && byteIndex <= 19)
        return {byteIndex, " (" + std::to_string(byteIndex + 1) + " as Byte)"};
    if (byteIndex >= 28)
        return {28, " (29-32 as Bytes)"};
    const int first = byteIndex - byteIndex % 2;
    return {first, " (" + text::zeroPadded(first + 1, 2) + "-" + text::zeroPadded(first + 2, 2) +
                       " as Word)"};
}

std::uint32_t fieldValue(const NpcRecord& record, int fieldIndex) {
    if (fieldIndex == 28)
        return (record[28] | record[29] | record[30] | record[31]) != 0 ? 1 : 0;
    if (fieldIndex < 8 || fieldIndex > 19)
        return record[fieldIndex] + 256u * record[fieldIndex + 1];
    return record[fieldIndex];
}

std::optional<FieldWidth> editableFieldWidth(int fieldIndex) {
    switch (fieldIndex) {
    case 0:
    case 2:
    case 4:
    case 6:
    case 20:
    case 22:
    case 24:
    case 26:
        return FieldWidth::Word;
    case 28:
    case 29:
    case 30:
    case 31:
        return FieldWidth::Byte;
    default:
        if (fieldIndex >= 8 && fieldIndex <= 19)
            return FieldWidth::Byte;
        return std::nullopt;
    }
}

Result<void> setFieldValue(NpcRecord& record, int fieldIndex, std::uint32_t value) {
    const auto width = editableFieldWidth(fieldIndex);
    if (!width)
        return fail(ErrorKind::Invalid, "Поле " + std::to_string(fieldIndex) +
                                            " нельзя изменить: допустимы поля 0, 2, 4, 6, "
                                            "8-19, 20, 22, 24, 26, 28-31.");
    const std::uint32_t limit = *width == FieldWidth::Word ? 65535 : 255;
    if (value > limit)
        return fail(ErrorKind::Invalid, "Значение " + std::to_string(value) +
                                            " не помещается в поле: допустимо от 0 до " +
                                            std::to_string(limit) + ".");
    record[fieldIndex] = static_cast<std::uint8_t>(value & 0xFF);
    if (*width == FieldWidth::Word)
        record[fieldIndex + 1] = static_cast<std::uint8_t>(value >> 8);
    return {};
}

} // namespace parlex
