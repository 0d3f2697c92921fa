#include "codelists/codelists.h"

#include "npc/npcrecord.h"
#include "platform/files.h"
#include "text/cp1251.h"

#include <sys/stat.h>

namespace parlex {
namespace {

constexpr std::size_t kLookupLineLimit = 80;
constexpr std::size_t kListLineLimit = 120;
constexpr std::size_t kRowLimit = 32735;

// Lines of a file's bytes, without their CR LF (or LF) ends.
std::vector<std::string_view> splitLines(std::string_view data) {
    std::vector<std::string_view> lines;
    while (!data.empty()) {
        const auto nl = data.find('\n');
        std::string_view line = data.substr(0, nl);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        if (nl == std::string_view::npos)
            break;
        data = data.substr(nl + 1);
    }
    return lines;
}

bool isSkipped(std::string_view line) {
    return line.empty() || line.front() == ';';
}

// A line longer than `limit` characters becomes its first limit-3 characters and "...".
std::string cutLine(std::string_view line, std::size_t limit) {
    if (line.size() <= limit)
        return std::string(line);
    return std::string(line.substr(0, limit - 3)) + "...";
}

// The leading decimal number of a code text (blanks before it allowed), 0 if none.
std::uint64_t leadingNumber(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
        ++i;
    std::uint64_t value = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        value = value * 10 + static_cast<std::uint64_t>(text[i] - '0');
    return value;
}

// A code text that is a number as a whole: digits, optionally framed by blanks.
std::optional<std::uint64_t> wholeNumber(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return std::nullopt;
    const auto last = text.find_last_not_of(' ');
    const auto digits = text.substr(first, last - first + 1);
    if (digits.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    return leadingNumber(digits);
}

std::optional<std::string> readBytes(const std::filesystem::path& path) {
    auto data = platform::readFile(path);
    if (!data)
        return std::nullopt;
    return std::string(data->begin(), data->end());
}

} // namespace

std::string formatListRow(bool wordCodes, std::uint32_t code, std::string_view text) {
    std::string row = "№_" + std::to_string(code) + " (" + byteHex(code & 0xFF);
    if (wordCodes)
        row += " " + byteHex((code >> 8) & 0xFF);
    row += ") ";
    row += text;
    return row;
}

std::filesystem::path CodeLists::overridePath(ListKey key) const {
    return folder_ / std::string(codeList(key).overrideFile);
}

const CodeLists::Parsed* CodeLists::overrideFile(ListKey key) const {
    const auto path = overridePath(key);
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) {
        cache_.erase(key);
        return nullptr;
    }
    const std::int64_t mtimeNs =
        static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1'000'000'000 + st.st_mtim.tv_nsec;
    if (auto it = cache_.find(key); it != cache_.end() &&
                                    it->second.size == static_cast<std::uintmax_t>(st.st_size) &&
                                    it->second.mtimeNs == mtimeNs && it->second.inode == st.st_ino)
        return &it->second;

    Parsed parsed;
    parsed.size = static_cast<std::uintmax_t>(st.st_size);
    parsed.mtimeNs = mtimeNs;
    parsed.inode = st.st_ino;
    const auto data = readBytes(path);
    if (data) {
        for (std::string_view raw : splitLines(*data)) {
            if (isSkipped(raw))
                continue;
            const std::string line = cutLine(raw, kLookupLineLimit);
            const auto eq = line.find('=');
            if (eq == std::string::npos)
                continue; // a line without "=" names nothing
            const std::string_view code = std::string_view(line).substr(0, eq);
            const std::uint64_t value = leadingNumber(code);
            if (code.size() > 6 || value > 65535)
                continue;
            parsed.texts.emplace(static_cast<std::uint32_t>(value),
                                 text::cp1251ToUtf8(std::string_view(line).substr(eq + 1)));
        }
    }
    return &(cache_[key] = std::move(parsed));
}

std::string CodeLists::lookup(ListKey key, std::uint32_t value) const {
    if (const Parsed* file = overrideFile(key)) {
        const auto it = file->texts.find(value);
        return it == file->texts.end() ? std::string("?") : it->second;
    }
    return textOrUnknown(builtInText(key, value));
}

std::string CodeLists::lookupCode(int fieldIndex, std::uint32_t value) const {
    const auto key = listForField(fieldIndex);
    return key ? lookup(*key, value) : std::string("?");
}

ListRows CodeLists::rows(ListKey key) const {
    const CodeList& list = codeList(key);
    ListRows result;
    const auto path = overridePath(key);
    if (!platform::fileExists(path)) {
        for (auto code : builtInCodes(key))
            result.rows.push_back(formatListRow(list.wordCodes, code,
                                                builtInText(key, code).value_or(std::string())));
        return result;
    }
    const auto data = readBytes(path);
    if (!data)
        return result;
    std::uint32_t code = 0; // code of the last data line: carried by lines without "="
    for (std::string_view raw : splitLines(*data)) {
        if (isSkipped(raw))
            continue;
        const std::string line = cutLine(raw, kListLineLimit);
        std::string_view rowText = line;
        if (const auto eq = line.find('='); eq != std::string::npos) {
            const auto number = wholeNumber(std::string_view(line).substr(0, eq));
            if (eq > 6 || !number || *number > 65535)
                continue;
            code = static_cast<std::uint32_t>(*number);
            rowText = std::string_view(line).substr(eq + 1);
        }
        if (result.rows.size() == kRowLimit) {
            std::string shown(rowText);
            if (shown.size() > 50)
                shown = shown.substr(0, 47) + "...";
            result.warning = "Достигнут предел потребления ресурсов памяти.\n"
                             "Сейчас будет очищены все занимаемые этой программой\n"
                             "ресурсы памяти. Остоновка на чтении.... \n"
                             "Строка: " +
                             text::cp1251ToUtf8(shown) +
                             "\nНомер стороки: " + std::to_string(result.rows.size());
            result.rows.push_back("Error - аварийное прерывание");
            break;
        }
        result.rows.push_back(formatListRow(list.wordCodes, code, text::cp1251ToUtf8(rowText)));
    }
    return result;
}

std::string CodeLists::characterNameForTitle(const std::string& title) const {
    if (title.size() < 3 || title.substr(0, 3).find_first_not_of("0123456789") != std::string::npos)
        return title;
    const int number = std::stoi(title.substr(0, 3));
    const auto path = overridePath(ListKey::N);
    if (platform::fileExists(path)) {
        const auto data = readBytes(path);
        if (!data)
            return title;
        const std::string key = std::to_string(number);
        for (std::string_view raw : splitLines(*data)) {
            if (isSkipped(raw))
                continue;
            const std::string line = cutLine(raw, kListLineLimit);
            const auto eq = line.find('=');
            if (eq != std::string::npos && line.compare(0, eq, key) == 0 && eq == key.size())
                return text::cp1251ToUtf8(std::string_view(line).substr(eq + 1));
        }
        return title;
    }
    return textOrUnknown(builtInText(ListKey::N, static_cast<std::uint32_t>(number)));
}

} // namespace parlex
