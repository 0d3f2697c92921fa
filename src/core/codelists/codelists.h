#pragma once

#include "core/codelists/codelist.h"
#include "core/platform/files.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace parlex {

// The rows of a list as the list window shows them.
struct ListRows {
    std::vector<std::string> rows;
    std::optional<std::string> warning; // set when the row limit stopped the reading
};

// The code lists as the program sees them from one folder: a list text file there
// (Npc.txt, Trigg.txt, ...) replaces the built-in table of its list whole.
//
// Files are read on demand. A parsed file is kept until its size, modification time,
// status-change time or inode changes, so a file put in, taken out or edited counts at
// the next lookup. A file that cannot be read is told to the read-error handler once
// per state of the file, serves as an empty list, and is never kept: the next lookup
// tries it again. A file in UTF-8 is read as such (see textFileAsCp1251).
// A batch run that reads the folder once (`watch` false) is spared that look at the
// file on every lookup. The lists are not shared between threads: each takes a copy.
class CodeLists {
public:
    explicit CodeLists(std::filesystem::path folder, bool watch = true)
        : folder_(std::move(folder)), watch_(watch) {}

    const std::filesystem::path& folder() const { return folder_; }

    // The text of a code in a field's list; "?" for an unknown code, "" for a code
    // without a name. A field without a list gives "?".
    std::string lookupCode(int fieldIndex, std::uint32_t value) const;
    std::string lookup(ListKey key, std::uint32_t value) const;

    // The rows of a list: "№_268 (0C 01) text" for Word lists, "№_12 (0C) text" for
    // Byte lists; from the list file in file order, or every code of the built-in table.
    ListRows rows(ListKey key, Language language = Language::Russian) const;

    // The name the status bar gives a script: a title whose first three characters
    // are a number names the character of that number, by Npc.txt when it exists
    // (exact decimal match, else the title stays) or by the built-in list ("?" from 170).
    std::string characterNameForTitle(const std::string& title) const;

    std::filesystem::path overridePath(ListKey key) const;

    // Who hears of a list file that cannot be read: "Error N\n<description>\nФайл: <path>",
    // or the refusal of a file too large to be a list.
    void setReadErrorHandler(std::function<void(const Error&)> handler) {
        onReadError_ = std::move(handler);
    }

    // Reads every list file of the folder: the first that cannot be read, or nothing.
    std::optional<Error> check() const;

private:
    // A list file as read: its status when read, its lines (Windows-1251, without
    // empty and ";" lines) and, for lookups, the first text of each code.
    struct ListFile {
        platform::FileStatus status;
        std::vector<std::string> lines;
        std::unordered_map<std::uint32_t, std::string> texts;
    };
    // The one reader of list files: nothing when the list has no file, an empty list
    // when it cannot be read.
    const ListFile* overrideFile(ListKey key) const;
    // Reads and keeps a list file; the failure is neither kept nor told.
    Result<const ListFile*> readOverride(ListKey key, const platform::FileStatus& status) const;

    std::filesystem::path folder_;
    bool watch_ = true;
    mutable std::map<ListKey, ListFile> cache_;
    mutable std::set<ListKey> settled_; // without watching: the lists looked for once
    std::function<void(const Error&)> onReadError_;
    mutable std::map<ListKey, platform::FileStatus> told_; // failures told, by file state
};

// The row of a code as the list window shows it.
std::string formatListRow(bool wordCodes, std::uint32_t code, std::string_view text,
                          Language language = Language::Russian);

} // namespace parlex
