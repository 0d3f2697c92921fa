#pragma once

#include "cli/args.h"
#include "common/error.h"

#include <filesystem>
#include <iosfwd>
#include <span>
#include <string_view>

namespace parlex::cli {

struct Io {
    std::ostream& out;
    std::ostream& err;
};

struct Command {
    std::string_view name;    // "info", "lists show"
    std::string_view usage;   // the line after "parlex-cli "
    std::string_view summary; // one line for the overview
    std::string_view details; // further lines of --help (may be empty)
    std::span<const OptionSpec> options;
    int (*run)(const Args& args, Io io);
};

// The commands of each subject, in the order the overview lists them.
std::span<const Command> npcCommands();
std::span<const Command> listCommands();
std::span<const Command> explainCommands();
std::span<const Command> edtCommands();
std::span<const Command> modCommands();

// Prints the error's message to stderr and returns kFailed.
int report(const Error& error, Io io);
// The folder of the list files: --lists DIR, else where the program keeps them
// (beside it when its folder is writable, else in the user's data folder).
std::filesystem::path listsFolder(const Args& args);

// Prints a usage complaint and returns kUsage.
int usage(std::string_view command, std::string_view complaint, Io io);

} // namespace parlex::cli
