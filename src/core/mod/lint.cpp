#include "core/mod/lint.h"

#include "core/codelists/codelists.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/mod/modtexts.h"
#include "core/mod/scripts.h"
#include "core/npc/npcfile.h"
#include "core/platform/files.h"
#include "core/speech/companion.h"
#include "core/speech/edtfile.h"

#include <algorithm>

namespace parlex::mod {
namespace fs = std::filesystem;
using modtexts::kTexts;
using modtexts::Say;

namespace {

// Where the 49 records of a "ja" script end: the rest of the file is its tail.
constexpr std::size_t kJaTail = npcformat::recordOffset(NpcFileType::Ja, kJaRecords);

// The speech file beside a script, as far as it could be read.
struct Speech {
    std::optional<EdtFile> file;
    int phrasesOnDisk = 0;
};

Speech readSpeech(const fs::path& script, const CompanionIndex& companions, Language language,
                  std::vector<Finding>& findings) {
    Speech speech;
    const auto path = companions.find(script);
    if (!path)
        return speech;
    auto file = EdtFile::load(*path, EdtKind::NpcDialogues);
    if (!file) {
        findings.push_back({script, std::nullopt, std::nullopt, Severity::Warning,
                            fill(kTexts(Say::SpeechUnreadable, language),
                                 {platform::utf8(path->filename()), file.error().text(language)})});
        return speech;
    }
    const auto size = platform::fileSize(*path);
    speech.phrasesOnDisk = size ? static_cast<int>(*size / file->info().recordSize) : 0;
    speech.file = std::move(*file);
    return speech;
}

void lintPhrases(const fs::path& script, int position, const NpcRecord& record,
                 const SpeechSource& speech, Language language, std::vector<Finding>& findings) {
    const auto spoken = spokenPhrases(record);
    if (!speech.file || !spoken)
        return;
    std::vector<int> missing, empty;
    for (int p = spoken->first; p < spoken->first + spoken->count; ++p) {
        if (p >= speech.phrases)
            missing.push_back(p);
        else if (speech.file->phraseBytes(p).empty())
            empty.push_back(p);
    }
    const std::string name = speech.file->title();
    if (!missing.empty())
        findings.push_back(
            {script, position, fields::PhraseFirst, Severity::Warning,
             fill(kTexts(missing.size() == 1 ? Say::PhraseMissing : Say::PhrasesMissing, language),
                  {numberRanges(missing), name, std::to_string(speech.phrases)})});
    if (!empty.empty())
        findings.push_back(
            {script, position, fields::PhraseFirst, Severity::Warning,
             fill(kTexts(empty.size() == 1 ? Say::PhraseEmpty : Say::PhrasesEmpty, language),
                  {numberRanges(empty), name})});
}

void lintBytes(const fs::path& path, const npcformat::FileBytes& bytes, const CodeLists& lists,
               const CompanionIndex& companions, Language language,
               std::vector<Finding>& findings) {
    const NpcFile script = NpcFile::fromBytes(bytes, path);
    if (script.type() == NpcFileType::Ja &&
        std::any_of(bytes.begin() + kJaTail, bytes.end(), [](std::uint8_t b) { return b != 0; }))
        findings.push_back({path, std::nullopt, std::nullopt, Severity::Warning,
                            std::string(kTexts(Say::JaTail, language))});
    const Speech speech = readSpeech(path, companions, language, findings);
    const SpeechSource source{speech.file ? &*speech.file : nullptr, speech.phrasesOnDisk};
    const ExplainContext context{script.type(), &lists, false, 0, language};
    for (std::size_t i = 0; i < script.recordCount(); ++i) {
        const NpcRecord& record = script.record(i);
        if (!isEmptyRecord(record))
            lintRecord(path, static_cast<int>(i) + 1, record, context, source, findings);
    }
}

} // namespace

void lintRecord(const fs::path& script, int position, const NpcRecord& record,
                const ExplainContext& context, const SpeechSource& speech,
                std::vector<Finding>& findings) {
    for (const FieldInfo& field : fieldTable()) {
        // Most fields are fine: their sentence is composed only for a finding.
        const Verdict verdict = judge(&record, field.index, context);
        if (!verdict.alert && !verdict.remark)
            continue;
        const Explanation e = explain(&record, field.index, context);
        if (e.alert)
            findings.push_back({script, position, field.index, Severity::Error,
                                std::string(field.name) + ": " + e.text});
        else if (!e.remark.empty())
            findings.push_back({script, position, field.index, Severity::Warning,
                                std::string(field.name) + ": " + e.text + e.remark});
    }
    lintPhrases(script, position, record, speech, context.language, findings);
}

std::string numberRanges(const std::vector<int>& numbers) {
    std::string out;
    for (std::size_t i = 0; i < numbers.size();) {
        std::size_t j = i;
        while (j + 1 < numbers.size() && numbers[j + 1] == numbers[j] + 1)
            ++j;
        out += (out.empty() ? "" : ", ") + std::to_string(numbers[i]);
        if (j > i)
            out += "-" + std::to_string(numbers[j]);
        i = j + 1;
    }
    return out;
}

std::vector<Finding> lintScript(const fs::path& path, const CodeLists& lists, Language language) {
    return lintScripts(std::span(&path, 1), lists, language);
}

std::vector<Finding> lintScripts(std::span<const fs::path> scripts, const CodeLists& lists,
                                 Language language) {
    const CompanionIndex companions(scripts);
    return checkScripts(
        scripts, lists,
        [&](const fs::path& path, const npcformat::FileBytes& bytes, const CodeLists& own,
            std::vector<Finding>& findings) {
            lintBytes(path, bytes, own, companions, language, findings);
        },
        language);
}

} // namespace parlex::mod
