#pragma once

// Runs the built parlex-cli and captures what it prints.
#include "testutil.h"

#include <cstdio>
#include <string>
#include <vector>
#ifdef _WIN32
#include "core/platform/files.h"
#include "core/platform/process.h"
#include <windows.h>
#else
#include <sys/wait.h>
#endif

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

#ifdef _WIN32
inline std::wstring quotedWide(const std::string& utf8) {
    return parlex::platform::commandLineWord(parlex::platform::pathFromUtf8(utf8).wstring());
}

// The program with its output and errors in files, stdin empty.
inline Run runProgram(const std::string& program, const std::vector<std::string>& args) {
    testutil::TempDir dir;
    SECURITY_ATTRIBUTES inherit{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const auto open = [&](const char* name, DWORD access, DWORD creation) {
        return ::CreateFileW((dir / name).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                             &inherit, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    };
    testutil::writeText(dir / "stdin", "");
    const HANDLE in = open("stdin", GENERIC_READ, OPEN_EXISTING);
    const HANDLE out = open("stdout", GENERIC_WRITE, CREATE_ALWAYS);
    const HANDLE err = open("stderr", GENERIC_WRITE, CREATE_ALWAYS);
    std::wstring line = quotedWide(program);
    for (const auto& a : args)
        line += L" " + quotedWide(a);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = in, startup.hStdOutput = out, startup.hStdError = err;
    PROCESS_INFORMATION process{};
    Run run{-1, {}, {}};
    if (::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                         &startup, &process)) {
        ::WaitForSingleObject(process.hProcess, INFINITE);
        DWORD status = 0;
        ::GetExitCodeProcess(process.hProcess, &status);
        run.status = static_cast<int>(status);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
    }
    ::CloseHandle(in), ::CloseHandle(out), ::CloseHandle(err);
    run.out = testutil::readText(dir / "stdout");
    run.err = testutil::readText(dir / "stderr");
    return run;
}
#else
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
#endif

inline Run cli(const std::vector<std::string>& args) {
    return runProgram(PARLEX_CLI, args);
}

} // namespace clitest
