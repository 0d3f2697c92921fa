#pragma once

#include "core/association/fileassociation.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace parlex {

inline constexpr std::string_view kScriptMimeType = "application/x-ja2-npc";
inline constexpr std::string_view kDesktopId = "org.parlex.Parlex.desktop";

// The association the freedesktop way, for the user alone: a MIME type for "*.npc",
// a desktop entry whose command is this program, and that entry made the type's
// default in the user's mimeapps.list. Every file is written atomically.
class FreedesktopAssociation : public FileAssociation {
public:
    // `program` is the absolute path of the running program; `dataHome` and
    // `configHome` are the user's XDG data and config folders.
    FreedesktopAssociation(std::filesystem::path program, std::filesystem::path dataHome,
                           std::filesystem::path configHome);

    bool isAssociated() const override;
    Result<void> associate() override;
    Result<void> disassociate() override;

    std::filesystem::path mimePackageFile() const;
    std::filesystem::path desktopFile() const;
    std::filesystem::path mimeappsFile() const;

private:
    std::filesystem::path program_;
    std::filesystem::path dataHome_;
    std::filesystem::path configHome_;
};

namespace freedesktop {

// The value of an Exec key that runs `program` with one file: the path quoted where
// it must be, "%f" behind it.
std::string execValue(const std::filesystem::path& program);
// The program an Exec value runs (its first word, unquoted); nothing when the value
// cannot be read.
std::optional<std::filesystem::path> programOfExec(std::string_view value);

// The desktop entry installed with the program, with its Exec line made to run
// `program`.
std::string desktopEntry(const std::filesystem::path& program);
// The shared-mime-info description of the script type.
std::string_view mimePackage();
// The value of `key` in the group `group` of a desktop-entry-style file.
std::optional<std::string> keyValue(std::string_view text, std::string_view group,
                                    std::string_view key);

// `text` of a mimeapps.list with the default of `mimeType` set to `desktopId`, or
// removed when `desktopId` is nothing. Every other line stays as it was.
std::string withDefault(std::string_view text, std::string_view mimeType,
                        std::optional<std::string_view> desktopId);
// The first desktop id of the default of `mimeType`, if one is set.
std::optional<std::string> defaultOf(std::string_view text, std::string_view mimeType);

} // namespace freedesktop
} // namespace parlex
