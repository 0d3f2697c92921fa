// List override files: any bytes read without fault. For a file of plain "code=text"
// lines the lookup, the list's rows and the character-name rule agree with what the
// file says: the first text of each code, every line in order.
#include "check.h"
#include "core/codelists/codelist.h"
#include "core/codelists/codelists.h"
#include "core/text/cp1251.h"
#include "core/text/lines.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <unistd.h>
#include <vector>

using namespace parlex;
namespace fs = std::filesystem;

namespace {

const fs::path& folder() {
    static const fs::path made = [] {
        std::string pattern = (fs::temp_directory_path() / "parlex-fuzz-XXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            std::abort();
        return fs::path(pattern);
    }();
    return made;
}

struct Line {
    std::uint32_t code;
    std::string text; // Windows-1251
};

// The file's lines when each is "code=text" with a code written plainly (no blanks,
// no leading zeros, at most 65535) and short enough that no reader cuts it; nothing
// when any line is otherwise.
std::optional<std::vector<Line>> plainLines(std::string_view cp1251) {
    std::vector<Line> lines;
    for (std::string_view raw : text::splitLines(cp1251)) {
        if (raw.empty() || raw.front() == ';')
            continue;
        const auto eq = raw.find('=');
        if (eq == std::string_view::npos || eq == 0 || eq > 5 || raw.size() > 80)
            return std::nullopt;
        const std::string_view digits = raw.substr(0, eq);
        if (digits.find_first_not_of("0123456789") != std::string_view::npos ||
            (digits.size() > 1 && digits.front() == '0'))
            return std::nullopt;
        const unsigned long code = std::stoul(std::string(digits));
        if (code > 65535)
            return std::nullopt;
        lines.push_back({static_cast<std::uint32_t>(code), std::string(raw.substr(eq + 1))});
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1)
        return -1;
    const ListKey keys[] = {ListKey::N,  ListKey::T, ListKey::I, ListKey::Qi,
                            ListKey::Qo, ListKey::A, ListKey::R};
    const ListKey key = keys[data[0] % 7];
    const CodeList& list = codeList(key);
    const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const fs::path file = folder() / std::string(list.overrideFile);
    {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out << bytes;
    }
    // A fresh reader each time: two files written within one tick of the clock can
    // look alike to a cache.
    const CodeLists lists(folder(), false);
    FUZZ_CHECK(!lists.check());
    const ListRows rows = lists.rows(key);
    FUZZ_CHECK(rows.rows.size() <= 32736);

    if (const auto lines = plainLines(text::textFileAsCp1251(bytes))) {
        std::map<std::uint32_t, std::string> first;
        for (const Line& line : *lines)
            first.try_emplace(line.code, line.text);
        for (const auto& [code, text] : first) {
            FUZZ_CHECK(lists.lookup(key, code) == text::cp1251ToUtf8(text));
            if (key == ListKey::N && code < 1000) {
                char title[16];
                std::snprintf(title, sizeof title, "%03u.npc", code);
                FUZZ_CHECK(lists.characterNameForTitle(title) == text::cp1251ToUtf8(text));
            }
        }
        if (lines->size() < 32735) {
            FUZZ_CHECK(rows.rows.size() == lines->size() && !rows.warning);
            for (std::size_t i = 0; i < lines->size(); ++i)
                FUZZ_CHECK(rows.rows[i] == formatListRow(list.wordCodes, (*lines)[i].code,
                                                         text::cp1251ToUtf8((*lines)[i].text)));
        }
    }
    fs::remove(file);
    return 0;
}
