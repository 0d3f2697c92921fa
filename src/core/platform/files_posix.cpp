#include "platform/files.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
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
    fs::path p = existingAncestor(path);
    struct stat st {};
    if (::stat(p.c_str(), &st) != 0)
        return p.root_path().string();
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

std::optional<FileStatus> fileStatus(const fs::path& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode))
        return std::nullopt;
    return FileStatus{static_cast<std::uintmax_t>(st.st_size),
                      static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1'000'000'000 +
                          st.st_mtim.tv_nsec,
                      static_cast<std::uint64_t>(st.st_ino)};
}

Result<std::uintmax_t> fileSize(const fs::path& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0)
        return fail(errno == ENOENT ? ErrorKind::NotFound : ErrorKind::Read,
                    readErrorMessage(errno));
    if (S_ISDIR(st.st_mode))
        return fail(ErrorKind::Read, readErrorMessage(EISDIR));
    return static_cast<std::uintmax_t>(st.st_size);
}

Result<std::vector<std::uint8_t>> readFile(const fs::path& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return fail(errno == ENOENT ? ErrorKind::NotFound : ErrorKind::Read,
                    readErrorMessage(errno));
    std::vector<std::uint8_t> data;
    std::uint8_t buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            const int err = errno;
            ::close(fd);
            return fail(ErrorKind::Read, readErrorMessage(err));
        }
        if (n == 0)
            break;
        data.insert(data.end(), buffer, buffer + n);
    }
    ::close(fd);
    return data;
}

Result<void> writeFileAtomic(const fs::path& path, std::span<const std::uint8_t> bytes) {
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    std::string pattern = (folder / ("." + path.filename().string() + ".XXXXXX")).string();
    const int fd = ::mkstemp(pattern.data());
    if (fd < 0)
        return fail(ErrorKind::Write, writeErrorMessage(errno));
    const auto abandon = [&](int err) {
        ::close(fd);
        ::unlink(pattern.c_str());
        return fail(ErrorKind::Write, writeErrorMessage(err));
    };
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return abandon(errno);
        }
        done += static_cast<std::size_t>(n);
    }
    if (::fsync(fd) != 0)
        return abandon(errno);
    // Keep the old file's permissions, but writable for its owner; new files get 0644.
    mode_t mode = 0644;
    struct stat st {};
    if (::stat(path.c_str(), &st) == 0)
        mode = (st.st_mode & 07777) | S_IWUSR;
    ::fchmod(fd, mode);
    if (::close(fd) != 0) {
        const int err = errno;
        ::unlink(pattern.c_str());
        return fail(ErrorKind::Write, writeErrorMessage(err));
    }
    if (::rename(pattern.c_str(), path.c_str()) != 0) {
        const int err = errno;
        ::unlink(pattern.c_str());
        return fail(ErrorKind::Write, writeErrorMessage(err));
    }
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
