#pragma once

#include "core/text/language.h"

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace parlex::cli {

// Exit statuses of every command.
inline constexpr int kOk = 0;
inline constexpr int kFailed = 1; // a file or value cannot be used
inline constexpr int kUsage = 2;  // the command line itself is wrong

struct OptionSpec {
    std::string_view name; // "--record"
    bool takesValue;
};

struct Args {
    std::vector<std::string> positional;
    std::map<std::string, std::string, std::less<>> values;
    std::set<std::string, std::less<>> flags;
    bool help = false;

    bool has(std::string_view name) const { return values.contains(name) || flags.contains(name); }
    std::optional<std::string> value(std::string_view name) const;
};

struct UsageError {
    Said message;
};

// Splits the words of a command line by the options the command knows.
// "--help"/"-h" anywhere asks for help; unknown "--" options are usage errors. A
// short option ("-o") counts only where the command has one; "-5" stays a word.
std::variant<Args, UsageError> parseArgs(std::span<char* const> words,
                                         std::span<const OptionSpec> options);

// A file name given on the command line (UTF-8) as a path.
std::filesystem::path pathArg(std::string_view utf8);
std::vector<std::filesystem::path> pathArgs(const std::vector<std::string>& words);

// A whole number written in decimal or in hex ("0x1F", as the grid shows bytes)
// within [min, max]; nothing for anything else.
std::optional<long long> parseNumber(std::string_view text, long long min, long long max);

} // namespace parlex::cli
