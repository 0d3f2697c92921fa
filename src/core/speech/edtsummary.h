#pragma once

#include "core/text/language.h"

#include <cstdint>
#include <optional>
#include <string>

namespace parlex {

class EdtFile;

// What the properties window tells of the open speech file.
struct EdtSummary {
    std::string kindText; // "Диалоги НПЦ", "Диалоги гражд-их", "Комментарии НПЦ", "-"
    int phrases = 0; // lastPhrase + 1
    int nonEmpty = 0;
    std::optional<int> first, last; // non-empty phrases
    std::optional<std::uintmax_t> sizeOnDisk;
    std::size_t sizeAfterSave = 0;

    // The texts of the window's labels.
    std::string countText;           // "12 (143)"; a new document with no phrase filled: " (143)"
    std::string firstText, lastText; // the number or "Нет"
    std::string sizeOnDiskText; // "N байт", "Файл не сохранен" or "Файл не найден"
    std::string sizeAfterSaveText; // "N байт"
};

// The summary of `file`, or of no open file at all (every value "-").
EdtSummary summarize(const EdtFile* file, Language language = Language::Russian);

} // namespace parlex
