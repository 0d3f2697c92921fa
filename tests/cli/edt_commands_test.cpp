#include "clirun.h"
#include "core/text/cp1251.h"

#include <gtest/gtest.h>

using clitest::cli;
using testutil::TempDir;

namespace {

TEST(CliEdt, NewSetShowInfoRoundTrip) {
    TempDir dir;
    const std::string f = (dir / "d.edt").string();
    ASSERT_EQ(cli({"edt", "new", f, "--kind", "rem"}).status, 0);
    EXPECT_EQ(std::filesystem::file_size(f), 16320u);
    EXPECT_EQ(cli({"edt", "new", f, "--kind", "rem"}).status, 1) << "no silent replace";
    ASSERT_EQ(cli({"edt", "set", f, "--kind", "rem", "--phrase", "3", "--text", "я тут"}).status,
              0);
    ASSERT_EQ(
        cli({"edt", "set", f, "--kind", "rem", "--phrase", "7", "--text", "Ещё \"раз\""}).status,
        0);
    // A phrase number any kind has, past the last of this one: refused by the file.
    const auto past = cli({"edt", "set", f, "--kind", "rem", "--phrase", "35", "--text", "x"});
    EXPECT_EQ(past.status, 1);
    EXPECT_NE(past.err.find("от 0 до 34"), std::string::npos) << past.err;
    EXPECT_EQ(cli({"edt", "show", f, "--kind", "rem"}).out, "003: я тут\n007: Ещё \"раз\"\n");
    auto json = cli({"edt", "show", f, "--kind", "rem", "--json"});
    EXPECT_TRUE(json.out.starts_with(
        "{\"kind\":\"rem\",\"lastPhrase\":34,\"phrases\":[\"\",\"\",\"\",\"я тут\","));
    EXPECT_TRUE(json.out.ends_with("\"\"]}\n"));
    EXPECT_EQ(cli({"edt", "info", f, "--kind", "rem", "--json"}).out,
              "{\"kind\":\"rem\",\"phrases\":35,\"nonEmpty\":2,\"first\":3,\"last\":7,"
              "\"sizeOnDisk\":3840,\"sizeAfterSave\":3840}\n");
    auto text = cli({"edt", "info", f, "--kind", "rem"});
    EXPECT_NE(text.out.find("Число существующих строк: 2 (35)\n"), std::string::npos);
}

TEST(CliEdt, DecompileWritesWindows1251) {
    TempDir dir;
    const std::string f = (dir / "d.edt").string();
    ASSERT_EQ(cli({"edt", "new", f, "--kind", "npc"}).status, 0);
    ASSERT_EQ(cli({"edt", "set", f, "--kind", "npc", "--phrase", "20", "--text", "Привет"}).status,
              0);
    ASSERT_EQ(cli({"edt", "decompile", f, (dir / "q.txt").string()}).status, 0);
    const std::string text = parlex::text::cp1251ToUtf8(testutil::readText(dir / "q.txt"));
    EXPECT_NE(text.find("Фраза 020.\r\n\r\n1.Привет\r\n"), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '*'), 21 * 80);
}

} // namespace
