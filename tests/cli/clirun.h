#pragma once

// Runs parlex-cli as a shell would and keeps what it printed.
#include "core/platform/process.h"
#include "testutil.h"

#include <optional>
#include <string>
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

} // namespace clitest
