// One keystroke in the speech pane, below the widgets, on a full file of NPC dialogues
// (143 phrases of 240 characters): the text stored into the phrase, both counters
// and the change test that enables the save button. The baseline is the least any
// keystroke costs: the pane's text copied and converted to the file's encoding once.
// Run: build/benchmarks/session_keystroke --benchmark_repetitions=9
//      --benchmark_report_aggregates_only=true
#include "core/settings/options.h"
#include "core/text/cp1251.h"
#include "session/speechdocument.h"

#include "silentprompts.h"

#include <benchmark/benchmark.h>
#include <filesystem>

using namespace parlex;

namespace {

using benchutil::SilentPrompts;

// A saved file of 143 full phrases, opened, the pane on phrase 71 with its text.
struct FullFile {
    SilentPrompts prompts;
    Options options;
    std::filesystem::path path = std::filesystem::temp_directory_path() / "keystroke_bench.edt";
    session::SpeechDocument speech{prompts, options, std::filesystem::temp_directory_path()};
    QString text;

    FullFile() {
        EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
        for (int i = 0; i <= file.lastPhrase(); ++i) {
            std::string phrase;
            while (phrase.size() < 440) // 240 Cyrillic and Latin characters
                phrase += "Фраза номер " + std::to_string(i) + " я ";
            (void)file.setPhrase(i, phrase.substr(0, phrase.find(' ', 400)));
        }
        (void)file.saveAs(path);
        speech.openPath(path, EdtKind::NpcDialogues);
        speech.showPhrase(71);
        text = speech.phraseText();
    }
    ~FullFile() { std::filesystem::remove(path); }
};

} // namespace

// Typing a letter at the end and deleting it again, one keystroke per iteration.
static void BM_Keystroke(benchmark::State& state) {
    FullFile f;
    const QString typed = f.text + "ы";
    bool even = false;
    for (auto _ : state) {
        even = !even;
        QString shown = f.speech.editPhrase(even ? typed : f.text);
        QString length = f.speech.lengthCounter();
        QString counter = f.speech.phraseCounter();
        bool save = f.speech.canSave();
        benchmark::DoNotOptimize(shown);
        benchmark::DoNotOptimize(length);
        benchmark::DoNotOptimize(counter);
        benchmark::DoNotOptimize(save);
    }
}
BENCHMARK(BM_Keystroke);

static void BM_KeystrokeBaseline(benchmark::State& state) {
    FullFile f;
    const QString typed = f.text + "ы";
    bool even = false;
    for (auto _ : state) {
        even = !even;
        QString shown = even ? typed : f.text;
        auto bytes = text::utf8ToCp1251(shown.toStdString());
        benchmark::DoNotOptimize(shown);
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(BM_KeystrokeBaseline);

BENCHMARK_MAIN();
