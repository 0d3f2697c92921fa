#pragma once

#include "core/npc/npctexts.h"
#include <cstddef>
#include <string>
#include <string_view>

namespace parlex {

// The two layouts of a script file.
enum class NpcFileType {
    Ub, // English releases and Unfinished Business: 50 records from offset 0
    Ja, // the Russian release "Агония Власти": a 4-byte mark, 49 records, a 28-byte tail
};

inline constexpr std::size_t kUbRecords = 50;
inline constexpr std::size_t kJaRecords = 49;
// The positions the record slider offers, in either layout: 1 to kPositions.
inline constexpr int kPositions = 50;

constexpr std::string_view typeTag(NpcFileType t) {
    return t == NpcFileType::Ub ? "ub" : "ja";
}

// The name of the layout as the user reads it.
constexpr std::string_view typeText(NpcFileType t, Language language = Language::Russian) {
    return npctexts::kTexts(t == NpcFileType::Ub ? npctexts::Say::UbName : npctexts::Say::JaName,
                            language);
}

constexpr std::size_t recordCount(NpcFileType t) {
    return t == NpcFileType::Ub ? kUbRecords : kJaRecords;
}

constexpr NpcFileType otherType(NpcFileType t) {
    return t == NpcFileType::Ub ? NpcFileType::Ja : NpcFileType::Ub;
}

// "Тип файла:\n<layout>\nЗаписей: <n>": what the window's "Текущий" box and
// `parlex-cli info` say about a script.
inline std::string layoutSummary(NpcFileType t, std::size_t nonEmptyRecords,
                                 Language language = Language::Russian) {
    return fill(npctexts::kTexts(npctexts::Say::Summary, language),
                {typeText(t, language), std::to_string(nonEmptyRecords)});
}

} // namespace parlex
