// The overview of a full script (50 records, each speaking phrases) with a full file
// of NPC dialogues (143 phrases): building both tables against the baseline of
// reading the two files; one byte edit refreshing it (and how many rows it tells as
// changed); one keystroke in the filter over both tables; and a hover over a byte
// with the overview there and without it.
// Run: build/benchmarks/session_overview --benchmark_repetitions=9
//      --benchmark_report_aggregates_only=true
#include "core/speech/edtfile.h"
#include "session/overview.h"
#include "session/session.h"

#include "silentprompts.h"
#include <QCoreApplication>

#include <benchmark/benchmark.h>
#include <filesystem>

using namespace parlex;

namespace {

using benchutil::SilentPrompts;

const std::filesystem::path kFolder = std::filesystem::temp_directory_path() / "overview_bench";

// The two files, written once: every record sets conditions and actions and speaks
// two or three phrases; every phrase is filled.
void writeFiles() {
    std::filesystem::create_directories(kFolder);
    NpcFile script = NpcFile::makeNew();
    for (std::size_t i = 0; i < script.recordCount(); ++i) {
        NpcRecord r = kNeutralRecord;
        const auto n = static_cast<std::uint8_t>(i);
        r[fields::ActionCode] = n % 30;
        r[fields::Leadership] = n;
        r[fields::TriggerTrue] = n;
        r[fields::GivenItem] = n;
        r[fields::PhraseFirst] = static_cast<std::uint8_t>(i * 2);
        r[fields::PhraseCount] = static_cast<std::uint8_t>(2 + i % 2);
        script.setRecord(i, r);
    }
    (void)script.saveAs(kFolder / "001.npc");
    EdtFile speech = EdtFile::makeNew(EdtKind::NpcDialogues);
    for (int i = 0; i <= speech.lastPhrase(); ++i)
        (void)speech.setPhrase(i, "Фраза номер " + std::to_string(i) + ", ёжик в тумане");
    (void)speech.saveAs(kFolder / "001.EDT");
}

struct Opened {
    SilentPrompts prompts;
    session::Session session{prompts, kFolder};
    Opened() {
        session.flows().openPath(kFolder / "001.npc");
        session.speech().openPath(kFolder / "001.EDT", EdtKind::NpcDialogues);
    }
    session::Overview make() { return {session.document(), session.speech(), session.codeLists()}; }
};

} // namespace

static void BM_ReadBothFilesBaseline(benchmark::State& state) {
    for (auto _ : state) {
        auto script = NpcFile::load(kFolder / "001.npc");
        auto speech = EdtFile::load(kFolder / "001.EDT", EdtKind::NpcDialogues);
        benchmark::DoNotOptimize(script);
        benchmark::DoNotOptimize(speech);
    }
}
BENCHMARK(BM_ReadBothFilesBaseline)->Unit(benchmark::kMicrosecond);

static void BM_BuildBothTables(benchmark::State& state) {
    Opened o;
    auto overview = o.make();
    for (auto _ : state)
        overview.rebuild();
    state.counters["records"] = static_cast<double>(overview.records().rowCount());
    state.counters["phrases"] = static_cast<double>(overview.phrases().rowCount());
}
BENCHMARK(BM_BuildBothTables)->Unit(benchmark::kMicrosecond);

// A byte of record 25 set and set back, one edit per iteration.
static void BM_OneByteEdit(benchmark::State& state) {
    Opened o;
    auto overview = o.make();
    long told = 0;
    QObject::connect(&overview.records(), &QAbstractItemModel::dataChanged, [&] { ++told; });
    QObject::connect(&overview.phrases(), &QAbstractItemModel::dataChanged, [&] { ++told; });
    NpcRecord record = o.session.document().file()->record(24);
    for (auto _ : state) {
        record[fields::Leadership] ^= 1;
        o.session.document().edit(24, record);
    }
    state.counters["rows told per edit"] =
        static_cast<double>(told) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_OneByteEdit)->Unit(benchmark::kMicrosecond);

// One keystroke: the words grow by a letter and shrink again, over both tables.
static void BM_FilterKeystroke(benchmark::State& state) {
    Opened o;
    auto overview = o.make();
    overview.setAllPhrases(true);
    session::OverviewFilter records, phrases;
    records.setSourceModel(&overview.records());
    phrases.setSourceModel(&overview.phrases());
    bool even = false;
    for (auto _ : state) {
        even = !even;
        const QString words = even ? "ёжик тумане 1" : "ёжик тумане";
        records.setWords(words);
        phrases.setWords(words);
        benchmark::DoNotOptimize(phrases.rowCount());
    }
}
BENCHMARK(BM_FilterKeystroke)->Unit(benchmark::kMicrosecond);

// A hover over each byte in turn, with the overview there (Arg 1) or not (Arg 0).
static void BM_Hover(benchmark::State& state) {
    Opened o;
    std::optional<session::Overview> overview;
    if (state.range(0))
        overview.emplace(o.session.document(), o.session.speech(), o.session.codeLists());
    o.session.cursor().setPosition(25);
    int byte = 0;
    for (auto _ : state) {
        o.session.cursor().hover(byte);
        byte = (byte + 1) % 32;
    }
}
BENCHMARK(BM_Hover)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    writeFiles();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::filesystem::remove_all(kFolder);
    return 0;
}
