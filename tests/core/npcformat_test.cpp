#include "core/npc/npcfile.h"
#include "core/npc/npcformat.h"
#include "testutil.h"

#include <gtest/gtest.h>

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
    struct Case {
        std::vector<std::uint8_t> head;
        NpcFileType type;
    } cases[] = {
        {{0x39, 0x00, 0x35, 0x00}, NpcFileType::Ja},
        {{0x39, 0x00, 0x35, 0x01}, NpcFileType::Ub},
        {{0x00, 0x39, 0x00, 0x35}, NpcFileType::Ub},
        {{0x39, 0x00, 0x35}, NpcFileType::Ub},
    };
    for (const auto& c : cases)
        EXPECT_EQ(detectType(c.head), c.type) << ::testing::PrintToString(c.head);
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
    struct Case {
        const char* name;
        NpcFileType from;
        // Sets bytes of the file (offsets in the file).
        std::vector<std::pair<std::size_t, std::uint8_t>> bytes;
        const char* said; // the start of the message, or null for none
    };
    const Case cases[] = {
        {"ub, record 50 empty", NpcFileType::Ub, {{5, 1}}, nullptr},
        {"ub, record 50 filled", NpcFileType::Ub, {{49 * 32 + 31, 1}}, "Запись 50 не пуста"},
        {"ja, record 1 almost the mark", NpcFileType::Ja, {{4, 0x39}, {5, 1}, {6, 0x35}}, nullptr},
        {"ja, record 1 begins with the mark",
         NpcFileType::Ja,
         {{4, 0x39}, {5, 0}, {6, 0x35}, {7, 0}},
         "Запись 1 начинается с байтов 39 00 35 00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FileBytes file{};
        if (c.from == NpcFileType::Ja)
            std::copy(kJaMark.begin(), kJaMark.end(), file.begin());
        for (auto [at, value] : c.bytes)
            file[at] = value;
        ASSERT_EQ(detectType(file), c.from);
        const NpcFileType to = c.from == NpcFileType::Ub ? NpcFileType::Ja : NpcFileType::Ub;
        const auto loss = conversionLoss(file, to);
        ASSERT_EQ(loss.has_value(), c.said != nullptr);
        if (loss) {
            EXPECT_TRUE(loss->starts_with(c.said)) << *loss;
        }
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
