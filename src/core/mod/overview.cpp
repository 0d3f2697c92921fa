#include "core/mod/overview.h"

#include "core/mod/modtexts.h"
#include "core/npc/npcfile.h"
#include "core/speech/edtfile.h"
#include "core/text/json.h"
#include "core/text/lines.h"

#include <algorithm>

namespace parlex::mod {
namespace {

using modtexts::kTexts;
using modtexts::Say;

// The fields that say when a record fires, and those that say what it does, in the
// order a sentence about them reads best. The approach (ActionCode) is always said:
// it is what the record answers. Any other field is said only when it differs from
// its neutral value, so that a line names what the record really asks and does.
constexpr int kWhen[] = {fields::ActionCode,  fields::FireMode,     fields::NeededItem,
                         fields::TriggerTrue, fields::TriggerFalse, fields::QuestHeld,
                         fields::FirstDay,    fields::LastDay,      fields::Leadership};
constexpr int kDoes[] = {fields::ReactionCode, fields::GivenItem,   fields::TriggerSet,
                         fields::QuestGiven,   fields::QuestClosed, fields::MoveTo,
                         fields::JumpNpc,      fields::JumpRecord};
constexpr const char* kJoint = "; ";

bool isNeutral(const NpcRecord& record, int field) {
    return fieldValue(record, field) == fieldValue(kNeutralRecord, field);
}

std::string sentences(const NpcRecord& record, std::span<const int> fieldsSaid,
                      const ExplainContext& context, bool alwaysFirst) {
    std::string out;
    for (const int field : fieldsSaid) {
        if (isNeutral(record, field) && !(alwaysFirst && field == fieldsSaid.front()))
            continue;
        // The days are one condition: the last day's sentence covers both when set.
        if (field == fields::FirstDay && !isNeutral(record, fields::LastDay))
            continue;
        const Explanation e = explain(&record, field, context);
        out += (out.empty() ? "" : kJoint) + std::string(text::trimmed(e.text));
    }
    return out;
}

std::string phraseNumbers(const PhraseRange& spoken, Language language) {
    const std::string first = std::to_string(spoken.first);
    if (spoken.count < 1)
        return fill(kTexts(Say::NoPhrasesFrom, language), {first});
    if (spoken.count == 1)
        return fill(kTexts(Say::OnePhrase, language), {first});
    return fill(kTexts(Say::PhraseRange, language),
                {first, std::to_string(spoken.first + spoken.count - 1)});
}

void appendCell(std::string& line, const std::string& cell) {
    // A cell holds no tab or line break: they would split the table.
    for (const char c : cell)
        line += c == '\t' || c == '\n' || c == '\r' ? ' ' : c;
}

std::string findingsText(const std::vector<Finding>& findings) {
    std::string out;
    for (const Finding& f : findings)
        out += (out.empty() ? "" : " | ") + std::string(f.severity == Severity::Error ? "! " : "") +
               f.message;
    return out;
}

std::string html(std::string_view text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string cells(std::initializer_list<std::string> texts, const char* tag = "td") {
    std::string out = "<tr>";
    for (const auto& t : texts)
        out += std::string("<") + tag + ">" + t + "</" + tag + ">";
    return out + "</tr>\n";
}

std::string numbersJson(const std::vector<int>& numbers) {
    std::string out = "[";
    for (const int n : numbers)
        out += (out.size() > 1 ? "," : "") + std::to_string(n);
    return out + "]";
}

} // namespace

std::optional<RecordRow> recordRow(const NpcFile& script, int position, const SpeechSource& speech,
                                   const CodeLists& lists, Language language) {
    const NpcRecord* record = script.recordAt(position);
    if (!record)
        return std::nullopt;
    RecordRow row;
    row.position = position;
    row.empty = isEmptyRecord(*record);
    if (row.empty)
        return row;
    const ExplainContext context{script.type(), &lists, false, 0, language};
    row.when = sentences(*record, kWhen, context, true);
    row.does = sentences(*record, kDoes, context, false);
    row.spoken = spokenPhrases(*record);
    if (row.spoken) {
        row.says = phraseNumbers(*row.spoken, language);
        if (speech.file && row.spoken->first < speech.phrases) {
            const std::string first = speech.file->phrase(row.spoken->first);
            if (!first.empty())
                row.says += ": «" + first + "»";
        }
    }
    lintRecord(script.path(), position, *record, context, speech, row.findings);
    return row;
}

std::vector<RecordRow> recordRows(const NpcFile& script, const SpeechSource& speech,
                                  const CodeLists& lists, bool withEmpty, Language language) {
    std::vector<RecordRow> rows;
    for (int position = 1; position <= static_cast<int>(script.recordCount()); ++position)
        if (auto row = recordRow(script, position, speech, lists, language);
            row && (withEmpty || !row->empty))
            rows.push_back(std::move(*row));
    return rows;
}

std::vector<PhraseRow> phraseRows(const NpcFile& script, const SpeechSource& speech,
                                  bool onlyFilled) {
    std::vector<PhraseRow> rows;
    if (!speech.file)
        return rows;
    const EdtFile& file = *speech.file;
    for (int number = 0; number <= file.lastPhrase(); ++number) {
        PhraseRow row;
        row.number = number;
        row.present = number < speech.phrases;
        row.text = row.present ? file.phrase(number) : std::string();
        row.length = row.present ? static_cast<int>(file.phraseBytes(number).size()) : 0;
        row.limit = static_cast<int>(file.info().textLimit);
        for (std::size_t i = 0; i < script.recordCount(); ++i) {
            const auto spoken = spokenPhrases(script.record(i));
            if (spoken && spoken->contains(number))
                row.spokenBy.push_back(static_cast<int>(i) + 1);
        }
        if (!onlyFilled || !row.text.empty() || !row.spokenBy.empty())
            rows.push_back(std::move(row));
    }
    return rows;
}

std::string overviewText(const std::vector<RecordRow>& records,
                         const std::vector<PhraseRow>& phrases, Language language) {
    const std::string emptyRecord(kTexts(Say::EmptyRecord, language));
    const std::string notInFile(kTexts(Say::NotInFile, language));
    std::string out = std::string(kTexts(Say::RecordHeadings, language)) + "\n";
    for (const RecordRow& r : records) {
        std::string line = std::to_string(r.position);
        for (const std::string* cell : {&r.when, &r.does, &r.says}) {
            line += '\t';
            appendCell(line, r.empty ? emptyRecord : *cell);
            if (r.empty)
                break;
        }
        if (!r.empty) {
            line += '\t' + std::to_string(r.findings.size()) + '\t';
            appendCell(line, findingsText(r.findings));
        }
        out += line + "\n";
    }
    if (phrases.empty())
        return out;
    out += "\n" + std::string(kTexts(Say::PhraseHeadings, language)) + "\n";
    for (const PhraseRow& p : phrases) {
        std::string line = std::to_string(p.number) + '\t';
        appendCell(line, p.present ? p.text : notInFile);
        line += '\t' + std::to_string(p.length) + "/" + std::to_string(p.limit) + '\t';
        std::string by;
        for (const int position : p.spokenBy)
            by += (by.empty() ? "" : ", ") + std::to_string(position);
        out += line + (by.empty() ? "-" : by) + "\n";
    }
    return out;
}

std::string overviewJson(const std::vector<RecordRow>& records,
                         const std::vector<PhraseRow>& phrases) {
    std::string out = "{\"records\":[";
    for (const RecordRow& r : records) {
        out += out.back() == '[' ? "{" : ",{";
        out += "\"record\":" + std::to_string(r.position) +
               ",\"empty\":" + (r.empty ? "true" : "false") +
               ",\"when\":" + text::jsonString(r.when) + ",\"does\":" + text::jsonString(r.does) +
               ",\"says\":" + text::jsonString(r.says);
        out +=
            ",\"phrases\":" + (r.spoken ? "{\"first\":" + std::to_string(r.spoken->first) +
                                              ",\"count\":" + std::to_string(r.spoken->count) + "}"
                                        : std::string("null"));
        out += ",\"findings\":[";
        for (const Finding& f : r.findings) {
            out += out.back() == '[' ? "{" : ",{";
            out += "\"field\":" + (f.field ? std::to_string(*f.field) : std::string("null")) +
                   ",\"severity\":" + text::jsonString(severityName(f.severity)) +
                   ",\"message\":" + text::jsonString(f.message) + "}";
        }
        out += "]}";
    }
    out += "],\"phrases\":[";
    for (const PhraseRow& p : phrases) {
        out += out.back() == '[' ? "{" : ",{";
        out += "\"phrase\":" + std::to_string(p.number) + ",\"text\":" + text::jsonString(p.text) +
               ",\"length\":" + std::to_string(p.length) + ",\"limit\":" + std::to_string(p.limit) +
               ",\"present\":" + (p.present ? "true" : "false") +
               ",\"spokenBy\":" + numbersJson(p.spokenBy) + "}";
    }
    return out + "]}";
}

std::string overviewHtml(const std::string& title, const std::vector<RecordRow>& records,
                         const std::vector<PhraseRow>& phrases, Language language) {
    const auto t = [language](Say key) { return std::string(kTexts(key, language)); };
    std::string out = "<!DOCTYPE html>\n<html lang=\"" + t(Say::HtmlLanguage) +
                      "\">\n<head>\n<meta charset=\"utf-8\">\n"
                      "<title>" +
                      html(title) +
                      "</title>\n<style>\n"
                      "table { border-collapse: collapse; margin-bottom: 2em; }\n"
                      "th, td { border: 1px solid #999; padding: 2px 6px; vertical-align: top; }\n"
                      ".error { color: #c00000; } .remark { font-weight: bold; }\n"
                      ".unspoken { color: #808080; }\n</style>\n</head>\n<body>\n<h1>" +
                      html(title) + "</h1>\n<table>\n" +
                      cells({t(Say::HeadRecord), t(Say::HeadWhen), t(Say::HeadDoes),
                             t(Say::HeadSays), t(Say::HeadRemarks)},
                            "th");
    for (const RecordRow& r : records) {
        std::string findings;
        for (const Finding& f : r.findings)
            findings += std::string("<div class=\"") +
                        (f.severity == Severity::Error ? "error" : "remark") + "\">" +
                        html(f.message) + "</div>";
        out += cells({std::to_string(r.position), html(r.empty ? t(Say::EmptyRecord) : r.when),
                      html(r.does), html(r.says), findings});
    }
    out += "</table>\n";
    if (!phrases.empty()) {
        out += "<table>\n" + cells({t(Say::HeadPhrase), t(Say::HeadText), t(Say::HeadLength),
                                    t(Say::HeadSpokenBy)},
                                   "th");
        for (const PhraseRow& p : phrases) {
            std::string by;
            for (const int position : p.spokenBy)
                by += (by.empty() ? "" : ", ") + std::to_string(position);
            const char* mark = p.spokenBy.empty() ? "unspoken" : p.text.empty() ? "error" : "";
            std::string row = cells(
                {std::to_string(p.number), html(p.present ? p.text : t(Say::NotInFile)),
                 std::to_string(p.length) + "/" + std::to_string(p.limit), by.empty() ? "-" : by});
            if (*mark)
                row.insert(3, std::string(" class=\"") + mark + "\"");
            out += row;
        }
        out += "</table>\n";
    }
    return out + "</body>\n</html>\n";
}

} // namespace parlex::mod
