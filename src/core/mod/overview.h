#pragma once

// The whole script at a glance: a row of words for every record and a row for every
// phrase of its speech file. The window's overview and `parlex-cli overview` both show
// these rows, so that the two say the same.
#include "core/explain/fieldlayout.h"
#include "core/mod/lint.h"
#include "core/text/language.h"

#include <optional>
#include <string>
#include <vector>

namespace parlex {
class NpcFile;
}

namespace parlex::mod {

struct RecordRow {
    int position = 0;   // 1-50
    bool empty = false; // an empty record: nothing below is said of it
    std::string when;   // when it fires: the conditions that are set, in the explainer's words
    std::string does;   // what it does: the actions that are set
    std::optional<PhraseRange> spoken;
    std::string says; // "фразы 3-4: «...»": the phrases and the first one's text
    std::vector<Finding> findings; // as lint finds them: alerts, remarks, missing phrases
    bool operator==(const RecordRow&) const = default;
};

struct PhraseRow {
    int number = 0;
    std::string text;          // UTF-8
    int length = 0;            // characters
    int limit = 0;             // the most its kind holds
    bool present = true;       // within the speech file (a phrase past its end is missing)
    std::vector<int> spokenBy; // the records (positions) whose phrases include it
    bool operator==(const PhraseRow&) const = default;
};

// The row of the record at `position` (1-50); nothing where the layout has no record.
std::optional<RecordRow> recordRow(const NpcFile& script, int position, const SpeechSource& speech,
                                   const CodeLists& lists, Language language = Language::Russian);
// Every record's row, or only those of records that are not empty.
std::vector<RecordRow> recordRows(const NpcFile& script, const SpeechSource& speech,
                                  const CodeLists& lists, bool withEmpty,
                                  Language language = Language::Russian);
// A row for every phrase of the speech file, or only for the filled ones and those a
// record speaks; none without a speech file.
std::vector<PhraseRow> phraseRows(const NpcFile& script, const SpeechSource& speech,
                                  bool onlyFilled);

// Both tables as tab-separated text under a heading line each (a spreadsheet takes it
// as it is), and as one JSON object {"records":[...],"phrases":[...]}.
std::string overviewText(const std::vector<RecordRow>& records,
                         const std::vector<PhraseRow>& phrases,
                         Language language = Language::Russian);
std::string overviewJson(const std::vector<RecordRow>& records,
                         const std::vector<PhraseRow>& phrases);
// Both tables as a UTF-8 HTML page headed `title`, for a mod's documentation: errors
// dark red, remarks bold, phrases nobody speaks grey.
std::string overviewHtml(const std::string& title, const std::vector<RecordRow>& records,
                         const std::vector<PhraseRow>& phrases,
                         Language language = Language::Russian);

} // namespace parlex::mod
