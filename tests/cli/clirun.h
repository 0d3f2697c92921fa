#pragma once

// Runs the built parlex-cli and captures what it prints.
#include "testutil.h"

#include <cstdio>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace clitest {

struct Run {
    int status;
    std::string out;
    std::string err;
};

inline std::string quote(const std::string& s) {
    std::string q = "'";
    for (char c : s)
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

inline Run runProgram(const std::string& program, const std::vector<std::string>& args) {
    testutil::TempDir dir;
    std::string command = quote(program);
    for (const auto& a : args)
        command += " " + quote(a);
    command += " 2>" + quote((dir / "stderr").string()) + " </dev/null";
    Run run{};
    FILE* pipe = ::popen(command.c_str(), "r");
    char buffer[4096];
    std::size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        run.out.append(buffer, n);
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.err = testutil::readText(dir / "stderr");
    return run;
}

inline Run cli(const std::vector<std::string>& args) {
    return runProgram(PARLEX_CLI, args);
}

} // namespace clitest
