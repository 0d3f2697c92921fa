#pragma once

#include <expected>
#include <string>

namespace parlex {

// What went wrong, in words the user can be shown as they stand.
enum class ErrorKind {
    TooSmall,      // a file shorter than its format allows
    TooLarge,      // a file longer than its format allows
    Read,          // the system refused to read
    Write,         // the system refused to write
    ReadOnlyDrive, // the target lies on a read-only medium
    NotFound,      // a file that should be there is not
    Exists,        // a file is there and may not be replaced without asking
    Invalid,       // a value or argument outside what the format allows
};

struct Error {
    ErrorKind kind;
    std::string message; // the finished text, line breaks as '\n'
    std::string title{}; // empty: the program's usual message title
    int systemCode = 0;  // for a failure of the system: its error number (errno, GetLastError)
};

template <typename T> using Result = std::expected<T, Error>;

inline std::unexpected<Error> fail(ErrorKind kind, std::string message, std::string title = {}) {
    return std::unexpected(Error{kind, std::move(message), std::move(title)});
}

// The title of every message box unless an error says otherwise.
inline constexpr const char* kMessageTitle = "Parlex";

} // namespace parlex
