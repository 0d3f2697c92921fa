#include "session/byteeditor.h"

#include "core/explain/explaintexts.h"

#include "core/entry/numberentry.h"
#include "core/text/hex.h"
#include "core/text/numbers.h"
#include "session/session.h"

namespace parlex::session {
namespace {

const EditableField& rowField(int row) {
    return editableFields()[static_cast<std::size_t>(row)];
}

} // namespace

std::optional<ByteEditor> ByteEditor::open(Session& session, std::optional<int> byteIndex) {
    if (!session.cursor().currentRecord())
        return std::nullopt;
    const int byte = byteIndex.value_or(session.cursor().positionByte().value_or(0));
    return ByteEditor(session, byte >= 0 && byte < static_cast<int>(kRecordSize) ? byte : 0);
}

ByteEditor::ByteEditor(Session& session, int byteIndex)
    : session_(&session), recordIndex_(session.cursor().position() - 1),
      copy_(*session.cursor().currentRecord()) {
    // The field under the byte is chosen once by the program; the user goes on from it.
    selectRow(entry::rowOfByte(byteIndex));
}

// ---------------------------------------------------------------- the field

void ByteEditor::selectRow(int row) {
    row_ = row >= 0 && row < static_cast<int>(editableFields().size()) ? row : 0;
    refreshGrid();
    if (!entry_.empty())
        validate(); // the limit may have changed with the mode
}

int ByteEditor::field() const {
    return rowField(row_).index;
}

FieldWidth ByteEditor::mode() const {
    return rowField(row_).width;
}

std::string ByteEditor::caption(Language language) const {
    return fill(explaintexts::kTexts(explaintexts::Say::EditorCaption, language),
                {text::zeroPadded(static_cast<unsigned>(recordIndex_ + 1), 2),
                 entry::rowText(rowField(row_), language)});
}

std::string ByteEditor::currentHex() const {
    const auto start = copy_.begin() + field();
    return text::hexBytes({start, start + byteCount(mode())});
}

std::uint32_t ByteEditor::currentValue() const {
    std::uint32_t value = copy_[static_cast<std::size_t>(field())];
    if (mode() == FieldWidth::Word)
        value |= static_cast<std::uint32_t>(copy_[static_cast<std::size_t>(field()) + 1]) << 8;
    return value;
}

// The mark, the help and the explanation on the main window follow the chosen
// field, the way the grid works: following the mouse, or pinned.
void ByteEditor::refreshGrid() {
    session_->cursor().showByte(field());
}

// ---------------------------------------------------------------- the entry

bool ByteEditor::setEntry(const std::string& text) {
    if (text.empty()) {
        entry_.clear(); // the colour stays as it was
        return true;
    }
    if (!entry::isPlainNumber(text) && !entry::looksNumeric(text)) {
        entry_.clear();
        return false;
    }
    entry_ = text;
    validate();
    return true;
}

void ByteEditor::validate() {
    outOfRange_ = entry::outOfRange(entry_, mode());
}

std::string ByteEditor::entryMeaning() const {
    const auto value = entry::encodableValue(entry_, mode());
    if (!value || !listForField(field()))
        return {};
    return session_->codeLists().lookupCode(field(), *value);
}

ByteEditor::Encoding ByteEditor::encode(FieldWidth mode) {
    if (mode != this->mode())
        return Encoding::Ignored;
    const auto value = entry::encodableValue(entry_, mode);
    if (entry_.empty() || outOfRange_ || !value)
        return Encoding::Refused;
    encodedValue_ = value;
    encoded_ = entry::encoded(*value, mode);
    return Encoding::Encoded;
}

std::optional<std::string> ByteEditor::offeredMaximum(FieldWidth mode) const {
    if (mode != this->mode())
        return std::nullopt;
    return std::to_string(widthMaximum(mode));
}

ByteEditor::Encoding ByteEditor::enterMaximum(FieldWidth mode) {
    const auto offered = offeredMaximum(mode);
    if (!offered)
        return Encoding::Ignored;
    setEntry(*offered);
    return encode(mode);
}

// ---------------------------------------------------------------- the copy and the record

const NpcRecord* ByteEditor::record() const {
    const NpcFile* script = session_->script();
    return script ? script->recordAt(recordIndex_ + 1) : nullptr;
}

bool ByteEditor::canReplace() const {
    return encodedValue_.has_value() && encoded_.size() == entry::encodedLength(mode());
}

void ByteEditor::replace() {
    if (!canReplace() || !setFieldValue(copy_, field(), *encodedValue_))
        return;
    selectRow(row_);
    const NpcRecord* shown = record();
    applyPending_ = shown && *shown != copy_;
}

bool ByteEditor::apply() {
    if (!applyPending_)
        return false;
    if (!record())
        return false;
    session_->document().edit(static_cast<std::size_t>(recordIndex_), copy_);
    refreshGrid();
    applyPending_ = false;
    return true;
}

} // namespace parlex::session
