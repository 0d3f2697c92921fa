// Commands on speech files: edt show, info, set, new, decompile.
#include "cli/commands.h"
#include "cli/json.h"
#include "platform/files.h"
#include "speech/decompiler.h"
#include "speech/edtfile.h"
#include "speech/edtsummary.h"
#include "text/numbers.h"

#include <ostream>

namespace parlex::cli {
namespace {

constexpr std::string_view kKindComplaint = "нужен параметр --kind npc, civ или rem";

std::optional<EdtKind> kindOf(const Args& args) {
    const auto name = args.value("--kind");
    return name ? parseEdtKind(*name) : std::nullopt;
}

// The speech file that the command line names, of the kind it names, or the exit
// status of the refusal.
std::variant<EdtFile, int> loadArgument(const Args& args, std::string_view command, Io io) {
    if (args.positional.size() != 1)
        return usage(command, "нужен ровно один файл .edt", io);
    const auto kind = kindOf(args);
    if (!kind)
        return usage(command, kKindComplaint, io);
    auto file = EdtFile::load(args.positional[0], *kind);
    if (!file)
        return report(file.error(), io);
    return std::move(*file);
}

int runShow(const Args& args, Io io) {
    auto loaded = loadArgument(args, "edt show", io);
    if (const int* status = std::get_if<int>(&loaded))
        return *status;
    const EdtFile* file = &std::get<EdtFile>(loaded);
    if (args.has("--json")) {
        io.out << "{\"kind\":" << jsonString(file->info().name)
               << ",\"lastPhrase\":" << file->lastPhrase() << ",\"phrases\":[";
        for (int i = 0; i <= file->lastPhrase(); ++i)
            io.out << (i ? "," : "") << jsonString(file->phrase(i));
        io.out << "]}\n";
        return kOk;
    }
    for (int i = 0; i <= file->lastPhrase(); ++i)
        if (!file->phraseBytes(i).empty())
            io.out << text::zeroPadded(static_cast<unsigned>(i), 3) << ": " << file->phrase(i)
                   << "\n";
    return kOk;
}

int runInfo(const Args& args, Io io) {
    auto loaded = loadArgument(args, "edt info", io);
    if (const int* status = std::get_if<int>(&loaded))
        return *status;
    const EdtFile* file = &std::get<EdtFile>(loaded);
    const EdtSummary s = summarize(file);
    if (args.has("--json")) {
        const auto number = [](const std::optional<int>& v) {
            return v ? std::to_string(*v) : std::string("null");
        };
        io.out << "{\"kind\":" << jsonString(file->info().name) << ",\"phrases\":" << s.phrases
               << ",\"nonEmpty\":" << s.nonEmpty << ",\"first\":" << number(s.first)
               << ",\"last\":" << number(s.last) << ",\"sizeOnDisk\":"
               << (s.sizeOnDisk ? std::to_string(*s.sizeOnDisk) : std::string("null"))
               << ",\"sizeAfterSave\":" << s.sizeAfterSave << "}\n";
        return kOk;
    }
    io.out << "Файл открыт как: " << s.kindText << "\n"
           << "Число существующих строк: " << s.countText << "\n"
           << "Номер первой существующей строки: " << s.firstText << "\n"
           << "Номер последней существующей строки: " << s.lastText << "\n"
           << "Текущий размер файла на диске: " << s.sizeOnDiskText << "\n"
           << "Предпологаемый размер при сохранении: " << s.sizeAfterSaveText << "\n";
    return kOk;
}

int runSet(const Args& args, Io io) {
    if (!args.has("--phrase") || !args.has("--text"))
        return usage("edt set", "нужны параметры --phrase N и --text ТЕКСТ", io);
    auto loaded = loadArgument(args, "edt set", io);
    if (const int* status = std::get_if<int>(&loaded))
        return *status;
    EdtFile& file = std::get<EdtFile>(loaded);
    // The phrase number is checked against the file by setPhrase.
    const auto index = parseNumber(*args.value("--phrase"), -1, 1 << 20);
    if (!index)
        return report({ErrorKind::Invalid,
                       "Номер фразы \"" + *args.value("--phrase") + "\" не является числом."},
                      io);
    const int n = static_cast<int>(*index);
    if (auto set = file.setPhrase(n, *args.value("--text")); !set)
        return report(set.error(), io);
    const std::size_t length = file.phraseBytes(n).size();
    if (auto saved = file.save(); !saved)
        return report(saved.error(), io);
    if (length > file.info().textLimit)
        io.err << "parlex-cli: фраза " << n << " обрезана до " << file.info().textLimit
               << " символов\n";
    return kOk;
}

int runNew(const Args& args, Io io) {
    const auto kind = kindOf(args);
    if (args.positional.size() != 1 || !kind)
        return usage("edt new",
                     args.positional.size() != 1 ? "нужен ровно один файл .edt" : kKindComplaint,
                     io);
    const std::filesystem::path path = args.positional[0];
    if (platform::fileExists(path) && !args.has("--yes"))
        return report(
            {ErrorKind::Exists,
             "Файл " + path.string() + "\nуже существует. Чтобы заменить его, добавьте --yes."},
            io);
    EdtFile file = EdtFile::makeNew(*kind);
    if (auto saved = file.saveAs(path); !saved)
        return report(saved.error(), io);
    return kOk;
}

int runDecompile(const Args& args, Io io) {
    if (args.positional.size() != 2)
        return usage("edt decompile", "нужны файл .edt и файл результата", io);
    auto file = EdtFile::load(args.positional[0], EdtKind::NpcDialogues);
    if (!file)
        return report(file.error(), io);
    if (auto written = decompileToFile(*file, args.positional[1]); !written)
        return report(written.error(), io);
    return kOk;
}

constexpr OptionSpec kShowOptions[] = {{"--kind", true}, {"--json", false}};
constexpr OptionSpec kSetOptions[] = {{"--kind", true}, {"--phrase", true}, {"--text", true}};
constexpr OptionSpec kNewOptions[] = {{"--kind", true}, {"--yes", false}};

constexpr std::string_view kKinds =
    "KIND: npc - диалоги НПЦ (143 фразы по 480 байт), civ - диалоги гражданских\n"
    "(15 по 320), rem - комментарии НПЦ (35 по 480). Размер файла проверяется по виду.";

constexpr Command kCommands[] = {
    {"edt show", "edt show FILE.edt --kind KIND [--json]",
     "непустые фразы файла, по строке \"NNN: текст\"",
     "--json: {\"kind\":\"npc\",\"lastPhrase\":142,\"phrases\":[...все фразы...]}\n"
     "KIND: npc, civ или rem.",
     kShowOptions, runShow},
    {"edt info", "edt info FILE.edt --kind KIND [--json]",
     "сведения о файле: вид, число непустых фраз, первая и последняя, размеры",
     "--json: ключи kind, phrases, nonEmpty, first, last (null, если фраз нет),\n"
     "sizeOnDisk, sizeAfterSave.",
     kShowOptions, runInfo},
    {"edt set", "edt set FILE.edt --kind KIND --phrase N --text TEXT",
     "заменяет одну фразу и сохраняет файл",
     "Символы вне Windows-1251 и номер фразы вне файла: код 1, файл не изменяется.\n"
     "Фраза длиннее предела вида (240 или 160 символов) обрезается при сохранении.",
     kSetOptions, runSet},
    {"edt new", "edt new FILE.edt --kind KIND [--yes]", "записывает пустой файл этого вида", kKinds,
     kNewOptions, runNew},
    {"edt decompile",
     "edt decompile FILE.edt OUT.txt",
     "раскомпилирует диалоги НПЦ в текст (Windows-1251, CR LF)",
     "",
     {},
     runDecompile},
};

} // namespace

std::span<const Command> edtCommands() {
    return kCommands;
}

} // namespace parlex::cli
