#pragma once

#include "core/explain/explainer.h"

#include <QObject>
#include <QString>
#include <optional>

namespace parlex {
class CodeLists;
struct Options;
} // namespace parlex

namespace parlex::session {

class ScriptDocument;
class SpeechDocument;
class UserPrompts;

// How the field under the mouse is marked on the grid.
enum class FieldMark {
    None,   // nothing is marked: no script, or a position without a record
    Hover,  // light green: follows the mouse
    Pinned, // yellow: stays when the mouse moves on
};

// Where the user is in the open script: the record position of the slider, the
// field shown (under the mouse, or pinned by a right click), the position text and
// the explanation of that field. Showing byte 14 also shows its phrase in the
// speech pane when the options say so.
class RecordCursor : public QObject {
    Q_OBJECT
public:
    RecordCursor(const ScriptDocument& document, const CodeLists& lists, const Options& options,
                 SpeechDocument& speech, UserPrompts& prompts, QObject* parent = nullptr);

    // ------------------------------------------------------------ position
    int position() const { return position_; }
    void setPosition(int position); // kept within 1..50
    void nextRecord();
    void previousRecord();
    void stepRecords(int delta); // five at a time, stopping at the ends
    void firstRecord();          // to the first record that is not empty, or a beep
    void lastRecord();
    // The record at the position, or null: nothing open, or position 50 of a "ja" script.
    const NpcRecord* currentRecord() const;
    std::size_t recordIndex() const { return static_cast<std::size_t>(position_ - 1); }

    // ------------------------------------------------------------ the field shown
    // The mouse over byte `byteIndex` of the grid, and a click on it. A right click
    // pins the field or frees it; another click moves the pin.
    void hover(int byteIndex);
    void press(int byteIndex, bool rightButton);
    bool isPinned() const { return pinned_; }
    FieldMark mark() const { return mark_; }
    int markedByte() const { return markedByte_; }
    // "07:04 (03-04 as Word)": record, byte under the mouse, field. Empty until a
    // field was first shown; a position without a record leaves it as it was.
    QString positionText() const;
    // The byte the position text names, once a field was shown.
    std::optional<int> positionByte() const { return positionByte_; }
    // The field of the position text, while a field is shown.
    std::optional<int> shownField() const;
    // The sentence about the field shown, or "Запись не существует".
    Explanation explanation() const;

    // Shows byte `byteIndex` of the current record the way the grid works now: the
    // pin moves there while a field is pinned, else the field is shown as under the
    // mouse. The byte editor shows the field it edits so.
    void showByte(int byteIndex);
    // Shows the record at the position again, at the byte of the position text.
    void refresh();

signals:
    void positionChanged(int position);
    void fieldShown(); // mark, position text or explanation changed

private:
    void recordChanged(int index);
    void moveToFound(std::optional<int> found);
    void showNoRecord();
    void showField(int byteIndex, FieldMark mark);

    const ScriptDocument& document_;
    const CodeLists& lists_;
    const Options& options_;
    SpeechDocument& speech_;
    UserPrompts& prompts_;

    int position_ = 1;
    bool pinned_ = false;
    FieldMark mark_ = FieldMark::None;
    int markedByte_ = 0;
    std::optional<int> positionByte_; // the byte the position text names, once written
    int positionRecord_ = 1;          // and its record
    bool noRecordShown_ = false;
};

} // namespace parlex::session
