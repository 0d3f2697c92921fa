#pragma once

#include "core/npc/npcfiletype.h"
#include "core/npc/npcrecord.h"
#include "core/text/language.h"

#include <optional>
#include <string>

namespace parlex {

class CodeLists;

struct ExplainContext {
    // The layout of the open script; nothing when it is neither (no jump limit applies).
    std::optional<NpcFileType> fileType;
    const CodeLists* lists = nullptr;
    // The speech pane follows byte 14 only when this setting is on ...
    bool paneFollowsPhrase = false;
    // ... and a speech file is open: its last phrase number (142, 14 or 34), 0 if none.
    int lastPhrase = 0;
    // The language of the sentences.
    Language language = Language::Russian;
};

struct Explanation {
    std::string text;          // the sentence
    bool alert = false;        // dark red: a wrong record, or one that can never fire
    std::string remark;        // the bold remark behind the sentence, empty if none
    std::optional<int> phrase; // byte 14: the phrase the speech pane should show
};

// One sentence about a field of a record, judged against its neighbours. `record`
// is null for a position without a record ("Запись не существует"). `fieldIndex` is
// a field's first byte index, as fieldStart gives it.
Explanation explain(const NpcRecord* record, int fieldIndex, const ExplainContext& context);

// What lint needs of a field: whether explain would mark it wrong and whether it
// would add a remark, found without composing the sentence.
struct Verdict {
    bool alert = false;
    bool remark = false;
};
Verdict judge(const NpcRecord* record, int fieldIndex, const ExplainContext& context);

// The noun after a number of phrases, blanks on both sides: " фразу ", " фразы ", " фраз "
// (" phrase ", " phrases ").
std::string phraseWord(std::uint32_t count, Language language = Language::Russian);

} // namespace parlex
