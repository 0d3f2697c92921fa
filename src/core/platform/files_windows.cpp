// The Windows side of the platform: every name goes to the system as UTF-16
// through std::filesystem::path and the W functions.
#include "platform/files.h"

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

Error systemError(ErrorKind kind, const char* what, DWORD code) {
    return Error{kind, std::string("Ошибка во время ") + what + ". Error " + std::to_string(code) +
                           "\n" + systemText(code)};
}

std::unexpected<Error> readFailure(DWORD code) {
    const bool missing = code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
    return std::unexpected(
        systemError(missing ? ErrorKind::NotFound : ErrorKind::Read, "чтения файла", code));
}

std::unexpected<Error> writeFailure(DWORD code) {
    return std::unexpected(systemError(ErrorKind::Write, "сохранения файла", code));
}

// "D:\" or "\\server\share\": the root GetDriveTypeW asks for.
fs::path rootOf(const fs::path& path) {
    std::error_code ec;
    const fs::path absolute = fs::absolute(path, ec);
    fs::path root = (ec ? path : absolute).root_path();
    return root.empty() ? fs::path(L"\\") : root;
}

} // namespace

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
                      join(info.nFileIndexHigh, info.nFileIndexLow)};
}

Result<std::uintmax_t> fileSize(const fs::path& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data))
        return readFailure(::GetLastError());
    if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return readFailure(ERROR_DIRECTORY);
    return (static_cast<std::uintmax_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

Result<std::vector<std::uint8_t>> readFile(const fs::path& path) {
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return readFailure(::GetLastError());
    std::vector<std::uint8_t> data;
    std::uint8_t buffer[65536];
    for (;;) {
        DWORD n = 0;
        if (!::ReadFile(file, buffer, sizeof buffer, &n, nullptr)) {
            const DWORD code = ::GetLastError();
            ::CloseHandle(file);
            return readFailure(code);
        }
        if (n == 0)
            break;
        data.insert(data.end(), buffer, buffer + n);
    }
    ::CloseHandle(file);
    return data;
}

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
        return writeFailure(ERROR_ACCESS_DENIED);
    // A temporary file in the same folder, with a short name of its own.
    fs::path temporary;
    HANDLE file = INVALID_HANDLE_VALUE;
    for (unsigned attempt = 0; attempt < 100 && file == INVALID_HANDLE_VALUE; ++attempt) {
        temporary = folder / (L"~parlex" + std::to_wstring(::GetCurrentProcessId()) + L"-" +
                              std::to_wstring(::GetTickCount() + attempt) + L".tmp");
        file = ::CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE && ::GetLastError() != ERROR_FILE_EXISTS)
            return writeFailure(::GetLastError());
    }
    if (file == INVALID_HANDLE_VALUE)
        return writeFailure(ERROR_FILE_EXISTS);
    const auto abandon = [&](DWORD code) {
        ::CloseHandle(file);
        ::DeleteFileW(temporary.c_str());
        return writeFailure(code);
    };
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD n = 0;
        const auto chunk = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1 << 20));
        if (!::WriteFile(file, bytes.data() + done, chunk, &n, nullptr))
            return abandon(::GetLastError());
        done += n;
    }
    if (!::FlushFileBuffers(file))
        return abandon(::GetLastError());
    ::CloseHandle(file);

    // A read-only target is replaced all the same: the mark is taken off first.
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists && (attributes & FILE_ATTRIBUTE_READONLY))
        ::SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    // ReplaceFileW keeps the target's attributes and access rights.
    const bool replaced =
        exists ? ::ReplaceFileW(path.c_str(), temporary.c_str(), nullptr,
                                REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0
               : ::MoveFileExW(temporary.c_str(), path.c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    if (!replaced) {
        const DWORD code = ::GetLastError();
        ::DeleteFileW(temporary.c_str());
        if (exists && (attributes & FILE_ATTRIBUTE_READONLY))
            ::SetFileAttributesW(path.c_str(), attributes);
        return writeFailure(code);
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
