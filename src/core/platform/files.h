#pragma once

#include "common/error.h"

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The few questions Parlex asks of the operating system.
namespace parlex::platform {

namespace fs = std::filesystem;

enum class DriveKind {
    Fixed,    // a local, writable file system
    ReadOnly, // mounted read-only, or an optical-disc file system
    Network,  // NFS, SMB and the like
};

// A path from UTF-8 text, and a path as UTF-8 text. Every name the program reads or
// shows goes through these: on Windows the narrow conversions of std::filesystem
// do not speak UTF-8 (a Cyrillic name would come out garbled, or throw).
fs::path pathFromUtf8(std::string_view utf8);
std::string utf8(const fs::path& path);

// The kind of the file system that holds `path` (or would hold it: for a path
// that does not exist yet the nearest existing folder above it is asked).
DriveKind driveKind(const fs::path& path);

// The mount point of the file system that holds `path`, as the user would name it.
std::string driveRoot(const fs::path& path);

// "Диск <root>\nтолько для чтения" and, with `hint`, "\nУкажите другой путь".
Error readOnlyDriveError(const fs::path& path, bool hint);

bool fileExists(const fs::path& path);

// What tells one state of a file from another: its length, modification time and
// identity on its drive. Two equal statuses mean the file was not touched.
struct FileStatus {
    std::uintmax_t size = 0;
    std::int64_t modifiedNs = 0;
    std::uint64_t id = 0;
    bool operator==(const FileStatus&) const = default;
};

// The status of a regular file; nothing when there is none at `path`.
std::optional<FileStatus> fileStatus(const fs::path& path);

// The whole file. Failures carry the read message with the system's description.
Result<std::vector<std::uint8_t>> readFile(const fs::path& path);

// Length of a file in bytes.
Result<std::uintmax_t> fileSize(const fs::path& path);

// Replaces `path` with exactly `bytes`: writes a temporary file in the same folder,
// flushes it to disk and renames it over the target. A read-only target is replaced
// all the same and stays writable for its owner. On failure the old file is untouched.
Result<void> writeFileAtomic(const fs::path& path, std::span<const std::uint8_t> bytes);
Result<void> writeFileAtomic(const fs::path& path, std::string_view bytes);

// "Ошибка во время чтения файла. Error N\n<system description>" and its save twin.
std::string readErrorMessage(int errorNumber);
std::string writeErrorMessage(int errorNumber);

// The present date and time on the local clock.
std::tm localNow();

// The folder of the running executable.
fs::path programDir();

// Whether files can be created in `folder`.
bool folderWritable(const fs::path& folder);

// The user's folders for settings and for data, by the desktop's conventions
// ($XDG_CONFIG_HOME or ~/.config, $XDG_DATA_HOME or ~/.local/share).
fs::path userConfigHome();
fs::path userDataHome();

} // namespace parlex::platform
