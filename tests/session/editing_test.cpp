// Record edits, undo and redo, the position and the field shown, and the byte
// editor's model: opening, the field chooser, Replace and Apply.
#include "session/byteeditor.h"
#include "sessiontest.h"

#include <QSignalSpy>

namespace sessiontest {
namespace {

using parlex::FieldWidth;
using parlex::kEmptyRecord;
using parlex::kNeutralRecord;
using parlex::session::FieldMark;
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
    EXPECT_FALSE(changed() || session.document().canUndo());
    EXPECT_TRUE(session.queryClose()) << "no save question after undoing everything";

    session.redo();
    EXPECT_EQ(session.cursor().position(), 5) << "redo shows the record it changes";
    prompts.answers = {Answer::No};
    session.flows().newScript(); // a new document starts without history
    EXPECT_FALSE(session.document().canUndo());
}

TEST_F(SessionTest, PositionStepsAndSearches) {
    ASSERT_TRUE(session.flows().openPath(write("p.npc", testutil::script({7, 12})).toStdString()));
    auto& cursor = session.cursor();
    // From a position, a move, the position reached.
    const std::tuple<int, std::function<void()>, int> steps[] = {
        {49, [&] { cursor.nextRecord(); }, 50},   {1, [&] { cursor.previousRecord(); }, 1},
        {30, [&] { cursor.firstRecord(); }, 7},   {1, [&] { cursor.lastRecord(); }, 12},
        {45, [&] { cursor.stepRecords(5); }, 50}, {6, [&] { cursor.stepRecords(-5); }, 1},
    };
    for (const auto& [from, move, to] : steps) {
        cursor.setPosition(from);
        move();
        EXPECT_EQ(cursor.position(), to) << from;
    }
    session.flows().newScript(); // nothing filled: first and last beep and stay
    cursor.setPosition(7);
    cursor.firstRecord();
    cursor.lastRecord();
    EXPECT_EQ(std::pair(cursor.position(), prompts.beeps), std::pair(7, 2));
}

TEST_F(SessionTest, HoverPinAndThePositionText) {
    auto bytes = testutil::script({1, 2});
    bytes[32 + 12] = 50; // leadership 50 in record 2
    ASSERT_TRUE(session.flows().openPath(write("h.npc", bytes).toStdString()));
    auto& c = session.cursor();
    constexpr auto Hover = FieldMark::Hover, Pinned = FieldMark::Pinned;
    // What the mouse does; the position text, the mark and the byte marked after it.
    const std::tuple<std::function<void()>, QString, FieldMark, int> steps[] = {
        {[&] { c.hover(31); }, "01:32 (29-32 as Bytes)", Hover, 31},
        {[&] { c.press(12, false); }, "01:32 (29-32 as Bytes)", Hover, 31}, // no pin to move
        {[&] { c.hover(12); }, "01:13 (13 as Byte)", Hover, 12},
        {[&] { c.press(12, true); }, "01:13 (13 as Byte)", Pinned, 12},
        {[&] { c.hover(20); }, "01:13 (13 as Byte)", Pinned, 12},
        {[&] { c.nextRecord(); }, "02:13 (13 as Byte)", Pinned, 12},
        {[&] { c.press(21, false); }, "02:22 (21-22 as Word)", Pinned, 21},
        {[&] { c.press(5, true); }, "02:06 (05-06 as Word)", Hover, 5},
    };
    for (const auto& [act, position, mark, markedByte] : steps) {
        act();
        EXPECT_EQ(std::tuple(c.positionText(), c.mark(), c.markedByte()),
                  std::tuple(position, mark, markedByte));
    }
    c.hover(12); // the sentence follows the field shown
    EXPECT_TRUE(c.explanation().text.ends_with("будет не меньше чем 50"));
}

using parlex::session::ByteEditor;
using Encoding = ByteEditor::Encoding;

class ByteEditorTest : public SessionTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(
            session.flows().openPath(write("e.npc", testutil::script({1, 5})).toStdString()));
        session.cursor().setPosition(5);
    }
    // Types `text`, encodes it in the row's mode and replaces; false if refused.
    static bool put(ByteEditor& editor, int row, const std::string& text) {
        editor.selectRow(row);
        editor.setEntry(text);
        if (editor.encode(editor.mode()) != Encoding::Encoded)
            return false;
        editor.replace();
        return true;
    }
};

TEST_F(ByteEditorTest, OpensOnTheFieldOfTheByteOrOfThePositionText) {
    const struct {
        std::optional<int> byte; // none: as "Редактировать" does, from the position text
        int hovered, row;
        const char* caption;
    } cases[] = {
        {5, 5, 2, "Запись 05 : Байты 05-06"}, // the second byte of a Word
        {30, 30, 22, "Запись 05 : Байт 31"},  // bytes 29-32: each its own row
        {std::nullopt, 21, 16, "Запись 05 : Байты 21-22"},
    };
    for (const auto& c : cases) {
        session.cursor().hover(c.hovered);
        const auto editor = ByteEditor::open(session, c.byte);
        ASSERT_TRUE(editor) << c.caption;
        EXPECT_EQ(editor->row(), c.row) << c.caption;
        EXPECT_EQ(editor->caption(), c.caption);
    }
    Session idle{prompts, dir.path()};
    EXPECT_FALSE(ByteEditor::open(idle, 3).has_value()) << "no script, no editor";
}

TEST_F(ByteEditorTest, ReplaceNeedsTheWidthOfTheRowAndApplyADifference) {
    session.cursor().hover(12);
    ByteEditor editor = *ByteEditor::open(session, 12);
    editor.setEntry("10");
    EXPECT_EQ(editor.encode(FieldWidth::Word), Encoding::Ignored) << "the Word button is disabled";
    EXPECT_EQ(editor.encode(FieldWidth::Byte), Encoding::Encoded);
    editor.selectRow(16); // a Word: the Byte text stays but cannot be written
    EXPECT_EQ(editor.encodedText(), "0A");
    EXPECT_FALSE(editor.canReplace());
    editor.setEntry("256");
    editor.selectRow(8);
    EXPECT_EQ(editor.encode(FieldWidth::Byte), Encoding::Refused) << "out of range: a beep";

    ASSERT_TRUE(put(editor, 8, std::to_string(kNeutralRecord[12])));
    EXPECT_FALSE(editor.canApply()) << "the value the field already holds";
    ASSERT_TRUE(put(editor, 1, "258")); // bytes 03-04
    EXPECT_EQ(editor.currentHex(), "02 01");
    ASSERT_TRUE(put(editor, 20, "255")); // byte 29
    EXPECT_FALSE(changed()) << "Replace changes the copy only";
    EXPECT_TRUE(editor.apply());
    auto expected = kNeutralRecord;
    expected[2] = 0x02, expected[3] = 0x01, expected[28] = 0xFF;
    EXPECT_EQ(*session.script()->recordAt(5), expected);
    session.undo(); // two fields and one Apply: one step
    EXPECT_FALSE(changed());
    EXPECT_FALSE(session.document().canUndo());
}

} // namespace
} // namespace sessiontest
