// Work on a whole mod: collecting scripts, lint, find, diff and batch conversion,
// over small folders the tests make.
#include "core/codelists/codelists.h"
#include "core/explain/fieldlayout.h"
#include "core/mod/batchconvert.h"
#include "core/mod/lint.h"
#include "core/mod/scriptdiff.h"
#include "core/mod/scripts.h"
#include "core/mod/search.h"
#include "core/npc/npcformat.h"
#include "core/speech/edtfile.h"
#include "testutil.h"

#include <gtest/gtest.h>

using namespace parlex;
using namespace parlex::mod;
namespace fs = std::filesystem;

namespace {

// A "ub" script whose records are the neutral record with some bytes set.
struct RecordBytes {
    int position;
    std::vector<std::pair<int, std::uint8_t>> bytes; // byte index 0-31, value
};
std::vector<std::uint8_t> scriptWith(std::initializer_list<RecordBytes> records) {
    std::vector<std::uint8_t> file(npcformat::kFileSize, 0);
    for (const auto& r : records) {
        NpcRecord record = kNeutralRecord;
        for (auto [index, value] : r.bytes)
            record[static_cast<std::size_t>(index)] = value;
        std::ranges::copy(record, file.begin() + (r.position - 1) * 32);
    }
    return file;
}

// The findings as "file:record:field:severity:message", each to start as expected.
std::vector<std::string> brief(const std::vector<Finding>& findings) {
    std::vector<std::string> out;
    for (const auto& f : findings)
        out.push_back(f.file.filename().string() + ":" +
                      (f.record ? std::to_string(*f.record) : "-") + ":" +
                      (f.field ? std::to_string(*f.field) : "-") + ":" + severityName(f.severity) +
                      ":" + f.message);
    return out;
}
void expectStarts(const std::vector<Finding>& findings, const std::vector<std::string>& starts) {
    const auto seen = brief(findings);
    ASSERT_EQ(seen.size(), starts.size()) << testing::PrintToString(seen);
    for (std::size_t i = 0; i < seen.size(); ++i)
        EXPECT_TRUE(seen[i].starts_with(starts[i])) << seen[i] << "\n  expected: " << starts[i];
}

class ModTest : public testing::Test {
protected:
    testutil::TempDir dir;
    CodeLists lists{dir / "no-lists"};

    fs::path put(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        fs::create_directories((dir / name).parent_path());
        testutil::writeBytes(dir / name, bytes);
        return dir / name;
    }
};

TEST_F(ModTest, FoldersGiveTheirScriptsInAnyCaseAndDepthSortedOnce) {
    const auto a = put("mod/b/002.NPC", scriptWith({}));
    const auto b = put("mod/001.npc", scriptWith({}));
    const auto c = put("mod/b/c/003.Npc", scriptWith({}));
    put("mod/001.EDT", {1, 2});
    put("mod/notes.txt", {1});
    const std::vector<fs::path> named{dir / "mod", dir / "mod/001.npc", dir / "gone.npc"};
    EXPECT_EQ(collectScripts(named), (std::vector<fs::path>{dir / "gone.npc", b, a, c}));
}

TEST_F(ModTest, LintTellsEveryKindOfFinding) {
    using Case = std::tuple<const char*, std::vector<std::uint8_t>, std::vector<std::string>>;
    auto jaTail = testutil::jaBytes();
    std::fill(jaTail.begin() + 4, jaTail.end(), 0);
    auto jaClean = jaTail;
    jaTail[1599] = 7;
    const Case cases[] = {
        {"clean", scriptWith({{1, {}}, {7, {}}}), {}},
        {"a wrong spare byte is an error",
         scriptWith({{3, {{19, 1}}}}),
         {"x.npc:3:19:error:Spare20: Данны"}},
        {"a remark is a warning", scriptWith({{2, {{0, 3}}}}), {"x.npc:2:0:warning:FireMode: №_3"}},
        {"ordered by record and field",
         scriptWith({{5, {{19, 1}}}, {2, {{19, 1}, {0, 3}}}}),
         {"x.npc:2:0:warning:FireMode: №_3", "x.npc:2:19:error:Spare20: Данны",
          "x.npc:5:19:error:Spare20: Данны"}},
        {"a ja tail a save would clear", jaTail, {"x.npc:-:-:warning:хвост файла \""}},
        {"a ja tail of zeros", jaClean, {}},
        {"no script", {1, 2, 3}, {"x.npc:-:-:error:Размер файла"}},
    };
    for (const auto& [name, bytes, expected] : cases) {
        SCOPED_TRACE(name);
        expectStarts(lintScript(put("x.npc", bytes), lists), expected);
    }
    expectStarts(lintScript(dir / "gone.npc", lists), {"gone.npc:-:-:error:Ошибка"});
}

TEST_F(ModTest, LintChecksThePhrasesAgainstTheSpeechFileBeside) {
    auto speech = EdtFile::makeNew(EdtKind::NpcDialogues);
    for (int p : {0, 3, 5})
        ASSERT_TRUE(speech.setPhrase(p, "Привет"));
    ASSERT_TRUE(speech.saveAs(dir / "001.EDT")); // phrases 0-5 on disk, 4 empty
    const auto script = put("001.npc", scriptWith({{1, {{13, 3}, {14, 5}}}, {2, {{13, 5}}}}));
    const auto findings = lintScript(script, lists);
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].message, "фразы 6-7 нет в файле 001.EDT (в нём фраз: 6)");
    EXPECT_EQ(findings[1].message, "фраза 4 в файле 001.EDT пустая");
    EXPECT_EQ(findings[1].field, 13);
    // English says "phrase" for one that is missing, "phrases" for more.
    const auto english = lintScript(script, lists, Language::English);
    EXPECT_EQ(english[0].message, "phrases 6-7 are not in the file 001.EDT (it has 6 phrases)");
    const auto one = put("002.npc", scriptWith({{2, {{13, 6}}}}));
    ASSERT_TRUE(speech.saveAs(dir / "002.EDT"));
    EXPECT_EQ(lintScript(one, lists, Language::English).at(0).message,
              "phrase 6 is not in the file 002.EDT (it has 6 phrases)");

    testutil::writeBytes(dir / "001.EDT", {1, 2, 3});
    expectStarts(lintScript(script, lists),
                 {"001.npc:-:-:warning:речевой файл 001.EDT не прочитан: "});
}

TEST_F(ModTest, LintOfManyScriptsKeepsFileOrderWhateverTheThreads) {
    std::vector<fs::path> scripts;
    for (int i = 0; i < 60; ++i)
        scripts.push_back(
            put("m/" + std::to_string(100 + i) + ".npc", scriptWith({{1 + i % 50, {{19, 1}}}})));
    const auto findings = lintScripts(scripts, lists);
    ASSERT_EQ(findings.size(), 60u);
    for (std::size_t i = 0; i < findings.size(); ++i) {
        EXPECT_EQ(findings[i].file, scripts[i]);
        EXPECT_EQ(findings[i].record, 1 + static_cast<int>(i) % 50);
    }
}

TEST_F(ModTest, FindByCodeAndByPhrase) {
    const auto a = put("a.npc", scriptWith({{1, {{22, 27}}}, {4, {{2, 27}, {13, 10}, {14, 3}}}}));
    const auto b = put("b.npc", scriptWith({{2, {{13, 12}}}, {3, {{26, 27}}}}));
    const auto bad = put("c.npc", {1});
    const std::vector<fs::path> scripts{a, b, bad};
    using Case = std::tuple<const char*, std::vector<Finding>, std::vector<std::string>>;
    const Case cases[] = {
        {"item 27, given and needed",
         findCode(scripts, ListKey::I, 27, lists),
         {"a.npc:1:22:match:GivenItem: ", "a.npc:4:2:match:NeededItem: ",
          "c.npc:-:-:error:Размер файла"}},
        {"reaction 27, in any list key case",
         findCode({&b, 1}, *parseListKey("r"), 27, lists),
         {"b.npc:3:26:match:ReactionCode: "}},
        {"phrase 12 in 10-12 and as a first",
         findPhrase({scripts.data(), 2}, 12, lists),
         {"a.npc:4:13:match:PhraseFirst:", "b.npc:2:13:match:PhraseFirst:"}},
        {"phrase 13 nowhere", findPhrase({scripts.data(), 2}, 13, lists), {}},
    };
    for (const auto& [name, found, expected] : cases) {
        SCOPED_TRACE(name);
        expectStarts(found, expected);
    }
}

TEST_F(ModTest, DiffByPositionAcrossLayouts) {
    const auto a = put("a.npc", scriptWith({{1, {}}, {3, {{12, 40}}}}));
    const auto same = put("same.npc", scriptWith({{1, {}}, {3, {{12, 40}}}}));
    const auto b = put("b.npc", scriptWith({{1, {}}, {3, {{12, 50}, {20, 1}, {21, 0}}}}));
    const auto seen = [&](const fs::path& x, const fs::path& y) {
        std::vector<std::string> out;
        const auto changes = diffScripts(x, y, lists).value();
        for (const auto& c : changes)
            out.push_back(std::to_string(c.record) + ":" + std::to_string(c.field) + " " +
                          c.oldHex + " -> " + c.newHex);
        return out;
    };
    EXPECT_EQ(seen(a, same), std::vector<std::string>{});
    EXPECT_EQ(seen(a, b), (std::vector<std::string>{"3:12 28 -> 32", "3:20 FF FF -> 01 00"}));
    EXPECT_EQ(diffScripts(a, b, lists)->front().newText.empty(), false);

    // The same records in the other layout are equal; a record 50 the "ja" layout
    // cannot hold shows against "-".
    const auto ja = npcformat::convertLayout(npcformat::readScript(a).value(), NpcFileType::Ja);
    const auto aJa = put("a-ja.npc", {ja->begin(), ja->end()});
    EXPECT_EQ(seen(a, aJa), std::vector<std::string>{});
    const auto full = put("full.npc", scriptWith({{1, {}}, {3, {{12, 40}}}, {50, {{12, 9}}}}));
    const auto changes = diffScripts(full, aJa, lists).value();
    ASSERT_FALSE(changes.empty());
    EXPECT_EQ(changes.front().record, 50);
    EXPECT_EQ(changes.front().newHex, "-");
    EXPECT_EQ(changes.front().newText, "Запись не существует");

    EXPECT_FALSE(diffScripts(a, dir / "gone.npc", lists));
}

TEST_F(ModTest, BatchConversionSkipsWhatIsThereAndWritesTheRest) {
    using Status = ConvertOutcome::Status;
    const auto ub = put("in/1.npc", scriptWith({{1, {{12, 5}}}}));
    const auto ja = put("in/2.npc", testutil::jaBytes());
    const auto bad = put("in/3.npc", {1, 2});
    const auto twin = put("in/sub/1.npc", scriptWith({{2, {}}}));
    const std::vector<fs::path> scripts{ub, ja, bad, twin};

    const auto out = convertScripts(scripts, NpcFileType::Ja, dir / "out");
    std::vector<Status> statuses;
    for (const auto& o : out)
        statuses.push_back(o.status);
    EXPECT_EQ(statuses,
              (std::vector{Status::Converted, Status::Skipped, Status::Failed, Status::Skipped}));
    EXPECT_EQ(out[1].message, "уже в формате \"ja\"");
    EXPECT_EQ(npcformat::detectType(testutil::readBytes(dir / "out/1.npc")), NpcFileType::Ja);
    EXPECT_EQ(testutil::readBytes(ub), scriptWith({{1, {{12, 5}}}})) << "the source stays";
    EXPECT_FALSE(fs::exists(dir / "out/2.npc"));

    // In place: the "ja" script becomes "ub", the "ub" ones are skipped.
    const auto inPlace = convertScripts({&ja, 1}, NpcFileType::Ub, std::nullopt);
    EXPECT_EQ(inPlace[0].status, Status::Converted);
    EXPECT_EQ(npcformat::detectType(testutil::readBytes(ja)), NpcFileType::Ub);
}

} // namespace
