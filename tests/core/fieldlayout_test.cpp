// Reading and writing field values; where each field lies is the table's own word.
#include "core/explain/fieldlayout.h"

#include <gtest/gtest.h>

using namespace parlex;

namespace {

TEST(FieldValue, ReadsEachWidthLowByteFirst) {
    const struct {
        int field;
        std::vector<std::pair<int, std::uint8_t>> bytes;
        std::uint32_t value;
    } cases[] = {
        {0, {{0, 0x0C}, {1, 0x01}}, 268},
        {26, {{26, 0xCD}, {27, 0xFE}}, 65229},
        {8, {{8, 0xFF}, {9, 0x07}}, 255},
        {19, {{19, 0x01}, {20, 0x05}}, 1},
        {28, {{31, 0x01}}, 1},
        {28, {{28, 0xFF}, {29, 0xFF}, {30, 0xFF}, {31, 0xFF}}, 1},
    };
    for (const auto& c : cases) {
        NpcRecord r{};
        for (auto [i, b] : c.bytes)
            r[i] = b;
        EXPECT_EQ(fieldValue(r, c.field), c.value) << "field " << c.field;
    }
}

TEST(SetFieldValue, WritesWordsLowByteFirstAndRefusesWhatDoesNotFit) {
    const struct {
        int field;
        std::uint32_t value;
        bool ok;
    } cases[] = {
        {0, 65535, true}, {0, 65536, false}, {8, 255, true}, {8, 256, false},
        {31, 7, true},    {1, 0, false},     {27, 1, false}, {26, 65229, true},
    };
    for (const auto& c : cases) {
        NpcRecord r = kNeutralRecord;
        EXPECT_EQ(setFieldValue(r, c.field, c.value).has_value(), c.ok)
            << c.field << "=" << c.value;
        if (c.ok)
            EXPECT_EQ(c.field < 28 ? fieldValue(r, c.field) : r[c.field], c.value);
        else
            EXPECT_EQ(r, kNeutralRecord) << "a refused value must not touch the record";
    }
    EXPECT_EQ(fieldRefusal("\"5\""), "Поле \"5\" нельзя изменить: допустимы поля 0, 2, 4, 6, "
                                     "8-19, 20, 22, 24, 26, 28-31.");
}

} // namespace
