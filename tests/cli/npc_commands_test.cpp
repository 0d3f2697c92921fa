#include "clirun.h"
#include "core/npc/npcformat.h"
#include "core/platform/files.h"

#include <gtest/gtest.h>

using clitest::cli;
using testutil::TempDir;

namespace {

TEST(CliInfo, TextAndJsonDescribeTheExample) {
    auto text = cli({"info", PARLEX_EXAMPLE});
    EXPECT_EQ(text.status, 0) << text.err;
    EXPECT_EQ(text.out, "Тип файла:\nJA2-англ. JA2UB-любая версия\nЗаписей: 12\n");
    auto json = cli({"info", PARLEX_EXAMPLE, "--json"});
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(json.out, "{\"type\":\"ub\",\"typeText\":\"JA2-англ. JA2UB-любая версия\","
                        "\"records\":50,\"nonEmpty\":12}\n");
}

TEST(CliDump, OneLinePerRecordWithUpperCaseHex) {
    TempDir dir;
    auto bytes = std::vector<std::uint8_t>(1600, 0);
    bytes[32] = 0xAB, bytes[63] = 0x0F;
    testutil::writeBytes(dir / "d.npc", bytes);
    auto run = cli({"dump", (dir / "d.npc").string()});
    EXPECT_EQ(run.status, 0);
    std::vector<std::string> lines;
    std::size_t start = 0, nl;
    while ((nl = run.out.find('\n', start)) != std::string::npos) {
        lines.push_back(run.out.substr(start, nl - start));
        start = nl + 1;
    }
    ASSERT_EQ(lines.size(), 50u);
    std::string expected = "02: AB";
    for (int i = 0; i < 30; ++i)
        expected += " 00";
    EXPECT_EQ(lines[1], expected + " 0F");
    EXPECT_TRUE(lines[49].starts_with("50: 00 00"));
}

TEST(CliSet, WritesOneFieldAndSavesInTheSameLayout) {
    TempDir dir;
    const auto path = dir / "s.npc";
    testutil::writeBytes(path, testutil::jaBytes());
    auto run = cli({"set", path.string(), "--record", "2", "--field", "26", "--value", "65229"});
    ASSERT_EQ(run.status, 0) << run.err;
    auto bytes = testutil::readBytes(path);
    EXPECT_EQ(parlex::npcformat::detectType(bytes), parlex::NpcFileType::Ja);
    EXPECT_EQ(bytes[4 + 32 + 26], 0xCD);
    EXPECT_EQ(bytes[4 + 32 + 27], 0xFE);
    EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin() + 1572, bytes.end()),
              std::vector<std::uint8_t>(28, 0));
}

TEST(CliSet, RefusalsLeaveTheFileUntouched) {
    TempDir dir;
    const auto path = dir / "r.npc";
    const auto ja = testutil::jaBytes();
    testutil::writeBytes(path, ja);
    // A word that is no number, or a number outside its option's range, is a usage
    // error naming the option; a number that is valid but does not fit this file or
    // field is refused with status 1.
    struct Case {
        std::vector<std::string> args;
        int status;
        const char* named; // what the message must name
    } cases[] = {
        {{"--record", "50", "--field", "0", "--value", "1"}, 1, "50"},   // no record 50 in "ja"
        {{"--record", "1", "--field", "8", "--value", "256"}, 1, "256"}, // too big for a byte
        {{"--record", "1", "--field", "0", "--value", "65536"}, 1, "65536"},
        {{"--record", "0", "--field", "0", "--value", "1"}, 2, "--record"},
        {{"--record", "abc", "--field", "0", "--value", "1"}, 2, "--record"},
        {{"--record", "51", "--field", "0", "--value", "1"}, 2, "от 1 до 50"},
        {{"--record", "1", "--field", "1", "--value", "1"}, 2, "--field"}, // not a field
        {{"--record", "1", "--field", "x", "--value", "1"}, 2, "--field"},
        {{"--record", "1", "--byte", "33", "--value", "1"}, 2, "от 1 до 32"},
        {{"--record", "1", "--field", "0", "--value", "-1"}, 2, "--value"},
        {{"--record", "1", "--field", "0", "--value", "abc"}, 2, "--value"},
        {{"--record", "1", "--field", "0", "--value", "4294967296"}, 2, "от 0 до 4294967295"},
        {{"--record", "1", "--field", "0"}, 2, "--value"}, // value missing
        {{"--record", "1", "--field", "0", "--value", "1", "--bogus"}, 2, "--bogus"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> args{"set", path.string()};
        args.insert(args.end(), c.args.begin(), c.args.end());
        auto run = cli(args);
        EXPECT_EQ(run.status, c.status) << ::testing::PrintToString(c.args);
        EXPECT_NE(run.err.find(c.named), std::string::npos) << run.err;
        EXPECT_TRUE(run.out.empty());
        EXPECT_EQ(testutil::readBytes(path), ja) << ::testing::PrintToString(c.args);
    }
}

TEST(CliConvert, RewritesIntoTheOtherLayoutAlsoOntoItself) {
    TempDir dir;
    const auto src = dir / "a.npc";
    const auto ub = testutil::patternBytes(1600, 4);
    testutil::writeBytes(src, ub);
    auto run = cli({"convert", src.string(), (dir / "b.npc").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, src.string() + " (ub) -> " + (dir / "b.npc").string() + " (ja)\n");
    EXPECT_NE(run.err.find("Запись 50 не пуста"), std::string::npos) << run.err;
    auto b = testutil::readBytes(dir / "b.npc");
    EXPECT_EQ(parlex::npcformat::detectType(b), parlex::NpcFileType::Ja);
    EXPECT_EQ(testutil::readBytes(src), ub) << "the source is not touched";
    run = cli({"convert", (dir / "b.npc").string(), (dir / "b.npc").string(), "--yes"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "") << "nothing lost from ja to ub";
    b = testutil::readBytes(dir / "b.npc");
    EXPECT_TRUE(std::equal(ub.begin(), ub.begin() + 1596, b.begin()));
    // Many at once: the loss is told for each script that has one.
    run = cli({"convert", "--to", "ja", src.string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.err.find("a.npc: Запись 50 не пуста"), std::string::npos) << run.err;
}

// Commands that write a file of their own never replace one without --yes, and never
// turn their input into their output.
TEST(CliOutputs, AnExistingOutputIsReplacedOnlyWhenAsked) {
    TempDir dir;
    const auto script = dir / "s.npc";
    const auto speech = dir / "d.edt";
    const auto text = dir / "q.txt";
    const auto json = dir / "d.json";
    struct Case {
        std::vector<std::string> args;
        int status;
        std::filesystem::path kept; // unchanged afterwards, when not empty
        const char* said;           // in the message
    };
    const std::string s = script.string(), d = speech.string(), t = text.string(),
                      j = json.string();
    const Case cases[] = {
        {{"convert", s, d}, 1, speech, "--yes"},
        {{"convert", s, s}, 1, script, "--yes"},
        {{"edt", "decompile", s, d}, 1, speech, ""}, // the arguments swapped: no speech file
        {{"edt", "decompile", d, d, "--yes"}, 2, speech, "сам файл"},
        {{"edt", "decompile", d, t}, 1, text, "--yes"},
        {{"edt", "decompile", d, t, "--yes"}, 0, {}, ""},
        {{"edt", "export", d, "--kind", "npc", "--format", "json", "-o", s}, 1, script, "--yes"},
        {{"edt", "export", d, "--kind", "npc", "--format", "json", "-o", j}, 0, {}, ""},
        {{"convert", s, d, "--yes"}, 0, {}, ""},
    };
    testutil::writeBytes(script, testutil::patternBytes(1600, 3));
    ASSERT_EQ(cli({"edt", "new", d, "--kind", "npc"}).status, 0);
    testutil::writeText(text, "older\r\n");
    testutil::writeText(json, "[]");
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.args));
        const auto before =
            c.kept.empty() ? std::vector<std::uint8_t>{} : testutil::readBytes(c.kept);
        const auto run = cli(c.args);
        EXPECT_EQ(run.status, c.status) << run.err;
        if (!c.kept.empty()) {
            EXPECT_EQ(testutil::readBytes(c.kept), before);
        }
        EXPECT_NE(run.err.find(c.said), std::string::npos) << run.err;
    }
}

// Phrases are written only where they destroy nothing, unless --force: not over the
// tail of a file read as another kind, not into a script, whatever its name.
TEST(CliEdtKind, AFileThatWouldBeDamagedIsRewrittenOnlyWithForce) {
    TempDir dir;
    ASSERT_EQ(cli({"edt", "new", (dir / "c.edt").string(), "--kind", "civ"}).status, 0);
    std::vector<std::uint8_t> civilian = testutil::readBytes(dir / "c.edt");
    civilian.resize(1280); // four civilian phrases: two and a half of NPC dialogues
    std::vector<std::uint8_t> fiveCivilian(1600, 0); // five phrases: a script's size
    fiveCivilian[0] = 'a' + 1;
    struct Case {
        std::string name;
        std::vector<std::uint8_t> bytes;
        std::string kind;
        std::string refusal; // empty: written without --force
    };
    const Case cases[] = {
        {"c.edt", civilian, "npc", "320 байт в конце"},
        {"s.edt", testutil::script({1, 2}), "civ", "похож на скрипт .npc"},
        {"j.dat", testutil::jaBytes(), "civ", "похож на скрипт .npc"},
        {"e.NPC", fiveCivilian, "civ", "похож на скрипт .npc"},
        {"five.edt", fiveCivilian, "civ", ""},
    };
    testutil::writeText(dir / "p.json", "[\"x\"]");
    for (const Case& c : cases) {
        const std::string file = (dir / c.name).string();
        for (const std::vector<std::string>& args :
             {std::vector<std::string>{"edt", "set", file, "--kind", c.kind, "--phrase", "0",
                                       "--text", "x"},
              {"edt", "import", file, "--kind", c.kind, (dir / "p.json").string()}}) {
            SCOPED_TRACE(c.name + " " + args[1]);
            testutil::writeBytes(dir / c.name, c.bytes);
            auto run = cli(args);
            if (c.refusal.empty()) {
                EXPECT_EQ(run.status, 0) << run.err;
                continue;
            }
            EXPECT_EQ(run.status, 1);
            EXPECT_NE(run.err.find(c.refusal), std::string::npos) << run.err;
            EXPECT_EQ(testutil::readBytes(dir / c.name), c.bytes);
            auto forced = args;
            forced.push_back("--force");
            EXPECT_EQ(cli(forced).status, 0);
        }
    }
}

TEST(CliErrors, SizeMessageAndExitStatuses) {
    TempDir dir;
    testutil::writeBytes(dir / "big.npc", std::vector<std::uint8_t>(1601, 0));
    auto run = cli({"info", (dir / "big.npc").string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("больше чем 1600 байт"), std::string::npos) << run.err;
    EXPECT_EQ(cli({}).status, 2);
    EXPECT_EQ(cli({"frobnicate"}).status, 2);
    EXPECT_EQ(cli({"info"}).status, 2);
    auto help = cli({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("convert SRC.npc DST.npc"), std::string::npos);
    auto setHelp = cli({"set", "--help"});
    EXPECT_EQ(setHelp.status, 0);
    EXPECT_NE(setHelp.out.find("--record N"), std::string::npos);
}

} // namespace

namespace {

// What a shell sees of a wrong call: usage on stderr, and the right exit status.
TEST(CliConventions, UsageGoesToStderrAndMissingFoldersAreUsageErrors) {
    const auto group = cli({"edt"});
    EXPECT_EQ(group.status, 2);
    EXPECT_EQ(group.out, "");
    EXPECT_NE(group.err.find("parlex-cli edt show"), std::string::npos);
    const auto asked = cli({"edt", "--help"});
    EXPECT_EQ(asked.status, 0);
    EXPECT_NE(asked.out.find("parlex-cli edt show"), std::string::npos);

    TempDir dir;
    const auto missing = cli({"lookup", "N", "1", "--lists", (dir / "none").string()});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.out, "");
    EXPECT_NE(missing.err.find("--lists"), std::string::npos);
    EXPECT_EQ(cli({"lookup", "N", "1", "--lists", dir.path().string()}).status, 0);

    // A list file there that cannot be read ends every command that reads lists.
    testutil::writeText(dir / "Items.txt", "1=x\r\n");
    std::filesystem::resize_file(dir / "Items.txt", std::uintmax_t(1) << 30);
    for (const auto& args : std::vector<std::vector<std::string>>{{"lookup", "N", "1"},
                                                                  {"lists", "show", "T"},
                                                                  {"explain", PARLEX_EXAMPLE},
                                                                  {"lint", PARLEX_EXAMPLE}}) {
        auto withLists = args;
        withLists.insert(withLists.end(), {"--lists", dir.path().string()});
        const auto refused = cli(withLists);
        EXPECT_EQ(refused.status, 1) << args[0];
        EXPECT_EQ(refused.out, "") << args[0];
        EXPECT_NE(refused.err.find("Items.txt"), std::string::npos) << refused.err;
    }
}

#ifndef _WIN32
#endif

} // namespace
