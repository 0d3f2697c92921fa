// parlex-cli: the rules of Parlex for scripts and batch work.
#include "cli/commands.h"
#include "core/platform/process.h"
#include "parlex_version.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <vector>

using namespace parlex::cli;

namespace {

std::vector<const Command*> allCommands() {
    std::vector<const Command*> all;
    for (auto group :
         {npcCommands(), listCommands(), explainCommands(), edtCommands(), modCommands()})
        for (const auto& c : group)
            all.push_back(&c);
    return all;
}

void printOverview(std::ostream& out, parlex::Language l) {
    out << kTexts(Say::About, l) << "\n\n"
        << kTexts(Say::Usage, l) << "\n\n"
        << kTexts(Say::Commands, l) << "\n";
    for (const Command* c : allCommands())
        out << "  " << c->usage << "\n      " << c->summary.in(l) << "\n";
    out << "\n"
        << kTexts(Say::MoreHelp, l) << "\n"
        << kTexts(Say::Version, l) << "\n"
        << kTexts(Say::ExitStatus, l) << "\n";
}

void printHelp(const Command& c, std::ostream& out, parlex::Language l) {
    out << parlex::fill(kTexts(Say::UsageLine, l), {c.usage}) << "\n\n" << c.summary.in(l) << "\n";
    if (!c.details.in(l).empty())
        out << "\n" << c.details.in(l) << "\n";
}

// Takes "--lang ru|en" (or "--lang=en") out of the words, wherever it stands: the
// language of every command. Without it the environment decides. Nothing when the
// option has no language after it.
std::optional<parlex::Language> takeLanguage(std::vector<char*>& words) {
    using parlex::Language;
    std::optional<Language> chosen = parlex::languageOfEnvironment(std::getenv);
    for (std::size_t i = 0; i < words.size();) {
        const std::string_view word = words[i];
        if (word != "--lang" && !word.starts_with("--lang=")) {
            ++i;
            continue;
        }
        const bool inlineValue = word.starts_with("--lang=");
        const std::string_view value = inlineValue            ? word.substr(7)
                                       : i + 1 < words.size() ? words[i + 1]
                                                              : "";
        chosen = chosen ? parlex::languageNamed(value) : std::nullopt;
        words.erase(words.begin() + static_cast<std::ptrdiff_t>(i),
                    words.begin() + static_cast<std::ptrdiff_t>(
                                        std::min(words.size(), i + (inlineValue ? 1 : 2))));
    }
    return chosen;
}

} // namespace

int main(int argc, char** argv) {
    parlex::platform::useUtf8Output();
    std::vector<char*> words(argv + 1, argv + argc);
    const auto language = takeLanguage(words);
    if (!language) {
        std::cerr << kTexts(Say::BadLanguage, parlex::Language::Russian) << "\n";
        return kUsage;
    }
    Io io{std::cout, std::cerr, *language};
    if (words.empty()) {
        printOverview(std::cerr, io.language);
        return kUsage;
    }
    const std::string_view first = words[0];
    if (first == "--help" || first == "-h" || first == "help") {
        printOverview(std::cout, io.language);
        return kOk;
    }
    if (first == "--version") {
        std::cout << "parlex-cli " PARLEX_VERSION "\n";
        return kOk;
    }
    const Command* command = nullptr;
    std::size_t used = 0;
    for (const Command* c : allCommands()) {
        const std::string_view name = c->name;
        if (auto space = name.find(' '); space != std::string_view::npos) {
            if (words.size() >= 2 && name.substr(0, space) == first &&
                name.substr(space + 1) == words[1]) {
                command = c;
                used = 2;
            }
        } else if (name == first) {
            command = c;
            used = 1;
        }
    }
    if (!command) {
        bool group = false;
        for (const Command* c : allCommands())
            group = group || std::string_view(c->name).starts_with(std::string(first) + " ");
        if (group && (words.size() == 1 || std::string_view(words[1]) == "--help")) {
            // Asked for, the list is the answer; without a subcommand it is a complaint.
            const bool asked = words.size() > 1;
            std::ostream& out = asked ? std::cout : std::cerr;
            for (const Command* c : allCommands())
                if (std::string_view(c->name).starts_with(std::string(first) + " "))
                    out << "parlex-cli " << c->usage << "\n    " << c->summary.in(io.language)
                        << "\n";
            return asked ? kOk : kUsage;
        }
        std::cerr << tell(io, Say::UnknownCommand, {first}) << "\n";
        return kUsage;
    }
    const auto parsed = parseArgs(std::span(words).subspan(used), command->options);
    if (const auto* error = std::get_if<UsageError>(&parsed))
        return usage(command->name, error->message.in(io.language), io);
    const Args& args = std::get<Args>(parsed);
    if (args.help) {
        printHelp(*command, std::cout, io.language);
        return kOk;
    }
    // A list folder that is not there would quietly mean the built-in lists.
    if (const auto lists = args.value("--lists");
        lists && !std::filesystem::is_directory(pathArg(*lists)))
        return usage(command->name, tell(io, Say::NoListsFolder, {*lists}), io);
    const int status = command->run(args, io);
    // Output that could not be written (a full disk, a closed pipe) is a failure.
    std::cout.flush();
    if (!std::cout) {
        std::cerr << tell(io, Say::OutputFailed) << "\n";
        return kFailed;
    }
    return status;
}
