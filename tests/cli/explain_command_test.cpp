#include "clirun.h"

#include <gtest/gtest.h>

using clitest::cli;
using testutil::TempDir;

namespace {

std::size_t count(const std::string& s, const std::string& what) {
    std::size_t n = 0;
    for (auto pos = s.find(what); pos != std::string::npos; pos = s.find(what, pos + 1))
        ++n;
    return n;
}

TEST(CliExplain, JsonHasEveryRecordAndTwentyOneFieldsInOrder) {
    TempDir dir;
    auto run = cli({"explain", PARLEX_EXAMPLE, "--json", "--lists", dir.path().string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(run.out.starts_with("{\"type\":\"ub\",\"records\":[{\"record\":1,\"hex\":\""));
    EXPECT_TRUE(run.out.ends_with("]}]}\n"));
    EXPECT_EQ(count(run.out, "\"record\":"), 50u);
    EXPECT_EQ(count(run.out, "\"field\":"), 50u * 21);
    EXPECT_NE(run.out.find("{\"field\":28,\"label\":\" (29-32 as Bytes)\",\"value\":0,"
                           "\"text\":\"Данные байты у всех существующих НПЦ равны \\\"00\\\"\","
                           "\"alert\":false,\"remark\":\"\"}]}"),
              std::string::npos);
    // Record 8 of the example: fire mode 3 has a remark, byte 15 is 0 (red).
    auto one =
        cli({"explain", PARLEX_EXAMPLE, "--json", "--record", "8", "--lists", dir.path().string()});
    EXPECT_NE(
        one.out.find("{\"field\":0,\"label\":\" (01-02 as Word)\",\"value\":3,\"text\":\"№_3 \","
                     "\"alert\":false,\"remark\":\"(возможны только три значения: 0, 2 или 4)\"}"),
        std::string::npos)
        << one.out;
    EXPECT_NE(
        one.out.find(
            "\"field\":14,\"label\":\" (15 as Byte)\",\"value\":0,"
            "\"text\":\"По умолчанию этот байт должен быть равен \\\"01\\\"!\",\"alert\":true"),
        std::string::npos);
}

TEST(CliExplain, TextMarksAlertsAndRemarks) {
    TempDir dir;
    auto run = cli({"explain", PARLEX_EXAMPLE, "--record", "8", "--lists", dir.path().string()});
    ASSERT_EQ(run.status, 0);
    EXPECT_TRUE(run.out.starts_with("Запись 08: 03 00 00 00 FF"));
    EXPECT_NE(
        run.out.find(
            "    01-02 as Word [03 00]: №_3 **(возможны только три значения: 0, 2 или 4)**\n"),
        std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("  ! 11 as Byte [0A]: Запись не может сработать с 10 и до 10 дня!\n"),
              std::string::npos);
    EXPECT_EQ(count(run.out, "\n"), 22u);
    auto empty = cli({"explain", PARLEX_EXAMPLE, "--record", "12"});
    EXPECT_EQ(count(empty.out, "Запись пустая"), 21u);
}

} // namespace
