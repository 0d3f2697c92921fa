// Load, save-to-memory and layout conversion of one script.
#include "core/npc/npcfile.h"
#include "core/npc/npcformat.h"

#include <benchmark/benchmark.h>

using namespace parlex;

static void BM_LoadFromDisk(benchmark::State& state) {
    for (auto _ : state) {
        auto file = NpcFile::load(PARLEX_EXAMPLE);
        benchmark::DoNotOptimize(file);
    }
}
BENCHMARK(BM_LoadFromDisk);

static void BM_ParseBytes(benchmark::State& state) {
    const auto bytes = npcformat::readScript(PARLEX_EXAMPLE).value();
    for (auto _ : state) {
        auto file = NpcFile::fromBytes(bytes, PARLEX_EXAMPLE);
        benchmark::DoNotOptimize(file);
    }
}
BENCHMARK(BM_ParseBytes);

static void BM_SaveToMemory(benchmark::State& state) {
    const auto file = NpcFile::load(PARLEX_EXAMPLE).value();
    for (auto _ : state) {
        auto bytes = file.toBytes();
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(BM_SaveToMemory);

static void BM_ConvertUbToJa(benchmark::State& state) {
    const auto bytes = npcformat::readScript(PARLEX_EXAMPLE).value();
    for (auto _ : state) {
        auto out = npcformat::convertLayout(bytes, NpcFileType::Ja);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(BM_ConvertUbToJa);
