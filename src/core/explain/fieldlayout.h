#pragma once

#include "core/codelists/listkey.h"
#include "core/common/error.h"
#include "core/npc/npcrecord.h"
#include "core/text/language.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// What each byte of a record means. The table below is the one statement of the
// record layout: field starts, widths, labels, values, code lists, the rows of the
// byte editor and the neutral record are all derived from it.
namespace parlex {

enum class FieldWidth {
    Byte,  // one byte
    Word,  // two bytes, low byte first
    Bytes, // bytes 29-32 taken together
};

constexpr int byteCount(FieldWidth width) {
    return width == FieldWidth::Word ? 2 : width == FieldWidth::Byte ? 1 : 4;
}

// The greatest value a number typed into a Byte or a Word field may have.
constexpr std::uint32_t widthMaximum(FieldWidth width) {
    return width == FieldWidth::Word ? kMaxWordValue : kMaxByteValue;
}

struct FieldInfo {
    int index; // index of the field's first byte
    FieldWidth width;
    std::string_view name;
    std::uint32_t neutral;       // what a standard deletion writes
    std::optional<ListKey> list; // the code list that names the value

    constexpr int size() const { return byteCount(width); }
    constexpr bool contains(int byteIndex) const {
        return byteIndex >= index && byteIndex < index + size();
    }
};

// The 21 fields in file order, without gaps.
inline constexpr std::array<FieldInfo, 21> kFields{{
    {0, FieldWidth::Word, "FireMode", 0x0000, std::nullopt},
    {2, FieldWidth::Word, "NeededItem", 0x0000, ListKey::I},
    {4, FieldWidth::Word, "TriggerTrue", 0xFFFF, ListKey::T},
    {6, FieldWidth::Word, "TriggerFalse", 0xFFFF, ListKey::T},
    {8, FieldWidth::Byte, "QuestHeld", 0xFF, ListKey::Qi},
    {9, FieldWidth::Byte, "FirstDay", 0x00, std::nullopt},
    {10, FieldWidth::Byte, "LastDay", 0xFF, std::nullopt},
    {11, FieldWidth::Byte, "ActionCode", 0x00, ListKey::A},
    {12, FieldWidth::Byte, "Leadership", 0x00, std::nullopt},
    {13, FieldWidth::Byte, "PhraseFirst", 0xFF, std::nullopt},
    {14, FieldWidth::Byte, "PhraseCount", 0x01, std::nullopt},
    {15, FieldWidth::Byte, "QuestGiven", 0xFF, ListKey::Qi},
    {16, FieldWidth::Byte, "QuestClosed", 0xFF, ListKey::Qo},
    {17, FieldWidth::Byte, "JumpNpc", 0xFF, ListKey::N},
    {18, FieldWidth::Byte, "JumpRecord", 0xFF, std::nullopt},
    {19, FieldWidth::Byte, "Spare20", 0x00, std::nullopt},
    {20, FieldWidth::Word, "TriggerSet", 0xFFFF, ListKey::T},
    {22, FieldWidth::Word, "GivenItem", 0x0000, ListKey::I},
    {24, FieldWidth::Word, "MoveTo", 0xFFFF, std::nullopt},
    {26, FieldWidth::Word, "ReactionCode", 0x0000, ListKey::R},
    {28, FieldWidth::Bytes, "Spare29", 0x00000000, std::nullopt},
}};

// The fields follow each other without gaps and fill the record: checked when compiling.
static_assert([] {
    int next = 0;
    for (const FieldInfo& f : kFields) {
        if (f.index != next)
            return false;
        next += f.size();
    }
    return next == static_cast<int>(kRecordSize);
}());

// The first byte of the field named `name`. The rest of the program names fields
// through the constants below, so that the table stays the one place that says where
// a field lies; a name not in the table does not compile.
consteval int fieldNamed(std::string_view name) {
    for (const FieldInfo& f : kFields)
        if (f.name == name)
            return f.index;
    throw "no field of that name";
}

namespace fields {
inline constexpr int FireMode = fieldNamed("FireMode");
inline constexpr int NeededItem = fieldNamed("NeededItem");
inline constexpr int TriggerTrue = fieldNamed("TriggerTrue");
inline constexpr int TriggerFalse = fieldNamed("TriggerFalse");
inline constexpr int QuestHeld = fieldNamed("QuestHeld");
inline constexpr int FirstDay = fieldNamed("FirstDay");
inline constexpr int LastDay = fieldNamed("LastDay");
inline constexpr int ActionCode = fieldNamed("ActionCode");
inline constexpr int Leadership = fieldNamed("Leadership");
inline constexpr int PhraseFirst = fieldNamed("PhraseFirst");
inline constexpr int PhraseCount = fieldNamed("PhraseCount");
inline constexpr int QuestGiven = fieldNamed("QuestGiven");
inline constexpr int QuestClosed = fieldNamed("QuestClosed");
inline constexpr int JumpNpc = fieldNamed("JumpNpc");
inline constexpr int JumpRecord = fieldNamed("JumpRecord");
inline constexpr int Spare20 = fieldNamed("Spare20");
inline constexpr int TriggerSet = fieldNamed("TriggerSet");
inline constexpr int GivenItem = fieldNamed("GivenItem");
inline constexpr int MoveTo = fieldNamed("MoveTo");
inline constexpr int ReactionCode = fieldNamed("ReactionCode");
inline constexpr int Spare29 = fieldNamed("Spare29");
} // namespace fields

// What a standard deletion writes: every field at its neutral value.
inline constexpr NpcRecord kNeutralRecord = [] {
    NpcRecord record{};
    for (const FieldInfo& f : kFields)
        for (int i = 0; i < f.size(); ++i)
            record[static_cast<std::size_t>(f.index) + static_cast<std::size_t>(i)] =
                static_cast<std::uint8_t>((f.neutral >> (8 * i)) & 0xFF);
    return record;
}();

std::span<const FieldInfo> fieldTable();

// The field that byte `byteIndex` (0-31) belongs to.
const FieldInfo& fieldAt(int byteIndex);

// The field that starts at `fieldIndex`, or nothing where no field starts.
const FieldInfo* fieldStartingAt(int fieldIndex);

struct FieldStart {
    int fieldIndex;
    std::string label; // " (01-02 as Word)", " (9 as Byte)", " (29-32 as Bytes)"
};

// Maps a byte index 0-31 to the field it belongs to and the field's label.
FieldStart fieldStart(int byteIndex);

// The value of a field: Words low byte first; bytes 29-32 give 1 if any is non-zero.
std::uint32_t fieldValue(const NpcRecord& record, int fieldIndex);

// The bytes of the field that starts at `fieldIndex` as hex pairs: "0C 01".
std::string fieldHex(const NpcRecord& record, int fieldIndex);

// The list that names the value of a field, if the field has one.
std::optional<ListKey> listForField(int fieldIndex);

// The phrases a record speaks: from its first phrase on, as many as its count says;
// nothing when the first phrase is FF (the NPC says nothing).
struct PhraseRange {
    int first;
    int count;
    bool contains(int phrase) const { return phrase >= first && phrase < first + count; }
    bool operator==(const PhraseRange&) const = default;
};
std::optional<PhraseRange> spokenPhrases(const NpcRecord& record);

// A place where a number can be typed in: each field, except that bytes 29-32 are
// offered one by one. The byte editor's field chooser has exactly these 24 rows.
struct EditableField {
    int index;
    FieldWidth width; // Byte or Word
};
std::span<const EditableField> editableFields();
std::optional<FieldWidth> editableFieldWidth(int fieldIndex);

// Writes a decimal value into an editable field, refusing values that do not fit;
// a refused value leaves the record as it was.
Result<void> setFieldValue(NpcRecord& record, int fieldIndex, std::uint32_t value);

// "Поле <given> нельзя изменить: допустимы поля ...": the refusal of a place that
// takes no number, as the user named it.
std::string fieldRefusal(std::string_view given, Language language = Language::Russian);

} // namespace parlex
