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
    session.cursor().setPosition(5);
    session.pasteRecord(); // nothing copied yet: no step
    session.cursor().setPosition(2);
    session.copyRecord();
    session.cursor().setPosition(5);
    session.pasteRecord(); // step 1: record 5 gets record 2
    session.cursor().setPosition(2);
    session.deleteRecord(false); // step 2: record 2 wiped
    session.deleteRecord(false); // already empty: no step
    EXPECT_EQ(changedState.count(), 1);

    session.undo(); // record 2 comes back
    EXPECT_EQ(*session.cursor().currentRecord(), kNeutralRecord);
    session.undo(); // record 5 is empty again: the loaded bytes
    EXPECT_EQ(session.cursor().position(), 5) << "undo shows the record it changed";
    EXPECT_EQ(*session.cursor().currentRecord(), kEmptyRecord);
    EXPECT_FALSE(changed());
    EXPECT_FALSE(session.document().canUndo());
    EXPECT_TRUE(session.queryClose()) << "no save question after undoing everything";

    session.redo();
    EXPECT_EQ(session.cursor().position(), 5) << "redo shows the record it changes";
    prompts.answers = {Answer::No};
    session.flows().newScript(); // a new document starts without history
    EXPECT_FALSE(session.document().canUndo());
}

TEST_F(SessionTest, PositionStepsAndSearches) {
    ASSERT_TRUE(session.flows().openPath(write("p.npc", testutil::script({7, 12})).toStdString()));
    const struct {
        int from;
        std::function<void()> move;
        int to;
    } steps[] = {
        {49, [&] { session.cursor().nextRecord(); }, 50},
        {1, [&] { session.cursor().previousRecord(); }, 1},
        {30, [&] { session.cursor().firstRecord(); }, 7},
        {1, [&] { session.cursor().lastRecord(); }, 12},
        {45, [&] { session.cursor().stepRecords(5); }, 50},
        {6, [&] { session.cursor().stepRecords(-5); }, 1},
    };
    for (const auto& s : steps) {
        session.cursor().setPosition(s.from);
        s.move();
        EXPECT_EQ(session.cursor().position(), s.to) << s.from;
    }
    session.flows().newScript(); // nothing filled: first and last beep and stay
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
    const struct {
        std::function<void()> act;
        QString position;
        FieldMark mark;
        int markedByte;
    } steps[] = {
        {[&] { session.cursor().hover(31); }, "01:32 (29-32 as Bytes)", FieldMark::Hover, 31},
        {[&] { session.cursor().press(12, false); }, "01:32 (29-32 as Bytes)", FieldMark::Hover,
         31}, // a left click without a pin
        {[&] { session.cursor().hover(12); }, "01:13 (13 as Byte)", FieldMark::Hover, 12},
        {[&] { session.cursor().press(12, true); }, "01:13 (13 as Byte)", FieldMark::Pinned, 12},
        {[&] { session.cursor().hover(20); }, "01:13 (13 as Byte)", FieldMark::Pinned, 12},
        {[&] { session.cursor().nextRecord(); }, "02:13 (13 as Byte)", FieldMark::Pinned, 12},
        {[&] { session.cursor().press(21, false); }, "02:22 (21-22 as Word)", FieldMark::Pinned,
         21},
        {[&] { session.cursor().press(5, true); }, "02:06 (05-06 as Word)", FieldMark::Hover, 5},
    };
    for (const auto& s : steps) {
        s.act();
        EXPECT_EQ(session.cursor().positionText(), s.position);
        EXPECT_EQ(session.cursor().mark(), s.mark) << s.position.toStdString();
        EXPECT_EQ(session.cursor().markedByte(), s.markedByte) << s.position.toStdString();
    }
    session.cursor().press(12, true);
    session.cursor().press(12, false);
    EXPECT_EQ(session.cursor().explanation().text,
              "Запись сработает только если уровень лидерства "
              "говорящего с НПЦ наемника будет не меньше чем 50");
}

} // namespace
} // namespace sessiontest
