#pragma once

#include "core/explain/explainer.h"
#include "core/mod/findings.h"
#include "core/text/language.h"

#include <span>

namespace parlex {
class CodeLists;
class EdtFile;
} // namespace parlex

namespace parlex::mod {

// The speech file a script's records speak from: the file, and how many phrases it
// holds (on disk; a phrase past them is missing). No file: nothing to check.
struct SpeechSource {
    const EdtFile* file = nullptr;
    int phrases = 0;
};

// The findings of one record (see lintScript), in field order, for `script`.
void lintRecord(const std::filesystem::path& script, int position, const NpcRecord& record,
                const ExplainContext& context, const SpeechSource& speech,
                std::vector<Finding>& findings);

// What is worth a look in one script:
// - an error for every field the explainer marks as wrong (dark red in the window),
//   and for a file that is no script;
// - a warning for every remark behind a sentence;
// - a warning for phrases of a record that its speech file (053.npc -> 053.EDT, any
//   case, beside it) lacks or holds empty;
// - a warning for a "ja" script whose tail holds bytes a save would set to zero.
std::vector<Finding> lintScript(const std::filesystem::path& path, const CodeLists& lists,
                                Language language = Language::Russian);

// Every script, spread over the cores, in file, record and field order.
std::vector<Finding> lintScripts(std::span<const std::filesystem::path> scripts,
                                 const CodeLists& lists, Language language = Language::Russian);

// "12, 14-16": numbers in ascending order with runs joined.
std::string numberRanges(const std::vector<int>& numbers);

} // namespace parlex::mod
