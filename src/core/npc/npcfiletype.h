#pragma once

#include <cstddef>
#include <string_view>

namespace parlex {

// The two layouts of a script file.
enum class NpcFileType {
    Ub, // English releases and Unfinished Business: 50 records from offset 0
    Ja, // the Russian release "Агония Власти": a 4-byte mark, 49 records, a 28-byte tail
};

constexpr std::string_view typeTag(NpcFileType t) {
    return t == NpcFileType::Ub ? "ub" : "ja";
}

// The name of the layout as the user reads it.
constexpr std::string_view typeText(NpcFileType t) {
    return t == NpcFileType::Ub ? "JA2-англ. JA2UB-любая версия" : "Агония Власти";
}

constexpr std::size_t recordCount(NpcFileType t) {
    return t == NpcFileType::Ub ? 50 : 49;
}

constexpr NpcFileType otherType(NpcFileType t) {
    return t == NpcFileType::Ub ? NpcFileType::Ja : NpcFileType::Ub;
}

} // namespace parlex
