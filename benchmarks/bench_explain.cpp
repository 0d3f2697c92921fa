// Explaining all 21 fields of the records of the example with the built-in lists.
// Items are fields: the time per field is the reported time divided by the items.
#include "core/codelists/codelists.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/npc/npcfile.h"

#include <benchmark/benchmark.h>
#include <filesystem>

using namespace parlex;

namespace {

void explainRecords(benchmark::State& state, bool skipEmpty) {
    const NpcFile file = NpcFile::load(PARLEX_EXAMPLE).value();
    const auto emptyFolder = std::filesystem::temp_directory_path() / "parlex-bench-no-lists";
    std::filesystem::create_directories(emptyFolder);
    const CodeLists lists(emptyFolder);
    const ExplainContext context{file.type(), &lists, false, 0};
    std::int64_t fields = 0;
    for (auto _ : state) {
        for (const auto& record : file.records()) {
            if (skipEmpty && isEmptyRecord(record))
                continue;
            for (const auto& field : fieldTable()) {
                auto e = explain(&record, field.index, context);
                benchmark::DoNotOptimize(e);
                ++fields;
            }
        }
    }
    state.SetItemsProcessed(fields);
}

} // namespace

// All 50 records, empty ones included (1050 fields a run).
static void BM_ExplainWholeFile(benchmark::State& state) {
    explainRecords(state, false);
}
BENCHMARK(BM_ExplainWholeFile);

// Only the records that are not empty: every field goes through its branch.
static void BM_ExplainNonEmptyRecords(benchmark::State& state) {
    explainRecords(state, true);
}
BENCHMARK(BM_ExplainNonEmptyRecords);
