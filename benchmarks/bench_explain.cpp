// Explaining all 21 fields of all 50 records of the example with the built-in lists.
// Items are fields: the time per field is the reported time divided by 1050.
#include "codelists/codelists.h"
#include "explain/explainer.h"
#include "explain/fieldlayout.h"
#include "npc/npcfile.h"

#include <benchmark/benchmark.h>
#include <filesystem>

using namespace parlex;

static void BM_ExplainWholeFile(benchmark::State& state) {
    const NpcFile file = NpcFile::load(PARLEX_EXAMPLE).value();
    const auto emptyFolder = std::filesystem::temp_directory_path() / "parlex-bench-no-lists";
    std::filesystem::create_directories(emptyFolder);
    const CodeLists lists(emptyFolder);
    const ExplainContext context{file.type(), &lists, false, 0};
    std::int64_t fields = 0;
    for (auto _ : state) {
        for (const auto& record : file.records())
            for (const auto& field : fieldTable()) {
                auto e = explain(&record, field.index, context);
                benchmark::DoNotOptimize(e);
                ++fields;
            }
    }
    state.SetItemsProcessed(fields);
}
BENCHMARK(BM_ExplainWholeFile);

// Only the records that are not empty: every field goes through its branch.
static void BM_ExplainNonEmptyRecords(benchmark::State& state) {
    const NpcFile file = NpcFile::load(PARLEX_EXAMPLE).value();
    const auto emptyFolder = std::filesystem::temp_directory_path() / "parlex-bench-no-lists";
    std::filesystem::create_directories(emptyFolder);
    const CodeLists lists(emptyFolder);
    const ExplainContext context{file.type(), &lists, false, 0};
    std::int64_t fields = 0;
    for (auto _ : state) {
        for (const auto& record : file.records()) {
            if (isEmptyRecord(record))
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
BENCHMARK(BM_ExplainNonEmptyRecords);
