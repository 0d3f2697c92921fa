#include "core/codelists/codelists.h"

#include "core/codelists/listtexts.h"

#include "core/explain/fieldlayout.h"
#include "core/npc/npcrecord.h"
#include "core/text/cp1251.h"
#include "core/text/hex.h"
#include "core/text/lines.h"

namespace parlex {
namespace {

constexpr std::size_t kLookupLineLimit = 80;
constexpr std::size_t kListLineLimit = 120;
constexpr std::size_t kRowLimit = 32735;
constexpr std::size_t kWarningLineLimit = 50; // of the line the row-limit warning quotes

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

} // namespace

std::string formatListRow(bool wordCodes, std::uint32_t code, std::string_view name,
                          Language language) {
    std::string row =
        fill(listtexts::kTexts(listtexts::Say::Number, language), {std::to_string(code)}) + " (" +
        text::byteHex(code & 0xFF);
    if (wordCodes)
        row += " " + text::byteHex((code >> 8) & 0xFF);
    row += ") ";
    row += name;
    return row;
}

std::filesystem::path CodeLists::overridePath(ListKey key) const {
    return folder_ / std::string(codeList(key).overrideFile);
}

const CodeLists::ListFile* CodeLists::overrideFile(ListKey key) const {
    if (!watch_ && settled_.contains(key)) {
        const auto it = cache_.find(key);
        return it == cache_.end() ? nullptr : &it->second;
    }
    const auto path = overridePath(key);
    const auto status = platform::fileStatus(path);
    if (!status) {
        settled_.insert(key);
        cache_.erase(key);
        return nullptr;
    }
    if (auto it = cache_.find(key); it != cache_.end() && it->second.status == *status) {
        settled_.insert(key);
        return &it->second;
    }
    const auto file = readOverride(key, *status);
    if (file) {
        told_.erase(key);
        settled_.insert(key);
        return *file;
    }
    // Said once for each state of the file, so that a lookup per mouse move does not
    // repeat it; an empty list stands in for the file until it can be read.
    cache_.erase(key);
    if (const auto told = told_.find(key); told == told_.end() || told->second != *status) {
        told_[key] = *status;
        if (onReadError_)
            onReadError_(file.error());
    }
    static const ListFile kUnreadable{};
    return &kUnreadable;
}

Result<const CodeLists::ListFile*>
CodeLists::readOverride(ListKey key, const platform::FileStatus& status) const {
    const auto path = overridePath(key);
    const auto data = platform::readFileLimited(path, platform::kMaxTextFileSize);
    if (!data) {
        if (data.error().systemCode == 0)
            return std::unexpected(data.error());
        const int code = data.error().systemCode;
        return std::unexpected(
            Error::said(ErrorKind::Read, inEach([&](Language l) {
                            return fill(listtexts::kTexts(listtexts::Say::Unreadable, l),
                                        {std::to_string(code), platform::errorDescription(code, l),
                                         platform::utf8(path)});
                        }),
                        {}, code));
    }
    ListFile file;
    file.status = status;
    const std::string bytes = text::textFileAsCp1251(
        std::string_view(reinterpret_cast<const char*>(data->data()), data->size()));
    for (std::string_view raw : text::splitLines(bytes))
        if (!isSkipped(raw))
            file.lines.emplace_back(raw);
    for (const std::string& raw : file.lines) {
        const std::string line = cutLine(raw, kLookupLineLimit);
        const auto pair = text::splitAtEquals(line);
        if (!pair)
            continue; // a line without "=" names nothing
        const std::uint64_t value = leadingNumber(pair->key);
        if (pair->key.size() > 6 || value > kMaxWordValue)
            continue;
        file.texts.emplace(static_cast<std::uint32_t>(value), text::cp1251ToUtf8(pair->value));
    }
    return &(cache_[key] = std::move(file));
}

std::optional<Error> CodeLists::check() const {
    for (const ListKey key : kAllListKeys) {
        const auto status = platform::fileStatus(overridePath(key));
        if (!status)
            continue;
        if (const auto file = readOverride(key, *status); !file)
            return file.error();
    }
    return std::nullopt;
}

std::string CodeLists::lookup(ListKey key, std::uint32_t value) const {
    if (const ListFile* file = overrideFile(key)) {
        const auto it = file->texts.find(value);
        return it == file->texts.end() ? std::string("?") : it->second;
    }
    return textOrUnknown(builtInText(key, value));
}

std::string CodeLists::lookupCode(int fieldIndex, std::uint32_t value) const {
    const auto key = listForField(fieldIndex);
    return key ? lookup(*key, value) : std::string("?");
}

ListRows CodeLists::rows(ListKey key, Language language) const {
    const CodeList& list = codeList(key);
    ListRows result;
    const ListFile* file = overrideFile(key);
    if (!file) {
        for (auto code : builtInCodes(key))
            result.rows.push_back(formatListRow(
                list.wordCodes, code, builtInText(key, code).value_or(std::string()), language));
        return result;
    }
    std::uint32_t code = 0; // code of the last data line: carried by lines without "="
    for (const std::string& raw : file->lines) {
        const std::string line = cutLine(raw, kListLineLimit);
        std::string_view rowText = line;
        if (const auto pair = text::splitAtEquals(line)) {
            const auto number = wholeNumber(pair->key);
            if (pair->key.size() > 6 || !number || *number > kMaxWordValue)
                continue;
            code = static_cast<std::uint32_t>(*number);
            rowText = pair->value;
        }
        if (result.rows.size() == kRowLimit) {
            const std::string shown = cutLine(rowText, kWarningLineLimit);
            result.warning = fill(listtexts::kTexts(listtexts::Say::RowLimit, language),
                                  {text::cp1251ToUtf8(shown), std::to_string(result.rows.size())});
            result.rows.emplace_back(listtexts::kTexts(listtexts::Say::RowLimitMarker, language));
            break;
        }
        result.rows.push_back(
            formatListRow(list.wordCodes, code, text::cp1251ToUtf8(rowText), language));
    }
    return result;
}

std::string CodeLists::characterNameForTitle(const std::string& title) const {
    if (title.size() < 3 || title.substr(0, 3).find_first_not_of("0123456789") != std::string::npos)
        return title;
    const int number = std::stoi(title.substr(0, 3));
    if (const ListFile* file = overrideFile(ListKey::N)) {
        const std::string key = std::to_string(number);
        for (const std::string& raw : file->lines) {
            const std::string line = cutLine(raw, kListLineLimit);
            if (const auto pair = text::splitAtEquals(line); pair && pair->key == key)
                return text::cp1251ToUtf8(pair->value);
        }
        return title;
    }
    return textOrUnknown(builtInText(ListKey::N, static_cast<std::uint32_t>(number)));
}

} // namespace parlex
