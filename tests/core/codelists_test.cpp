#include "core/codelists/codelists.h"
#include "core/codelists/listwriter.h"
#include "core/codelists/resources.h"
#include "core/explain/fieldlayout.h"
#include "core/text/cp1251.h"
#include "testutil.h"

#include <gtest/gtest.h>
#include <tuple>

using namespace parlex;
using testutil::TempDir;

namespace {

// Writes a list file in Windows-1251 with CR LF line ends.
void writeList(const std::filesystem::path& path, const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& l : lines)
        text += l + "\r\n";
    testutil::writeText(path, text::utf8ToCp1251(text).value());
}

TEST(BuiltInLists, SpotValuesUnknownAndEmptyAreDifferentAnswers) {
    const std::tuple<ListKey, std::uint32_t, std::optional<std::string>> cases[] = {
        {ListKey::T, 157, ""},
        {ListKey::T, 500, std::nullopt},
        {ListKey::A, 5, std::nullopt}, // a gap in a sparse list
        {ListKey::R, 65494, "НПЦ встает с инвалидного кресла"},
    };
    for (const auto& [key, code, text] : cases)
        EXPECT_EQ(builtInText(key, code), text) << codeList(key).keyText << " " << code;
    EXPECT_EQ(builtInText(ListKey::I, 279), builtInText(ListKey::I, 302));
    EXPECT_EQ(*builtInText(ListKey::I, 279), "Ключ");
}

TEST(LookupCode, OverrideFileRules) {
    const std::tuple<std::vector<std::string>, std::uint32_t, std::string> cases[] = {
        {{"12=Новый текст"}, 13, "?"}, // replaces, not merged
        {{"5="}, 5, ""},
        {{"5=a=b"}, 5, "a=b"},
        {{"0000005=x"}, 5, "?"}, // seven characters
        {{"000005=x"}, 5, "x"},  // six characters
        {{"70000=x"}, 70000 - 65536, "?"},
        {{"abc=x"}, 0, "x"}, // no leading number counts as code 0
        {{"7=first", "7=second"}, 7, "first"},
        {{"; 5=commented"}, 5, "?"},
        {{"9=" + std::string(100, 'x')}, 9, std::string(75, 'x') + "..."},
        {{"9=" + std::string(78, 'y')}, 9, std::string(78, 'y')}, // 80 exactly: whole
        {{"400=Своё"}, 400, "Своё"},                              // no " UB" on an override text
    };
    for (const auto& [lines, code, expected] : cases) {
        TempDir dir;
        writeList(dir / "Trigg.txt", lines);
        EXPECT_EQ(CodeLists(dir.path()).lookup(ListKey::T, code), expected)
            << ::testing::PrintToString(lines);
    }
}

TEST(LookupCode, FilesPutInEditedAndTakenOutCountAtOnce) {
    TempDir dir;
    CodeLists lists(dir.path());
    const auto path = dir / "Trigg.txt";
    EXPECT_EQ(lists.lookupCode(4, 12), "Пакос напуган");
    writeList(path, {"12=аааа"});
    EXPECT_EQ(lists.lookupCode(4, 12), "аааа");
    const auto written = std::filesystem::last_write_time(path);
    writeList(path, {"12=бббб"}); // the same size and time, as `cp -p` leaves it
    std::filesystem::last_write_time(path, written);
    EXPECT_EQ(lists.lookupCode(4, 12), "бббб");
    std::filesystem::remove(path);
    EXPECT_EQ(lists.lookupCode(4, 12), "Пакос напуган");
    writeList(dir / "Action.txt", {"5=Пятое действие"}); // a code outside the sparse table
    EXPECT_EQ(lists.lookupCode(11, 5), "Пятое действие");
}

TEST(LookupCode, AListFileInUtf8ReadsAsWritten) {
    // What the file is, its bytes, the text read.
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"UTF-8 with a mark", std::string("\xEF\xBB\xBF") + "5=Пять\r\n", "Пять"},
        {"UTF-8 without one", "5=Пять\n", "Пять"},
        {"characters Windows-1251 lacks", "5=日本\r\n", "??"},
        {"Windows-1251 that is not UTF-8", text::utf8ToCp1251("5=Ёж №1\r\n").value(), "Ёж №1"},
    };
    for (const auto& [name, bytes, text] : cases) {
        SCOPED_TRACE(name);
        TempDir dir;
        testutil::writeText(dir / "Npc.txt", bytes);
        const CodeLists lists(dir.path());
        // Lookup, the list's rows and the character's name agree on what the file says.
        EXPECT_EQ(lists.lookup(ListKey::N, 5), text);
        EXPECT_EQ(lists.rows(ListKey::N).rows, std::vector{"№_5 (05) " + text});
        EXPECT_EQ(lists.characterNameForTitle("005.npc"), text);
    }
}

TEST(LookupCode, AFileThatCannotBeReadIsToldOnceAndNeverKept) {
    TempDir dir;
    const auto path = dir / "Npc.txt";
    writeList(path, {"5=Пять"});
    std::vector<Error> told;
    CodeLists lists(dir.path());
    lists.setReadErrorHandler([&](const Error& e) { told.push_back(e); });
    const auto lookAround = [&] {
        return std::tuple(lists.lookup(ListKey::N, 5), lists.rows(ListKey::N).rows.size(),
                          lists.check().has_value());
    };
    // Too large to be a list: refused before it is read.
    std::filesystem::resize_file(path, std::uintmax_t(1) << 30);
    EXPECT_EQ(lookAround(), std::tuple(std::string("?"), 0u, true));
    ASSERT_EQ(told.size(), 1u) << "once for the file as it stands";
    EXPECT_EQ(told[0].kind, ErrorKind::TooLarge);
    EXPECT_NE(told[0].message.find(platform::utf8(path)), std::string::npos) << told[0].message;
    writeList(path, {"5=Пять"});
    EXPECT_EQ(lookAround(), std::tuple(std::string("Пять"), 1u, false));
}

TEST(ListRows, OverrideFileRowsFollowTheFile) {
    using Lines = std::vector<std::string>;
    const std::tuple<std::string, Lines, Lines> cases[] = {
        {"Trigg.txt", {"7=a", "3=b"}, {"№_7 (07 00) a", "№_3 (03 00) b"}},
        {"Npc.txt", {"300=x"}, {"№_300 (2C) x"}},
        {"Trigg.txt",
         {"; header", "", "1=a", "continued", "2=b"},
         {"№_1 (01 00) a", "№_1 (01 00) continued", "№_2 (02 00) b"}},
        {"Trigg.txt",
         {"9=" + std::string(130, 'z')},
         {"№_9 (09 00) " + std::string(115, 'z') + "..."}},
        {"Trigg.txt", {"9=" + std::string(100, 'z')}, {"№_9 (09 00) " + std::string(100, 'z')}},
    };
    for (const auto& [file, lines, rows] : cases) {
        TempDir dir;
        writeList(dir / file, lines);
        const auto key = file == "Npc.txt" ? ListKey::N : ListKey::T;
        EXPECT_EQ(CodeLists(dir.path()).rows(key).rows, rows) << ::testing::PrintToString(lines);
    }
}

TEST(ListRows, RowLimitStopsWithMessageAndMarker) {
    TempDir dir;
    std::string text;
    for (int i = 0; i < 32740; ++i)
        text += "1=" + std::string(i == 32735 ? 60 : 1, 'q') + "\r\n";
    testutil::writeText(dir / "Trigg.txt", text);
    const auto rows = CodeLists(dir.path()).rows(ListKey::T);
    ASSERT_EQ(rows.rows.size(), 32736u);
    EXPECT_EQ(rows.rows.back(), "Error - аварийное прерывание");
    ASSERT_TRUE(rows.warning);
    EXPECT_NE(rows.warning->find("Строка: " + std::string(47, 'q') + "...\n"), std::string::npos);
    EXPECT_TRUE(rows.warning->ends_with("Номер стороки: 32735"));
}

TEST(CharacterName, TitleNumberNamesTheCharacter) {
    // The lines of Npc.txt (none: no file), the script's title, the name shown.
    const std::tuple<std::vector<std::string>, std::string, std::string> cases[] = {
        {{}, "053.npc", *builtInText(ListKey::N, 53)},
        {{}, "05.npc", "05.npc"},
        {{"053=X"}, "053.npc", "053.npc"},
        {{"; c", "53=" + std::string(130, 'n')}, "053.npc", std::string(114, 'n') + "..."},
    };
    for (const auto& [lines, title, expected] : cases) {
        TempDir dir;
        if (!lines.empty())
            writeList(dir / "Npc.txt", lines);
        EXPECT_EQ(CodeLists(dir.path()).characterNameForTitle(title), expected) << title;
    }
}

TEST(ListWriter, EveryListWritesAndReadsBackThroughTheReader) {
    TempDir dir;
    std::tm when{};
    when.tm_year = 126, when.tm_mon = 10, when.tm_mday = 22, when.tm_hour = 9, when.tm_min = 5;
    CodeLists builtIn(dir / "none");
    for (const auto& list : codeLists()) {
        auto path = writeListFile(list.key, dir.path(), when, false);
        ASSERT_TRUE(path) << path.error().message;
        const std::string bytes = testutil::readText(*path);
        const std::string utf8 = text::cp1251ToUtf8(bytes);
        EXPECT_TRUE(utf8.starts_with("; " + path->string() + " Greated: 22.11.2026 09:05:00\r\n"));
        const auto lines = std::count(bytes.begin(), bytes.end(), '\n');
        EXPECT_EQ(lines, static_cast<long>(6 + builtInCodes(list.key).size()));
        EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\r'), lines) << "CR LF line ends";
        CodeLists fromFile(dir.path());
        for (auto code : builtInCodes(list.key)) {
            // What comes back is the built-in text, or its line cut to 77 characters + "...".
            const std::string line = std::to_string(code) + "=" + builtIn.lookup(list.key, code);
            const std::string raw = text::utf8ToCp1251(line).value();
            const std::string cut = raw.size() > 80 ? raw.substr(0, 77) + "..." : raw;
            const std::string expected =
                text::cp1251ToUtf8(cut).substr(std::to_string(code).size() + 1);
            ASSERT_EQ(fromFile.lookup(list.key, code), expected) << list.keyText << " " << code;
        }
        EXPECT_EQ(fromFile.rows(list.key).rows.size(), builtInCodes(list.key).size());
    }
    // Windows-1251 on disk: "Омерта" begins with byte 0xCE.
    EXPECT_NE(testutil::readText(dir / "Trigg.txt").find("0=\xCE\xEC\xE5\xF0\xF2\xE0"),
              std::string::npos);
}

TEST(ListWriter, ExistingFileNeedsPermission) {
    TempDir dir;
    std::tm when{};
    testutil::writeText(dir / "Npc.txt", "keep");
    auto refused = writeListFile(ListKey::N, dir.path(), when, false);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().kind, ErrorKind::Exists);
    EXPECT_TRUE(refused.error().message.ends_with("\nуже существует. Заменить его?"));
    EXPECT_EQ(testutil::readText(dir / "Npc.txt"), "keep");
    std::filesystem::permissions(dir / "Npc.txt", std::filesystem::perms::owner_read);
    ASSERT_TRUE(writeListFile(ListKey::N, dir.path(), when, true));
    EXPECT_NE(testutil::readText(dir / "Npc.txt"), "keep");
}

} // namespace
