#include "core/npc/edithistory.h"

namespace parlex {

void EditHistory::push(const RecordEdit& edit) {
    if (edit.before == edit.after)
        return;
    edits_.resize(cursor_);
    edits_.push_back(edit);
    ++cursor_;
}

std::optional<RecordEdit> EditHistory::undo() {
    if (!canUndo())
        return std::nullopt;
    return edits_[--cursor_];
}

std::optional<RecordEdit> EditHistory::redo() {
    if (!canRedo())
        return std::nullopt;
    return edits_[cursor_++];
}

void EditHistory::clear() {
    edits_.clear();
    cursor_ = 0;
}

} // namespace parlex
