// Every command as a shell sees it: tables of calls with their exit status, what they
// print and which files they must leave alone.
#include "cli/clirun.h"
#include "core/npc/npcformat.h"
#include "core/text/cp1251.h"
#include "testutil.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <span>
#include <string>
#include <vector>

namespace {

namespace platform = parlex::platform;

using clitest::runCli;

struct Step {
    std::string args; // the words of the call
    int status = 0;
    std::vector<std::string> out = {}; // parts stdout holds; "=..." is the whole of it
    std::string err = {};              // a part of stderr; "=..." is the whole of it
    std::string kept = {};             // a file the call must leave as it was
    int lines = -1;                    // lines on stdout, when counted
};

class Cli : public testing::Test {
protected:
    testutil::TempDir dir;

    void SetUp() override {
        std::filesystem::create_directories(dir / "lists");
        std::filesystem::copy_file(PARLEX_EXAMPLE, dir / "053.npc");
    }

    void put(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        putText(name, std::string(bytes.begin(), bytes.end()));
    }
    void putText(const std::string& name, const std::string& text) {
        std::filesystem::create_directories((dir / name).parent_path());
        testutil::writeText(dir / name, text);
    }

    std::string expand(const std::string& text) const { return clitest::expand(text, dir.path()); }

    static void holds(const std::string& text, const std::string& part, const char* stream) {
        if (part.starts_with('=')) {
            EXPECT_EQ(text, part.substr(1)) << stream;
        } else {
            EXPECT_NE(text.find(part), std::string::npos) << stream << " lacks: " << part << "\n"
                                                          << text.substr(0, 2000);
        }
    }

    void run(std::span<const Step> steps) const {
        for (const Step& step : steps) {
            const std::vector<std::string> args = clitest::words(step.args, dir.path());
            SCOPED_TRACE(testing::PrintToString(args));
            const auto kept = expand(step.kept);
            const auto before =
                kept.empty() ? std::vector<std::uint8_t>{} : testutil::readBytes(kept);
            const auto result = runCli(args);
            EXPECT_EQ(result.status, step.status) << result.err;
            for (const auto& part : step.out)
                holds(result.out, expand(part), "stdout");
            if (!step.err.empty())
                holds(result.err, expand(step.err), "stderr");
            if (!kept.empty()) {
                EXPECT_EQ(testutil::readBytes(kept), before) << kept;
            }
            if (step.lines >= 0) {
                EXPECT_EQ(std::ranges::count(result.out, '\n'), step.lines);
            }
        }
    }
};

TEST_F(Cli, ScriptsAreDescribedSetAndConverted) {
    auto dumped = std::vector<std::uint8_t>(1600, 0);
    dumped[32] = 0xAB, dumped[63] = 0x0F;
    put("d.npc", dumped);
    put("z.npc", std::vector<std::uint8_t>(1600, 0));
    put("j.npc", testutil::jaBytes());
    put("u.npc", testutil::patternBytes(1600, 4));
    put("big.npc", std::vector<std::uint8_t>(1601, 0));

    auto zeros = std::vector<std::uint8_t>(1600, 0);
    zeros[32 + 2] = 0x02, zeros[32 + 3] = 0x01, zeros[32 + 13] = 0x1F, zeros[32 + 14] = 0x0A;
    zeros[32 + 30] = 0xAB, zeros[64 + 2] = 0x02, zeros[64 + 3] = 0x01;
    auto ja = testutil::jaBytes();
    ja[4 + 32 + 26] = 0xCD, ja[4 + 32 + 27] = 0xFE;
    std::fill(ja.begin() + 4 + 49 * 32, ja.end(), 0); // a saved "ja" script ends in zeros

    const Step steps[] = {
        {"info @053.npc", 0, {"=Тип файла:\nJA2-англ. JA2UB-любая версия\nЗаписей: 12\n"}},
        {.args = "info @053.npc --json",
         .status = 0,
         .out = {"={\"type\":\"ub\",\"typeText\":\"JA2-англ. JA2UB-любая версия\",\"records\":50,"
                 "\"nonEmpty\":12}\n"}},
        {"info @big.npc", 1, {"="}, "больше чем 1600 байт"},
        {.args = "dump @d.npc",
         .out = {"\n02: AB 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                 "00 00 00 00 00 00 0F\n",
                 "\n50: 00 00"},
         .lines = 50},
        // --byte counts as the status bar does; words take hex, and bytes 29-32 one by one.
        {"set @z.npc --record 2 --byte 14 --value 0x1F"},
        {"set @z.npc --record 2 --byte 4 --value 0x0102"},
        {"set @z.npc --record 3 --byte 3 --value 258"},
        {"set @z.npc --record 2 --byte 31 --value 0XAB"},
        {"set @z.npc --record 2 --field PhraseCount --value 0x0a"},
        {"set @j.npc --record 2 --field 26 --value 65229"},
        // Numbers that do not fit the file or field: 1; no number or out of range: 2.
        {"set @j.npc --record 50 --field 0 --value 1", 1, {"="}, "50", "@j.npc"},
        {"set @j.npc --record 1 --field 8 --value 256", 1, {}, "256", "@j.npc"},
        {"set @j.npc --record 1 --byte 14 --value 0x100", 1, {}, "", "@j.npc"},
        {"set @j.npc --record 51 --field 0 --value 1", 2, {}, "от 1 до 50"},
        {"set @j.npc --record 1 --field 1 --value 1", 2, {}, "--field"},
        {"set @j.npc --record 1 --byte 33 --value 1", 2, {}, "от 1 до 32"},
        {"set @j.npc --record 1 --byte 1 --field 0 --value 1", 2},
        {"set @j.npc --record 1 --field 0 --value 0x", 2, {}, "--value"},
        {"set @j.npc --record 1 --field 0 --value 4294967296", 2, {}, "от 0 до 4294967295"},
        {"set @j.npc --record 1 --field 0", 2, {}, "--value"},
        {"set @j.npc --record 1 --field 0 --value 1 --bogus", 2, {}, "--bogus", "@j.npc"},
        // One file into the other layout, onto itself, and many at once.
        {"convert @u.npc @v.npc",
         0,
         {"=@u.npc (ub) -> @v.npc (ja)\n"},
         "Запись 50 не пуста",
         "@u.npc"},
        {"info @v.npc", 0, {"Агония Власти"}},
        {"convert @v.npc @v.npc --yes", 0, {}, "="},
        {"convert --to ja @u.npc", 0, {}, "u.npc: Запись 50 не пуста"},
    };
    run(steps);
    EXPECT_EQ(testutil::readBytes(dir / "z.npc"), zeros);
    EXPECT_EQ(testutil::readBytes(dir / "j.npc"), ja);
    const auto ub = testutil::patternBytes(1600, 4), back = testutil::readBytes(dir / "v.npc");
    EXPECT_TRUE(std::equal(ub.begin(), ub.begin() + 1596, back.begin()));
}

TEST_F(Cli, OverviewShowsTheScriptWhole) {
    std::filesystem::copy_file(std::filesystem::path(PARLEX_EXAMPLE).replace_filename("053.EDT"),
                               dir / "s.edt");
    const Step steps[] = {
        {.args = "overview @053.npc --edt @s.edt --lists @lists",
         .out = {"Запись\tКогда\tЧто делает\tГоворит\tЗамечаний\tЗамечания\n1\t",
                 "\nФраза\tТекст\tДлина\tГоворят записи\n0\tПривет, чужак.",
                 "\n8\t№_0 <Игрок говорит или дружески или прямо>; №_3; "}},
        {.args = "overview @053.npc --lists @lists --html",
         .out = {"<!DOCTYPE html>", "</html>\n"}},
        {"overview @053.npc @053.npc", 2, {}, "ровно один"},
        {"overview @gone.npc", 1, {}, "gone.npc"},
    };
    run(steps);
}

TEST_F(Cli, WholeModCommandsExitByWhatTheyFind) {
    auto wrong = testutil::script({3});
    wrong[2 * 32 + 19] = 1;
    put("mod/a/001.npc", testutil::script({1, 2}));
    put("mod/002.NPC", wrong);
    put("mod/003.npc", {1, 2, 3});
    auto found = testutil::script({1, 2});
    found[32 + 22] = 27;          // record 2 gives item 27
    found[13] = 4, found[14] = 2; // record 1 says phrases 4-5
    put("f.npc", found);
    auto changed = testutil::script({1, 2});
    changed[32 + 12] = 0x28;
    put("b.npc", changed);
    putText("biglists/Npc.txt", std::string(17 << 20, 'x'));
    put("m/1.npc", testutil::script({1}));
    put("m/2.npc", testutil::jaBytes());

    const Step steps[] = {
        {"lint @mod/a --lists @lists", 0, {"="}},
        {.args = "lint @mod --lists @lists",
         .status = 1,
         .out =
             {"=@mod/002.NPC:3:19: error: Spare20: Данный байт у всех существующих НПЦ равен "
              "\"00\"!\n@mod/003.npc: error: Размер файла @mod/003.npc; меньше чем 1600 байт\n"}},
        {"lint --json @mod/003.npc --lists @lists", 1, {"\\nменьше чем 1600 байт\""}},
        {"lint", 2},
        {"find @f.npc --lists @lists --list i --code 27", 0, {"@f.npc:2:22: GivenItem: "}},
        {"find @f.npc --lists @lists --list I --code 28", 1, {"="}},
        {"find @f.npc --lists @lists --phrase 5", 0, {"@f.npc:1:13: PhraseFirst: "}},
        {"find @f.npc --lists @lists --list X --code 1", 2},
        {"find @f.npc --lists @lists --phrase 1 --list I", 2},
        {"diff @mod/a/001.npc @mod/a/001.npc --lists @lists", 0, {"="}},
        {"diff @mod/a/001.npc @none.npc", 2},
        {"diff @mod/a/001.npc @b.npc --lists @biglists", 2, {}, "Npc.txt"},
        {"convert --to ja @m --out @o",
         0,
         {"=@m/1.npc -> @o/1.npc (ja)\n"},
         "=parlex-cli: @m/2.npc: уже в формате \"ja\", пропущен\n"},
        {"convert --to ja @m/1.npc --out @o",
         1,
         {},
         "=parlex-cli: @m/1.npc: файл @o/1.npc уже существует; чтобы заменить его, добавьте "
         "--yes\n",
         "@o/1.npc"},
        {"convert @m/1.npc --out @o", 2},
    };
    run(steps);
}

TEST_F(Cli, SpeechFilesAreWrittenShownAndExchanged) {
    std::string far = "[\"a\"";
    for (int i = 0; i < 143; ++i)
        far += ",\"\"";
    putText("far.json", far + "]");
    const Step steps[] = {
        {"edt new @r.edt --kind rem"},
        {"edt new @r.edt --kind rem", 1},
        {"edt set @r.edt --kind rem --phrase 3 --text 'я тут'"},
        {"edt set @r.edt --kind rem --phrase 7 --text 'Ещё \"раз\"'"},
        {"edt set @r.edt --kind rem --phrase 35 --text x", 1, {}, "от 0 до 34", "@r.edt"},
        {"edt show @r.edt --kind rem", 0, {"=003: я тут\n007: Ещё \"раз\"\n"}},
        {"edt info @r.edt --kind rem --json",
         0,
         {"={\"kind\":\"rem\",\"phrases\":35,\"nonEmpty\":2,\"first\":3,\"last\":7,"
          "\"sizeOnDisk\":3840,\"sizeAfterSave\":3840}\n"}},
        {"edt info @r.edt --kind rem", 0, {"Число существующих строк: 2 (35)\n"}},
        // Export and import: a round trip leaves the file byte for byte.
        {"edt new @e.edt --kind npc"},
        {"edt set @e.edt --kind npc --phrase 20 --text Привет"},
        {"edt set @e.edt --kind npc --phrase 5 --text 'Он сказал: \"Стой!\"'"},
        {"edt export @e.edt --kind npc --format po", 0, {"=@e.edt.po\n"}},
        {"edt import @e.edt --kind npc @e.edt.po", 0, {}, "", "@e.edt"},
        {"edt export @e.edt --kind npc --format json", 0, {"=@e.edt.json\n"}},
        {"edt export @e.edt --kind npc --format json -o -", 0, {"\"Он сказал: \\\"Стой!\\\"\""}},
        {"edt set @e.edt --kind npc --phrase 5 --text другое"},
        {"edt import @e.edt --kind npc @e.edt.json"},
        {"edt show @e.edt --kind npc", 0, {"=005: Он сказал: \"Стой!\"\n020: Привет\n"}},
        {"edt import @e.edt --kind npc @far.json",
         1,
         {},
         "parlex-cli: @far.json: фраза 143: такой фразы нет (фразы с 0 по 142)",
         "@e.edt"},
        {"edt import @e.edt --kind npc @x.txt", 2},
        {"edt export @e.edt --kind npc --format xml", 2},
        {"edt decompile @e.edt @q.txt"},
    };
    run(steps);
    const std::string text = parlex::text::cp1251ToUtf8(testutil::readText(dir / "q.txt"));
    EXPECT_NE(text.find("Фраза 020.\r\n\r\n1.Привет\r\n"), std::string::npos) << text;
    EXPECT_EQ(std::ranges::count(text, '*'), 21 * 80);
}

// Commands that write a file of their own never replace one without --yes, and never
// turn their input into their output.
TEST_F(Cli, AnExistingOutputIsReplacedOnlyWhenAsked) {
    put("s.npc", testutil::patternBytes(1600, 3));
    putText("q.txt", "older\r\n");
    putText("d.json", "[]");
    const Step steps[] = {
        {"edt new @d.edt --kind npc"},
        {"convert @s.npc @d.edt", 1, {}, "--yes", "@d.edt"},
        {"convert @s.npc @s.npc", 1, {}, "--yes", "@s.npc"},
        {"edt decompile @s.npc @d.edt", 1, {}, "", "@d.edt"},
        {"edt decompile @d.edt @d.edt --yes", 2, {}, "сам файл", "@d.edt"},
        {"edt decompile @d.edt @q.txt", 1, {}, "--yes", "@q.txt"},
        {"edt decompile @d.edt @q.txt --yes"},
        {"edt export @d.edt --kind npc --format json -o @s.npc", 1, {}, "--yes", "@s.npc"},
        {"edt export @d.edt --kind npc --format json -o @d.json"},
        {"convert @s.npc @d.edt --yes"},
    };
    run(steps);
}

// Phrases are written only where they destroy nothing, unless --force: not over the
// tail of a file read as another kind, not into a script, whatever its name.
TEST_F(Cli, AFileThatWouldBeDamagedIsRewrittenOnlyWithForce) {
    run(std::vector<Step>{{"edt new @c.edt --kind civ"}});
    auto civilian = testutil::readBytes(dir / "c.edt");
    civilian.resize(1280); // four civilian phrases: two and a half of NPC dialogues
    std::vector<std::uint8_t> fiveCivilian(1600, 0); // five phrases: a script's size
    fiveCivilian[0] = 'a' + 1;
    putText("p.json", "[\"x\"]");
    const struct {
        std::string name;
        std::vector<std::uint8_t> bytes;
        std::string kind;
        std::string refusal; // empty: written without --force
    } cases[] = {
        {"c.edt", civilian, "npc", "320 байт в конце"},
        {"s.edt", testutil::script({1, 2}), "civ", "похож на скрипт .npc"},
        {"j.dat", testutil::jaBytes(), "civ", "похож на скрипт .npc"},
        {"e.NPC", fiveCivilian, "civ", "похож на скрипт .npc"},
        {"five.edt", fiveCivilian, "civ", ""},
    };
    for (const auto& c : cases) {
        const std::string file = "@" + c.name;
        for (const std::string& args :
             {"edt set " + file + " --kind " + c.kind + " --phrase 0 --text x",
              "edt import " + file + " --kind " + c.kind + " @p.json"}) {
            put(c.name, c.bytes);
            if (c.refusal.empty())
                run(std::vector<Step>{{args}});
            else
                run(std::vector<Step>{{args, 1, {}, c.refusal, file}, {args + " --force"}});
        }
    }
}

TEST_F(Cli, ListsAnswerAndAreWrittenOut) {
    putText("mine/Npc.txt", parlex::text::utf8ToCp1251("57=Другой\r\n").value());
    std::filesystem::create_directories(dir / "out");
    const Step steps[] = {
        {"lookup N 57 --lists @lists", 0, {"=Мигель\\PGMale 4\n"}},
        {"lookup T 500 --lists @lists", 0, {"=?\n"}},
        {"lookup N 57 --lists @mine", 0, {"=Другой\n"}},
        {"lookup X 1", 2},
        {"lookup N x1", 2},
        {"lists extract --dir @none", 1, {"="}, "@none"},
        {"lists extract --dir @out",
         0,
         {"=@out/React.txt\n@out/Action.txt\n@out/Trigg.txt\n@out/Items.txt\n@out/Npc.txt\n"
          "@out/Q_Input.txt\n@out/Q_Output.txt\n"}},
        {"lists extract N T --dir @mine",
         1,
         {},
         "@mine/Npc.txt\nуже существует. Заменить его?",
         "@mine/Npc.txt"},
        {"lists extract N --dir @mine --yes", 0, {"=@mine/Npc.txt\n"}},
        {"lookup N 57 --lists @mine", 0, {"=Мигель\\PGMale 4\n"}},
        {"lists extract Z --dir @mine", 2},
    };
    run(steps);
}

// What a shell sees of a wrong call: usage on stderr, and the right exit status.
TEST_F(Cli, UsageHelpAndUnusableListFolders) {
    putText("huge/Items.txt", "1=x\r\n");
    std::filesystem::resize_file(dir / "huge/Items.txt", std::uintmax_t(1) << 30);
    const Step steps[] = {
        {"", 2},
        {"info", 2},
        {"edt", 2, {"="}, "parlex-cli edt show"},
        {"info @053.npc --lang de", 2, {"="}, "--lang"},
        {"--lang", 2, {"="}, "--lang"},
        {"lookup N 1 --lists @none", 2, {"="}, "--lists"},
        // A list file that cannot be read ends every command that reads lists.
        {"lookup N 1 --lists @huge", 1, {"="}, "Items.txt"},
        {"lists show T --lists @huge", 1, {"="}, "Items.txt"},
        {"explain @053.npc --lists @huge", 1, {"="}, "Items.txt"},
        {"lint @053.npc --lists @huge", 1, {"="}, "Items.txt"},
    };
    run(steps);
}

} // namespace
