#pragma once

#include "core/common/error.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace parlex {

class EdtFile;

// Phrases are wrapped at 64 characters, about what a text box 440 pixels wide
// holds in the default proportional font.
inline constexpr std::size_t kWrapWidth = 64;

// Breaks a text into lines of at most `width` characters at blanks; a word longer
// than a line is split. Lines carry no leading or trailing blanks.
std::vector<std::string> wrapText(std::string_view text, std::size_t width = kWrapWidth);

// The role of phrase `n` in a dialogue of NPC dialogues ("Приветствие..." and the like,
// the head of its block in the decompiled text); empty from phrase 11 on.
std::string phraseRole(int n, Language language = Language::Russian);

// The decompiled dialogue as Windows-1251 bytes with CR LF line ends: a block per
// phrase from 0 to L (at least 11; 142 when no phrase or only phrase 0 is filled),
// each with its first three wrapped lines and a line of 80 stars.
std::string decompileText(const EdtFile& file, Language language = Language::Russian);

// Writes the decompiled text atomically. Only NPC dialogues can be decompiled.
Result<void> decompileToFile(const EdtFile& file, const std::filesystem::path& path,
                             Language language = Language::Russian);

} // namespace parlex
