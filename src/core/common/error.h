#pragma once

#include "core/text/language.h"

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
    std::string message;   // the finished text in Russian, line breaks as '\n'
    std::string title{};   // empty: the program's usual message title
    int systemCode = 0;    // for a failure of the system: its error number (errno, GetLastError)
    std::string english{}; // the message in English; empty: said as `message` says it
    std::string englishTitle{}; // the title in English; empty: as `title`

    // An error whose words are said in each language.
    static Error said(ErrorKind kind, const Said& message, const Said& title = {},
                      int systemCode = 0) {
        return {kind, message.ru, title.ru, systemCode, message.en, title.en};
    }
    const std::string& text(Language language) const {
        return language == Language::English && !english.empty() ? english : message;
    }
    const std::string& titleIn(Language language) const {
        return language == Language::English && !englishTitle.empty() ? englishTitle : title;
    }
    // The message in each language, to be said again inside a longer one.
    Said words() const { return {message, english.empty() ? message : english}; }
};

template <typename T> using Result = std::expected<T, Error>;

inline std::unexpected<Error> fail(ErrorKind kind, const Said& message, const Said& title = {}) {
    return std::unexpected(Error::said(kind, message, title));
}

// The title of every message box unless an error says otherwise.
inline constexpr const char* kMessageTitle = "Parlex";

} // namespace parlex
