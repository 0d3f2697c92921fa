// Commands over a whole mod: lint, find, diff.
#include "cli/commands.h"
#include "cli/json.h"
#include "core/codelists/codelist.h"
#include "core/codelists/codelists.h"
#include "core/mod/lint.h"
#include "core/mod/scriptdiff.h"
#include "core/mod/scripts.h"
#include "core/mod/search.h"
#include "core/platform/files.h"
#include "core/text/lines.h"

#include <algorithm>
#include <ostream>

namespace parlex::cli {
namespace {

std::vector<std::filesystem::path> scriptsOf(const Args& args) {
    return mod::collectScripts(pathArgs(args.positional));
}

std::string jsonNumberOrNull(const std::optional<int>& n) {
    return n ? std::to_string(*n) : "null";
}

// The findings as lines, or as one JSON object; returns how many are errors.
std::size_t printFindings(const std::vector<mod::Finding>& findings, std::size_t files, bool json,
                          Io io) {
    std::string out; // written at once: one stream call per run, not per field
    if (json)
        out += "{\"files\":" + std::to_string(files) + ",\"findings\":[";
    bool first = true;
    for (const auto& f : findings) {
        if (json) {
            out += first ? "" : ",";
            out += "{\"file\":" + jsonString(platform::utf8(f.file)) +
                   ",\"record\":" + jsonNumberOrNull(f.record) +
                   ",\"field\":" + jsonNumberOrNull(f.field) + R"(,"severity":")" +
                   mod::severityName(f.severity) + R"(","message":)" + jsonString(f.message) + "}";
        } else {
            out += mod::formatFinding(f) + "\n";
        }
        first = false;
    }
    if (json)
        out += "]}\n";
    io.out << out;
    return static_cast<std::size_t>(
        std::ranges::count(findings, mod::Severity::Error, &mod::Finding::severity));
}

int runLint(const Args& args, Io io) {
    if (args.positional.empty())
        return usage("lint", tell(io, Say::OneOrMoreScripts), io);
    const auto scripts = scriptsOf(args);
    const auto folder = readableListsFolder(args);
    if (!folder)
        return report(folder.error(), io);
    const CodeLists lists(*folder, false);
    const auto findings = mod::lintScripts(scripts, lists, io.language);
    return printFindings(findings, scripts.size(), args.has("--json"), io) ? kFailed : kOk;
}

int runFind(const Args& args, Io io) {
    if (args.positional.empty())
        return usage("find", tell(io, Say::OneOrMoreScripts), io);
    const bool byCode = args.has("--list") || args.has("--code");
    if (byCode == args.has("--phrase"))
        return usage("find", tell(io, Say::CodeOrPhrase), io);
    const auto scripts = scriptsOf(args);
    const auto folder = readableListsFolder(args);
    if (!folder)
        return report(folder.error(), io);
    const CodeLists lists(*folder, false);
    std::vector<mod::Finding> found;
    if (byCode) {
        const auto key = parseListKey(args.value("--list").value_or(""));
        if (!key)
            return usage("find", tell(io, Say::ListKey), io);
        const auto code =
            numberArg("find", "--code", args.value("--code").value_or(""), 0, 65535, io);
        if (!code)
            return kUsage;
        found = mod::findCode(scripts, *key, static_cast<std::uint32_t>(*code), lists, io.language);
    } else {
        const auto phrase = numberArg("find", "--phrase", *args.value("--phrase"), 0, 255, io);
        if (!phrase)
            return kUsage;
        found = mod::findPhrase(scripts, static_cast<int>(*phrase), lists, io.language);
    }
    const bool any = std::ranges::any_of(
        found, [](const mod::Finding& f) { return f.severity == mod::Severity::Match; });
    const std::size_t errors = printFindings(found, scripts.size(), args.has("--json"), io);
    return errors ? kUsage : any ? kOk : kFailed;
}

int runDiff(const Args& args, Io io) {
    if (args.positional.size() != 2)
        return usage("diff", tell(io, Say::TwoScripts), io);
    // As diff(1) does: 0 equal, 1 different, 2 for any trouble, a bad list file too.
    const auto folder = readableListsFolder(args);
    if (!folder) {
        report(folder.error(), io);
        return kUsage;
    }
    const CodeLists lists(*folder, false);
    const auto changes = mod::diffScripts(pathArg(args.positional[0]), pathArg(args.positional[1]),
                                          lists, io.language);
    if (!changes) {
        io.err << "parlex-cli: " << changes.error().text(io.language) << "\n";
        return kUsage;
    }
    std::string out;
    if (args.has("--json")) {
        out = "{\"a\":" + jsonString(args.positional[0]) +
              ",\"b\":" + jsonString(args.positional[1]) + ",\"changes\":[";
        for (const auto& c : *changes)
            out += std::string(&c == changes->data() ? "" : ",") +
                   "{\"record\":" + std::to_string(c.record) +
                   ",\"field\":" + std::to_string(c.field) + ",\"old\":" + jsonString(c.oldHex) +
                   ",\"new\":" + jsonString(c.newHex) + ",\"oldText\":" + jsonString(c.oldText) +
                   ",\"newText\":" + jsonString(c.newText) + "}";
        out += "]}\n";
    } else {
        // One line a change, so that grep and editors see it whole.
        for (const auto& c : *changes)
            out += std::to_string(c.record) + ":" + std::to_string(c.field) + ": " + c.oldHex +
                   " -> " + c.newHex + tell(io, Say::Was) + text::joinLines(c.oldText) +
                   tell(io, Say::Became) + text::joinLines(c.newText) + "\n";
    }
    io.out << out;
    return changes->empty() ? kOk : kFailed;
}

constexpr OptionSpec kLintOptions[] = {{"--lists", true}, {"--json", false}};
constexpr OptionSpec kFindOptions[] = {
    {"--list", true}, {"--code", true}, {"--phrase", true}, {"--lists", true}, {"--json", false}};

constexpr Command kCommands[] = {
    {"lint",
     "lint PATH... [--lists DIR] [--json]",
     {"ошибки и замечания во всех скриптах: ФАЙЛ:ЗАПИСЬ:ПОЛЕ: error|warning: текст",
      "errors and remarks in every script: FILE:RECORD:FIELD: error|warning: text"},
     {"PATH: файл .npc или папка (все *.npc внутри, в любом регистре, с подпапками).\n"
      "error: значение, которое окно показывает тёмно-красным, или файл, который не скрипт;\n"
      "warning: замечание после фразы; фразы записи (байты 14-15), которых нет или которые\n"
      "пусты в речевом файле рядом (053.npc -> 053.EDT); ненулевой хвост файла \"ja\".\n"
      "ПОЛЕ - индекс первого байта поля (0-31), как в set --field.\n"
      "Код выхода: 0 без ошибок, 1 если есть хотя бы одна error, 2 неверный вызов.\n"
      "--json: {\"files\":N,\"findings\":[{\"file\":...,\"record\":R,\"field\":F,\n"
      "\"severity\":\"error\",\"message\":...}]} (record и field null для файла целиком).",
      "PATH: an .npc file or a folder (every *.npc inside, in any case, with subfolders).\n"
      "error: a value the window shows in dark red, or a file that is not a script;\n"
      "warning: a remark behind a sentence; phrases of a record (bytes 14-15) that the\n"
      "speech file beside it lacks or has empty (053.npc -> 053.EDT); a \"ja\" file whose\n"
      "tail is not zero. FIELD is the index of the field's first byte (0-31), as in\n"
      "set --field.\n"
      "Exit status: 0 without errors, 1 if there is at least one error, 2 a wrong call.\n"
      "--json: {\"files\":N,\"findings\":[{\"file\":...,\"record\":R,\"field\":F,\n"
      "\"severity\":\"error\",\"message\":...}]} (record and field null for a whole file)."},
     kLintOptions,
     runLint},
    {"find",
     "find PATH... (--list KEY --code N | --phrase N) [--lists DIR] [--json]",
     {"поля со значением N из списка KEY или записи, произносящие фразу N",
      "fields holding code N of the list KEY, or records that speak phrase N"},
     {"Вывод: ФАЙЛ:ЗАПИСЬ:ПОЛЕ: фраза объяснения поля. KEY: N T I Qi Qo A R (любой регистр).\n"
      "Код выхода: 0 найдено, 1 ничего не найдено, 2 неверный вызов или нечитаемый файл.",
      "Output: FILE:RECORD:FIELD: the sentence that explains the field. KEY: N T I Qi Qo\n"
      "A R (any case).\n"
      "Exit status: 0 found, 1 nothing found, 2 a wrong call or an unreadable file."},
     kFindOptions,
     runFind},
    {"diff",
     "diff A.npc B.npc [--lists DIR] [--json]",
     {"различия двух скриптов по полям: ЗАПИСЬ:ПОЛЕ: старое -> новое, с обеими фразами",
      "the differences of two scripts by field: RECORD:FIELD: old -> new, with both sentences"},
     {"Записи сравниваются по номеру (1-50); форматы файлов могут различаться.\n"
      "Строка на различие: ЗАПИСЬ:ПОЛЕ: 00 -> 28; было: фраза; стало: фраза.\n"
      "Код выхода: 0 записи равны, 1 есть различия, 2 ошибка (как у diff).",
      "Records are compared by number (1-50); the files' layouts may differ.\n"
      "A line per difference: RECORD:FIELD: 00 -> 28; was: sentence; now: sentence.\n"
      "Exit status: 0 the records are equal, 1 they differ, 2 an error (as with diff)."},
     kLintOptions,
     runDiff},
};

} // namespace

std::span<const Command> modCommands() {
    return kCommands;
}

} // namespace parlex::cli
