// Record edits, undo and redo, the position and the field shown.
#include "sessiontest.h"

#include <QSignalSpy>

namespace sessiontest {
namespace {

using parlex::kEmptyRecord;
using parlex::kNeutralRecord;
using parlex::session::FieldMark;

TEST_F(SessionTest, UndoAndRedoAcrossWipeAndPasteBackToUnchanged) {
    ASSERT_TRUE(session.openPath(write("u.npc", testutil::script({2})).toStdString()));
    QSignalSpy changedState(&session, &Session::changedStateChanged);
    QSignalSpy records(&session, &Session::recordChanged);

    session.setPosition(2);
    session.copyRecord();
    session.setPosition(5);
    session.pasteRecord(); // step 1: record 5 gets record 2
    session.setPosition(2);
    session.deleteRecord(false); // step 2: record 2 wiped
    session.deleteRecord(false); // already empty: no step
    EXPECT_TRUE(changed());
    EXPECT_EQ(records.count(), 2);
    EXPECT_EQ(changedState.count(), 1);

    session.undo(); // record 2 comes back
    EXPECT_EQ(*session.currentRecord(), kNeutralRecord);
    session.undo(); // record 5 is empty again: the loaded bytes
    EXPECT_EQ(session.position(), 5) << "undo shows the record it changed";
    EXPECT_EQ(*session.currentRecord(), kEmptyRecord);
    EXPECT_FALSE(changed());
    EXPECT_EQ(changedState.count(), 2);
    EXPECT_FALSE(session.canUndo());
    EXPECT_TRUE(session.queryClose()) << "no save question after undoing everything";

    session.redo();
    session.redo();
    EXPECT_EQ(session.position(), 2);
    EXPECT_EQ(*session.currentRecord(), kEmptyRecord);
    EXPECT_TRUE(changed());
    EXPECT_FALSE(session.canRedo());
    session.undo();
    session.deleteRecord(false); // a new step drops the redo tail
    EXPECT_FALSE(session.canRedo());
    prompts.answers = {Answer::No};
    EXPECT_TRUE(session.queryClose());
}

TEST_F(SessionTest, HistoryIsEmptiedWhenTheDocumentIsReplaced) {
    const QString a = write("a.npc", testutil::script({1}));
    struct Case {
        const char* name;
        std::function<void()> replace;
    } cases[] = {
        {"open",
         [&] {
             prompts.answers = {Answer::No};
             prompts.choose(a);
             session.open();
         }},
        {"new",
         [&] {
             prompts.answers = {Answer::No};
             session.newScript();
         }},
        {"save as",
         [&] {
             prompts.choose(path("s.npc"));
             session.saveAs();
         }},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(session.openPath(a.toStdString()));
        session.setPosition(2);
        session.deleteRecord(true);
        session.setPosition(3);
        session.deleteRecord(true);
        ASSERT_TRUE(session.canUndo()) << c.name;
        QSignalSpy history(&session, &Session::historyChanged);
        c.replace();
        EXPECT_FALSE(session.canUndo()) << c.name;
        EXPECT_FALSE(session.canRedo()) << c.name;
        EXPECT_GE(history.count(), 1) << c.name;
    }
}

TEST_F(SessionTest, RecordCommandsNeedARecordAndPasteNeedsTheBuffer) {
    ASSERT_TRUE(session.openPath(write("ja.npc", testutil::jaBytes()).toStdString()));
    session.setPosition(50); // a "ja" script has no record there
    EXPECT_EQ(session.currentRecord(), nullptr);
    for (auto command : {&Session::copyRecord, &Session::pasteRecord, &Session::undo})
        (session.*command)();
    session.deleteRecord(true);
    EXPECT_FALSE(session.recordBuffer().isFilled());
    EXPECT_FALSE(changed());
    session.setPosition(3);
    session.pasteRecord(); // nothing copied yet
    EXPECT_FALSE(changed());
    session.copyRecord();
    session.setPosition(4);
    session.pasteRecord();
    EXPECT_EQ(*session.currentRecord(), *session.recordBuffer().record());
    EXPECT_TRUE(changed());
}

TEST_F(SessionTest, PositionStepsAndSearches) {
    ASSERT_TRUE(session.openPath(write("p.npc", testutil::script({7, 12})).toStdString()));
    struct Step {
        int from;
        void (Session::*move)();
        int to;
    } steps[] = {
        {1, &Session::nextRecord, 2},     {50, &Session::nextRecord, 50},
        {1, &Session::previousRecord, 1}, {30, &Session::previousRecord, 29},
        {30, &Session::firstRecord, 7},   {1, &Session::lastRecord, 12},
    };
    for (const auto& s : steps) {
        session.setPosition(s.from);
        (session.*s.move)();
        EXPECT_EQ(session.position(), s.to) << s.from;
    }
    const std::pair<int, int> forward[] = {{44, 49}, {45, 50}, {46, 50}};
    for (auto [from, to] : forward) {
        session.setPosition(from);
        session.stepRecords(5);
        EXPECT_EQ(session.position(), to) << from;
    }
    const std::pair<int, int> back[] = {{5, 1}, {6, 1}, {7, 2}};
    for (auto [from, to] : back) {
        session.setPosition(from);
        session.stepRecords(-5);
        EXPECT_EQ(session.position(), to) << from;
    }
    // Nothing filled: first and last beep and stay.
    session.newScript();
    session.setPosition(7);
    session.firstRecord();
    session.lastRecord();
    EXPECT_EQ(session.position(), 7);
    EXPECT_EQ(prompts.beeps, 2);
}

TEST_F(SessionTest, HoverPinAndThePositionText) {
    auto bytes = testutil::script({1, 2});
    bytes[32 + 12] = 50; // leadership 50 in record 2
    ASSERT_TRUE(session.openPath(write("h.npc", bytes).toStdString()));
    EXPECT_EQ(session.positionText(), QString("01:01 (01-02 as Word)"));
    struct Step {
        const char* what;
        std::function<void()> act;
        QString position;
        FieldMark mark;
        int markedByte;
        bool pinned;
    } steps[] = {
        {"hover 3", [&] { session.hover(3); }, "01:04 (03-04 as Word)", FieldMark::Hover, 3, false},
        {"hover 31", [&] { session.hover(31); }, "01:32 (29-32 as Bytes)", FieldMark::Hover, 31,
         false},
        {"left click without pin", [&] { session.press(12, false); }, "01:32 (29-32 as Bytes)",
         FieldMark::Hover, 31, false},
        {"hover 12", [&] { session.hover(12); }, "01:13 (13 as Byte)", FieldMark::Hover, 12, false},
        {"right click pins", [&] { session.press(12, true); }, "01:13 (13 as Byte)",
         FieldMark::Pinned, 12, true},
        {"hover while pinned", [&] { session.hover(20); }, "01:13 (13 as Byte)", FieldMark::Pinned,
         12, true},
        {"next record keeps the pin", [&] { session.nextRecord(); }, "02:13 (13 as Byte)",
         FieldMark::Pinned, 12, true},
        {"left click moves the pin", [&] { session.press(21, false); }, "02:22 (21-22 as Word)",
         FieldMark::Pinned, 21, true},
        {"right click frees it", [&] { session.press(5, true); }, "02:06 (05-06 as Word)",
         FieldMark::Hover, 5, false},
    };
    for (const auto& s : steps) {
        s.act();
        EXPECT_EQ(session.positionText(), s.position) << s.what;
        EXPECT_EQ(session.mark(), s.mark) << s.what;
        EXPECT_EQ(session.markedByte(), s.markedByte) << s.what;
        EXPECT_EQ(session.isPinned(), s.pinned) << s.what;
    }
    session.press(12, true);
    session.press(12, false);
    EXPECT_EQ(session.explanation().text, "Запись сработает только если уровень лидерства "
                                          "говорящего с НПЦ наемника будет не меньше чем 50");
}

TEST_F(SessionTest, PositionFiftyOfAJaScriptKeepsThePositionText) {
    ASSERT_TRUE(session.openPath(write("ja.npc", testutil::jaBytes()).toStdString()));
    session.setPosition(48);
    session.hover(3);
    EXPECT_EQ(session.positionText(), QString("48:04 (03-04 as Word)"));
    QSignalSpy shown(&session, &Session::fieldShown);
    session.stepRecords(5); // 48 -> 50
    EXPECT_EQ(session.position(), 50);
    EXPECT_EQ(session.currentRecord(), nullptr);
    EXPECT_EQ(session.mark(), FieldMark::None);
    EXPECT_FALSE(session.shownField().has_value());
    EXPECT_EQ(session.explanation().text, "Запись не существует");
    EXPECT_TRUE(session.explanation().alert);
    EXPECT_EQ(session.positionText(), QString("48:04 (03-04 as Word)"))
        << "a position without a record leaves the position text as it was";
    EXPECT_GE(shown.count(), 1);
    session.hover(7); // the mouse over the empty grid changes nothing
    EXPECT_EQ(session.positionText(), QString("48:04 (03-04 as Word)"));
    session.previousRecord();
    EXPECT_EQ(session.positionText(), QString("49:04 (03-04 as Word)"));
}

TEST_F(SessionTest, EditsRepaintTheFieldShown) {
    ASSERT_TRUE(session.openPath(write("e.npc", testutil::script({})).toStdString()));
    session.hover(12);
    EXPECT_EQ(session.explanation().text, "Запись пустая");
    QSignalSpy shown(&session, &Session::fieldShown);
    session.deleteRecord(true);
    EXPECT_EQ(shown.count(), 1);
    EXPECT_NE(session.explanation().text, "Запись пустая");
    EXPECT_EQ(session.positionText(), QString("01:13 (13 as Byte)"));
    // An edit of another record does not touch what is shown.
    EXPECT_TRUE(session.editRecord(9, kNeutralRecord));
    EXPECT_EQ(shown.count(), 1);
    EXPECT_FALSE(session.editRecord(9, kNeutralRecord)) << "the same bytes again are no edit";
    EXPECT_FALSE(session.editRecord(50, kNeutralRecord)) << "no record 51";
}

} // namespace
} // namespace sessiontest
