// The Windows side of the platform: every name goes to the system as UTF-16
// through std::filesystem::path and the W functions.
#include "core/platform/files.h"
#include "core/platform/systemtexts.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>

namespace parlex::platform {
namespace {

// The system's own description of an error, in UTF-8, without the line end.
std::string systemText(DWORD code) {
    wchar_t* buffer = nullptr;
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::wstring text(buffer ? buffer : L"", length);
    if (buffer)
        ::LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.pop_back();
    const auto u8 = fs::path(text).u8string();
    return std::string(u8.begin(), u8.end());
}

std::unexpected<Error> readFailure(const fs::path& path, DWORD code) {
    const bool missing = code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
    return std::unexpected(
        readError(missing ? ErrorKind::NotFound : ErrorKind::Read, path, static_cast<int>(code)));
}

std::unexpected<Error> writeFailure(const fs::path& path, DWORD code) {
    return std::unexpected(writeError(path, static_cast<int>(code)));
}

// "D:\" or "\\server\share\": the root GetDriveTypeW asks for.
fs::path rootOf(const fs::path& path) {
    std::error_code ec;
    const fs::path absolute = fs::absolute(path, ec);
    fs::path root = (ec ? path : absolute).root_path();
    return root.empty() ? fs::path(L"\\") : root;
}

} // namespace

std::string errorDescription(int errorNumber, Language language) {
    using systemtexts::Say;
    const auto said = [language](Say key) {
        return std::string(systemtexts::kTexts(key, language));
    };
    // ERROR_DISK_QUOTA_EXCEEDED, which not every set of Windows headers names.
    constexpr DWORD kDiskQuotaExceeded = 1295;
    switch (static_cast<DWORD>(errorNumber)) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return said(Say::NoSuchFile);
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return said(Say::NoAccess);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return said(Say::DiskFull);
    case ERROR_WRITE_PROTECT:
        return said(Say::ReadOnlyFileSystem);
    case ERROR_DIRECTORY:
        return said(Say::IsFolder);
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
        return said(Say::NameTooLong);
    case kDiskQuotaExceeded:
        return said(Say::QuotaExceeded);
    case ERROR_IO_DEVICE:
    case ERROR_CRC:
        return said(Say::InputOutput);
    default:
        return systemText(static_cast<DWORD>(errorNumber));
    }
}

DriveKind driveKind(const fs::path& path) {
    switch (::GetDriveTypeW(rootOf(path).c_str())) {
    case DRIVE_CDROM:
    case DRIVE_RAMDISK:
        return DriveKind::ReadOnly;
    case DRIVE_REMOTE:
        return DriveKind::Network;
    default:
        return DriveKind::Fixed;
    }
}

std::string driveRoot(const fs::path& path) {
    const auto u8 = rootOf(path).u8string();
    std::string root(u8.begin(), u8.end());
    for (char& c : root)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return root;
}

std::optional<FileStatus> fileStatus(const fs::path& path) {
    const HANDLE file = ::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return std::nullopt;
    BY_HANDLE_FILE_INFORMATION info{};
    const bool known = ::GetFileInformationByHandle(file, &info);
    // The change time, which no program sets back; not every file system keeps it.
    FILE_BASIC_INFO basic{};
    if (!::GetFileInformationByHandleEx(file, FileBasicInfo, &basic, sizeof basic))
        basic.ChangeTime.QuadPart = 0;
    ::CloseHandle(file);
    if (!known || (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
        return std::nullopt;
    const auto join = [](DWORD high, DWORD low) {
        return (static_cast<std::uint64_t>(high) << 32) | low;
    };
    // Modification time in 100 ns steps since 1601, as nanoseconds.
    const auto written =
        join(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime);
    return FileStatus{join(info.nFileSizeHigh, info.nFileSizeLow),
                      static_cast<std::int64_t>(written) * 100,
                      static_cast<std::int64_t>(basic.ChangeTime.QuadPart) * 100,
                      join(info.nFileIndexHigh, info.nFileIndexLow)};
}

Result<std::uintmax_t> fileSize(const fs::path& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data))
        return readFailure(path, ::GetLastError());
    if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return readFailure(path, ERROR_DIRECTORY);
    return (static_cast<std::uintmax_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

Result<std::vector<std::uint8_t>> readFile(const fs::path& path) {
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return readFailure(path, ::GetLastError());
    std::vector<std::uint8_t> data;
    std::uint8_t buffer[65536];
    for (;;) {
        DWORD n = 0;
        if (!::ReadFile(file, buffer, sizeof buffer, &n, nullptr)) {
            const DWORD code = ::GetLastError();
            ::CloseHandle(file);
            return readFailure(path, code);
        }
        if (n == 0)
            break;
        data.insert(data.end(), buffer, buffer + n);
    }
    ::CloseHandle(file);
    return data;
}

namespace {

// Temporary files of a save: "~parlex", the process and a counter, ".tmp".
constexpr std::wstring_view kTemporaryPrefix = L"~parlex";

// Removes the temporary files that killed saves left in `folder`: a live save holds
// its file open without sharing, so only an orphan can be opened for deletion.
void removeStrayTemporaries(const fs::path& folder) {
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::wstring name = it->path().filename().wstring();
        if (!name.starts_with(kTemporaryPrefix) || !name.ends_with(L".tmp"))
            continue;
        const HANDLE file = ::CreateFileW(it->path().c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                          FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (file != INVALID_HANDLE_VALUE)
            ::CloseHandle(file);
    }
}

// A test's fault at `step`, as the system's error code, or 0.
DWORD injected(SaveStep step) {
    return static_cast<DWORD>(SaveFault::at(step));
}

} // namespace

Result<void> writeFileAtomic(const fs::path& given, std::span<const std::uint8_t> bytes) {
    // Whole paths: ReplaceFileW refuses a bare file name (ERROR_DIRECTORY).
    std::error_code ec;
    const fs::path absolute = fs::absolute(given, ec);
    const fs::path& path = ec ? given : absolute;
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(L".");
    // A folder in place of the file is refused before anything is written (Wine's
    // ReplaceFileW would put the new file inside it).
    if (const DWORD found = ::GetFileAttributesW(path.c_str());
        found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY))
        return writeFailure(given, ERROR_DIRECTORY);
    removeStrayTemporaries(folder);
    // A temporary file in the same folder, with a short name of its own.
    fs::path temporary;
    HANDLE file = INVALID_HANDLE_VALUE;
    if (const DWORD code = injected(SaveStep::Create))
        return writeFailure(given, code);
    for (unsigned attempt = 0; attempt < 100 && file == INVALID_HANDLE_VALUE; ++attempt) {
        temporary =
            folder / (std::wstring(kTemporaryPrefix) + std::to_wstring(::GetCurrentProcessId()) +
                      L"-" + std::to_wstring(::GetTickCount() + attempt) + L".tmp");
        file = ::CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE && ::GetLastError() != ERROR_FILE_EXISTS)
            return writeFailure(given, ::GetLastError());
    }
    if (file == INVALID_HANDLE_VALUE)
        return writeFailure(given, ERROR_FILE_EXISTS);
    const auto abandon = [&](DWORD code) {
        ::CloseHandle(file);
        ::DeleteFileW(temporary.c_str());
        return writeFailure(given, code);
    };
    if (const DWORD code = injected(SaveStep::Write))
        return abandon(code);
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD n = 0;
        const auto chunk = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1 << 20));
        if (!::WriteFile(file, bytes.data() + done, chunk, &n, nullptr))
            return abandon(::GetLastError());
        done += n;
    }
    if (const DWORD code = injected(SaveStep::Sync))
        return abandon(code);
    if (!::FlushFileBuffers(file))
        return abandon(::GetLastError());
    if (const DWORD code = injected(SaveStep::Owner))
        return abandon(code);
    const DWORD flushFault = injected(SaveStep::Flush);
    ::CloseHandle(file);
    if (flushFault) {
        ::DeleteFileW(temporary.c_str());
        return writeFailure(given, flushFault);
    }

    // A read-only target is replaced all the same: the mark is taken off first.
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists && (attributes & FILE_ATTRIBUTE_READONLY))
        ::SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    // ReplaceFileW keeps the target's attributes and access rights.
    const DWORD renameFault = injected(SaveStep::Rename);
    const bool replaced =
        !renameFault &&
        (exists ? ::ReplaceFileW(path.c_str(), temporary.c_str(), nullptr,
                                 REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0
                : ::MoveFileExW(temporary.c_str(), path.c_str(),
                                MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0);
    if (!replaced) {
        const DWORD code = renameFault ? renameFault : ::GetLastError();
        ::DeleteFileW(temporary.c_str());
        if (exists && (attributes & FILE_ATTRIBUTE_READONLY))
            ::SetFileAttributesW(path.c_str(), attributes);
        return writeFailure(given, code);
    }
    // The attributes again, for a system whose ReplaceFileW does not carry them over
    // (Wine's); the read-only mark stays off, as on every other system.
    if (exists)
        ::SetFileAttributesW(path.c_str(),
                             (attributes & ~FILE_ATTRIBUTE_READONLY) | FILE_ATTRIBUTE_ARCHIVE);
    return {};
}

std::tm localNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_s(&local, &now);
    return local;
}

fs::path programDir() {
    std::wstring buffer(MAX_PATH, L'\0');
    for (;;) {
        const DWORD n =
            ::GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
        if (n == 0)
            return fs::current_path();
        if (n < buffer.size()) {
            buffer.resize(n);
            return fs::path(buffer).parent_path();
        }
        buffer.resize(buffer.size() * 2);
    }
}

bool folderWritable(const fs::path& folder) {
    // The one sure test on Windows, where access rights are not mode bits: make a file.
    const fs::path probe = folder / (L"~parlex-probe" + std::to_wstring(::GetCurrentProcessId()));
    const HANDLE file =
        ::CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                      FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    ::CloseHandle(file);
    return true;
}

namespace {

// A folder named by an environment variable, read as UTF-16.
fs::path knownFolder(const wchar_t* variable) {
    const wchar_t* value = ::_wgetenv(variable);
    return value && *value ? fs::path(value) : fs::current_path();
}

} // namespace

// Where Qt puts them on Windows: settings under the local application data, data
// under the roaming one.
fs::path userConfigHome() {
    return knownFolder(L"LOCALAPPDATA");
}

fs::path userDataHome() {
    return knownFolder(L"APPDATA");
}

} // namespace parlex::platform
