#include "core/explain/fieldlayout.h"
#include "core/text/hex.h"

#include <gtest/gtest.h>

using namespace parlex;

namespace {

TEST(FieldStart, EveryByteIndexMapsToItsFieldAndLabel) {
    struct Case {
        int from, to, field;
        const char* label;
    };
    const Case cases[] = {
        {0, 1, 0, " (01-02 as Word)"},     {2, 3, 2, " (03-04 as Word)"},
        {4, 5, 4, " (05-06 as Word)"},     {6, 7, 6, " (07-08 as Word)"},
        {20, 21, 20, " (21-22 as Word)"},  {22, 23, 22, " (23-24 as Word)"},
        {24, 25, 24, " (25-26 as Word)"},  {26, 27, 26, " (27-28 as Word)"},
        {28, 31, 28, " (29-32 as Bytes)"},
    };
    int covered = 0;
    for (const auto& c : cases)
        for (int i = c.from; i <= c.to; ++i, ++covered) {
            EXPECT_EQ(fieldStart(i).fieldIndex, c.field) << i;
            EXPECT_EQ(fieldStart(i).label, c.label) << i;
        }
    for (int i = 8; i <= 19; ++i, ++covered) {
        EXPECT_EQ(fieldStart(i).fieldIndex, i);
        EXPECT_EQ(fieldStart(i).label, " (" + std::to_string(i + 1) + " as Byte)");
    }
    EXPECT_EQ(covered, 32);
    EXPECT_EQ(fieldStart(8).label, " (9 as Byte)");
}

TEST(FieldValue, ReadsEachWidth) {
    struct Case {
        int field;
        std::vector<std::pair<int, std::uint8_t>> bytes;
        std::uint32_t value;
    };
    const Case cases[] = {
        {0, {{0, 0x0C}, {1, 0x01}}, 268},
        {4, {{4, 0xFF}, {5, 0xFF}}, 65535},
        {2, {{2, 0x00}, {3, 0x01}}, 256},
        {26, {{26, 0xCD}, {27, 0xFE}}, 65229},
        {8, {{8, 0xFF}, {9, 0x07}}, 255},
        {9, {{9, 0x07}, {10, 0xFF}}, 7},
        {19, {{19, 0x01}, {20, 0x05}}, 1},
        {28, {{31, 0x01}}, 1},
        {28, {{28, 0xFF}, {29, 0xFF}, {30, 0xFF}, {31, 0xFF}}, 1},
        {28, {{27, 0xFF}}, 0},
        {20, {{20, 0x34}, {21, 0x12}}, 0x1234},
    };
    for (const auto& c : cases) {
        NpcRecord r{};
        for (auto [i, b] : c.bytes)
            r[i] = b;
        EXPECT_EQ(fieldValue(r, c.field), c.value) << "field " << c.field;
    }
}

TEST(FieldTable, CoversEveryByteOnceAndGivesTheNeutralRecord) {
    int lastEnd = 0;
    for (const auto& f : fieldTable()) {
        EXPECT_EQ(f.index, lastEnd) << "fields must follow each other without gaps";
        lastEnd = f.index + f.size();
    }
    EXPECT_EQ(lastEnd, 32);
    for (int byte = 0; byte < 32; ++byte)
        EXPECT_TRUE(fieldAt(byte).contains(byte)) << byte;
    EXPECT_EQ(text::hexBytes(kNeutralRecord, ""),
              "00000000FFFFFFFFFF00FF0000FF01FFFFFFFF00FFFF0000FFFF000000000000");
    EXPECT_EQ(fieldHex(kNeutralRecord, 4), "FF FF");
    EXPECT_EQ(fieldHex(kNeutralRecord, 14), "01");
    EXPECT_EQ(fieldHex(kNeutralRecord, 28), "00 00 00 00");
}

TEST(FieldTable, ListsOfFields) {
    const std::pair<int, std::optional<ListKey>> cases[] = {
        {0, std::nullopt}, {2, ListKey::I},    {4, ListKey::T},   {6, ListKey::T},
        {8, ListKey::Qi},  {11, ListKey::A},   {15, ListKey::Qi}, {16, ListKey::Qo},
        {17, ListKey::N},  {18, std::nullopt}, {20, ListKey::T},  {22, ListKey::I},
        {26, ListKey::R},  {3, std::nullopt},  {28, std::nullopt}};
    for (auto [field, list] : cases)
        EXPECT_EQ(listForField(field), list) << field;
}

TEST(FieldTable, TheByteEditorOffersTwentyFourPlaces) {
    std::string rows;
    for (const auto& e : editableFields())
        rows += std::to_string(e.index) + (e.width == FieldWidth::Word ? "w " : "b ");
    EXPECT_EQ(rows, "0w 2w 4w 6w 8b 9b 10b 11b 12b 13b 14b 15b 16b 17b 18b 19b 20w 22w 24w 26w "
                    "28b 29b 30b 31b ");
    EXPECT_EQ(fieldRefusal("\"5\""), "Поле \"5\" нельзя изменить: допустимы поля 0, 2, 4, 6, "
                                     "8-19, 20, 22, 24, 26, 28-31.");
}

TEST(SetFieldValue, WritesWordsLowByteFirstAndRefusesWhatDoesNotFit) {
    struct Case {
        int field;
        std::uint32_t value;
        bool ok;
    };
    const Case cases[] = {
        {0, 65535, true}, {0, 65536, false}, {8, 255, true}, {8, 256, false},
        {28, 255, true},  {31, 7, true},     {1, 0, false},  {3, 0, false},
        {21, 0, false},   {27, 1, false},    {19, 0, true},  {26, 65229, true},
    };
    for (const auto& c : cases) {
        NpcRecord r = kNeutralRecord;
        EXPECT_EQ(setFieldValue(r, c.field, c.value).has_value(), c.ok)
            << c.field << "=" << c.value;
        if (c.ok && editableFieldWidth(c.field) == FieldWidth::Word) {
            EXPECT_EQ(fieldValue(r, c.field), c.value);
        } else if (!c.ok) {
            EXPECT_EQ(r, kNeutralRecord) << "a refused value must not touch the record";
        }
    }
    NpcRecord r{};
    ASSERT_TRUE(setFieldValue(r, 30, 9));
    EXPECT_EQ(r[30], 9);
    EXPECT_EQ(r[28] + r[29] + r[31], 0);
}

} // namespace
