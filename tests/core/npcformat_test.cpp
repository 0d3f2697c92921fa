#include "core/npc/npcfile.h"
#include "core/npc/npcformat.h"
#include "testutil.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace parlex;
using namespace parlex::npcformat;
using testutil::TempDir;

namespace {

FileBytes toFileBytes(const std::vector<std::uint8_t>& v) {
    FileBytes b{};
    std::copy(v.begin(), v.end(), b.begin());
    return b;
}

TEST(DetectType, OnlyTheExactMarkMeansJa) {
    const std::pair<std::vector<std::uint8_t>, NpcFileType> cases[] = {
        {{0x39, 0x00, 0x35, 0x00}, NpcFileType::Ja},
        {{0x39, 0x00, 0x35, 0x01}, NpcFileType::Ub},
        {{0x00, 0x39, 0x00, 0x35}, NpcFileType::Ub},
        {{0x39, 0x00, 0x35}, NpcFileType::Ub},
    };
    for (const auto& [head, type] : cases)
        EXPECT_EQ(detectType(head), type) << ::testing::PrintToString(head);
}

TEST(ConvertLayout, JaToUbMovesTailIntoRecord50) {
    const auto source = toFileBytes(testutil::jaBytes(7));
    auto ub = convertLayout(source, NpcFileType::Ub);
    ASSERT_TRUE(ub);
    const NpcFile ja = NpcFile::fromBytes(source, "ja");
    const NpcFile out = NpcFile::fromBytes(*ub, "ub");
    ASSERT_EQ(out.type(), NpcFileType::Ub);
    for (std::size_t i = 0; i < 49; ++i)
        EXPECT_EQ(out.record(i), ja.record(i)) << "record " << i + 1;
    for (std::size_t i = 0; i < 28; ++i)
        EXPECT_EQ(out.record(49)[i], source[1572 + i]);
    for (std::size_t i = 28; i < 32; ++i)
        EXPECT_EQ(out.record(49)[i], 0);
}

TEST(ConvertLayout, UbToJaAndBackKeeps49RecordsAndCutsRecord50) {
    const auto source = toFileBytes(testutil::patternBytes(1600, 13));
    auto ja = convertLayout(source, NpcFileType::Ja);
    ASSERT_TRUE(ja);
    EXPECT_EQ(detectType(*ja), NpcFileType::Ja);
    EXPECT_TRUE(std::equal(source.begin(), source.begin() + 1596, ja->begin() + 4));
    auto back = convertLayout(*ja, NpcFileType::Ub);
    ASSERT_TRUE(back);
    EXPECT_TRUE(std::equal(source.begin(), source.begin() + 1596, back->begin()));
    EXPECT_EQ((std::vector<std::uint8_t>(back->end() - 4, back->end())),
              (std::vector<std::uint8_t>{0, 0, 0, 0}));
}

TEST(ConversionLoss, NamesWhatTheOtherLayoutCannotHold) {
    // The layout converted from, bytes set at offsets of the file, and the start of
    // the message ("" for none): record 50 of a ub file, record 1 of a ja file.
    using Bytes = std::vector<std::pair<std::size_t, std::uint8_t>>;
    const std::tuple<NpcFileType, Bytes, std::string> cases[] = {
        {NpcFileType::Ub, {{5, 1}}, ""},
        {NpcFileType::Ub, {{49 * 32 + 31, 1}}, "Запись 50 не пуста"},
        {NpcFileType::Ja, {{4, 0x39}, {5, 1}, {6, 0x35}}, ""},
        {NpcFileType::Ja,
         {{4, 0x39}, {5, 0}, {6, 0x35}, {7, 0}},
         "Запись 1 начинается с байтов 39 00"},
    };
    for (const auto& [from, bytes, said] : cases) {
        SCOPED_TRACE(said);
        FileBytes file{};
        if (from == NpcFileType::Ja)
            std::copy(kJaMark.begin(), kJaMark.end(), file.begin());
        for (auto [at, value] : bytes)
            file[at] = value;
        ASSERT_EQ(detectType(file), from);
        const NpcFileType to = from == NpcFileType::Ub ? NpcFileType::Ja : NpcFileType::Ub;
        const auto loss = conversionLoss(file, to);
        EXPECT_EQ(loss.has_value(), !said.empty());
        EXPECT_TRUE(loss.value_or("").starts_with(said)) << loss.value_or("");
        // Whatever is said, the converted file reads in the layout asked for unless
        // the loss says otherwise.
        const auto converted = convertLayout(file, to);
        ASSERT_TRUE(converted);
        EXPECT_EQ(detectType(*converted) == to, !loss || to == NpcFileType::Ja);
    }
}

TEST(ConvertFile, RefusedSourceWritesNothing) {
    TempDir dir;
    testutil::writeBytes(dir / "short.npc", std::vector<std::uint8_t>(1599, 0));
    auto result = convertFile(dir / "short.npc", dir / "out.npc", NpcFileType::Ja);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().kind, ErrorKind::TooSmall);
    EXPECT_FALSE(std::filesystem::exists(dir / "out.npc"));
    auto same = convertFile(dir / "short.npc", dir / "out.npc", NpcFileType::Ub);
    EXPECT_FALSE(same);
}

} // namespace
