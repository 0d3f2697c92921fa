#include "cli/args.h"

#include "cli/clitexts.h"
#include "core/platform/files.h"

#include <algorithm>
#include <charconv>

namespace parlex::cli {

std::optional<std::string> Args::value(std::string_view name) const {
    if (auto it = values.find(name); it != values.end())
        return it->second;
    return std::nullopt;
}

std::variant<Args, UsageError> parseArgs(std::span<char* const> words,
                                         std::span<const OptionSpec> options) {
    Args args;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (word == "--help" || word == "-h") {
            args.help = true;
            continue;
        }
        const bool shortOption =
            word.size() == 2 && word[0] == '-' && word[1] != '-' &&
            std::ranges::any_of(options, [&](const OptionSpec& o) { return o.name == word; });
        if ((word.size() > 2 && word.starts_with("--")) || shortOption) {
            std::string_view name = word;
            std::optional<std::string_view> inlineValue;
            if (auto eq = word.find('='); eq != std::string_view::npos) {
                name = word.substr(0, eq);
                inlineValue = word.substr(eq + 1);
            }
            const OptionSpec* known = nullptr;
            for (const auto& o : options)
                if (o.name == name)
                    known = &o;
            if (!known)
                return UsageError{say(kTexts[Say::UnknownOption], {std::string(name)})};
            if (!known->takesValue) {
                if (inlineValue)
                    return UsageError{say(kTexts[Say::NoValueAllowed], {std::string(name)})};
                args.flags.emplace(name);
            } else if (inlineValue) {
                args.values[std::string(name)] = std::string(*inlineValue);
            } else if (i + 1 < words.size()) {
                args.values[std::string(name)] = words[++i];
            } else {
                return UsageError{say(kTexts[Say::ValueNeeded], {std::string(name)})};
            }
            continue;
        }
        args.positional.emplace_back(word);
    }
    return args;
}

std::filesystem::path pathArg(std::string_view utf8) {
    return platform::pathFromUtf8(utf8);
}

std::vector<std::filesystem::path> pathArgs(const std::vector<std::string>& words) {
    std::vector<std::filesystem::path> paths;
    paths.reserve(words.size());
    for (const auto& word : words)
        paths.push_back(pathArg(word));
    return paths;
}

std::optional<long long> parseNumber(std::string_view text, long long min, long long max) {
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
        base = 16;
    }
    long long value = 0;
    const auto* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value, base);
    if (text.empty() || ec != std::errc() || ptr != end || value < min || value > max)
        return std::nullopt;
    return value;
}

} // namespace parlex::cli
