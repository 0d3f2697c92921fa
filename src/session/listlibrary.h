#pragma once

#include "core/codelists/codelists.h"

#include <filesystem>
#include <string>
#include <vector>

namespace parlex::session {

class UserPrompts;

// The code lists as the user meets them: looked up by the explainer, shown as rows,
// written out as the files that then replace the built-in lists. A list file that
// cannot be read is said where the lookup happens; the lookup goes on with an empty
// list.
class ListLibrary {
public:
    ListLibrary(UserPrompts& prompts, const std::filesystem::path& programDir);

    const CodeLists& lists() const { return lists_; }
    // The rows of a list; a list file too long to show is told to the user.
    std::vector<std::string> rows(ListKey key);
    // Writes a built-in list out as the file that then replaces it, into the folder
    // where lists are looked for. An existing file is replaced after the user's yes
    // with `askBeforeReplace`, silently without. Success is not told.
    void extract(ListKey key, bool askBeforeReplace);

private:
    UserPrompts& prompts_;
    std::filesystem::path folder_;
    CodeLists lists_;
};

} // namespace parlex::session
