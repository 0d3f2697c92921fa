#include "core/platform/process.h"

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utility>

extern char** environ;

namespace parlex::platform {

std::optional<int> runProgram(const std::string& program, const std::vector<std::string>& arguments,
                              const ProgramOutput& to) {
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (auto& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    for (const auto& [fd, path] : {std::pair{1, &to.output}, std::pair{2, &to.errors}})
        posix_spawn_file_actions_addopen(&actions, fd, path->empty() ? "/dev/null" : path->c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0644);
    pid_t pid = 0;
    const int started =
        ::posix_spawnp(&pid, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (started != 0)
        return std::nullopt;
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0)
        if (errno != EINTR)
            return std::nullopt;
    // posix_spawnp may report a program it could not run as a child ending with 127.
    if (!WIFEXITED(status) || WEXITSTATUS(status) == 127)
        return std::nullopt;
    return WEXITSTATUS(status);
}

void useUtf8Output() {}

} // namespace parlex::platform
