#include "session/recordcursor.h"

#include "core/explain/fieldlayout.h"
#include "core/settings/options.h"
#include "core/text/numbers.h"
#include "session/scriptdocument.h"
#include "session/speechdocument.h"
#include "session/userprompts.h"

#include <algorithm>

namespace parlex::session {

RecordCursor::RecordCursor(const ScriptDocument& document, const CodeLists& lists,
                           const Options& options, SpeechDocument& speech, UserPrompts& prompts,
                           QObject* parent)
    : QObject(parent), document_(document), lists_(lists), options_(options), speech_(speech),
      prompts_(prompts) {
    connect(&document_, &ScriptDocument::replaced, this, &RecordCursor::refresh);
    connect(&document_, &ScriptDocument::recordChanged, this, &RecordCursor::recordChanged);
}

// ---------------------------------------------------------------- position

const NpcRecord* RecordCursor::currentRecord() const {
    return document_.recordAt(position_);
}

void RecordCursor::setPosition(int position) {
    position = std::clamp(position, 1, kPositions);
    if (position == position_)
        return;
    position_ = position;
    emit positionChanged(position_);
    refresh();
}

void RecordCursor::nextRecord() {
    if (document_.file() && position_ < kPositions)
        setPosition(position_ + 1);
}

void RecordCursor::previousRecord() {
    if (document_.file() && position_ > 1)
        setPosition(position_ - 1);
}

void RecordCursor::stepRecords(int delta) {
    if (document_.file())
        setPosition(position_ + delta);
}

void RecordCursor::firstRecord() {
    if (const NpcFile* npc = document_.file())
        moveToFound(npc->firstNonEmptyPosition());
}

void RecordCursor::lastRecord() {
    if (const NpcFile* npc = document_.file())
        moveToFound(npc->lastNonEmptyPosition());
}

// A search for a record that is not empty: there, or a beep where there is none.
void RecordCursor::moveToFound(std::optional<int> found) {
    if (found)
        setPosition(*found);
    else
        prompts_.beep();
}

// ---------------------------------------------------------------- the field shown

void RecordCursor::recordChanged(int index) {
    if (index == position_ - 1)
        refresh();
}

void RecordCursor::refresh() {
    showByte(positionByte_.value_or(0));
}

void RecordCursor::showByte(int byteIndex) {
    if (pinned_)
        press(byteIndex, false);
    else
        hover(byteIndex);
}

void RecordCursor::showNoRecord() {
    mark_ = FieldMark::None;
    noRecordShown_ = true;
    emit fieldShown();
}

void RecordCursor::showField(int byteIndex, FieldMark mark) {
    noRecordShown_ = false;
    positionByte_ = byteIndex;
    positionRecord_ = position_;
    mark_ = mark;
    markedByte_ = byteIndex;
    // The field that names the record's first phrase: the speech pane shows it.
    if (fieldStart(byteIndex).fieldIndex == fields::PhraseFirst)
        if (const auto phrase = explanation().phrase)
            speech_.showPhrase(*phrase);
    emit fieldShown();
}

void RecordCursor::hover(int byteIndex) {
    if (!document_.file() || pinned_)
        return;
    if (!currentRecord())
        showNoRecord();
    else
        showField(byteIndex, FieldMark::Hover);
}

void RecordCursor::press(int byteIndex, bool rightButton) {
    if (!document_.file())
        return;
    if (!currentRecord()) {
        showNoRecord();
        return;
    }
    if (!rightButton) {
        if (pinned_)
            showField(byteIndex, FieldMark::Pinned); // the pin moves
        return;
    }
    if (pinned_) {
        pinned_ = false;
        hover(byteIndex);
        return;
    }
    // Pinning changes the colour only: position text and help are this field's already.
    pinned_ = true;
    mark_ = FieldMark::Pinned;
    markedByte_ = byteIndex;
    emit fieldShown();
}

QString RecordCursor::positionText() const {
    if (!positionByte_)
        return {};
    return QString::fromStdString(text::zeroPadded(static_cast<unsigned>(positionRecord_), 2) +
                                  ":" +
                                  text::zeroPadded(static_cast<unsigned>(*positionByte_ + 1), 2) +
                                  fieldStart(*positionByte_).label);
}

std::optional<int> RecordCursor::shownField() const {
    if (!document_.file() || noRecordShown_ || !positionByte_)
        return std::nullopt;
    return fieldStart(*positionByte_).fieldIndex;
}

Explanation RecordCursor::explanation() const {
    const NpcFile* npc = document_.file();
    const ExplainContext context{npc ? std::optional(npc->type()) : std::nullopt, &lists_,
                                 options_.paneFollowsPhrase, speech_.lastPhrase(),
                                 options_.language};
    if (npc && noRecordShown_)
        return explain(nullptr, 0, context);
    const auto field = shownField();
    if (!field)
        return {};
    return explain(currentRecord(), *field, context);
}

} // namespace parlex::session
