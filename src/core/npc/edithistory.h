#pragma once

#include "core/npc/npcrecord.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace parlex {

// One change of one record: what it held before and after.
struct RecordEdit {
    std::size_t index;
    NpcRecord before;
    NpcRecord after;
};

// The undo and redo history of a script: a list of record snapshots and a cursor
// into it. Undoing hands back the edit whose `before` is to be restored; redoing
// hands back the edit whose `after` is to be restored. A new edit drops what could
// still be redone. There is no limit: every step the user made can be undone.
class EditHistory {
public:
    // Records an edit; an edit that changes nothing is not recorded.
    void push(const RecordEdit& edit);

    bool canUndo() const { return cursor_ > 0; }
    bool canRedo() const { return cursor_ < edits_.size(); }
    std::size_t undoSteps() const { return cursor_; }
    std::size_t redoSteps() const { return edits_.size() - cursor_; }

    std::optional<RecordEdit> undo();
    std::optional<RecordEdit> redo();

    void clear();

private:
    std::vector<RecordEdit> edits_;
    std::size_t cursor_ = 0; // edits before the cursor are done, those after undone
};

} // namespace parlex
