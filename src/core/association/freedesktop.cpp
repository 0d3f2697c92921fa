#include "core/association/freedesktop.h"

#include "core/codelists/embedded.h"
#include "core/platform/files.h"
#include "core/platform/process.h"
#include "core/platform/systemtexts.h"
#include "core/text/escape.h"
#include "core/text/lines.h"

#include <algorithm>

namespace parlex {
namespace fs = std::filesystem;

namespace freedesktop {
namespace {

constexpr std::string_view kDefaultGroup = "[Default Applications]";
// Characters that make an argument of an Exec value need quotes.
constexpr std::string_view kReserved = " \t\n\"'\\><~|&;$*?#()`";

// The key of a "key=value" line and its value, blanks around "=" dropped.
std::optional<std::pair<std::string_view, std::string_view>> keyAndValue(std::string_view line) {
    const auto pair = text::splitAtEquals(line);
    if (!pair || text::trimmed(line).starts_with('#'))
        return std::nullopt;
    return std::pair{text::trimmed(pair->key), text::trimmed(pair->value)};
}

bool isGroupHeader(std::string_view line) {
    return text::trimmed(line).starts_with('[');
}

// Undoes the escapes of a string value: \s \n \t \r \\.
std::string unescapeString(std::string_view value) {
    std::string out;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            out += value[i];
            continue;
        }
        switch (value[++i]) {
        case 's':
            out += ' ';
            break;
        case 'n':
            out += '\n';
            break;
        case 't':
            out += '\t';
            break;
        case 'r':
            out += '\r';
            break;
        case '\\':
            out += '\\';
            break;
        default:
            out += '\\', out += value[i];
        }
    }
    return out;
}

} // namespace

std::string execValue(const fs::path& program) {
    std::string argument;
    for (char c : platform::utf8(program))
        argument += c == '%' ? std::string("%%") : std::string(1, c);
    if (argument.find_first_of(kReserved) != std::string::npos) {
        std::string quoted = "\"";
        for (char c : argument) {
            if (c == '"' || c == '`' || c == '$' || c == '\\')
                quoted += '\\';
            quoted += c;
        }
        argument = quoted + '"';
    }
    return text::backslashEscaped(argument) + " %f";
}

std::optional<fs::path> programOfExec(std::string_view value) {
    const std::string line = unescapeString(value);
    std::string argument;
    std::size_t i = 0;
    if (line.starts_with('"')) {
        for (i = 1; i < line.size() && line[i] != '"'; ++i) {
            if (line[i] == '\\' && i + 1 < line.size())
                ++i;
            argument += line[i];
        }
        if (i == line.size())
            return std::nullopt; // the closing quote is missing
    } else {
        argument = line.substr(0, line.find_first_of(" \t"));
    }
    std::string program;
    for (std::size_t k = 0; k < argument.size(); ++k) {
        if (argument[k] == '%') {
            if (k + 1 == argument.size() || argument[k + 1] != '%')
                return std::nullopt; // a field code is no part of a program's name
            ++k;
        }
        program += argument[k];
    }
    if (program.empty())
        return std::nullopt;
    return fs::path(program);
}

std::string desktopEntry(const fs::path& program) {
    std::string out;
    for (auto line : text::splitLines(embedded::file("org.parlex.Parlex.desktop"))) {
        const auto pair = keyAndValue(line);
        out += pair && pair->first == "Exec" ? "Exec=" + execValue(program) : std::string(line);
        out += '\n';
    }
    return out;
}

std::string_view mimePackage() {
    return embedded::file("org.parlex.Parlex.xml");
}

std::optional<std::string> keyValue(std::string_view text, std::string_view group,
                                    std::string_view key) {
    bool inGroup = false;
    for (auto line : text::splitLines(text)) {
        if (isGroupHeader(line)) {
            const auto header = text::trimmed(line);
            inGroup = header.size() == group.size() + 2 && header.substr(1, group.size()) == group;
        } else if (const auto pair = keyAndValue(line); inGroup && pair && pair->first == key) {
            return std::string(pair->second);
        }
    }
    return std::nullopt;
}

std::string withDefault(std::string_view text, std::string_view mimeType,
                        std::optional<std::string_view> desktopId) {
    const auto lines = text::splitLines(text);
    const std::string entry =
        desktopId ? std::string(mimeType) + "=" + std::string(*desktopId) : std::string();
    const auto isEntry = [&](std::string_view line, bool inDefault) {
        const auto pair = keyAndValue(line);
        return inDefault && pair && pair->first == mimeType;
    };

    bool present = false;
    bool inDefault = false;
    for (auto line : lines) {
        if (isGroupHeader(line))
            inDefault = text::trimmed(line) == kDefaultGroup;
        else
            present = present || isEntry(line, inDefault);
    }

    std::string out;
    bool placed = !desktopId;
    inDefault = false;
    for (auto line : lines) {
        if (isGroupHeader(line)) {
            inDefault = text::trimmed(line) == kDefaultGroup;
            out += std::string(line) + '\n';
            if (inDefault && !present && !placed) {
                out += entry + '\n';
                placed = true;
            }
            continue;
        }
        if (isEntry(line, inDefault)) {
            if (!placed)
                out += entry + '\n';
            placed = true;
            continue;
        }
        out += std::string(line) + '\n';
    }
    if (!placed) {
        if (!out.empty() && !out.ends_with("\n\n"))
            out += '\n';
        out += std::string(kDefaultGroup) + '\n' + entry + '\n';
    }
    return out;
}

std::optional<std::string> defaultOf(std::string_view text, std::string_view mimeType) {
    bool inDefault = false;
    for (auto line : text::splitLines(text)) {
        if (isGroupHeader(line)) {
            inDefault = text::trimmed(line) == kDefaultGroup;
            continue;
        }
        const auto pair = keyAndValue(line);
        if (!inDefault || !pair || pair->first != mimeType)
            continue;
        const auto value = pair->second;
        const auto first = text::trimmed(value.substr(0, value.find(';')));
        return first.empty() ? std::nullopt : std::optional<std::string>(first);
    }
    return std::nullopt;
}

} // namespace freedesktop

namespace {

std::optional<std::string> readText(const fs::path& path) {
    auto bytes = platform::readFileLimited(path, platform::kMaxTextFileSize);
    if (!bytes)
        return std::nullopt;
    return std::string(bytes->begin(), bytes->end());
}

Result<void> writeText(const fs::path& path, std::string_view text) {
    std::error_code ec;
    fs::create_directories(path.parent_path(), ec);
    return platform::writeFileAtomic(path, text);
}

} // namespace

FreedesktopAssociation::FreedesktopAssociation(fs::path program, fs::path dataHome,
                                               fs::path configHome)
    : program_(std::move(program)), dataHome_(std::move(dataHome)),
      configHome_(std::move(configHome)) {}

fs::path FreedesktopAssociation::mimePackageFile() const {
    return dataHome_ / "mime" / "packages" / "org.parlex.Parlex.xml";
}

fs::path FreedesktopAssociation::desktopFile() const {
    return dataHome_ / "applications" / std::string(kDesktopId);
}

fs::path FreedesktopAssociation::mimeappsFile() const {
    return configHome_ / "mimeapps.list";
}

bool FreedesktopAssociation::isAssociated() const {
    const auto mimeapps = readText(mimeappsFile());
    if (!mimeapps || freedesktop::defaultOf(*mimeapps, kScriptMimeType) != kDesktopId)
        return false;
    const auto entry = readText(desktopFile());
    const auto exec = entry ? freedesktop::keyValue(*entry, "Desktop Entry", "Exec") : std::nullopt;
    const auto program = exec ? freedesktop::programOfExec(*exec) : std::nullopt;
    return program && platform::samePath(*program, program_);
}

Result<void> FreedesktopAssociation::associate() {
    if (auto written = writeText(mimePackageFile(), freedesktop::mimePackage()); !written)
        return written;
    // Without the tool the type is still known to programs that read the packages.
    platform::runProgram("update-mime-database", {platform::utf8(dataHome_ / "mime")});
    if (auto written = writeText(desktopFile(), freedesktop::desktopEntry(program_)); !written)
        return written;
    std::string mimeapps;
    if (platform::fileExists(mimeappsFile())) {
        const auto text = readText(mimeappsFile());
        if (!text)
            return fail(ErrorKind::Read, say(systemtexts::kTexts[systemtexts::Say::CannotRead],
                                             {platform::utf8(mimeappsFile())}));
        mimeapps = *text;
    }
    return writeText(mimeappsFile(),
                     freedesktop::withDefault(mimeapps, kScriptMimeType, kDesktopId));
}

Result<void> FreedesktopAssociation::disassociate() {
    Result<void> outcome;
    if (const auto text = readText(mimeappsFile());
        text && freedesktop::defaultOf(*text, kScriptMimeType)) {
        outcome = writeText(mimeappsFile(),
                            freedesktop::withDefault(*text, kScriptMimeType, std::nullopt));
    }
    std::error_code ec;
    fs::remove(desktopFile(), ec);
    if (ec && outcome)
        return fail(ErrorKind::Write, say(systemtexts::kTexts[systemtexts::Say::CannotRemove],
                                          {platform::utf8(desktopFile())}));
    return outcome;
}

} // namespace parlex
