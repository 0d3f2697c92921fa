#pragma once

#include "core/codelists/codelist.h"
#include "core/common/error.h"

#include <ctime>
#include <filesystem>
#include <string>

// Writing a built-in list out as the text file that then replaces it.
namespace parlex {

// The file's content in UTF-8: five comment lines (the first naming `path` and the
// moment `now`), an empty line, and one "code=text" line for every code of the list,
// "?" and empty texts included. Lines end in CR LF.
std::string listFileText(ListKey key, const std::filesystem::path& path, const std::tm& now,
                         Language language = Language::Russian);

// Writes the list file into `folder` in Windows-1251, atomically. An existing file is
// replaced only when `replace` is set (else ErrorKind::Exists with the question text);
// a folder on a read-only drive is refused with its message. A missing folder is made.
Result<std::filesystem::path> writeListFile(ListKey key, const std::filesystem::path& folder,
                                            const std::tm& now, bool replace,
                                            Language language = Language::Russian);

} // namespace parlex
