// The whole-mod commands as a shell sees them: output lines, JSON and exit statuses.
#include "clirun.h"
#include "explain/fieldlayout.h"
#include "npc/npcformat.h"

#include <gtest/gtest.h>

using clitest::cli;

namespace {

// A "ub" script of neutral records at the positions, with byte 19 set in `wrong`.
std::vector<std::uint8_t> script(std::initializer_list<int> filled, int wrong = 0) {
    auto bytes = testutil::script(filled);
    if (wrong)
        bytes[static_cast<std::size_t>((wrong - 1) * 32 + 19)] = 1;
    return bytes;
}

class CliMod : public testing::Test {
protected:
    testutil::TempDir dir;
    std::string put(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        std::filesystem::create_directories((dir / name).parent_path());
        testutil::writeBytes(dir / name, bytes);
        return (dir / name).string();
    }
    std::string lists() const { return (dir / "lists").string(); }
};

TEST_F(CliMod, LintExitsByErrorsAndSpeaksJson) {
    const auto clean = put("mod/a/001.npc", script({1, 2}));
    auto run = cli({"lint", (dir / "mod").string(), "--lists", lists()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "");

    const auto wrong = put("mod/002.NPC", script({3}, 3));
    put("mod/003.npc", {1, 2, 3});
    run = cli({"lint", (dir / "mod").string(), "--lists", lists()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, wrong +
                           ":3:19: error: Spare20: Данный байт у всех существующих НПЦ "
                           "равен \"00\"!\n" +
                           (dir / "mod/003.npc").string() + ": error: Размер файла " +
                           (dir / "mod/003.npc").string() + "\nменьше чем 1600 байт\n");

    run = cli({"lint", "--json", wrong, "--lists", lists()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out,
              "{\"files\":1,\"findings\":[{\"file\":\"" + wrong +
                  "\",\"record\":3,\"field\":19,\"severity\":\"error\",\"message\":"
                  "\"Spare20: Данный байт у всех существующих НПЦ равен \\\"00\\\"!\"}]}\n");
    EXPECT_EQ(cli({"lint"}).status, 2);
}

TEST_F(CliMod, FindByListCodeOrPhrase) {
    auto bytes = script({1, 2});
    bytes[32 + 22] = 27;          // record 2 gives item 27
    bytes[13] = 4, bytes[14] = 2; // record 1 says phrases 4-5
    const auto file = put("f.npc", bytes);
    struct Case {
        std::vector<std::string> args;
        int status;
        std::string start;
    };
    const Case cases[] = {
        {{"--list", "i", "--code", "27"}, 0, file + ":2:22: GivenItem: "},
        {{"--list", "I", "--code", "28"}, 1, ""},
        {{"--phrase", "5"}, 0, file + ":1:13: PhraseFirst: "},
        {{"--phrase", "6"}, 1, ""},
        {{"--list", "X", "--code", "1"}, 2, ""},
        {{"--phrase", "1", "--list", "I"}, 2, ""},
    };
    for (const auto& c : cases) {
        std::vector<std::string> args{"find", file, "--lists", lists()};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const auto run = cli(args);
        EXPECT_EQ(run.status, c.status) << testing::PrintToString(c.args) << run.err;
        EXPECT_TRUE(run.out.starts_with(c.start)) << run.out;
        EXPECT_EQ(run.out.empty(), c.start.empty()) << run.out;
    }
}

TEST_F(CliMod, DiffLikeDiff) {
    const auto a = put("a.npc", script({1, 2}));
    auto changed = script({1, 2});
    changed[32 + 12] = 0x28;
    const auto b = put("b.npc", changed);
    EXPECT_EQ(cli({"diff", a, a, "--lists", lists()}).status, 0);
    const auto run = cli({"diff", a, b, "--lists", lists()});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.out.starts_with("2:12: 00 -> 28\n    - ")) << run.out;
    EXPECT_NE(run.out.find("\n    + "), std::string::npos);
    const auto json = cli({"diff", a, b, "--json", "--lists", lists()});
    EXPECT_NE(
        json.out.find("\"changes\":[{\"record\":2,\"field\":12,\"old\":\"00\",\"new\":\"28\""),
        std::string::npos)
        << json.out;
    EXPECT_EQ(cli({"diff", a, (dir / "none.npc").string()}).status, 2);
}

TEST_F(CliMod, ConvertManyNamesWhatItSkips) {
    const auto ub = put("m/1.npc", script({1}));
    const auto ja = put("m/2.npc", testutil::jaBytes());
    auto run = cli({"convert", "--to", "ja", (dir / "m").string(), "--out", (dir / "o").string()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, ub + " -> " + (dir / "o/1.npc").string() + " (ja)\n");
    EXPECT_EQ(run.err, "parlex-cli: " + ja + ": уже в формате \"ja\", пропущен\n");
    EXPECT_EQ(parlex::npcformat::detectType(testutil::readBytes(dir / "o/1.npc")),
              parlex::NpcFileType::Ja);
    EXPECT_EQ(cli({"convert", "--to", "xx", ub}).status, 2);
    EXPECT_EQ(cli({"convert", ub, "--out", (dir / "o").string()}).status, 2);
}

} // namespace
