#include "session/scriptdocument.h"

#include "core/explain/fieldlayout.h"

namespace parlex::session {

const NpcRecord* ScriptDocument::recordAt(int position) const {
    return npc_ ? npc_->recordAt(position) : nullptr;
}

void ScriptDocument::replace(NpcFile file) {
    npc_ = std::move(file);
    history_.clear();
    emit historyChanged();
    emit replaced();
    tellChanged();
}

bool ScriptDocument::edit(std::size_t index, const NpcRecord& record) {
    if (!npc_ || index >= npc_->recordCount() || npc_->record(index) == record)
        return false;
    history_.push({index, npc_->record(index), record});
    store(index, record);
    return true;
}

void ScriptDocument::wipe(std::size_t index, bool standard) {
    edit(index, standard ? kNeutralRecord : kEmptyRecord);
}

void ScriptDocument::copy(std::size_t index) {
    if (!npc_ || index >= npc_->recordCount())
        return;
    buffer_.copy(npc_->record(index));
    emit bufferChanged();
}

void ScriptDocument::paste(std::size_t index) {
    if (buffer_.record())
        edit(index, *buffer_.record());
}

std::optional<std::size_t> ScriptDocument::undo() {
    return step(npc_ ? history_.undo() : std::nullopt, false);
}

std::optional<std::size_t> ScriptDocument::redo() {
    return step(npc_ ? history_.redo() : std::nullopt, true);
}

// Puts back the bytes an undo (before) or a redo (after) restores.
std::optional<std::size_t> ScriptDocument::step(const std::optional<RecordEdit>& edit,
                                                bool forward) {
    if (!edit)
        return std::nullopt;
    store(edit->index, forward ? edit->after : edit->before);
    return edit->index;
}

void ScriptDocument::clear() {
    buffer_.clear();
    history_.clear();
    emit bufferChanged();
    emit historyChanged();
}

void ScriptDocument::store(std::size_t index, const NpcRecord& record) {
    npc_->setRecord(index, record);
    emit recordChanged(static_cast<int>(index));
    emit historyChanged();
    tellChanged();
}

void ScriptDocument::tellChanged() {
    const bool changed = isChanged();
    if (changed == wasChanged_)
        return;
    wasChanged_ = changed;
    emit changedStateChanged(changed);
}

} // namespace parlex::session
