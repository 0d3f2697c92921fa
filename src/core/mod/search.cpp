#include "core/mod/search.h"

#include "core/codelists/codelists.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/mod/scripts.h"
#include "core/npc/npcfile.h"

#include <algorithm>

namespace parlex::mod {
namespace fs = std::filesystem;

namespace {

using Test = std::function<void(const fs::path&, int position, const NpcRecord&,
                                const ExplainContext&, std::vector<Finding>&)>;

// Runs `test` over every non-empty record of every script.
std::vector<Finding> search(std::span<const fs::path> scripts, const CodeLists& lists,
                            Language language, const Test& test) {
    return checkScripts(
        scripts, lists,
        [&](const fs::path& path, const npcformat::FileBytes& bytes, const CodeLists& own,
            std::vector<Finding>& found) {
            const NpcFile script = NpcFile::fromBytes(bytes, path);
            const ExplainContext context{script.type(), &own, false, 0, language};
            for (std::size_t r = 0; r < script.recordCount(); ++r)
                if (!isEmptyRecord(script.record(r)))
                    test(path, static_cast<int>(r) + 1, script.record(r), context, found);
        },
        language);
}

Finding match(const fs::path& file, int position, const NpcRecord& record, const FieldInfo& field,
              const ExplainContext& context) {
    const Explanation e = explain(&record, field.index, context);
    return {file, position, field.index, Severity::Match,
            std::string(field.name) + ": " + e.text + e.remark};
}

} // namespace

std::vector<Finding> findCode(std::span<const fs::path> scripts, ListKey key, std::uint32_t code,
                              const CodeLists& lists, Language language) {
    return search(scripts, lists, language,
                  [&](const fs::path& file, int position, const NpcRecord& record,
                      const ExplainContext& context, std::vector<Finding>& found) {
                      for (const FieldInfo& field : fieldTable())
                          if (field.list == key && fieldValue(record, field.index) == code)
                              found.push_back(match(file, position, record, field, context));
                  });
}

std::vector<Finding> findPhrase(std::span<const fs::path> scripts, int phrase,
                                const CodeLists& lists, Language language) {
    return search(scripts, lists, language,
                  [&](const fs::path& file, int position, const NpcRecord& record,
                      const ExplainContext& context, std::vector<Finding>& found) {
                      if (const auto spoken = spokenPhrases(record);
                          spoken && spoken->contains(phrase))
                          found.push_back(match(file, position, record,
                                                *fieldStartingAt(fields::PhraseFirst), context));
                  });
}

} // namespace parlex::mod
