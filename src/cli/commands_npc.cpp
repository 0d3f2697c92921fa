// Commands on script files: info, dump, set, convert.
#include "cli/commands.h"
#include "cli/json.h"
#include "core/explain/fieldlayout.h"
#include "core/mod/batchconvert.h"
#include "core/mod/scripts.h"
#include "core/npc/npcfile.h"
#include "core/platform/files.h"
#include "core/text/hex.h"
#include "core/text/numbers.h"

#include <ostream>

namespace parlex::cli {
namespace {

// A place of a record by its first byte index ("13") or by its field's name ("PhraseFirst").
std::optional<int> fieldByName(const std::string& given) {
    if (const auto number = parseNumber(given, 0, static_cast<long long>(kRecordSize) - 1))
        return static_cast<int>(*number);
    for (const FieldInfo& f : fieldTable())
        if (f.name == given)
            return f.index;
    return std::nullopt;
}

int runInfo(const Args& args, Io io) {
    const bool json = args.has("--json");
    return forEachScript(
        args, "info",
        [json, io]() -> ScriptOutput {
            return [json, io](const std::filesystem::path& path) -> Result<std::string> {
                auto file = NpcFile::load(path);
                if (!file)
                    return std::unexpected(file.error());
                if (!json)
                    return file->summary(io.language) + "\n";
                return "{\"type\":" + jsonString(typeTag(file->type())) +
                       ",\"typeText\":" + jsonString(typeText(file->type(), io.language)) +
                       ",\"records\":" + std::to_string(file->recordCount()) +
                       ",\"nonEmpty\":" + std::to_string(file->nonEmptyCount()) + "}\n";
            };
        },
        io);
}

int runDump(const Args& args, Io io) {
    return forEachScript(
        args, "dump",
        []() -> ScriptOutput {
            return [](const std::filesystem::path& path) -> Result<std::string> {
                auto file = NpcFile::load(path);
                if (!file)
                    return std::unexpected(file.error());
                std::string out;
                for (std::size_t i = 0; i < file->recordCount(); ++i)
                    out += text::zeroPadded(static_cast<unsigned>(i + 1), 2) + ": " +
                           text::hexBytes(file->record(i)) + "\n";
                return out;
            };
        },
        io);
}

// The field of "--byte B": byte B (1-32, as the status bar counts) belongs to it;
// bytes 29-32 are set one by one.
int fieldOfByte(int byte) {
    const int index = byte - 1;
    return editableFieldWidth(index) ? index : fieldAt(index).index;
}

int runSet(const Args& args, Io io) {
    if (args.positional.size() != 1)
        return usage("set", tell(io, Say::OneScript), io);
    for (const char* name : {"--record", "--value"})
        if (!args.has(name))
            return usage("set", tell(io, Say::OptionMissing, {name}), io);
    if (args.has("--field") == args.has("--byte"))
        return usage("set", tell(io, Say::FieldOrByte), io);
    const auto record = numberArg("set", "--record", *args.value("--record"), 1, kPositions, io);
    if (!record)
        return kUsage;
    const std::string place = args.value("--field").value_or(args.value("--byte").value_or(""));
    std::optional<int> field;
    if (args.has("--byte")) {
        const auto byte = numberArg("set", "--byte", place, 1, kRecordSize, io);
        if (!byte)
            return kUsage;
        field = fieldOfByte(static_cast<int>(*byte));
    } else {
        field = fieldByName(place);
    }
    if (!field || !editableFieldWidth(*field))
        return usage("set", "--field: " + fieldRefusal("\"" + place + "\"", io.language), io);
    const auto value = numberArg("set", "--value", *args.value("--value"), 0, 4294967295LL, io);
    if (!value)
        return kUsage;
    auto file = NpcFile::load(pathArg(args.positional[0]));
    if (!file)
        return report(file.error(), io);
    if (!file->hasRecordAt(static_cast<int>(*record)))
        return report({ErrorKind::Invalid,
                       file->positionRefusal("\"" + *args.value("--record") + "\"", io.language)},
                      io);
    NpcRecord changed = file->record(static_cast<std::size_t>(*record - 1));
    if (auto set = setFieldValue(changed, *field, static_cast<std::uint32_t>(*value)); !set)
        return report(set.error(), io);
    file->setRecord(static_cast<std::size_t>(*record - 1), changed);
    if (auto saved = file->save(); !saved)
        return report(saved.error(), io);
    return kOk;
}

// Many scripts into one layout: those already in it are named and skipped.
int runConvertMany(const Args& args, Io io) {
    const auto to = *args.value("--to");
    if (to != "ub" && to != "ja")
        return usage("convert", tell(io, Say::ToUbOrJa), io);
    if (args.positional.empty())
        return usage("convert", tell(io, Say::OneOrMoreScripts), io);
    const std::vector<std::filesystem::path> paths = pathArgs(args.positional);
    const auto out = args.value("--out");
    int status = kOk;
    for (const auto& outcome : mod::convertScripts(
             mod::collectScripts(paths), to == "ub" ? NpcFileType::Ub : NpcFileType::Ja,
             out ? std::optional<std::filesystem::path>(pathArg(*out)) : std::nullopt,
             args.has("--yes"), io.language)) {
        using Status = mod::ConvertOutcome::Status;
        if (outcome.status == Status::Converted) {
            io.out << platform::utf8(outcome.source) << " -> " << platform::utf8(outcome.target)
                   << " (" << to << ")\n";
            if (!outcome.loss.empty())
                io.err << "parlex-cli: " << platform::utf8(outcome.source) << ": " << outcome.loss
                       << "\n";
        } else {
            io.err << "parlex-cli: " << platform::utf8(outcome.source) << ": " << outcome.message
                   << (outcome.status == Status::Skipped  ? tell(io, Say::Skipped)
                       : outcome.status == Status::Exists ? tell(io, Say::AddYes)
                                                          : "")
                   << "\n";
            if (outcome.status != Status::Skipped)
                status = kFailed;
        }
    }
    return status;
}

int runConvert(const Args& args, Io io) {
    if (args.value("--to"))
        return runConvertMany(args, io);
    if (args.value("--out"))
        return usage("convert", tell(io, Say::OutOnlyWithTo), io);
    if (args.positional.size() != 2)
        return usage("convert", tell(io, Say::TwoPaths), io);
    auto source = npcformat::readScript(pathArg(args.positional[0]));
    if (!source)
        return report(source.error(), io);
    const NpcFileType from = npcformat::detectType(*source);
    const NpcFileType to = otherType(from);
    if (auto refused = overwriteRefusal(pathArg(args.positional[1]), args))
        return report(*refused, io);
    auto done =
        npcformat::convertFile(pathArg(args.positional[0]), pathArg(args.positional[1]), to);
    if (!done)
        return report(done.error(), io);
    if (const auto loss = npcformat::conversionLoss(*source, to, io.language))
        io.err << "parlex-cli: " << args.positional[0] << ": " << *loss << "\n";
    io.out << args.positional[0] << " (" << typeTag(from) << ") -> " << args.positional[1] << " ("
           << typeTag(to) << ")\n";
    return kOk;
}

constexpr OptionSpec kJson[] = {{"--json", false}};
constexpr OptionSpec kSetOptions[] = {
    {"--record", true}, {"--field", true}, {"--byte", true}, {"--value", true}};
constexpr OptionSpec kConvertOptions[] = {{"--to", true}, {"--out", true}, {"--yes", false}};

constexpr Command kCommands[] = {
    {"info",
     "info PATH... [--json]",
     {"тип файла и число непустых записей", "the file's layout and how many records are not empty"},
     {"PATH: файл .npc или папка (все *.npc внутри). Несколько файлов: каждый под строкой\n"
      "\"==> ФАЙЛ <==\", а с --json по строке JSON на файл с ключом \"file\".",
      "PATH: an .npc file or a folder (every *.npc inside). Several files: each under a\n"
      "line \"==> FILE <==\", and with --json a line of JSON per file with a \"file\" key."},
     kJson,
     runInfo},
    {"dump",
     "dump PATH...",
     {"все записи файла: номер и 32 байта в шестнадцатеричном виде",
      "every record of the file: its number and its 32 bytes in hex"},
     {"PATH: файл .npc или папка; несколько файлов - каждый под строкой \"==> ФАЙЛ <==\".",
      "PATH: an .npc file or a folder; several files - each under a line \"==> FILE <==\"."},
     {},
     runDump},
    {"set",
     "set FILE.npc --record N (--field F | --byte B) --value V",
     {"записывает одно поле записи и сохраняет файл в его формате",
      "writes one field of a record and saves the file in its layout"},
     {"N: номер записи с 1. F: поле 0, 2, 4, 6, 20, 22, 24, 26 (Word, 0-65535)\n"
      "или 8-19, 28, 29, 30, 31 (Byte, 0-255), либо имя поля (PhraseFirst, MoveTo...).\n"
      "B: номер байта 1-32, как в строке состояния окна (любой байт поля).\n"
      "V: десятичное число или шестнадцатеричное с 0x (0x1F).\n"
      "Не число или число вне диапазона параметра: код 2. Запись, которой нет в файле,\n"
      "или значение, которое не помещается в поле: код 1. Файл тогда не изменяется.",
      "N: the record number, from 1. F: the field 0, 2, 4, 6, 20, 22, 24, 26 (Word, 0-65535)\n"
      "or 8-19, 28, 29, 30, 31 (Byte, 0-255), or the field's name (PhraseFirst, MoveTo...).\n"
      "B: the byte number 1-32, as the window's status bar counts (any byte of the field).\n"
      "V: a decimal number, or a hex one with 0x (0x1F).\n"
      "Not a number, or a number outside the option's range: status 2. A record the\n"
      "file does not have, or a value the field cannot hold: status 1. The file then\n"
      "stays as it was."},
     kSetOptions,
     runSet},
    {"convert",
     "convert SRC.npc DST.npc [--yes] | convert --to ub|ja PATH... [--out DIR [--yes]]",
     {"записывает DST в другом формате (\"ub\" <-> \"ja\"); SRC и DST могут совпадать",
      R"(writes DST in the other layout ("ub" <-> "ja"); SRC and DST may be the same)"},
     {"Существующий DST (и сам SRC) заменяется только с --yes.\n"
      "С --to: каждый скрипт из PATH (файл или папка со всеми *.npc внутри), который ещё\n"
      "не в формате ub или ja, переписывается в нём: на месте или в папку DIR под тем же\n"
      "именем. Скрипты, уже записанные в этом формате, называются в stderr и пропускаются.\n"
      "Файл, который уже есть в DIR, заменяется только с --yes.\n"
      "Код выхода 1, если хотя бы один файл не удалось прочитать или записать.",
      "An existing DST (and SRC itself) is replaced only with --yes.\n"
      "With --to: each script of PATH (a file, or a folder with every *.npc inside) that is\n"
      "not yet in the layout ub or ja is rewritten in it: in place, or into the folder DIR\n"
      "under the same name. Scripts already in that layout are named on stderr and skipped.\n"
      "A file already in DIR is replaced only with --yes.\n"
      "Exit status 1 if at least one file could not be read or written."},
     kConvertOptions,
     runConvert},
};

} // namespace

std::span<const Command> npcCommands() {
    return kCommands;
}

} // namespace parlex::cli
