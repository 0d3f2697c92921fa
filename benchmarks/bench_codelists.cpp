// lookupCode as the window calls it on every mouse move: built-in table against a
// 500-line override file in the same folder.
#include "core/codelists/codelists.h"
#include "core/text/cp1251.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace parlex;

namespace {

std::filesystem::path makeFolder(bool withOverride) {
    std::string pattern = (std::filesystem::temp_directory_path() / "parlex-bench-XXXXXX").string();
    std::filesystem::path dir = ::mkdtemp(pattern.data());
    if (withOverride) {
        std::string text = "; list\r\n\r\n";
        for (int code = 0; code < 500; ++code)
            text += std::to_string(code) + "=Триггер номер " + std::to_string(code) + "\r\n";
        std::ofstream(dir / "Trigg.txt", std::ios::binary) << text::utf8ToCp1251(text).value();
    }
    return dir;
}

void lookups(benchmark::State& state, bool withOverride) {
    const auto dir = makeFolder(withOverride);
    CodeLists lists(dir);
    std::uint32_t code = 0;
    for (auto _ : state) {
        auto text = lists.lookupCode(4, code);
        benchmark::DoNotOptimize(text);
        code = (code + 37) % 500;
    }
    std::filesystem::remove_all(dir);
}

} // namespace

static void BM_LookupBuiltIn(benchmark::State& state) {
    lookups(state, false);
}
BENCHMARK(BM_LookupBuiltIn);

static void BM_LookupOverrideFile500Lines(benchmark::State& state) {
    lookups(state, true);
}
BENCHMARK(BM_LookupOverrideFile500Lines);
