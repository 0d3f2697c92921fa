#pragma once

#include "core/common/error.h"

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
// The extension of a name as UTF-8 in lower case (".npc", ".edt"), for comparing
// names that a file system may spell in any case.
std::string lowerExtension(const fs::path& path);

// The kind of the file system that holds `path` (or would hold it: for a path
// that does not exist yet the nearest existing folder above it is asked).
DriveKind driveKind(const fs::path& path);

// The mount point of the file system that holds `path`, as the user would name it.
std::string driveRoot(const fs::path& path);

// The mount point, in a table of mounts written as /proc/self/mountinfo writes it,
// of the file system with device `major`:`minor` that holds `path` (an absolute path
// with no links): the longest such mount point above it, which tells a bind mount
// from the file system it shows. Empty when none fits.
std::string mountPointOf(std::string_view mountinfo, const fs::path& path, unsigned major,
                         unsigned minor);

// "Диск <root>\nтолько для чтения" and, with `hint`, "\nУкажите другой путь".
Error readOnlyDriveError(const fs::path& path, bool hint);

bool fileExists(const fs::path& path);

// Whether two paths name one file: the same file on disk where both exist (links,
// other spellings), else the same path once made whole.
bool samePath(const fs::path& a, const fs::path& b);

// What tells one state of a file from another: its length, modification time,
// status-change time (which no user can set back, unlike the modification time) and
// identity on its drive. Two equal statuses mean the file was not touched.
struct FileStatus {
    std::uintmax_t size = 0;
    std::int64_t modifiedNs = 0;
    std::int64_t changedNs = 0;
    std::uint64_t id = 0;
    bool operator==(const FileStatus&) const = default;
};

// The status of a regular file; nothing when there is none at `path`.
std::optional<FileStatus> fileStatus(const fs::path& path);

// The whole file. Failures carry the read message with the system's description.
Result<std::vector<std::uint8_t>> readFile(const fs::path& path);

// Length of a file in bytes.
Result<std::uintmax_t> fileSize(const fs::path& path);

// Replaces `path` with exactly `bytes`, so that a failure at any point leaves the old
// file as it was:
// - a symbolic link is followed, and the file it names is replaced (the link stays);
// - the bytes go into a temporary file with a short name in the same folder, which is
//   synced and renamed over the target; the folder is synced after the rename;
// - the old file's mode, owner and group are kept; a read-only file is replaced all
//   the same and stays writable for its owner;
// - where no temporary file can replace it (the file has several names, the folder
//   takes no new file, or its owner cannot be kept) the file is written in place
//   with one write and a sync;
// - temporary files left by a save that was killed are removed by the next save
//   into the same folder.
// Failure messages name the file.
Result<void> writeFileAtomic(const fs::path& path, std::span<const std::uint8_t> bytes);
Result<void> writeFileAtomic(const fs::path& path, std::string_view bytes);

// "Ошибка во время чтения файла. Error N\n<description>\nФайл: <path>" and its save
// twin. The common causes are described in Russian, the rest in the system's words.
std::string readErrorMessage(const fs::path& path, int errorNumber,
                             Language language = Language::Russian);
std::string writeErrorMessage(const fs::path& path, int errorNumber,
                              Language language = Language::Russian);
// The failure to read or to write `path`, said in each language.
Error readError(ErrorKind kind, const fs::path& path, int errorNumber);
Error writeError(const fs::path& path, int errorNumber);

// The system's description of an error number (errno, or GetLastError on Windows):
// the common causes in Russian, the rest in the system's own words.
std::string errorDescription(int errorNumber, Language language = Language::Russian);

// The steps of a save at which a test can make the system fail.
enum class SaveStep {
    Create, // making the temporary file
    Write,  // writing the bytes
    Flush,  // closing the written file
    Sync,   // syncing it to disk
    Owner,  // giving it the old file's mode, owner and group
    Rename, // putting it in place of the target
    Folder, // syncing the folder after the rename (a failure there is no failure of the save)
};

// While one lives, every save on this thread runs `action` at `step` and fails there
// with the error number it returns as if the system had answered so (0: go on).
// The file-system seam of the tests; the program never makes one.
class SaveFault {
public:
    SaveFault(SaveStep step, int errorNumber);
    SaveFault(SaveStep step, int (*action)());
    ~SaveFault();
    SaveFault(const SaveFault&) = delete;
    SaveFault& operator=(const SaveFault&) = delete;

    // The error number the present fault gives at `step`, or 0.
    static int at(SaveStep step);

private:
    SaveStep step_;
    int errorNumber_;
    int (*action_)();
    SaveFault* outer_;
};

// The largest list, speech or settings file the program reads: far beyond any real
// one, small enough that reading it cannot exhaust memory.
inline constexpr std::uintmax_t kMaxTextFileSize = 16u << 20;

// The whole file if it holds at most `limit` bytes; a larger one is refused with a
// message naming it, before anything is read.
Result<std::vector<std::uint8_t>> readFileLimited(const fs::path& path, std::uintmax_t limit);

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
