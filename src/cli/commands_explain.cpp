// parlex-cli explain: a script read in words, record by record, field by field.
#include "cli/commands.h"
#include "cli/json.h"
#include "core/codelists/codelists.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/mod/overview.h"
#include "core/npc/npcfile.h"
#include "core/platform/files.h"
#include "core/speech/companion.h"
#include "core/speech/edtfile.h"
#include "core/text/hex.h"
#include "core/text/numbers.h"

#include <ostream>

namespace parlex::cli {
namespace {

void appendText(std::string& out, const NpcRecord* record, int position,
                const ExplainContext& context) {
    const Language l = context.language;
    out += fill(kTexts(Say::RecordHeading, l),
                {text::zeroPadded(static_cast<unsigned>(position), 2),
                 record ? text::hexBytes(*record) : std::string(kTexts(Say::NoRecord, l))}) +
           "\n";
    for (const auto& field : fieldTable()) {
        const Explanation e = explain(record, field.index, context);
        std::string label = fieldStart(field.index).label; // " (01-02 as Word)"
        out += (e.alert ? "  ! " : "    ") + label.substr(2, label.size() - 3);
        if (record)
            out += " [" + fieldHex(*record, field.index) + "]";
        out += ": " + e.text;
        if (!e.remark.empty())
            out += "**" + e.remark + "**";
        out += "\n";
    }
}

void appendJson(std::string& out, const NpcRecord* record, int position,
                const ExplainContext& context) {
    out += "{\"record\":" + std::to_string(position) +
           ",\"hex\":" + jsonString(record ? text::hexBytes(*record, "") : std::string()) +
           ",\"fields\":[";
    bool first = true;
    for (const auto& field : fieldTable()) {
        const Explanation e = explain(record, field.index, context);
        const std::uint32_t value =
            record && !isEmptyRecord(*record) ? fieldValue(*record, field.index) : 0;
        out += first ? "{\"field\":" : ",{\"field\":";
        out += std::to_string(field.index) +
               ",\"label\":" + jsonString(fieldStart(field.index).label) +
               ",\"value\":" + std::to_string(value) + ",\"text\":" + jsonString(e.text) +
               ",\"alert\":" + (e.alert ? "true" : "false") +
               ",\"remark\":" + jsonString(e.remark) + "}";
        first = false;
    }
    out += "]}";
}

int runExplain(const Args& args, Io io) {
    std::optional<long long> only;
    if (auto text = args.value("--record")) {
        only = numberArg("explain", "--record", *text, 1, kPositions, io);
        if (!only)
            return kUsage;
    }
    const auto readable = readableListsFolder(args);
    if (!readable)
        return report(readable.error(), io);
    const std::filesystem::path& folder = *readable;
    const bool json = args.has("--json");
    return forEachScript(
        args, "explain",
        [&]() -> ScriptOutput {
            // Each thread reads the lists once into its own copy.
            auto lists = std::make_shared<CodeLists>(folder, false);
            return [&, lists](const std::filesystem::path& path) -> Result<std::string> {
                auto file = NpcFile::load(path);
                if (!file)
                    return std::unexpected(file.error());
                const ExplainContext context{file->type(), lists.get(), false, 0, io.language};
                const int from = only ? static_cast<int>(*only) : 1;
                const int to =
                    only ? static_cast<int>(*only) : static_cast<int>(file->recordCount());
                std::string out;
                if (json)
                    out += "{\"type\":" + jsonString(typeTag(file->type())) + ",\"records\":[";
                for (int position = from; position <= to; ++position) {
                    const NpcRecord* record = file->recordAt(position);
                    if (json) {
                        out += position == from ? "" : ",";
                        appendJson(out, record, position, context);
                    } else {
                        out += position == from ? "" : "\n";
                        appendText(out, record, position, context);
                    }
                }
                if (json)
                    out += "]}\n";
                return out;
            };
        },
        io);
}

// The script whole: a line for each record and each phrase, as the window's overview
// shows them. The speech file is --edt, else the one beside the script, as lint finds it.
int runOverview(const Args& args, Io io) {
    if (args.positional.size() != 1)
        return usage("overview", tell(io, Say::OneScript), io);
    const auto readable = readableListsFolder(args);
    if (!readable)
        return report(readable.error(), io);
    const CodeLists lists(*readable, false);
    const auto script = NpcFile::load(pathArg(args.positional[0]));
    if (!script)
        return report(script.error(), io);
    std::optional<EdtFile> speech;
    mod::SpeechSource source;
    const auto edtPath = args.value("--edt") ? std::optional(pathArg(*args.value("--edt")))
                                             : findCompanion(script->path());
    if (edtPath) {
        auto file = EdtFile::load(*edtPath, EdtKind::NpcDialogues);
        if (!file)
            return report(file.error(), io);
        const auto size = platform::fileSize(*edtPath);
        speech = std::move(*file);
        source = {&*speech, size ? static_cast<int>(*size / speech->info().recordSize) : 0};
    }
    const auto records = mod::recordRows(*script, source, lists, args.has("--empty"), io.language);
    const auto phrases = mod::phraseRows(*script, source, !args.has("--all-phrases"));
    if (args.has("--html"))
        io.out << mod::overviewHtml(tell(io, Say::OverviewTitle, {script->title()}), records,
                                    phrases, io.language);
    else if (args.has("--json"))
        io.out << mod::overviewJson(records, phrases) << "\n";
    else
        io.out << mod::overviewText(records, phrases, io.language);
    return kOk;
}

constexpr OptionSpec kOptions[] = {{"--record", true}, {"--lists", true}, {"--json", false}};
constexpr OptionSpec kOverviewOptions[] = {{"--edt", true},    {"--lists", true},
                                           {"--json", false},  {"--html", false},
                                           {"--empty", false}, {"--all-phrases", false}};

constexpr Command kCommands[] = {
    {"explain",
     "explain PATH... [--record N] [--lists DIR] [--json]",
     {"каждое поле каждой записи словами, как их объясняет окно программы",
      "every field of every record in words, as the program's window explains them"},
     {"Без --record: все записи файла (50 для \"ub\", 49 для \"ja\"); --record N: позиция 1-50\n"
      "(позиция 50 файла \"ja\" не содержит записи). В тексте \"!\" в начале строки отмечает\n"
      "ошибочное значение (в окне - тёмно-красный цвет), **...** - замечание после фразы.\n"
      "--json: {\"type\":..., \"records\":[{\"record\":1, \"hex\":..., \"fields\":[{\"field\":0,\n"
      "\"label\":..., \"value\":..., \"text\":..., \"alert\":..., \"remark\":...}, ...]}]}\n"
      "PATH: файл .npc или папка (все *.npc внутри). Несколько файлов: каждый под строкой\n"
      "\"==> ФАЙЛ <==\", а с --json по строке JSON на файл с ключом \"file\".",
      "Without --record: every record of the file (50 for \"ub\", 49 for \"ja\"); --record N:\n"
      "position 1-50 (position 50 of a \"ja\" file holds no record). In the text a \"!\" at\n"
      "the start of a line marks a wrong value (dark red in the window), **...** a remark\n"
      "behind the sentence.\n"
      "--json: {\"type\":..., \"records\":[{\"record\":1, \"hex\":..., \"fields\":[{\"field\":0,\n"
      "\"label\":..., \"value\":..., \"text\":..., \"alert\":..., \"remark\":...}, ...]}]}\n"
      "PATH: an .npc file or a folder (every *.npc inside). Several files: each under a\n"
      "line \"==> FILE <==\", and with --json a line of JSON per file with a \"file\" key."},
     kOptions,
     runExplain},
    {"overview",
     "overview FILE.npc [--edt FILE.edt] [--lists DIR] [--json | --html] [--empty] [--all-phrases]",
     {"весь скрипт разом: строка на запись и строка на фразу, как в обзоре окна",
      "the whole script at a glance: a line per record and per phrase, as in the window's "
      "overview"},
     {"Записи: номер, когда срабатывает, что делает, что говорит (номера фраз и текст\n"
      "первой) и замечания, как их находит lint (\"!\" - ошибка). Пустые записи - с --empty.\n"
      "Фразы речевого файла (--edt, иначе файл .EDT рядом со скриптом): номер, текст, длина\n"
      "против предела вида и записи, которые её говорят; без --all-phrases - только\n"
      "заполненные и те, что говорит какая-либо запись. Текст разделён табуляциями\n"
      "(вставляется в электронную таблицу как есть).\n"
      "--json: {\"records\":[{\"record\":1, \"empty\":..., \"when\":..., \"does\":...,\n"
      "\"says\":..., \"phrases\":{\"first\":..., \"count\":...}, \"findings\":[{\"field\":...,\n"
      "\"severity\":..., \"message\":...}]}], \"phrases\":[{\"phrase\":0, \"text\":...,\n"
      "\"length\":..., \"limit\":..., \"present\":..., \"spokenBy\":[...]}]}\n"
      "--html: обе таблицы страницей HTML (UTF-8) для описания мода, ошибки тёмно-красным.",
      "Records: the number, when it fires, what it does, what it says (the phrase numbers\n"
      "and the first phrase's text) and the remarks as lint finds them (\"!\" an error).\n"
      "Empty records with --empty. Phrases of the speech file (--edt, else the .EDT file\n"
      "beside the script): the number, the text, the length against the kind's limit and\n"
      "the records that speak it; without --all-phrases only those with text and those\n"
      "some record speaks. The text is tab-separated (it pastes into a spreadsheet as it\n"
      "is).\n"
      "--json: {\"records\":[{\"record\":1, \"empty\":..., \"when\":..., \"does\":...,\n"
      "\"says\":..., \"phrases\":{\"first\":..., \"count\":...}, \"findings\":[{\"field\":...,\n"
      "\"severity\":..., \"message\":...}]}], \"phrases\":[{\"phrase\":0, \"text\":...,\n"
      "\"length\":..., \"limit\":..., \"present\":..., \"spokenBy\":[...]}]}\n"
      "--html: both tables as an HTML page (UTF-8) for a mod's description, errors in dark\n"
      "red."},
     kOverviewOptions,
     runOverview},
};

} // namespace

std::span<const Command> explainCommands() {
    return kCommands;
}

} // namespace parlex::cli
