// Commands on speech files: edt show, info, set, new, decompile, export, import.
#include "cli/commands.h"
#include "cli/json.h"
#include "core/platform/files.h"
#include "core/speech/decompiler.h"
#include "core/speech/edtfile.h"
#include "core/speech/edtsummary.h"
#include "core/speech/exchange.h"
#include "core/text/numbers.h"

#include <ostream>

namespace parlex::cli {
namespace {

std::optional<EdtKind> kindOf(const Args& args) {
    const auto name = args.value("--kind");
    return name ? parseEdtKind(*name) : std::nullopt;
}

// The speech file that the command line names, of the kind it names, or the exit
// status of the refusal.
std::variant<EdtFile, int> loadArgument(const Args& args, std::string_view command, Io io) {
    if (args.positional.size() != 1)
        return usage(command, tell(io, Say::OneSpeechFile), io);
    const auto kind = kindOf(args);
    if (!kind)
        return usage(command, tell(io, Say::KindNeeded), io);
    auto file = EdtFile::load(pathArg(args.positional[0]), *kind);
    if (!file)
        return report(file.error(), io);
    return std::move(*file);
}

// Phrases go into a file only where they destroy nothing, unless --force: not into a
// script (named *.npc, or a script's size and bytes), and not into a file whose end
// makes no whole phrase of the kind given. The status of the refusal, or 0.
int refuseRewrite(const EdtFile& file, const Args& args, Io io) {
    if (args.has("--force"))
        return 0;
    if (looksLikeScript(file.path()))
        return report(
            {ErrorKind::Invalid, tell(io, Say::NotPhrasesScript, {platform::utf8(file.path())})},
            io);
    if (file.bytesLostOnSave() == 0)
        return 0;
    return report({ErrorKind::Invalid, file.lossWarning(io.language) + tell(io, Say::CheckKind)},
                  io);
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
    const EdtSummary s = summarize(file, io.language);
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
    io.out << tell(io, Say::InfoKind) << s.kindText << "\n"
           << tell(io, Say::InfoCount) << s.countText << "\n"
           << tell(io, Say::InfoFirst) << s.firstText << "\n"
           << tell(io, Say::InfoLast) << s.lastText << "\n"
           << tell(io, Say::InfoSizeOnDisk) << s.sizeOnDiskText << "\n"
           << tell(io, Say::InfoSizeAfterSave) << s.sizeAfterSaveText << "\n";
    return kOk;
}

int runSet(const Args& args, Io io) {
    if (!args.has("--phrase") || !args.has("--text"))
        return usage("edt set", tell(io, Say::PhraseAndText), io);
    // Any phrase of any kind; past the last of this file's kind, setPhrase refuses.
    const auto index =
        numberArg("edt set", "--phrase", *args.value("--phrase"), 0, kNpcLastPhrase, io);
    if (!index)
        return kUsage;
    auto loaded = loadArgument(args, "edt set", io);
    if (const int* status = std::get_if<int>(&loaded))
        return *status;
    auto& file = std::get<EdtFile>(loaded);
    if (const int refused = refuseRewrite(file, args, io))
        return refused;
    const int n = static_cast<int>(*index);
    if (auto set = file.setPhrase(n, *args.value("--text")); !set)
        return report(set.error(), io);
    const std::size_t length = file.phraseBytes(n).size();
    if (auto saved = file.save(); !saved)
        return report(saved.error(), io);
    if (length > file.info().textLimit)
        io.err << tell(io, Say::PhraseCut,
                       {std::to_string(n), std::to_string(file.info().textLimit)})
               << "\n";
    return kOk;
}

int runNew(const Args& args, Io io) {
    const auto kind = kindOf(args);
    if (args.positional.size() != 1 || !kind)
        return usage("edt new",
                     tell(io, args.positional.size() != 1 ? Say::OneSpeechFile : Say::KindNeeded),
                     io);
    const std::filesystem::path path = pathArg(args.positional[0]);
    if (auto refused = overwriteRefusal(path, args))
        return report(*refused, io);
    EdtFile file = EdtFile::makeNew(*kind);
    if (auto saved = file.saveAs(path); !saved)
        return report(saved.error(), io);
    return kOk;
}

int runDecompile(const Args& args, Io io) {
    if (args.positional.size() != 2)
        return usage("edt decompile", tell(io, Say::SpeechAndTarget), io);
    const std::filesystem::path from = pathArg(args.positional[0]);
    const std::filesystem::path to = pathArg(args.positional[1]);
    if (platform::samePath(from, to))
        return usage("edt decompile", tell(io, Say::TargetIsSource), io);
    auto file = EdtFile::load(from, EdtKind::NpcDialogues);
    if (!file)
        return report(file.error(), io);
    if (auto refused = overwriteRefusal(to, args))
        return report(*refused, io);
    if (auto written = decompileToFile(*file, to, io.language); !written)
        return report(written.error(), io);
    return kOk;
}

int runExport(const Args& args, Io io) {
    const auto format = args.value("--format");
    if (format != "json" && format != "po")
        return usage("edt export", tell(io, Say::FormatNeeded), io);
    auto loaded = loadArgument(args, "edt export", io);
    if (const int* status = std::get_if<int>(&loaded))
        return *status;
    const EdtFile& file = std::get<EdtFile>(loaded);
    const std::string text = *format == "json" ? phrasesToJson(file) : phrasesToPo(file);
    const std::string target =
        args.value("-o").value_or(args.positional[0] + (*format == "json" ? ".json" : ".po"));
    if (target == "-") {
        io.out << text;
        return kOk;
    }
    // An older export is replaced; a script or a speech file only with --yes.
    if (auto refused = overwriteRefusal(pathArg(target), args, true))
        return report(*refused, io);
    if (auto written = platform::writeFileAtomic(pathArg(target), text); !written)
        return report(written.error(), io);
    io.out << target << "\n";
    return kOk;
}

int runImport(const Args& args, Io io) {
    if (args.positional.size() != 2)
        return usage("edt import", tell(io, Say::SpeechAndPhrases), io);
    const auto kind = kindOf(args);
    if (!kind)
        return usage("edt import", tell(io, Say::KindNeeded), io);
    const std::filesystem::path from = pathArg(args.positional[1]);
    const std::string extension = platform::lowerExtension(from);
    if (extension != ".json" && extension != ".po")
        return usage("edt import", tell(io, Say::FormatByExtension), io);
    auto file = EdtFile::load(pathArg(args.positional[0]), *kind);
    if (!file)
        return report(file.error(), io);
    if (const int refused = refuseRewrite(*file, args, io))
        return refused;
    const auto bytes = platform::readFileLimited(from, platform::kMaxTextFileSize);
    if (!bytes)
        return report(bytes.error(), io);
    const std::string_view text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    auto phrases = extension == ".json" ? phrasesFromJson(text) : phrasesFromPo(text);
    if (!phrases)
        return report(
            {ErrorKind::Invalid, platform::utf8(from) + ": " + phrases.error().text(io.language)},
            io);
    if (auto imported = importPhrases(*file, *phrases); !imported)
        return report(
            {ErrorKind::Invalid, platform::utf8(from) + ": " + imported.error().text(io.language)},
            io);
    if (!file->isChanged()) {
        io.err << tell(io, Say::PhrasesUnchanged) << "\n";
        return kOk;
    }
    std::vector<int> cut;
    for (int i = 0; i <= file->lastPhrase(); ++i)
        if (file->phraseBytes(i).size() > file->info().textLimit)
            cut.push_back(i);
    if (auto saved = file->save(); !saved)
        return report(saved.error(), io);
    for (int n : cut)
        io.err << tell(io, Say::PhraseCut,
                       {std::to_string(n), std::to_string(file->info().textLimit)})
               << "\n";
    return kOk;
}

constexpr OptionSpec kShowOptions[] = {{"--kind", true}, {"--json", false}};
constexpr OptionSpec kExportOptions[] = {
    {"--kind", true}, {"--format", true}, {"-o", true}, {"--yes", false}};
constexpr OptionSpec kImportOptions[] = {{"--kind", true}, {"--force", false}};
constexpr OptionSpec kSetOptions[] = {
    {"--kind", true}, {"--phrase", true}, {"--text", true}, {"--force", false}};
constexpr OptionSpec kNewOptions[] = {{"--kind", true}, {"--yes", false}};
constexpr OptionSpec kDecompileOptions[] = {{"--yes", false}};

constexpr Text kKinds = {
    "KIND: npc - диалоги НПЦ (143 фразы по 480 байт), civ - диалоги гражданских\n"
    "(15 по 320), rem - комментарии НПЦ (35 по 480). Размер файла проверяется по виду.",
    "KIND: npc - NPC dialogues (143 phrases of 480 bytes), civ - civilian dialogues\n"
    "(15 of 320), rem - NPC remarks (35 of 480). The file's size is checked by its kind."};

constexpr Command kCommands[] = {
    {"edt show",
     "edt show FILE.edt --kind KIND [--json]",
     {"непустые фразы файла, по строке \"NNN: текст\"",
      "the phrases of the file that have text, a line \"NNN: text\" each"},
     {"--json: {\"kind\":\"npc\",\"lastPhrase\":142,\"phrases\":[...все фразы...]}\n"
      "KIND: npc, civ или rem.",
      "--json: {\"kind\":\"npc\",\"lastPhrase\":142,\"phrases\":[...every phrase...]}\n"
      "KIND: npc, civ or rem."},
     kShowOptions,
     runShow},
    {"edt info",
     "edt info FILE.edt --kind KIND [--json]",
     {"сведения о файле: вид, число непустых фраз, первая и последняя, размеры",
      "about the file: its kind, how many phrases have text, the first and the last, sizes"},
     {"--json: ключи kind, phrases, nonEmpty, first, last (null, если фраз нет),\n"
      "sizeOnDisk, sizeAfterSave.",
      "--json: the keys kind, phrases, nonEmpty, first, last (null without phrases),\n"
      "sizeOnDisk, sizeAfterSave."},
     kShowOptions,
     runInfo},
    {"edt set",
     "edt set FILE.edt --kind KIND --phrase N --text TEXT [--force]",
     {"заменяет одну фразу и сохраняет файл", "replaces one phrase and saves the file"},
     {"Символы вне Windows-1251 и номер фразы вне файла: код 1, файл не изменяется.\n"
      "Файл, размер которого не кратен размеру фразы вида, переписывается только с\n"
      "--force: байты в конце, не составляющие фразы, пропадут. Так же и скрипт: файл\n"
      "*.npc или файл в 1600 байт, байты которого не могут быть фразами.\n"
      "Фраза длиннее предела вида (240 или 160 символов) обрезается при сохранении.",
      "Characters outside Windows-1251 and a phrase number outside the file: status 1,\n"
      "the file stays as it was. A file whose size is not a multiple of the kind's\n"
      "phrase is rewritten only with --force: the bytes at its end that make no phrase\n"
      "are lost. The same for a script: a *.npc file, or a file of 1600 bytes whose\n"
      "bytes cannot be phrases. A phrase longer than the kind's limit (240 or 160\n"
      "characters) is cut when the file is saved."},
     kSetOptions,
     runSet},
    {"edt new",
     "edt new FILE.edt --kind KIND [--yes]",
     {"записывает пустой файл этого вида", "writes an empty file of that kind"},
     kKinds,
     kNewOptions,
     runNew},
    {"edt decompile",
     "edt decompile FILE.edt OUT.txt [--yes]",
     {"раскомпилирует диалоги НПЦ в текст (Windows-1251, CR LF)",
      "decompiles NPC dialogues into text (Windows-1251, CR LF)"},
     {"Существующий OUT.txt заменяется только с --yes; OUT.txt не может быть самим FILE.edt.",
      "An existing OUT.txt is replaced only with --yes; OUT.txt cannot be FILE.edt itself."},
     kDecompileOptions,
     runDecompile},
    {"edt export",
     "edt export FILE.edt --kind KIND --format json|po [-o OUT] [--yes]",
     {"фразы файла в JSON (формат модов открытого движка) или в каталог gettext (.po)",
      "the file's phrases as JSON (the mod format of the open engine) or a gettext catalogue "
      "(.po)"},
     {"json: массив строк UTF-8, по одной на каждую фразу вида (\"\" для пустой).\n"
      "po: запись на каждую непустую фразу: msgctxt - номер фразы (три цифры), msgid -\n"
      "фраза, пустой msgstr; для фраз 0-10 диалогов НПЦ комментарий \"#.\" с ролью фразы.\n"
      "OUT по умолчанию FILE.edt.json или FILE.edt.po; -o - пишет в stdout.\n"
      "Скрипт или файл фраз на месте OUT заменяется только с --yes.",
      "json: an array of UTF-8 strings, one for each phrase of the kind (\"\" if empty).\n"
      "po: an entry for each phrase with text: msgctxt is the phrase number (three\n"
      "digits), msgid the phrase, msgstr empty; phrases 0-10 of NPC dialogues have a\n"
      "\"#.\" comment with the phrase's role.\n"
      "OUT is FILE.edt.json or FILE.edt.po unless given; -o - writes to stdout.\n"
      "A script or a speech file in the place of OUT is replaced only with --yes."},
     kExportOptions,
     runExport},
    {"edt import",
     "edt import FILE.edt --kind KIND FROM [--force]",
     {"фразы из FROM (.json или .po) в файл; пишет файл, только если фразы изменились",
      "phrases from FROM (.json or .po) into the file; writes it only if a phrase changed"},
     {"json: строка с номером i заменяет фразу i. po: каждый непустой msgstr без пометки\n"
      "fuzzy заменяет фразу с номером из msgctxt.\n"
      "Номер вне вида или символ вне Windows-1251: код 1, запись названа, файл не\n"
      "изменяется. Фраза длиннее предела вида обрезается при сохранении (замечание в stderr).\n"
      "Файл, размер которого не кратен размеру фразы вида, и скрипт (*.npc или 1600 байт\n"
      "скрипта) переписываются только с --force.",
      "json: the string at index i replaces phrase i. po: each msgstr that is not empty\n"
      "and not marked fuzzy replaces the phrase numbered by its msgctxt.\n"
      "A number outside the kind or a character outside Windows-1251: status 1, the\n"
      "entry is named, the file stays as it was. A phrase longer than the kind's limit\n"
      "is cut when the file is saved (a note on stderr). A file whose size is not a\n"
      "multiple of the kind's phrase, and a script (*.npc, or 1600 bytes of a script),\n"
      "are rewritten only with --force."},
     kImportOptions,
     runImport},
};

} // namespace

std::span<const Command> edtCommands() {
    return kCommands;
}

} // namespace parlex::cli
