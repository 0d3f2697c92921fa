#pragma once

#include "core/codelists/listkey.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The seven numbered vocabularies of the game and their built-in tables.
namespace parlex {

struct CodeList {
    ListKey key;
    std::string_view keyText;      // "N", "T", "I", "Qi", "Qo", "A", "R"
    std::string_view overrideFile; // the text file beside the program that replaces the table
    std::string_view dataFile;     // the built-in table in the program's data
    bool wordCodes;                // Word codes (two bytes) or Byte codes
    std::uint32_t lastCode;        // last code of a numbered table; 0 for the sparse lists
    int resourceString;            // the code string of a sparse list (0, 1), else -1
};

// In the order in which the lists are written out: R A T I N Qi Qo.
std::span<const CodeList> codeLists();
const CodeList& codeList(ListKey key);
// "N", "T", "I", "Qi", "Qo", "A", "R" in any case ("qi" is "Qi").
std::optional<ListKey> parseListKey(std::string_view text);

// The codes of the built-in table in list order: 0..lastCode, or the codes of the
// resource string for actions and reactions.
std::vector<std::uint32_t> builtInCodes(ListKey key);

// The built-in text of a code: nothing for an unknown code (shown as "?"), the empty
// text for a code that exists without a name. Triggers 400-499 with a text end in " UB".
std::optional<std::string> builtInText(ListKey key, std::uint32_t code);

// The "code=text" lines of a data file compiled into the program, by code.
std::map<std::uint32_t, std::string> codeTable(std::string_view data);

// "?" for nothing, else the text.
inline std::string textOrUnknown(const std::optional<std::string>& text) {
    return text ? *text : std::string("?");
}

} // namespace parlex
