// Commands on the code lists: lookup, lists show, lists extract.
#include "cli/commands.h"
#include "core/codelists/codelists.h"
#include "core/codelists/listwriter.h"
#include "core/platform/files.h"
#include "core/settings/locations.h"

#include <ctime>
#include <ostream>

namespace parlex::cli {
namespace {

int runLookup(const Args& args, Io io) {
    if (args.positional.size() != 2)
        return usage("lookup", tell(io, Say::KeyAndCode), io);
    const auto key = parseListKey(args.positional[0]);
    if (!key)
        return usage("lookup", tell(io, Say::BadKey), io);
    const auto code =
        numberArg("lookup", tell(io, Say::Code), args.positional[1], 0, 4294967295LL, io);
    if (!code)
        return kUsage;
    const auto folder = readableListsFolder(args);
    if (!folder)
        return report(folder.error(), io);
    io.out << CodeLists(*folder).lookup(*key, static_cast<std::uint32_t>(*code)) << "\n";
    return kOk;
}

int runShow(const Args& args, Io io) {
    if (args.positional.size() != 1)
        return usage("lists show", tell(io, Say::OneKey), io);
    const auto key = parseListKey(args.positional[0]);
    if (!key)
        return usage("lists show", tell(io, Say::BadKey), io);
    const auto folder = readableListsFolder(args);
    if (!folder)
        return report(folder.error(), io);
    const ListRows rows = CodeLists(*folder).rows(*key, io.language);
    for (const auto& row : rows.rows)
        io.out << row << "\n";
    if (rows.warning) {
        io.err << "parlex-cli: " << *rows.warning << "\n";
        return kFailed;
    }
    return kOk;
}

int runExtract(const Args& args, Io io) {
    std::vector<ListKey> keys;
    for (const auto& word : args.positional) {
        const auto key = parseListKey(word);
        if (!key)
            return usage("lists extract", tell(io, Say::BadKey), io);
        keys.push_back(*key);
    }
    if (keys.empty())
        for (const auto& list : codeLists())
            keys.push_back(list.key);
    const std::filesystem::path folder = args.value("--dir")
                                             ? pathArg(*args.value("--dir"))
                                             : locations(platform::programDir()).listFolder;
    if (args.value("--dir") && !std::filesystem::is_directory(folder))
        return report({ErrorKind::NotFound, tell(io, Say::FolderMissing, {platform::utf8(folder)})},
                      io);
    const std::tm local = platform::localNow();
    int status = kOk;
    for (ListKey key : keys) {
        auto written = writeListFile(key, folder, local, args.has("--yes"), io.language);
        if (written) {
            io.out << written->string() << "\n";
            continue;
        }
        status = kFailed;
        if (written.error().kind == ErrorKind::Exists) {
            io.err << "parlex-cli: " << written.error().text(io.language)
                   << tell(io, Say::FileSkipped) << "\n";
            continue;
        }
        report(written.error(), io);
        if (written.error().kind == ErrorKind::ReadOnlyDrive)
            break;
    }
    return status;
}

constexpr OptionSpec kListsOption[] = {{"--lists", true}};
constexpr OptionSpec kExtractOptions[] = {{"--dir", true}, {"--yes", false}};

constexpr Command kCommands[] = {
    {"lookup",
     "lookup KEY CODE [--lists DIR]",
     {"текст кода в списке KEY (N T I Qi Qo A R); \"?\" для неизвестного кода",
      "the text of a code in the list KEY (N T I Qi Qo A R); \"?\" for an unknown code"},
     {"--lists DIR: искать файлы списков (Npc.txt, Trigg.txt, ...) в DIR. Без него они ищутся\n"
      "в папке программы, если в неё можно писать, иначе в ~/.local/share/parlex.\n"
      "Файл списка заменяет встроенный список целиком.",
      "--lists DIR: look for the list files (Npc.txt, Trigg.txt, ...) in DIR. Without it\n"
      "they are looked for in the program's folder if it can be written to, else in\n"
      "~/.local/share/parlex. A list file replaces the built-in list whole. The built-in\n"
      "lists keep the game's Russian names: for English names, write them into list files."},
     kListsOption,
     runLookup},
    {"lists show",
     "lists show KEY [--lists DIR]",
     {"строки списка, как их показывает окно списков: \"№_268 (0C 01) текст\"",
      "the rows of a list as the window's list shows them: \"#268 (0C 01) text\""},
     {"", ""},
     kListsOption,
     runShow},
    {"lists extract",
     "lists extract [KEY...] [--dir DIR] [--yes]",
     {"записывает встроенные списки в файлы (все семь: R A T I N Qi Qo)",
      "writes the built-in lists into files (all seven: R A T I N Qi Qo)"},
     {"Файлы пишутся в Windows-1251 с CR LF в DIR, а без --dir туда, где программа ищет\n"
      "списки (папка программы или ~/.local/share/parlex).\n"
      "Существующий файл заменяется только с --yes; иначе он пропускается (код 1).",
      "The files are written in Windows-1251 with CR LF into DIR, and without --dir where\n"
      "the program looks for lists (its folder or ~/.local/share/parlex).\n"
      "An existing file is replaced only with --yes; else it is skipped (status 1)."},
     kExtractOptions,
     runExtract},
};

} // namespace

std::span<const Command> listCommands() {
    return kCommands;
}

} // namespace parlex::cli
