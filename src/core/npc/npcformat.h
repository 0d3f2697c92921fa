#pragma once

#include "core/common/error.h"
#include "core/npc/npcfiletype.h"
#include "core/npc/npcrecord.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// The 1600-byte script file on disk and the rewriting of one layout into the other.
namespace parlex::npcformat {

inline constexpr std::size_t kFileSize = 1600;
inline constexpr std::size_t kJaHeaderSize = 4;
inline constexpr std::array<std::uint8_t, 4> kJaMark{0x39, 0x00, 0x35, 0x00};

using FileBytes = std::array<std::uint8_t, kFileSize>;

// The layout is told by the first four bytes alone.
NpcFileType detectType(std::span<const std::uint8_t> bytes);

// Offset of record `index` (from 0) in a file of that layout.
constexpr std::size_t recordOffset(NpcFileType type, std::size_t index) {
    return (type == NpcFileType::Ja ? kJaHeaderSize : 0) + index * kRecordSize;
}

// "Размер файла <path>\nменьше чем 1600 байт" (or "больше"): the refusal of a
// file of any other size.
std::string sizeRefusal(std::string_view pathText, std::uintmax_t size,
                        Language language = Language::Russian);

// Reads a script file, refusing any other size with the size message.
Result<FileBytes> readScript(const std::filesystem::path& path);

// The bytes of `source` rewritten into the `target` layout. Records 1-49 keep their
// place; "ub" record 50 goes into the "ja" tail and comes back from it. Converting
// into the layout the source already has is refused (see checkConversion).
Result<FileBytes> convertLayout(const FileBytes& source, NpcFileType target);

// What converting `source` into `target` loses: "ub" into "ja" keeps 49 records, so
// a record 50 that is not empty is named ("Запись 50 не пуста: в формате \"ja\" 49
// записей, она не сохранится."); "ja" into "ub" whose record 1 begins with the "ja"
// mark gives a file that reads as "ja" again. Nothing when nothing is lost.
std::optional<std::string> conversionLoss(const FileBytes& source, NpcFileType target,
                                          Language language = Language::Russian);

// Refuses a conversion from a layout into itself, which has nothing to do.
Result<void> checkConversion(NpcFileType from, NpcFileType to);

// Reads `source`, converts it and writes `target` atomically (they may be one file).
// Returns the layout of the source.
Result<NpcFileType> convertFile(const std::filesystem::path& source,
                                const std::filesystem::path& target, NpcFileType targetType);

} // namespace parlex::npcformat
