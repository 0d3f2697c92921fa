#include "core/platform/process.h"

#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>

#include <filesystem>

namespace parlex::platform {
namespace {

std::wstring wide(const std::string& utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).wstring();
}

} // namespace

std::wstring commandLineWord(const std::wstring& word) {
    std::wstring out = L"\"";
    std::size_t backslashes = 0;
    for (wchar_t c : word) {
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        out.append(c == L'"' ? backslashes * 2 + 1 : backslashes, L'\\');
        backslashes = 0;
        out += c;
    }
    out.append(backslashes * 2, L'\\');
    return out + L"\"";
}

std::optional<int> runProgram(const std::string& program, const std::vector<std::string>& arguments,
                              const ProgramOutput& to) {
    std::wstring line = commandLineWord(wide(program));
    for (const auto& argument : arguments)
        line += L" " + commandLineWord(wide(argument));
    // The child inherits these three handles as its standard input, output and error.
    SECURITY_ATTRIBUTES inherit{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const auto open = [&](const std::filesystem::path& path, DWORD access, DWORD creation) {
        return ::CreateFileW(path.empty() ? L"NUL" : path.c_str(), access,
                             FILE_SHARE_READ | FILE_SHARE_WRITE, &inherit, creation,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
    };
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = open({}, GENERIC_READ, OPEN_EXISTING);
    startup.hStdOutput = open(to.output, GENERIC_WRITE, CREATE_ALWAYS);
    startup.hStdError = open(to.errors, GENERIC_WRITE, CREATE_ALWAYS);
    PROCESS_INFORMATION process{};
    const bool started = ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE,
                                          CREATE_NO_WINDOW, nullptr, nullptr, &startup, &process);
    for (HANDLE handle : {startup.hStdInput, startup.hStdOutput, startup.hStdError})
        if (handle != INVALID_HANDLE_VALUE)
            ::CloseHandle(handle);
    if (!started)
        return std::nullopt;
    ::WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    ::GetExitCodeProcess(process.hProcess, &status);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return static_cast<int>(status);
}

void useUtf8Output() {
    ::SetConsoleOutputCP(CP_UTF8);
    ::_setmode(::_fileno(stdout), _O_BINARY);
    ::_setmode(::_fileno(stderr), _O_BINARY);
}

} // namespace parlex::platform
