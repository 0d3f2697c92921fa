#pragma once

#include "core/text/language.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace parlex {

// The last phrase number of a file of NPC dialogues, the largest kind: 0-142.
inline constexpr int kNpcLastPhrase = 142;

// The three kinds of speech file. The kind is not stored in a file: the user says it.
enum class EdtKind { NpcDialogues, Civilian, Remarks };

struct EdtKindInfo {
    EdtKind kind;
    std::string_view name;  // "npc", "civ", "rem" on the command line
    int lastPhrase;         // 142, 14, 34
    std::size_t recordSize; // bytes per phrase
    std::size_t textLimit;  // characters per phrase
    Text kindLine;          // "(Тип: Диалоги НПЦ)" in the size messages
    Text limitLine;         // the third line of the "too large" message, or empty
    Text summaryText;       // the kind as the properties window names it
    int filterIndex;        // its entry in the open dialog's filter list (1-3)

    std::size_t phraseCount() const { return static_cast<std::size_t>(lastPhrase) + 1; }
    std::size_t smallestFile() const { return recordSize; }
    std::size_t largestFile() const { return recordSize * phraseCount(); }
};

const EdtKindInfo& kindInfo(EdtKind kind);
std::optional<EdtKind> parseEdtKind(std::string_view name);

} // namespace parlex
