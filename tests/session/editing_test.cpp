// Record edits, undo and redo, the position and the field shown.
#include "sessiontest.h"

#include <QSignalSpy>

namespace sessiontest {
namespace {

using parlex::kEmptyRecord;
using parlex::kNeutralRecord;
using parlex::session::FieldMark;
using parlex::session::RecordCursor;
using parlex::session::ScriptDocument;

TEST_F(SessionTest, UndoAndRedoAcrossWipeAndPasteBackToUnchanged) {
    ASSERT_TRUE(session.flows().openPath(write("u.npc", testutil::script({2})).toStdString()));
    QSignalSpy changedState(&session.document(), &ScriptDocument::changedStateChanged);
    QSignalSpy records(&session.document(), &ScriptDocument::recordChanged);

    session.cursor().setPosition(2);
    session.copyRecord();
    session.cursor().setPosition(5);
    session.pasteRecord(); // step 1: record 5 gets record 2
    session.cursor().setPosition(2);
    session.deleteRecord(false); // step 2: record 2 wiped
    session.deleteRecord(false); // already empty: no step
    EXPECT_TRUE(changed());
    EXPECT_EQ(records.count(), 2);
    EXPECT_EQ(changedState.count(), 1);

    session.undo(); // record 2 comes back
    EXPECT_EQ(*session.cursor().currentRecord(), kNeutralRecord);
    session.undo(); // record 5 is empty again: the loaded bytes
    EXPECT_EQ(session.cursor().position(), 5) << "undo shows the record it changed";
    EXPECT_EQ(*session.cursor().currentRecord(), kEmptyRecord);
    EXPECT_FALSE(changed());
    EXPECT_EQ(changedState.count(), 2);
    EXPECT_FALSE(session.document().canUndo());
    EXPECT_TRUE(session.queryClose()) << "no save question after undoing everything";

    session.redo();
    session.redo();
    EXPECT_EQ(session.cursor().position(), 2);
    EXPECT_EQ(*session.cursor().currentRecord(), kEmptyRecord);
    EXPECT_TRUE(changed());
    EXPECT_FALSE(session.document().canRedo());
    session.undo();
    session.deleteRecord(false); // a new step drops the redo tail
    EXPECT_FALSE(session.document().canRedo());
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
             session.flows().open();
         }},
        {"new",
         [&] {
             prompts.answers = {Answer::No};
             session.flows().newScript();
         }},
        {"save as",
         [&] {
             prompts.choose(path("s.npc"));
             session.flows().saveAs();
         }},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(session.flows().openPath(a.toStdString()));
        session.cursor().setPosition(2);
        session.deleteRecord(true);
        session.cursor().setPosition(3);
        session.deleteRecord(true);
        ASSERT_TRUE(session.document().canUndo()) << c.name;
        QSignalSpy history(&session.document(), &ScriptDocument::historyChanged);
        c.replace();
        EXPECT_FALSE(session.document().canUndo()) << c.name;
        EXPECT_FALSE(session.document().canRedo()) << c.name;
        EXPECT_GE(history.count(), 1) << c.name;
    }
}

TEST_F(SessionTest, RecordCommandsNeedARecordAndPasteNeedsTheBuffer) {
    ASSERT_TRUE(session.flows().openPath(write("ja.npc", testutil::jaBytes()).toStdString()));
    session.cursor().setPosition(50); // a "ja" script has no record there
    EXPECT_EQ(session.cursor().currentRecord(), nullptr);
    for (auto command : {&Session::copyRecord, &Session::pasteRecord, &Session::undo})
        (session.*command)();
    session.deleteRecord(true);
    EXPECT_FALSE(session.document().buffer().isFilled());
    EXPECT_FALSE(changed());
    session.cursor().setPosition(3);
    session.pasteRecord(); // nothing copied yet
    EXPECT_FALSE(changed());
    session.copyRecord();
    session.cursor().setPosition(4);
    session.pasteRecord();
    EXPECT_EQ(*session.cursor().currentRecord(), *session.document().buffer().record());
    EXPECT_TRUE(changed());
}

TEST_F(SessionTest, PositionStepsAndSearches) {
    ASSERT_TRUE(session.flows().openPath(write("p.npc", testutil::script({7, 12})).toStdString()));
    struct Step {
        int from;
        void (RecordCursor::*move)();
        int to;
    } steps[] = {
        {49, &RecordCursor::nextRecord, 50},   {50, &RecordCursor::nextRecord, 50},
        {1, &RecordCursor::previousRecord, 1}, {30, &RecordCursor::previousRecord, 29},
        {30, &RecordCursor::firstRecord, 7},   {1, &RecordCursor::lastRecord, 12},
    };
    for (const auto& s : steps) {
        session.cursor().setPosition(s.from);
        (session.cursor().*s.move)();
        EXPECT_EQ(session.cursor().position(), s.to) << s.from;
    }
    const std::pair<int, int> forward[] = {{44, 49}, {45, 50}, {46, 50}};
    for (auto [from, to] : forward) {
        session.cursor().setPosition(from);
        session.cursor().stepRecords(5);
        EXPECT_EQ(session.cursor().position(), to) << from;
    }
    const std::pair<int, int> back[] = {{5, 1}, {6, 1}, {7, 2}};
    for (auto [from, to] : back) {
        session.cursor().setPosition(from);
        session.cursor().stepRecords(-5);
        EXPECT_EQ(session.cursor().position(), to) << from;
    }
    // Nothing filled: first and last beep and stay.
    session.flows().newScript();
    session.cursor().setPosition(7);
    session.cursor().firstRecord();
    session.cursor().lastRecord();
    EXPECT_EQ(session.cursor().position(), 7);
    EXPECT_EQ(prompts.beeps, 2);
}

TEST_F(SessionTest, HoverPinAndThePositionText) {
    auto bytes = testutil::script({1, 2});
    bytes[32 + 12] = 50; // leadership 50 in record 2
    ASSERT_TRUE(session.flows().openPath(write("h.npc", bytes).toStdString()));
    EXPECT_EQ(session.cursor().positionText(), QString("01:01 (01-02 as Word)"));
    struct Step {
        const char* what;
        std::function<void()> act;
        QString position;
        FieldMark mark;
        int markedByte;
        bool pinned;
    } steps[] = {
        {"hover 3", [&] { session.cursor().hover(3); }, "01:04 (03-04 as Word)", FieldMark::Hover,
         3, false},
        {"hover 31", [&] { session.cursor().hover(31); }, "01:32 (29-32 as Bytes)",
         FieldMark::Hover, 31, false},
        {"left click without pin", [&] { session.cursor().press(12, false); },
         "01:32 (29-32 as Bytes)", FieldMark::Hover, 31, false},
        {"hover 12", [&] { session.cursor().hover(12); }, "01:13 (13 as Byte)", FieldMark::Hover,
         12, false},
        {"right click pins", [&] { session.cursor().press(12, true); }, "01:13 (13 as Byte)",
         FieldMark::Pinned, 12, true},
        {"hover while pinned", [&] { session.cursor().hover(20); }, "01:13 (13 as Byte)",
         FieldMark::Pinned, 12, true},
        {"next record keeps the pin", [&] { session.cursor().nextRecord(); }, "02:13 (13 as Byte)",
         FieldMark::Pinned, 12, true},
        {"left click moves the pin", [&] { session.cursor().press(21, false); },
         "02:22 (21-22 as Word)", FieldMark::Pinned, 21, true},
        {"right click frees it", [&] { session.cursor().press(5, true); }, "02:06 (05-06 as Word)",
         FieldMark::Hover, 5, false},
    };
    for (const auto& s : steps) {
        s.act();
        EXPECT_EQ(session.cursor().positionText(), s.position) << s.what;
        EXPECT_EQ(session.cursor().mark(), s.mark) << s.what;
        EXPECT_EQ(session.cursor().markedByte(), s.markedByte) << s.what;
        EXPECT_EQ(session.cursor().isPinned(), s.pinned) << s.what;
    }
    session.cursor().press(12, true);
    session.cursor().press(12, false);
    EXPECT_EQ(session.cursor().explanation().text,
              "Запись сработает только если уровень лидерства "
              "говорящего с НПЦ наемника будет не меньше чем 50");
}

TEST_F(SessionTest, PositionFiftyOfAJaScriptKeepsThePositionText) {
    ASSERT_TRUE(session.flows().openPath(write("ja.npc", testutil::jaBytes()).toStdString()));
    session.cursor().setPosition(48);
    session.cursor().hover(3);
    EXPECT_EQ(session.cursor().positionText(), QString("48:04 (03-04 as Word)"));
    QSignalSpy shown(&session.cursor(), &RecordCursor::fieldShown);
    session.cursor().stepRecords(5); // 48 -> 50
    EXPECT_EQ(session.cursor().position(), 50);
    EXPECT_EQ(session.cursor().currentRecord(), nullptr);
    EXPECT_EQ(session.cursor().mark(), FieldMark::None);
    EXPECT_FALSE(session.cursor().shownField().has_value());
    EXPECT_EQ(session.cursor().explanation().text, "Запись не существует");
    EXPECT_TRUE(session.cursor().explanation().alert);
    EXPECT_EQ(session.cursor().positionText(), QString("48:04 (03-04 as Word)"))
        << "a position without a record leaves the position text as it was";
    EXPECT_GE(shown.count(), 1);
    session.cursor().hover(7); // the mouse over the empty grid changes nothing
    EXPECT_EQ(session.cursor().positionText(), QString("48:04 (03-04 as Word)"));
    session.cursor().previousRecord();
    EXPECT_EQ(session.cursor().positionText(), QString("49:04 (03-04 as Word)"));
}

TEST_F(SessionTest, EditsRepaintTheFieldShown) {
    ASSERT_TRUE(session.flows().openPath(write("e.npc", testutil::script({})).toStdString()));
    session.cursor().hover(12);
    EXPECT_EQ(session.cursor().explanation().text, "Запись пустая");
    QSignalSpy shown(&session.cursor(), &RecordCursor::fieldShown);
    session.deleteRecord(true);
    EXPECT_EQ(shown.count(), 1);
    EXPECT_NE(session.cursor().explanation().text, "Запись пустая");
    EXPECT_EQ(session.cursor().positionText(), QString("01:13 (13 as Byte)"));
    // An edit of another record does not touch what is shown.
    EXPECT_TRUE(session.document().edit(9, kNeutralRecord));
    EXPECT_EQ(shown.count(), 1);
    EXPECT_FALSE(session.document().edit(9, kNeutralRecord)) << "the same bytes again are no edit";
    EXPECT_FALSE(session.document().edit(50, kNeutralRecord)) << "no record 51";
}

} // namespace
} // namespace sessiontest
