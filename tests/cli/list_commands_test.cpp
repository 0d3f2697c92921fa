#include "clirun.h"
#include "core/text/cp1251.h"

#include <gtest/gtest.h>

using clitest::cli;
using testutil::TempDir;

namespace {

std::size_t lineCount(const std::string& s) {
    return static_cast<std::size_t>(std::count(s.begin(), s.end(), '\n'));
}

TEST(CliLookup, BuiltInAndOverrideAnswers) {
    TempDir dir;
    struct Case {
        std::vector<std::string> args;
        std::string out;
    } cases[] = {
        {{"N", "57"}, "Мигель\\PGMale 4\n"},
        {{"I", "69"}, "\n"},
        {{"T", "500"}, "?\n"},
        {{"R", "65229"}, "Проиграть файл \"...\\Data\\Sounds.slf\\TOILETFLUSH.WAV\" (UB)\n"},
    };
    for (const auto& c : cases) {
        auto args = std::vector<std::string>{"lookup"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        args.insert(args.end(), {"--lists", dir.path().string()});
        auto run = cli(args);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out, c.out) << ::testing::PrintToString(c.args);
    }
    testutil::writeText(dir / "Npc.txt", parlex::text::utf8ToCp1251("57=Другой\r\n").value());
    EXPECT_EQ(cli({"lookup", "N", "57", "--lists", dir.path().string()}).out, "Другой\n");
    EXPECT_EQ(cli({"lookup", "X", "1"}).status, 2);
    EXPECT_EQ(cli({"lookup", "N", "x1"}).status, 2);
}

TEST(CliListsExtract, WritesAllSevenAndAsksBeforeReplacing) {
    TempDir dir;
    auto run = cli({"lists", "extract", "--dir", dir.path().string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(lineCount(run.out), 7u);
    const char* order[] = {"React.txt", "Action.txt",  "Trigg.txt",   "Items.txt",
                           "Npc.txt",   "Q_Input.txt", "Q_Output.txt"};
    std::size_t pos = 0;
    for (const char* name : order) {
        const auto found = run.out.find(name, pos);
        ASSERT_NE(found, std::string::npos) << name;
        pos = found;
    }
    testutil::writeText(dir / "Npc.txt", "mine");
    auto again = cli({"lists", "extract", "N", "T", "--dir", dir.path().string()});
    EXPECT_EQ(again.status, 1);
    EXPECT_NE(again.err.find("Npc.txt\nуже существует. Заменить его?"), std::string::npos);
    EXPECT_EQ(testutil::readText(dir / "Npc.txt"), "mine");
    auto yes = cli({"lists", "extract", "N", "--dir", dir.path().string(), "--yes"});
    EXPECT_EQ(yes.status, 0);
    EXPECT_NE(testutil::readText(dir / "Npc.txt"), "mine");
    EXPECT_EQ(cli({"lists", "extract", "Z", "--dir", dir.path().string()}).status, 2);
    EXPECT_EQ(cli({"lists", "extract", "--dir", (dir / "missing").string()}).status, 1);
}

} // namespace
