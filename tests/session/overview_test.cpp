// The overview's tables in step with every change, telling only the rows that changed.
#include "core/platform/process.h"
#include "core/speech/edtfile.h"
#include "session/overview.h"
#include "sessiontest.h"

#include <QSignalSpy>

namespace sessiontest {
namespace {

using parlex::session::Overview;
using parlex::session::OverviewFilter;

class OverviewTest : public SessionTest {
protected:
    void SetUp() override {
        auto bytes = testutil::script({2, 5});
        bytes[32 + 13] = 3, bytes[32 + 14] = 2; // record 2 says phrases 3-4
        bytes[4 * 32 + 0] = 3;                  // record 5: fire mode 3, a remark
        write("053.npc", bytes);
        auto edt = parlex::EdtFile::makeNew(parlex::EdtKind::NpcDialogues);
        ASSERT_TRUE(edt.setPhrase(3, "Ёжик в тумане"));
        ASSERT_TRUE(edt.saveAs(dir / "053.EDT"));
        session.updateOptions([](auto& o) { o.autoLoad = true; });
        ASSERT_TRUE(session.flows().openPath((dir / "053.npc").string()));
    }
    Overview overview{session.document(), session.speech(), session.codeLists()};
    QStringList positions() {
        QStringList out;
        for (const auto& row : overview.records().rows())
            out << QString::number(row.position);
        return out;
    }
};

TEST_F(OverviewTest, EveryChangeRefreshesOnlyItsRows) {
    EXPECT_EQ(positions(), QStringList({"2", "5"}));
    QSignalSpy changed(&overview.records(), &QAbstractItemModel::dataChanged);
    QSignalSpy reset(&overview.records(), &QAbstractItemModel::modelReset);
    session.cursor().setPosition(5);
    session.deleteRecord(true); // the remark is gone: row 5 changes, alone
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    session.deleteRecord(false); // empty: its row goes
    session.cursor().setPosition(2);
    session.copyRecord();
    session.cursor().setPosition(9);
    session.pasteRecord(); // a new row in its place
    EXPECT_EQ(positions(), QStringList({"2", "9"}));
    session.undo();
    session.undo();
    EXPECT_EQ(positions(), QStringList({"2", "5"}));
    EXPECT_EQ(reset.count(), 0) << "edits and undo never redraw the whole table";
    overview.setWithEmpty(true);
    EXPECT_EQ(overview.records().rowCount(), 50);
}

TEST_F(OverviewTest, AConversionReadBackOrAnotherScriptRebuildsEveryRow) {
    QSignalSpy reset(&overview.records(), &QAbstractItemModel::modelReset);
    prompts.choose(path("053.npc"));    // the open file...
    prompts.choose(path("053.npc"), 1); // ...into the "ja" layout, then read back
    prompts.answers = {Answer::Yes};
    session.flows().convertLayout();
    EXPECT_EQ(session.script()->type(), parlex::NpcFileType::Ja);
    EXPECT_EQ(reset.count(), 1);
    EXPECT_EQ(positions(), QStringList({"2", "5"}));
    ASSERT_TRUE(session.flows().openPath(write("other.npc", testutil::script({7})).toStdString()));
    EXPECT_EQ(positions(), QStringList({"7"}));
}

TEST_F(OverviewTest, PhrasesFollowTheSpeechFileAndTheRecords) {
    const auto& records = overview.records();
    EXPECT_EQ(records.rows()[0].says, "фразы 3-4: «Ёжик в тумане»");
    EXPECT_EQ(records.rows()[0].findings.size(), 1u) << "phrase 4 is empty";
    auto& phrases = overview.phrases();
    ASSERT_EQ(phrases.rowCount(), 2); // 3 (filled and spoken) and 4 (spoken)
    EXPECT_EQ(phrases.index(1, 0).data(parlex::session::SeverityRole).toInt(), 2);
    QSignalSpy phraseChanged(&phrases, &QAbstractItemModel::dataChanged);
    session.speech().showPhrase(4);
    session.speech().editPhrase("Четыре");
    EXPECT_EQ(phraseChanged.count(), 1);
    EXPECT_TRUE(records.rows()[0].findings.empty()) << "the record's row follows the phrase";
    EXPECT_EQ(phrases.index(1, 1).data().toString(), "Четыре");
}

TEST_F(OverviewTest, TheHtmlPageIsSavedWhereChosenOrTheFailureTold) {
    testutil::writeText(dir / "plain", "x"); // a file where a folder is expected
    prompts.choose(path("plain/o.html"));
    EXPECT_FALSE(overview.saveHtml(prompts));
    EXPECT_TRUE(prompts.messages.at(0).text.contains("plain")) << "the failure is told";
    prompts.choose(path("o")); // typed without an extension
    EXPECT_TRUE(overview.saveHtml(prompts));
    EXPECT_EQ(prompts.requests.back().proposedName, "053.html");
    EXPECT_TRUE(testutil::readText(dir / "o.html").contains("Ёжик в тумане"));
}

// The rows say what parlex-cli lint and find --phrase say of the same files.
TEST_F(OverviewTest, TheRowsAgreeWithLintAndFindOnTheCommandLine) {
    const auto cli = [&](std::vector<std::string> args) {
        const parlex::platform::ProgramOutput to{dir / "out.txt", {}};
        EXPECT_TRUE(parlex::platform::runProgram(PARLEX_CLI, args, to));
        return QString::fromStdString(testutil::readText(dir / "out.txt"))
            .split('\n', Qt::SkipEmptyParts);
    };
    const std::string script = (dir / "053.npc").string(), lists = dir.path().string();
    QStringList findings, speakers;
    for (const auto& row : overview.records().rows())
        for (const auto& f : row.findings)
            findings << QString::fromStdString(parlex::mod::formatFinding(f));
    EXPECT_EQ(findings.size(), 2);
    EXPECT_EQ(findings, cli({"lint", script, "--lists", lists}));
    for (const auto& row : overview.phrases().rows())
        if (row.number == 3)
            for (const int position : row.spokenBy)
                speakers << QString::fromStdString(script + ":" + std::to_string(position) +
                                                   ":13:");
    const QStringList found = cli({"find", script, "--phrase", "3", "--lists", lists});
    ASSERT_EQ(found.size(), 1);
    ASSERT_EQ(speakers.size(), 1);
    for (int i = 0; i < found.size(); ++i)
        EXPECT_TRUE(found[i].startsWith(speakers[i])) << found[i].toStdString();
}

TEST_F(OverviewTest, TheFilterTakesWordsInAnyCaseAndMarkedRows) {
    OverviewFilter filter;
    filter.setSourceModel(&overview.records());
    // Words typed, only rows with something to see, the rows left.
    const std::tuple<QString, bool, int> cases[] = {
        {"", false, 2},         {"ЕЖИК", false, 1}, {"ёжик тумане", false, 1},
        {"ёжик №_3", false, 0}, {"", true, 2},      {"возможны", true, 1},
    };
    for (const auto& [words, marked, rows] : cases) {
        filter.setWords(words);
        filter.setOnlyMarked(marked);
        EXPECT_EQ(filter.rowCount(), rows) << words.toStdString() << " " << marked;
    }
}

} // namespace
} // namespace sessiontest
