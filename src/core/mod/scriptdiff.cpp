#include "core/mod/scriptdiff.h"

#include "core/codelists/codelists.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/npc/npcfile.h"

namespace parlex::mod {

Result<std::vector<FieldChange>> diffScripts(const std::filesystem::path& a,
                                             const std::filesystem::path& b, const CodeLists& lists,
                                             Language language) {
    auto left = NpcFile::load(a);
    if (!left)
        return std::unexpected(left.error());
    auto right = NpcFile::load(b);
    if (!right)
        return std::unexpected(right.error());
    const ExplainContext leftContext{left->type(), &lists, false, 0, language};
    const ExplainContext rightContext{right->type(), &lists, false, 0, language};
    constexpr NpcRecord kEmpty{};
    std::vector<FieldChange> changes;
    for (int position = 1; position <= kPositions; ++position) {
        const NpcRecord* oldRecord = left->recordAt(position);
        const NpcRecord* newRecord = right->recordAt(position);
        const NpcRecord& oldBytes = oldRecord ? *oldRecord : kEmpty;
        const NpcRecord& newBytes = newRecord ? *newRecord : kEmpty;
        if (oldBytes == newBytes)
            continue;
        for (const FieldInfo& field : fieldTable()) {
            if (fieldHex(oldBytes, field.index) == fieldHex(newBytes, field.index))
                continue;
            changes.push_back({position, field.index,
                               oldRecord ? fieldHex(*oldRecord, field.index) : "-",
                               newRecord ? fieldHex(*newRecord, field.index) : "-",
                               explain(oldRecord, field.index, leftContext).text,
                               explain(newRecord, field.index, rightContext).text});
        }
    }
    return changes;
}

} // namespace parlex::mod
