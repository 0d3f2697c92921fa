// The whole-mod commands as a shell sees them: output lines, JSON and exit statuses.
#include "clirun.h"
#include "core/explain/fieldlayout.h"
#include "core/npc/npcformat.h"
#include "core/text/cp1251.h"
#include "core/text/json.h"

#include <gtest/gtest.h>

using clitest::cli;
using parlex::text::jsonString;

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
        return native(name);
    }
    // The path as the program writes it: with the system's own separators.
    std::string native(const std::string& name) const {
        return (dir / name).make_preferred().string();
    }
    // An empty list folder: the built-in lists, whatever the program's folder holds.
    std::string lists() const {
        std::filesystem::create_directories(dir / "lists");
        return (dir / "lists").string();
    }
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
                           native("mod/003.npc") + ": error: Размер файла " +
                           native("mod/003.npc") + "; меньше чем 1600 байт\n");

    run = cli({"lint", "--json", wrong, "--lists", lists()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out,
              "{\"files\":1,\"findings\":[{\"file\":" + jsonString(wrong) +
                  ",\"record\":3,\"field\":19,\"severity\":\"error\",\"message\":"
                  "\"Spare20: Данный байт у всех существующих НПЦ равен \\\"00\\\"!\"}]}\n");
    EXPECT_EQ(cli({"lint"}).status, 2);

    run = cli({"lint", "--json", native("mod/003.npc"), "--lists", lists()});
    EXPECT_NE(run.out.find("\"message\":" + jsonString("Размер файла " + native("mod/003.npc") +
                                                       "\nменьше чем 1600 байт")),
              std::string::npos)
        << "JSON keeps the whole message: " << run.out;
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
    EXPECT_TRUE(run.out.starts_with("2:12: 00 -> 28; было: Запись сработает независимо"))
        << run.out;
    EXPECT_NE(run.out.find("; стало: Запись сработает только если"), std::string::npos);
    EXPECT_EQ(std::ranges::count(run.out, '\n'), 1) << "one line a change";
    const auto json = cli({"diff", a, b, "--json", "--lists", lists()});
    EXPECT_NE(
        json.out.find("\"changes\":[{\"record\":2,\"field\":12,\"old\":\"00\",\"new\":\"28\""),
        std::string::npos)
        << json.out;
    EXPECT_EQ(cli({"diff", a, (dir / "none.npc").string()}).status, 2);

    // A list file that cannot be used is trouble, not a difference.
    std::filesystem::create_directories(dir / "biglists");
    testutil::writeText(dir / "biglists" / "Npc.txt", std::string(17 << 20, 'x'));
    const auto big = cli({"diff", a, b, "--lists", (dir / "biglists").string()});
    EXPECT_EQ(big.status, 2) << big.err;
    EXPECT_NE(big.err.find("Npc.txt"), std::string::npos) << big.err;
}

TEST_F(CliMod, ConvertManyNamesWhatItSkips) {
    const auto ub = put("m/1.npc", script({1}));
    const auto ja = put("m/2.npc", testutil::jaBytes());
    auto run = cli({"convert", "--to", "ja", (dir / "m").string(), "--out", (dir / "o").string()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, ub + " -> " + native("o/1.npc") + " (ja)\n");
    EXPECT_EQ(run.err, "parlex-cli: " + ja + ": уже в формате \"ja\", пропущен\n");
    EXPECT_EQ(parlex::npcformat::detectType(testutil::readBytes(dir / "o/1.npc")),
              parlex::NpcFileType::Ja);

    // A file already in the output folder is replaced only with --yes.
    const std::vector<std::uint8_t> older(1600, 7);
    testutil::writeBytes(dir / "o/1.npc", older);
    const std::vector<std::string> again{"convert", "--to",  "ja",
                                         ub,        "--out", (dir / "o").string()};
    run = cli(again);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "parlex-cli: " + ub + ": файл " + native("o/1.npc") +
                           " уже существует; чтобы заменить его, добавьте --yes\n");
    EXPECT_EQ(testutil::readBytes(dir / "o/1.npc"), older);
    auto replacing = again;
    replacing.push_back("--yes");
    EXPECT_EQ(cli(replacing).status, 0);
    EXPECT_EQ(parlex::npcformat::detectType(testutil::readBytes(dir / "o/1.npc")),
              parlex::NpcFileType::Ja);
    EXPECT_EQ(cli({"convert", "--to", "xx", ub}).status, 2);
    EXPECT_EQ(cli({"convert", ub, "--out", (dir / "o").string()}).status, 2);
}

} // namespace

namespace {

TEST_F(CliMod, SetTakesTheByteAsTheStatusBarCountsAndHexValues) {
    struct Case {
        std::vector<std::string> place; // --field F or --byte B
        std::string value;
        int status;
        std::vector<std::pair<int, std::uint8_t>> bytes; // of record 2 afterwards
    };
    const Case cases[] = {
        {{"--byte", "14"}, "0x1F", 0, {{13, 0x1F}}},
        {{"--byte", "4"}, "0x0102", 0, {{2, 0x02}, {3, 0x01}}},
        {{"--byte", "3"}, "258", 0, {{2, 0x02}, {3, 0x01}}},
        {{"--byte", "31"}, "0XAB", 0, {{30, 0xAB}, {28, 0x00}}},
        {{"--field", "PhraseFirst"}, "0x0a", 0, {{13, 0x0A}}},
        {{"--byte", "33"}, "1", 2, {}},
        {{"--byte", "14"}, "0x", 2, {}},
        {{"--byte", "14"}, "0x100", 1, {}},
        {{"--byte", "14", "--field", "13"}, "1", 2, {}},
    };
    for (const auto& c : cases) {
        const auto file = put("s.npc", script({2}));
        std::vector<std::string> args{"set", file, "--record", "2", "--value", c.value};
        args.insert(args.end(), c.place.begin(), c.place.end());
        const auto run = cli(args);
        EXPECT_EQ(run.status, c.status) << testing::PrintToString(args) << run.err;
        auto expected = script({2});
        for (auto [index, value] : c.bytes)
            expected[static_cast<std::size_t>(32 + index)] = value;
        EXPECT_EQ(testutil::readBytes(file), expected) << testing::PrintToString(args);
    }
}

} // namespace
