// edt export and import as translators and engine modders use them.
#include "clirun.h"

#include <gtest/gtest.h>

using clitest::cli;
using clitest::runProgram;

namespace {

class CliExchange : public testing::Test {
protected:
    testutil::TempDir dir;
    std::string edt = (dir / "053.edt").string();

    void SetUp() override {
        ASSERT_EQ(cli({"edt", "new", edt, "--kind", "npc"}).status, 0);
        for (const auto& [n, text] : std::vector<std::pair<std::string, std::string>>{
                 {"0", "Привет"}, {"5", "Он сказал: \"Стой!\""}, {"20", "C:\\JA2"}})
            ASSERT_EQ(
                cli({"edt", "set", edt, "--kind", "npc", "--phrase", n, "--text", text}).status, 0);
    }
};

TEST_F(CliExchange, ExportThenImportLeavesTheFileByteForByte) {
    for (const char* format : {"json", "po"}) {
        const auto before = testutil::readBytes(edt);
        const auto exported = cli({"edt", "export", edt, "--kind", "npc", "--format", format});
        ASSERT_EQ(exported.status, 0) << exported.err;
        const std::string out = edt + "." + format;
        EXPECT_EQ(exported.out, out + "\n");
        const auto imported = cli({"edt", "import", edt, "--kind", "npc", out});
        EXPECT_EQ(imported.status, 0) << imported.err;
        EXPECT_EQ(testutil::readBytes(edt), before) << format;
    }
    // A phrase changed after the export comes back with the import.
    const auto before = testutil::readBytes(edt);
    ASSERT_EQ(cli({"edt", "set", edt, "--kind", "npc", "--phrase", "5", "--text", "другое"}).status,
              0);
    ASSERT_NE(testutil::readBytes(edt), before);
    EXPECT_EQ(cli({"edt", "import", edt, "--kind", "npc", edt + ".json"}).status, 0);
    EXPECT_EQ(testutil::readBytes(edt), before);

    const auto stdoutRun =
        cli({"edt", "export", edt, "--kind", "npc", "--format", "json", "-o", "-"});
    EXPECT_EQ(stdoutRun.out, testutil::readText(edt + ".json"));
}

TEST_F(CliExchange, RefusalsNameTheEntryAndWriteNothing) {
    struct Case {
        const char* name;
        std::string content;
        std::string message;
    };
    const Case cases[] = {
        {"far.json",
         "[\"a\"," + std::string(143 * 4, ' ') + "\"\"" +
             [] {
                 std::string more;
                 for (int i = 0; i < 143; ++i)
                     more += ",\"\"";
                 return more;
             }() +
             "]",
         "фраза 143: такой фразы нет (фразы с 0 по 142)"},
        {"han.po", "msgctxt \"004\"\nmsgid \"x\"\nmsgstr \"漢\"\n", "фраза 4: "},
        {"bad.json", "[\"a\" \"b\"]", "JSON, строка 1: "},
    };
    const auto before = testutil::readBytes(edt);
    for (const auto& c : cases) {
        const auto from = (dir / c.name).string();
        testutil::writeText(from, c.content);
        const auto run = cli({"edt", "import", edt, "--kind", "npc", from});
        EXPECT_EQ(run.status, 1) << c.name;
        EXPECT_TRUE(run.err.starts_with("parlex-cli: " + from + ": " + c.message)) << run.err;
        EXPECT_EQ(testutil::readBytes(edt), before) << c.name;
    }
    EXPECT_EQ(cli({"edt", "import", edt, "--kind", "npc", (dir / "x.txt").string()}).status, 2);
    EXPECT_EQ(cli({"edt", "export", edt, "--kind", "npc", "--format", "xml"}).status, 2);
}

} // namespace
