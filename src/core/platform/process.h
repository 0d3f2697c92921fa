#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace parlex::platform {

// Where a program's standard output and error go: into these files (created or
// emptied), or nowhere when a path is empty.
struct ProgramOutput {
    std::filesystem::path output;
    std::filesystem::path errors;
};

// Runs `program` (looked up on PATH when it has no slash) with `arguments` and an
// empty standard input, and waits for it. The exit status, or nothing when the
// program could not be started or did not end normally.
std::optional<int> runProgram(const std::string& program, const std::vector<std::string>& arguments,
                              const ProgramOutput& to = {});

#ifdef _WIN32
// One word of a Windows command line, quoted so that the C runtime splits it back
// into the same word.
std::wstring commandLineWord(const std::wstring& word);
#endif

// Standard output and error as they are on POSIX systems: the console shows UTF-8,
// and "\n" stays "\n" (Windows would write CR LF in text mode). Nothing to do
// elsewhere.
void useUtf8Output();

} // namespace parlex::platform
