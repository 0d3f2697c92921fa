// The byte editor's model: opening, the field chooser, the entry, Replace and Apply.
#include "session/byteeditor.h"
#include "sessiontest.h"

namespace sessiontest {
namespace {

using parlex::FieldWidth;
using parlex::kNeutralRecord;
using parlex::NpcRecord;
using parlex::session::ByteEditor;
using parlex::session::FieldMark;
using Encoding = ByteEditor::Encoding;

constexpr FieldWidth B = FieldWidth::Byte;
constexpr FieldWidth W = FieldWidth::Word;

class ByteEditorTest : public SessionTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(
            session.flows().openPath(write("e.npc", testutil::script({1, 5})).toStdString()));
        session.cursor().setPosition(5);
    }
    ByteEditor openAt(int byte) {
        session.cursor().hover(byte);
        auto editor = ByteEditor::open(session, byte);
        EXPECT_TRUE(editor.has_value());
        return *editor;
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
    NpcRecord record(int position) const { return *session.script()->recordAt(position); }
};

TEST_F(ByteEditorTest, OpensOnlyOnARecordShown) {
    EXPECT_TRUE(ByteEditor::open(session, 3).has_value());
    session.flows().newScript(); // a new script has records: empty ones
    EXPECT_TRUE(ByteEditor::open(session, 3).has_value());
    ASSERT_TRUE(session.flows().openPath(write("ja.npc", testutil::jaBytes()).toStdString()));
    session.cursor().setPosition(50); // a "ja" script has no record 50
    EXPECT_FALSE(ByteEditor::open(session, 3).has_value());
    Session idle{prompts, dir.path()};
    EXPECT_FALSE(ByteEditor::open(idle, 3).has_value());
}

TEST_F(ByteEditorTest, OpensOnTheFieldOfTheByteOrOfThePositionText) {
    const struct {
        std::optional<int> byte; // none: as "Редактировать" does, from the position text
        int hovered;
        int row;
        int field;
        FieldWidth mode;
        const char* caption;
    } cases[] = {
        {5, 5, 2, 4, W, "Запись 05 : Байты 05-06"},     // the second byte of a Word
        {24, 24, 18, 24, W, "Запись 05 : Байты 25-26"}, // both bytes of a Word: one row
        {25, 25, 18, 24, W, "Запись 05 : Байты 25-26"},
        {30, 30, 22, 30, B, "Запись 05 : Байт 31"}, // bytes 29-32: each its own row
        {12, 12, 8, 12, B, "Запись 05 : Байт 13"},
        {std::nullopt, 21, 16, 20, W, "Запись 05 : Байты 21-22"},
    };
    for (const auto& c : cases) {
        session.cursor().hover(c.hovered);
        const auto editor = ByteEditor::open(session, c.byte);
        ASSERT_TRUE(editor) << c.caption;
        EXPECT_EQ(editor->row(), c.row) << c.caption;
        EXPECT_EQ(editor->field(), c.field) << c.caption;
        EXPECT_EQ(editor->mode(), c.mode) << c.caption;
        EXPECT_EQ(editor->caption(), c.caption);
        EXPECT_EQ(editor->helpField(), std::min(c.field, 28));
    }
}

TEST_F(ByteEditorTest, TheEntryIsCheckedAgainstTheModeOfItsField) {
    ByteEditor editor = openAt(12); // a Byte
    const struct {
        int row; // -1: stay
        const char* text;
        bool accepted;
        const char* entry;
        bool red;
    } steps[] = {
        {-1, "300", true, "300", true},
        {16, "300", true, "300", false}, // a Word row takes it, without a key press
        {8, "300", true, "300", true},
        {-1, "", true, "", true},         // emptied: the colour stays
        {-1, "25", true, "25", false},    // the next digit sets it anew
        {-1, "abc", false, "", false},    // no number: refused and emptied
        {-1, "+5", true, "+5", true},     // a number, but not plain digits: red
        {-1, "0255", true, "0255", true}, // too long for a Byte
        {16, "000255", true, "000255", true},
    };
    for (const auto& s : steps) {
        if (s.row >= 0)
            editor.selectRow(s.row);
        EXPECT_EQ(editor.setEntry(s.text), s.accepted) << s.text;
        EXPECT_EQ(editor.entry(), s.entry) << s.text;
        EXPECT_EQ(editor.entryOutOfRange(), s.red) << s.text;
    }
}

TEST_F(ByteEditorTest, EncodingFollowsTheModeAndReplaceTheWidth) {
    ByteEditor editor = openAt(12);
    EXPECT_FALSE(editor.canReplace());
    EXPECT_EQ(editor.encode(B), Encoding::Refused) << "nothing typed";
    editor.setEntry("10");
    EXPECT_EQ(editor.encode(W), Encoding::Ignored) << "the Word button is disabled";
    EXPECT_EQ(editor.encode(B), Encoding::Encoded);
    EXPECT_EQ(editor.encodedText(), "0A");
    EXPECT_TRUE(editor.canReplace());

    editor.selectRow(16); // a Word: the Byte text stays but cannot be written
    EXPECT_EQ(editor.mode(), W);
    EXPECT_EQ(editor.encodedText(), "0A");
    EXPECT_FALSE(editor.canReplace());
    EXPECT_EQ(editor.encode(W), Encoding::Encoded);
    EXPECT_EQ(editor.encodedText(), "0A 00");
    EXPECT_TRUE(editor.canReplace());
    editor.selectRow(21);
    EXPECT_FALSE(editor.canReplace());

    editor.setEntry("256"); // red on a Byte row: only a beep, the old text stays
    EXPECT_EQ(editor.encode(B), Encoding::Refused);
    EXPECT_EQ(editor.encodedText(), "0A 00");
    editor.setEntry("+5");
    editor.selectRow(0);
    EXPECT_EQ(editor.encode(W), Encoding::Refused) << "never encoded, whatever the mode";
}

TEST_F(ByteEditorTest, ApplyIsPossibleExactlyWhileTheCopyDiffers) {
    ByteEditor editor = openAt(12);
    const auto old = std::to_string(kNeutralRecord[12]);
    ASSERT_TRUE(put(editor, 8, old));
    EXPECT_FALSE(editor.canApply()) << "the value the field already holds";
    ASSERT_TRUE(put(editor, 8, "7"));
    EXPECT_TRUE(editor.canApply());
    EXPECT_EQ(editor.currentHex(), "07") << "the copy shows the new value before Apply";
    EXPECT_EQ(record(5)[12], kNeutralRecord[12]);
    ASSERT_TRUE(put(editor, 8, old));
    EXPECT_FALSE(editor.canApply()) << "replaced back to what the record holds";
}

TEST_F(ByteEditorTest, TwoFieldsAndOneApplyMakeOneStepOfUndo) {
    ByteEditor editor = openAt(0);
    ASSERT_TRUE(put(editor, 1, "258")); // bytes 03-04
    EXPECT_EQ(editor.currentHex(), "02 01");
    EXPECT_EQ(editor.currentValue(), 258u);
    ASSERT_TRUE(put(editor, 20, "255")); // byte 29
    EXPECT_FALSE(changed()) << "Replace changes the copy only";
    EXPECT_TRUE(editor.apply());
    EXPECT_FALSE(editor.canApply());
    EXPECT_FALSE(editor.apply()) << "nothing more to apply";
    NpcRecord expected = kNeutralRecord;
    expected[2] = 0x02, expected[3] = 0x01, expected[28] = 0xFF;
    EXPECT_EQ(record(5), expected);
    EXPECT_EQ(record(1), kNeutralRecord);
    EXPECT_TRUE(changed());
    session.undo();
    EXPECT_EQ(record(5), kNeutralRecord);
    EXPECT_FALSE(changed());
    EXPECT_FALSE(session.document().canUndo());
}

TEST_F(ByteEditorTest, ReplaceWithoutApplyLeavesTheDocumentAlone) {
    {
        ByteEditor editor = openAt(20);
        ASSERT_TRUE(put(editor, 16, "1000"));
        EXPECT_TRUE(editor.canApply());
    } // closed without Apply
    EXPECT_EQ(record(5), kNeutralRecord);
    EXPECT_FALSE(changed());
    EXPECT_FALSE(session.document().canUndo());
    EXPECT_TRUE(session.queryClose());
}

TEST_F(ByteEditorTest, TheMainWindowFollowsTheChosenFieldAsItWasWorking) {
    for (bool pinned : {false, true}) {
        session.cursor().hover(3);
        if (pinned)
            session.cursor().press(3, true);
        ByteEditor editor = *ByteEditor::open(session, 3);
        editor.selectRow(16);
        EXPECT_EQ(session.cursor().mark(), pinned ? FieldMark::Pinned : FieldMark::Hover);
        EXPECT_EQ(session.cursor().markedByte(), 20);
        EXPECT_EQ(session.cursor().positionText(), "05:21 (21-22 as Word)");
        const std::string before = session.cursor().explanation().text;
        ASSERT_TRUE(put(editor, 16, "5"));
        EXPECT_EQ(session.cursor().explanation().text, before)
            << "Replace alone changes nothing shown";
        ASSERT_TRUE(editor.apply());
        EXPECT_NE(session.cursor().explanation().text, before)
            << "the explanation follows the bytes";
        session.undo();
        if (pinned)
            session.cursor().press(3, true);
    }
}

TEST_F(ByteEditorTest, TheTypedNumberIsNamedFromTheFieldsList) {
    ByteEditor editor = openAt(4); // bytes 05-06: a trigger
    editor.setEntry("1");
    EXPECT_EQ(editor.entryMeaning(), "Драссен освобожден");
    editor.setEntry("60000");
    EXPECT_EQ(editor.entryMeaning(), "?");
    editor.setEntry("70000");
    EXPECT_EQ(editor.entryMeaning(), "") << "out of range";
    editor.selectRow(5); // byte 10: the first day, no list
    editor.setEntry("1");
    EXPECT_EQ(editor.entryMeaning(), "");
}

} // namespace
} // namespace sessiontest
