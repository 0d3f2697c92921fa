#include "core/platform/files.h"
#include "core/platform/systemtexts.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace parlex::platform {
namespace {

constexpr long kIso9660Magic = 0x9660;
constexpr long kUdfMagic = 0x15013346;
constexpr long kNfsMagic = 0x6969;
constexpr long kSmbMagic = 0x517B;
constexpr long kCifsMagic = static_cast<long>(0xFF534D42u);
constexpr long kSmb2Magic = static_cast<long>(0xFE534D42u);

// The nearest path at or above `path` that exists.
fs::path existingAncestor(const fs::path& path) {
    std::error_code ec;
    fs::path p = fs::absolute(path, ec);
    if (ec)
        p = path;
    while (!p.empty() && !fs::exists(p, ec)) {
        if (p == p.parent_path())
            break;
        p = p.parent_path();
    }
    return p.empty() ? fs::path(".") : p;
}

} // namespace

DriveKind driveKind(const fs::path& path) {
    const fs::path p = existingAncestor(path);
    struct statvfs vfs {};
    if (::statvfs(p.c_str(), &vfs) == 0 && (vfs.f_flag & ST_RDONLY))
        return DriveKind::ReadOnly;
    struct statfs sfs {};
    if (::statfs(p.c_str(), &sfs) == 0) {
        const long type = static_cast<long>(sfs.f_type);
        if (type == kIso9660Magic || type == kUdfMagic)
            return DriveKind::ReadOnly;
        if (type == kNfsMagic || type == kSmbMagic || type == kCifsMagic || type == kSmb2Magic)
            return DriveKind::Network;
    }
    return DriveKind::Fixed;
}

std::string driveRoot(const fs::path& path) {
    std::error_code ec;
    fs::path p = fs::weakly_canonical(existingAncestor(path), ec);
    if (ec)
        p = existingAncestor(path);
    struct stat st {};
    if (::stat(p.c_str(), &st) != 0)
        return p.root_path().string();
    // The system's own table of mounts knows bind mounts, which share a device with
    // the file system they show.
    if (const auto table = readFile("/proc/self/mountinfo")) {
        const std::string_view text(reinterpret_cast<const char*>(table->data()), table->size());
        if (std::string point = mountPointOf(text, p, major(st.st_dev), minor(st.st_dev));
            !point.empty())
            return point;
    }
    const dev_t dev = st.st_dev;
    // Climb while the parent still lies on the same device: the top is the mount point.
    while (p.has_relative_path()) {
        const fs::path parent = p.parent_path();
        struct stat pst {};
        if (::stat(parent.c_str(), &pst) != 0 || pst.st_dev != dev)
            break;
        p = parent;
    }
    return p.string();
}

std::string errorDescription(int errorNumber, Language language) {
    using systemtexts::Say;
    const auto said = [language](Say key) {
        return std::string(systemtexts::kTexts(key, language));
    };
    switch (errorNumber) {
    case ENOENT:
        return said(Say::NoSuchFile);
    case EACCES:
    case EPERM:
        return said(Say::NoAccess);
    case ENOSPC:
        return said(Say::DiskFull);
    case EROFS:
        return said(Say::ReadOnlyFileSystem);
    case EISDIR:
        return said(Say::IsFolder);
    case ENOTDIR:
        return said(Say::NotFolder);
    case ENAMETOOLONG:
        return said(Say::NameTooLong);
    case EDQUOT:
        return said(Say::QuotaExceeded);
    case EIO:
        return said(Say::InputOutput);
    case EFBIG:
        return said(Say::FileTooBig);
    default:
        return std::strerror(errorNumber);
    }
}

namespace {

std::unexpected<Error> readFailure(const fs::path& path, int errorNumber) {
    return std::unexpected(readError(errorNumber == ENOENT ? ErrorKind::NotFound : ErrorKind::Read,
                                     path, errorNumber));
}

} // namespace

std::optional<FileStatus> fileStatus(const fs::path& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode))
        return std::nullopt;
    const auto ns = [](const timespec& t) {
        return static_cast<std::int64_t>(t.tv_sec) * 1'000'000'000 + t.tv_nsec;
    };
    return FileStatus{static_cast<std::uintmax_t>(st.st_size), ns(st.st_mtim), ns(st.st_ctim),
                      static_cast<std::uint64_t>(st.st_ino)};
}

Result<std::uintmax_t> fileSize(const fs::path& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0)
        return readFailure(path, errno);
    if (S_ISDIR(st.st_mode))
        return readFailure(path, EISDIR);
    return static_cast<std::uintmax_t>(st.st_size);
}

Result<std::vector<std::uint8_t>> readFile(const fs::path& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return readFailure(path, errno);
    std::vector<std::uint8_t> data;
    std::uint8_t buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            const int err = errno;
            ::close(fd);
            return readFailure(path, err);
        }
        if (n == 0)
            break;
        data.insert(data.end(), buffer, buffer + n);
    }
    ::close(fd);
    return data;
}

namespace {

// Temporary files of a save: ".parlex-" and six random characters, short enough for
// any file name the folder can hold.
constexpr std::string_view kTemporaryPrefix = ".parlex-";
constexpr std::size_t kTemporaryLength = kTemporaryPrefix.size() + 6;

// Where the file system cannot make unnamed files, a save's temporary file has a name
// for a moment before its writer locks it: a stray one must then be this old before a
// save takes it for the leftover of a killed one.
constexpr std::time_t kStrayAgeSeconds = 10;

std::unexpected<Error> writeFailure(const fs::path& path, int errorNumber) {
    return std::unexpected(writeError(path, errorNumber));
}

// A file the size limit of the shell (`ulimit -f`) would otherwise kill the program
// for: with the signal ignored the write fails with EFBIG like any other.
void ignoreFileSizeSignal() {
    static const bool ignored = [] {
        struct sigaction now {};
        if (::sigaction(SIGXFSZ, nullptr, &now) == 0 && now.sa_handler == SIG_DFL)
            ::signal(SIGXFSZ, SIG_IGN);
        return true;
    }();
    (void)ignored;
}

// The file a path names once every symbolic link on the way is followed; a link that
// leads nowhere gives the path it points to, so that the save creates that file.
fs::path followLinks(const fs::path& path) {
    fs::path p = path;
    for (int hops = 0; hops < 40; ++hops) {
        std::error_code ec;
        if (!fs::is_symlink(p, ec))
            break;
        const fs::path next = fs::read_symlink(p, ec);
        if (ec)
            break;
        p = next.is_absolute() ? next : p.parent_path() / next;
    }
    return p;
}

// Removes the temporary files of earlier saves into `folder` that were killed: no
// process holds the lock a live save keeps on its file, and, with `anyAge` false,
// old enough.
void removeStrayTemporaries(const fs::path& folder, bool anyAge) {
    std::error_code ec;
    const std::time_t now = std::time(nullptr);
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.size() != kTemporaryLength || !name.starts_with(kTemporaryPrefix))
            continue;
        struct stat st {};
        if (::lstat(it->path().c_str(), &st) != 0 || !S_ISREG(st.st_mode) ||
            (!anyAge && now - st.st_mtime < kStrayAgeSeconds))
            continue;
        const int fd = ::open(it->path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
        if (fd < 0)
            continue;
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0)
            ::unlink(it->path().c_str());
        ::close(fd);
    }
}

// The temporary file of a save in `folder`, open for writing and locked, with its
// name ("" while it has none) and an error number when it could not be made.
struct Temporary {
    int fd = -1;
    std::string name;
    bool unnamed = false;
    int error = 0;
};

// Where the file system allows, the file is made without a name (O_TMPFILE) and named
// only once it is locked: then every unlocked temporary file in the folder is the
// leftover of a killed save. Elsewhere it is made with its name at once.
Temporary makeTemporary(const fs::path& folder) {
    Temporary t;
    if (const int injected = SaveFault::at(SaveStep::Create)) {
        t.error = injected;
        return t;
    }
    t.fd = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (t.fd >= 0) {
        t.unnamed = true;
    } else if (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL) {
        t.name = (folder / (std::string(kTemporaryPrefix) + "XXXXXX")).string();
        t.fd = ::mkostemp(t.name.data(), O_CLOEXEC);
    }
    if (t.fd < 0) {
        t.error = errno;
        return t;
    }
    // The lock tells a later save that this file is not a stray one; it goes with
    // the process.
    ::flock(t.fd, LOCK_EX | LOCK_NB);
    return t;
}

// Gives an unnamed temporary file a free name of the temporary pattern; an error
// number, or 0.
int nameTemporary(Temporary& t, const fs::path& folder) {
    static constexpr char kLetters[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    const std::string link = "/proc/self/fd/" + std::to_string(t.fd);
    unsigned seed = static_cast<unsigned>(::getpid()) ^ static_cast<unsigned>(std::time(nullptr)) ^
                    static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(&t));
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string name(kTemporaryPrefix);
        for (int i = 0; i < 6; ++i) {
            seed = seed * 1103515245u + 12345u;
            name += kLetters[(seed >> 16) % (sizeof kLetters - 1)];
        }
        const std::string path = (folder / name).string();
        if (::linkat(AT_FDCWD, link.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0 ||
            ::linkat(t.fd, "", AT_FDCWD, path.c_str(), AT_EMPTY_PATH) == 0) {
            t.name = path;
            return 0;
        }
        if (errno != EEXIST)
            return errno;
    }
    return EEXIST;
}

// Writes all of `bytes` at the start of `fd`; an error number, or 0.
int writeAll(int fd, std::span<const std::uint8_t> bytes) {
    if (const int injected = SaveFault::at(SaveStep::Write))
        return injected;
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n =
            ::pwrite(fd, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        if (n == 0)
            return EIO;
        done += static_cast<std::size_t>(n);
    }
    return 0;
}

int syncFile(int fd) {
    if (const int injected = SaveFault::at(SaveStep::Sync))
        return injected;
    return ::fsync(fd) == 0 ? 0 : errno;
}

int closeFile(int fd) {
    const int injected = SaveFault::at(SaveStep::Flush);
    const int closed = ::close(fd) == 0 ? 0 : errno;
    return injected ? injected : closed;
}

// The rename itself is an entry of the folder: without this a power loss could
// bring the old file back. File systems that cannot sync a folder say so; that is
// no failure of the save, which is done.
void syncFolder(const fs::path& folder) {
    if (SaveFault::at(SaveStep::Folder))
        return;
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

// Writes over the file itself: for a file with several names, which all must see the
// new content, or one whose folder takes no temporary file. Space for a longer file
// is claimed before the first byte is written, so that a full disk leaves the old
// content whole; a script is one page and goes down in one write.
Result<void> writeInPlace(const fs::path& target, std::span<const std::uint8_t> bytes,
                          const struct stat& old) {
    int fd = ::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fd < 0 && errno == EACCES && old.st_uid == ::geteuid() &&
        ::chmod(target.c_str(), (old.st_mode & 07777) | S_IWUSR) == 0)
        fd = ::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fd < 0)
        return writeFailure(target, errno);
    const auto abandon = [&](int err) {
        ::close(fd);
        return writeFailure(target, err);
    };
    if (bytes.size() > static_cast<std::uintmax_t>(old.st_size)) {
        if (const int err = ::posix_fallocate(fd, 0, static_cast<off_t>(bytes.size()));
            err != 0 && err != EOPNOTSUPP && err != EINVAL)
            return abandon(err);
    }
    if (const int err = writeAll(fd, bytes))
        return abandon(err);
    if (::ftruncate(fd, static_cast<off_t>(bytes.size())) != 0)
        return abandon(errno);
    if (const int err = syncFile(fd))
        return abandon(err);
    if (const int err = closeFile(fd))
        return writeFailure(target, err);
    return {};
}

// Gives the temporary file the old file's mode (writable for its owner), owner and
// group; an error number when the system refuses.
int keepOwnership(int fd, const struct stat* old) {
    if (const int injected = SaveFault::at(SaveStep::Owner))
        return injected;
    const mode_t mode = old ? ((old->st_mode & 07777) | S_IWUSR) : 0644;
    if (old) {
        struct stat now {};
        if (::fstat(fd, &now) != 0)
            return errno;
        if ((now.st_uid != old->st_uid || now.st_gid != old->st_gid) &&
            ::fchown(fd, old->st_uid, old->st_gid) != 0)
            return errno;
    }
    return ::fchmod(fd, mode) == 0 ? 0 : errno;
}

} // namespace

Result<void> writeFileAtomic(const fs::path& path, std::span<const std::uint8_t> bytes) {
    ignoreFileSizeSignal();
    const fs::path target = followLinks(path);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode))
        return writeFailure(path, EISDIR);
    if (exists && S_ISREG(old.st_mode) && old.st_nlink > 1)
        return writeInPlace(target, bytes, old);

    Temporary temporary = makeTemporary(folder);
    if (temporary.fd < 0) {
        const int err = temporary.error;
        // A folder that takes no new file, holding a file that may be written.
        if (exists && S_ISREG(old.st_mode) && (err == EACCES || err == EPERM))
            return writeInPlace(target, bytes, old);
        return writeFailure(path, err);
    }
    removeStrayTemporaries(folder, temporary.unnamed);
    const auto discard = [&] {
        ::close(temporary.fd);
        if (!temporary.name.empty())
            ::unlink(temporary.name.c_str());
    };
    const auto fail = [&](int err) {
        discard();
        return writeFailure(path, err);
    };
    if (const int err = writeAll(temporary.fd, bytes))
        return fail(err);
    if (const int err = keepOwnership(temporary.fd, exists ? &old : nullptr)) {
        discard();
        // The file itself keeps what it has when it is written over.
        if (exists && S_ISREG(old.st_mode))
            return writeInPlace(target, bytes, old);
        return writeFailure(path, err);
    }
    if (const int err = syncFile(temporary.fd))
        return fail(err);
    // The file stays open, and so locked, until it has its final name: a save that
    // starts meanwhile must not take it for a stray.
    if (const int err = SaveFault::at(SaveStep::Flush))
        return fail(err);
    if (temporary.unnamed)
        if (const int err = nameTemporary(temporary, folder))
            return fail(err);
    const int injected = SaveFault::at(SaveStep::Rename);
    if (injected || ::rename(temporary.name.c_str(), target.c_str()) != 0)
        return fail(injected ? injected : errno);
    ::close(temporary.fd);
    syncFolder(folder);
    return {};
}

std::tm localNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return local;
}

fs::path programDir() {
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    return ec ? fs::current_path() : exe.parent_path();
}

bool folderWritable(const fs::path& folder) {
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

namespace {

// An XDG base folder: the variable when it holds an absolute path, else the default
// under the home folder.
fs::path xdgHome(const char* variable, const char* fallback) {
    if (const char* value = std::getenv(variable); value && *value == '/')
        return value;
    const char* home = std::getenv("HOME");
    return fs::path(home && *home ? home : "/") / fallback;
}

} // namespace

fs::path userConfigHome() {
    return xdgHome("XDG_CONFIG_HOME", ".config");
}

fs::path userDataHome() {
    return xdgHome("XDG_DATA_HOME", ".local/share");
}

} // namespace parlex::platform
