// Typing a value for a field: keys, range, encoding and the rows of the chooser.
#include "core/entry/numberentry.h"

#include <gtest/gtest.h>

#include <tuple>

namespace parlex::entry {
namespace {

constexpr FieldWidth B = FieldWidth::Byte;
constexpr FieldWidth W = FieldWidth::Word;

TEST(NumberEntry, KeysPassDigitsAndBackspaceEncodeOnEnterAndDropTheRest) {
    const std::pair<char32_t, KeyEffect> cases[] = {
        {'0', KeyEffect::Pass},  {'9', KeyEffect::Pass}, {8, KeyEffect::Pass},
        {13, KeyEffect::Encode}, {'/', KeyEffect::Drop}, {':', KeyEffect::Drop},
        {U'٣', KeyEffect::Drop}, // another script's digit
    };
    for (const auto& [key, effect] : cases)
        EXPECT_EQ(keyEffect(key), effect) << static_cast<std::uint32_t>(key);
}

TEST(NumberEntry, RangeByLengthAndByValue) {
    const struct {
        const char* text;
        FieldWidth mode;
        bool out;
    } cases[] = {
        // "0255" is too long by its four characters; "+5" and "&HFF" are numbers of
        // other forms, kept but never encoded.
        {"255", B, false},   {"256", B, true},    {"000", B, false},
        {"0255", B, true},   {"65535", W, false}, {"65536", W, true},
        {"000255", W, true}, {"+5", B, true},     {"&HFF", B, true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(outOfRange(c.text, c.mode), c.out) << c.text;
}

TEST(NumberEntry, WhatLooksNumericIsKeptAndTheRestIsRefused) {
    for (const char* yes : {"12", " 12 ", "+3", "-3", "1.5", ".5", "1e3", "2D-1", "&HFF", "&o17"})
        EXPECT_TRUE(looksNumeric(yes)) << yes;
    for (const char* no : {"", "abc", "1a", "--1", "1e", "&H", "&HG1", "&O8", "1.2.3", "."})
        EXPECT_FALSE(looksNumeric(no)) << no;
}

TEST(NumberEntry, EncodingLowByteFirst) {
    const std::tuple<std::uint32_t, FieldWidth, std::string> cases[] = {
        {10, B, "0A"}, {255, W, "FF 00"}, {268, W, "0C 01"}, {65535, W, "FF FF"}};
    for (const auto& [value, mode, text] : cases) {
        EXPECT_EQ(encoded(value, mode), text) << value;
        EXPECT_EQ(text.size(), encodedLength(mode));
    }
}

TEST(NumberEntry, RowsOfTheFieldChooser) {
    const std::tuple<std::size_t, std::string, int> rows[] = {
        {3, "Байты 07-08", 6}, {4, "Байт 09", 8}, {23, "Байт 32", 31}};
    ASSERT_EQ(editableFields().size(), 24u);
    for (const auto& [row, text, index] : rows) {
        EXPECT_EQ(rowText(editableFields()[row]), text);
        EXPECT_EQ(editableFields()[row].index, index);
    }
}

} // namespace
} // namespace parlex::entry
