// Reading and writing field values; where each field lies is the table's own word.
#include "core/explain/fieldlayout.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace parlex;

namespace {

TEST(FieldValue, ReadsEachWidthLowByteFirst) {
    // A field, the bytes of the record (index, value), the value read.
    const std::tuple<int, std::vector<std::pair<int, std::uint8_t>>, std::uint32_t> cases[] = {
        {0, {{0, 0x0C}, {1, 0x01}}, 268},
        {26, {{26, 0xCD}, {27, 0xFE}}, 65229},
        {8, {{8, 0xFF}, {9, 0x07}}, 255},
        {19, {{19, 0x01}, {20, 0x05}}, 1},
        {28, {{31, 0x01}}, 1},
        {28, {{28, 0xFF}, {29, 0xFF}, {30, 0xFF}, {31, 0xFF}}, 1},
    };
    for (const auto& [field, bytes, value] : cases) {
        NpcRecord r{};
        for (auto [i, b] : bytes)
            r[i] = b;
        EXPECT_EQ(fieldValue(r, field), value) << "field " << field;
    }
}

TEST(SetFieldValue, WritesWordsLowByteFirstAndRefusesWhatDoesNotFit) {
    const std::tuple<int, std::uint32_t, bool> cases[] = {
        {0, 65535, true}, {0, 65536, false}, {8, 255, true}, {8, 256, false},
        {31, 7, true},    {1, 0, false},     {27, 1, false}, {26, 65229, true},
    };
    for (const auto& [field, value, ok] : cases) {
        NpcRecord r = kNeutralRecord;
        EXPECT_EQ(setFieldValue(r, field, value).has_value(), ok) << field << "=" << value;
        if (ok)
            EXPECT_EQ(field < 28 ? fieldValue(r, field) : r[field], value);
        else
            EXPECT_EQ(r, kNeutralRecord) << "a refused value must not touch the record";
    }
    EXPECT_EQ(fieldRefusal("\"5\""), "Поле \"5\" нельзя изменить: допустимы поля 0, 2, 4, 6, "
                                     "8-19, 20, 22, 24, 26, 28-31.");
}

} // namespace
