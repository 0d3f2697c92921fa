#pragma once

#include "cli/args.h"
#include "cli/clitexts.h"
#include "core/common/error.h"
#include "core/text/language.h"

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <optional>
#include <span>
#include <string_view>

namespace parlex::cli {

struct Io {
    std::ostream& out;
    std::ostream& err;
    Language language = Language::Russian; // of every text the command prints
};

struct Command {
    std::string_view name;  // "info", "lists show"
    std::string_view usage; // the line after "parlex-cli "
    Text summary;           // one line for the overview
    Text details;           // further lines of --help (may be empty)
    std::span<const OptionSpec> options;
    int (*run)(const Args& args, Io io);
};

// The commands of each subject, in the order the overview lists them.
std::span<const Command> npcCommands();
std::span<const Command> listCommands();
std::span<const Command> explainCommands();
std::span<const Command> edtCommands();
std::span<const Command> modCommands();

// A text of the command line in the language of the run, its values filled in.
std::string tell(Io io, Say key, std::initializer_list<std::string_view> values = {});

// Prints the error's message to stderr and returns kFailed.
int report(const Error& error, Io io);
// The folder of the list files: --lists DIR, else where the program keeps them
// (beside it when its folder is writable, else in the user's data folder).
std::filesystem::path listsFolder(const Args& args);
// The same folder for a command that reads the lists: each list file there must be
// readable, or the run ends with status 1 and the system's word on it.
Result<std::filesystem::path> readableListsFolder(const Args& args);

// What a command says about one script: its output (lines ending in "\n"; with
// --json one object on one line), or why the script cannot be read.
using ScriptOutput = std::function<Result<std::string>(const std::filesystem::path&)>;

// Runs a ScriptOutput for every script the words name (files, and folders with
// every *.npc below them), on all cores: each thread makes its own with `makeOne`.
// The outputs come in file order. One file prints as it stands. Several print one
// after the other, each headed "==> FILE <==" in text, or as JSON Lines with a
// "file" key added in front of each object. A script that cannot be read is told
// on stderr and the run goes on; the exit status is then 1.
int forEachScript(const Args& args, std::string_view command,
                  const std::function<ScriptOutput()>& makeOne, Io io);

// The one rule for numbers on the command line: `given`, the word of `option` (an
// option such as "--record", or a name such as "КОД"), must be a whole number in
// decimal or hex (0x1F) within [min, max]. Anything else is a usage complaint that
// names the option and its range; then nothing is returned and the caller ends with
// kUsage. A number in range that does not fit the file at hand is the command's to
// refuse, with status 1.
std::optional<long long> numberArg(std::string_view command, std::string_view option,
                                   std::string_view given, long long min, long long max, Io io);

// The refusal to write `output` over a file that exists, unless --yes was given:
// "Файл …\nуже существует. Чтобы заменить его, добавьте --yes.". With `onlyGameFiles`
// only a file that holds a script or a speech file is guarded.
std::optional<Error> overwriteRefusal(const std::filesystem::path& output, const Args& args,
                                      bool onlyGameFiles = false);

// Prints a usage complaint and returns kUsage.
int usage(std::string_view command, std::string_view complaint, Io io);

} // namespace parlex::cli
