// The byte editor's model: opening, the field chooser, Replace and Apply.
#include "session/byteeditor.h"
#include "sessiontest.h"

namespace sessiontest {
namespace {

using parlex::FieldWidth;
using parlex::kNeutralRecord;
using parlex::session::ByteEditor;
using parlex::session::FieldMark;
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

TEST_F(ByteEditorTest, TheMainWindowFollowsTheChosenFieldAsItWasWorking) {
    for (bool pinned : {false, true}) {
        session.cursor().hover(3);
        if (pinned)
            session.cursor().press(3, true);
        ByteEditor editor = *ByteEditor::open(session, 3);
        editor.selectRow(16);
        EXPECT_EQ(session.cursor().mark(), pinned ? FieldMark::Pinned : FieldMark::Hover);
        EXPECT_EQ(session.cursor().positionText(), "05:21 (21-22 as Word)");
        const std::string before = session.cursor().explanation().text;
        ASSERT_TRUE(put(editor, 16, "5"));
        ASSERT_TRUE(editor.apply());
        EXPECT_NE(session.cursor().explanation().text, before)
            << "the explanation follows the bytes";
        session.undo();
        if (pinned)
            session.cursor().press(3, true);
    }
}

} // namespace
} // namespace sessiontest
