#include "platform/files.h"

#include <cstring>

// What every platform shares; the rest lives in files_posix.cpp and files_windows.cpp.
namespace parlex::platform {
namespace {

std::string errorText(const char* what, int errorNumber) {
    return std::string("Ошибка во время ") + what + ". Error " + std::to_string(errorNumber) +
           "\n" + std::strerror(errorNumber);
}

} // namespace

fs::path pathFromUtf8(std::string_view utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string utf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

Error readOnlyDriveError(const fs::path& path, bool hint) {
    std::string message = "Диск " + driveRoot(path) + "\nтолько для чтения";
    if (hint)
        message += "\nУкажите другой путь";
    return Error{ErrorKind::ReadOnlyDrive, std::move(message)};
}

bool fileExists(const fs::path& path) {
    std::error_code ec;
    return fs::is_regular_file(path, ec);
}

std::string readErrorMessage(int errorNumber) {
    return errorText("чтения файла", errorNumber);
}
std::string writeErrorMessage(int errorNumber) {
    return errorText("сохранения файла", errorNumber);
}

Result<void> writeFileAtomic(const fs::path& path, std::string_view bytes) {
    return writeFileAtomic(
        path, std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
}

} // namespace parlex::platform
