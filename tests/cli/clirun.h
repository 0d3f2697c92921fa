#pragma once

// Runs parlex-cli as a shell would and keeps what it printed.
#include "core/platform/process.h"
#include "testutil.h"

#include <cctype>
#include <filesystem>
#include <iomanip>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace clitest {

// What a run of the program printed, and its exit status (-1: it did not run or end).
struct Run {
    int status;
    std::string out;
    std::string err;
};

inline Run runCli(const std::vector<std::string>& args) {
    testutil::TempDir dir;
    const parlex::platform::ProgramOutput to{dir / "stdout", dir / "stderr"};
    std::optional<int> status;
    // Wine now and then fails to start a process on a busy machine: a few tries keep
    // that from passing for a fault of the program under test.
    for (int attempt = 0; attempt < 3 && !status; ++attempt)
        status = parlex::platform::runProgram(PARLEX_CLI, args, to);
    return {status.value_or(-1), testutil::readText(to.output), testutil::readText(to.errors)};
}

// "@name" in `text` is the file of that name in `folder`, written as the program
// writes paths; a lone "@" is the folder itself.
inline std::string expand(const std::string& text, const std::filesystem::path& folder) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '@') {
            result += text[i];
            continue;
        }
        std::size_t end = i + 1;
        while (end < text.size() &&
               (std::isalnum(static_cast<unsigned char>(text[end])) ||
                std::string_view("._/-").find(text[end]) != std::string_view::npos))
            ++end;
        const std::string name = text.substr(i + 1, end - i - 1);
        result += name.empty() ? folder.string() : (folder / name).make_preferred().string();
        i = end - 1;
    }
    return result;
}

// The words of a call, '...' keeping spaces inside one, each expanded as above.
inline std::vector<std::string> words(const std::string& line,
                                      const std::filesystem::path& folder) {
    std::istringstream in(line);
    std::vector<std::string> result;
    for (std::string word; in >> std::quoted(word, '\'');)
        result.push_back(expand(word, folder));
    return result;
}

} // namespace clitest
