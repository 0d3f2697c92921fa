#pragma once

#include "core/npc/edithistory.h"
#include "core/npc/npcfile.h"

#include <QObject>
#include <optional>

namespace parlex::session {

// The open script in memory with its edit history and the record buffer: the one
// place where a record of the script changes. Every change is recorded for undo and
// told by a signal; it knows nothing of the disk, the dialogs or the position shown.
class ScriptDocument : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    const NpcFile* file() const { return npc_ ? &*npc_ : nullptr; }
    // The record at slider position 1-50, or null: nothing open, or 50 of a "ja" script.
    const NpcRecord* recordAt(int position) const;
    const RecordBuffer& buffer() const { return buffer_; }
    bool isChanged() const { return npc_ && npc_->isChanged(); }

    // A document opened, made new or read back after a save: the history is emptied.
    void replace(NpcFile file);

    // Puts new bytes into record `index` (0-based), recorded for undo. False when
    // nothing changed.
    bool edit(std::size_t index, const NpcRecord& record);
    // Empties the record, or writes the neutral record of a standard deletion.
    void wipe(std::size_t index, bool standard);
    void copy(std::size_t index);
    void paste(std::size_t index); // the buffer's record, when there is one

    // A step back or forward through the history; gives the index of the record it
    // changed.
    std::optional<std::size_t> undo();
    std::optional<std::size_t> redo();
    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }

    // Lets go of the history and the buffer at the end of the program.
    void clear();

signals:
    void replaced();               // everything is to be shown anew
    void recordChanged(int index); // one record has new bytes
    void changedStateChanged(bool changed);
    void historyChanged(); // undo or redo became possible or impossible
    void bufferChanged();  // a record was copied, or the buffer emptied

private:
    void store(std::size_t index, const NpcRecord& record);
    std::optional<std::size_t> step(const std::optional<RecordEdit>& edit, bool forward);
    void tellChanged();

    std::optional<NpcFile> npc_;
    RecordBuffer buffer_;
    EditHistory history_;
    bool wasChanged_ = false;
};

} // namespace parlex::session
