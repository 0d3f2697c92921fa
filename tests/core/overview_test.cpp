// The overview's rows: what each record is said to need, do and say, its findings as
// lint finds them, and the phrases with the records that speak them.
#include "core/codelists/codelists.h"
#include "core/mod/overview.h"
#include "core/npc/npcfile.h"
#include "core/speech/edtfile.h"
#include "testutil.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace parlex;
using namespace parlex::mod;

namespace {

class OverviewTest : public testing::Test {
protected:
    testutil::TempDir dir;
    CodeLists lists{dir / "no-lists"};
    std::optional<EdtFile> speech;

    // A script of neutral records at `filled` with bytes set ("record:byte=value ..."),
    // saved as 053.npc, and its speech file 053.EDT with phrases 0-5 (4 empty).
    NpcFile script(const std::string& bytes, std::initializer_list<int> filled) {
        auto file = testutil::script(filled);
        std::istringstream in(bytes);
        int position = 0, byte = 0, value = 0;
        for (char colon = 0, eq = 0; in >> position >> colon >> byte >> eq >> value;)
            file[static_cast<std::size_t>((position - 1) * 32 + byte)] =
                static_cast<std::uint8_t>(value);
        testutil::writeBytes(dir / "053.npc", file);
        auto edt = EdtFile::makeNew(EdtKind::NpcDialogues);
        for (int p : {0, 3, 5})
            EXPECT_TRUE(edt.setPhrase(p, "Фраза " + std::to_string(p)));
        EXPECT_TRUE(edt.saveAs(dir / "053.EDT"));
        speech = std::move(edt);
        return NpcFile::load(dir / "053.npc").value();
    }
    SpeechSource source() const { return {&*speech, 6}; }
};

TEST_F(OverviewTest, RecordsInWordsWithLintsFindings) {
    // 1: hires at leadership 60, gives item 43, says 3-4 (4 is empty); 2: fire mode 3 (a
    // remark), a spare byte set (an alert); 3: says 5-6 (6 is past the file's end).
    const NpcFile file =
        script("1:11=4 1:12=60 1:22=43 1:13=3 1:14=2 2:0=3 2:19=1 3:13=5 3:14=2", {1, 2, 3});
    const auto rows = recordRows(file, source(), lists, false);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_TRUE(rows[0].when.starts_with("№_4 <Игрок хочет нанять НПЦ>; "));
    EXPECT_TRUE(rows[0].when.ends_with("не меньше чем 60"));
    EXPECT_EQ(rows[0].does, "При соблюдении всех условий НПЦ передает игроку предмет №_43 "
                            "<Когти Молодого Самца\\Барретт M82A2>");
    EXPECT_EQ(rows[0].says, "фразы 3-4: «Фраза 3»");
    EXPECT_EQ(rows[1].does, "");
    EXPECT_EQ(rows[2].says, "фразы 5-6: «Фраза 5»");
    // The findings are lint's, each with its record.
    std::vector<std::string> together, linted;
    for (const auto& row : rows)
        for (const auto& f : row.findings)
            together.push_back(formatFinding(f));
    for (const auto& f : lintScript(dir / "053.npc", lists))
        linted.push_back(formatFinding(f));
    EXPECT_EQ(together, linted);
    EXPECT_EQ(together.size(), 4u);
    // Empty records on demand; a ja script has no row for position 50.
    const auto all = recordRows(file, source(), lists, true);
    EXPECT_TRUE(all.size() == 50u && all[3].empty);
    const NpcFile ja = NpcFile::fromBytes(
        npcformat::convertLayout(file.toBytes(), NpcFileType::Ja).value(), dir / "ja.npc");
    EXPECT_EQ(recordRows(ja, {}, lists, true).size(), 49u);
}

TEST_F(OverviewTest, PhrasesWithTheRecordsThatSpeakThem) {
    const NpcFile file = script("1:13=3 1:14=2 2:13=3 3:13=6", {1, 2, 3});
    // Phrase, text, present, the records that speak it.
    using Row = std::tuple<int, std::string, bool, std::vector<int>>;
    std::vector<Row> seen;
    for (const auto& p : phraseRows(file, source(), true))
        seen.emplace_back(p.number, p.text, p.present, p.spokenBy);
    EXPECT_EQ(seen, (std::vector<Row>{{0, "Фраза 0", true, {}},
                                      {3, "Фраза 3", true, {1, 2}},
                                      {4, "", true, {1}},
                                      {5, "Фраза 5", true, {}},
                                      {6, "", false, {3}}}));
    const auto all = phraseRows(file, source(), false);
    ASSERT_EQ(all.size(), 143u);
    EXPECT_EQ(std::pair(all[3].length, all[3].limit), std::pair(7, 240));
    EXPECT_TRUE(phraseRows(file, {}, false).empty()) << "no speech file, no phrases";
}

TEST_F(OverviewTest, TextAndJsonHoldEveryRow) {
    const NpcFile file = script("1:13=0 2:0=3", {1, 2});
    const auto records = recordRows(file, source(), lists, false);
    const auto phrases = phraseRows(file, source(), true);
    const std::string text = overviewText(records, phrases);
    EXPECT_TRUE(text.starts_with("Запись\tКогда\tЧто делает\tГоворит\tЗамечаний\tЗамечания\n1\t"));
    EXPECT_NE(text.find("\tфраза 0: «Фраза 0»\t0\t\n2\t"), std::string::npos) << text;
    EXPECT_NE(text.find("\n\nФраза\tТекст\tДлина\tГоворят записи\n0\tФраза 0\t7/240\t1\n"),
              std::string::npos);
    EXPECT_NE(text.find("\n5\tФраза 5\t7/240\t-\n"), std::string::npos);
    const std::string json = overviewJson(records, phrases);
    EXPECT_TRUE(json.starts_with("{\"records\":[{\"record\":1,\"empty\":false,\"when\":"));
    EXPECT_NE(json.find("\"findings\":[{\"field\":0,\"severity\":\"warning\",\"message\":"),
              std::string::npos);
    EXPECT_NE(json.find("],\"phrases\":[{\"phrase\":0,\"text\":\"Фраза 0\",\"length\":7,"
                        "\"limit\":240,\"present\":true,\"spokenBy\":[1]}"),
              std::string::npos);
    const std::string page = overviewHtml("Обзор <053>", records, phrases);
    EXPECT_NE(page.find("<title>Обзор &lt;053&gt;</title>"), std::string::npos);
    EXPECT_NE(page.find("<div class=\"remark\">FireMode: №_3 (возможны"), std::string::npos);
    EXPECT_NE(page.find("<tr class=\"unspoken\"><td>5</td><td>Фраза 5</td>"), std::string::npos);
}

} // namespace
