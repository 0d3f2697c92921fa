#include "core/codelists/codelist.h"

#include <algorithm>

#include "core/codelists/embedded.h"
#include "core/codelists/resources.h"
#include "core/text/lines.h"

#include <array>
#include <charconv>
#include <map>
#include <mutex>

namespace parlex {
namespace {

constexpr std::array<CodeList, 7> kLists{{
    {ListKey::R, "R", "React.txt", "reactions.txt", true, 0, 1},
    {ListKey::A, "A", "Action.txt", "actions.txt", false, 0, 0},
    {ListKey::T, "T", "Trigg.txt", "triggers.txt", true, 499, -1},
    {ListKey::I, "I", "Items.txt", "items.txt", true, 350, -1},
    {ListKey::N, "N", "Npc.txt", "characters.txt", false, 169, -1},
    {ListKey::Qi, "Qi", "Q_Input.txt", "quests_taken.txt", false, 29, -1},
    {ListKey::Qo, "Qo", "Q_Output.txt", "quests_closed.txt", false, 29, -1},
}};

using Table = std::map<std::uint32_t, std::string>;

// Each list is read from its text when it is first looked up: the window opens
// needing one name, not every list.
const Table& builtInTable(ListKey key) {
    static std::array<Table, 7> tables;
    static std::array<std::once_flag, 7> read;
    const auto index = static_cast<std::size_t>(key);
    std::call_once(read[index],
                   [&] { tables[index] = codeTable(embedded::file(codeList(key).dataFile)); });
    return tables[index];
}

} // namespace

std::map<std::uint32_t, std::string> codeTable(std::string_view data) {
    std::map<std::uint32_t, std::string> table;
    for (std::string_view line : text::splitLines(data)) {
        const auto pair = text::splitAtEquals(line);
        if (!pair)
            continue;
        std::uint32_t code = 0;
        std::from_chars(pair->key.data(), pair->key.data() + pair->key.size(), code);
        table.emplace(code, std::string(pair->value));
    }
    return table;
}

std::span<const CodeList> codeLists() {
    return kLists;
}

const CodeList& codeList(ListKey key) {
    for (const auto& list : kLists)
        if (list.key == key)
            return list;
    return kLists[0];
}

std::optional<ListKey> parseListKey(std::string_view text) {
    const auto lower = [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; };
    for (const auto& list : kLists)
        if (std::ranges::equal(list.keyText, text,
                               [&](char a, char b) { return lower(a) == lower(b); }))
            return list.key;
    return std::nullopt;
}

std::vector<std::uint32_t> builtInCodes(ListKey key) {
    const CodeList& list = codeList(key);
    std::vector<std::uint32_t> codes;
    if (list.resourceString >= 0)
        return resourceCodes(list.resourceString);
    for (std::uint32_t c = 0; c <= list.lastCode; ++c)
        codes.push_back(c);
    return codes;
}

std::optional<std::string> builtInText(ListKey key, std::uint32_t code) {
    const CodeList& list = codeList(key);
    if (list.resourceString >= 0) {
        // Actions and reactions answer only the codes of their resource string.
        bool listed = false;
        for (auto c : resourceCodes(list.resourceString))
            listed = listed || c == code;
        if (!listed)
            return std::nullopt;
    } else if (code > list.lastCode) {
        return std::nullopt;
    }
    const Table& table = builtInTable(key);
    const auto it = table.find(code);
    if (it == table.end())
        return std::nullopt;
    if (key == ListKey::T && code >= 400 && !it->second.empty())
        return it->second + " UB";
    return it->second;
}

} // namespace parlex
