// The per-script work of the whole-mod commands: lint of the example with a speech
// file beside it, and a search by list code, against reading the script alone; lint
// of a mod of varied scripts against reading its files.
#include "core/codelists/codelists.h"
#include "core/mod/lint.h"
#include "core/mod/scripts.h"
#include "core/mod/search.h"
#include "core/npc/npcfile.h"
#include "core/speech/edtfile.h"
#include "corpus.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>

using namespace parlex;
namespace fs = std::filesystem;

namespace {

// The example and a speech file beside it, in a folder of their own.
const fs::path& modFolder() {
    static const fs::path folder = [] {
        std::string pattern = (fs::temp_directory_path() / "parlex-bench-XXXXXX").string();
        const fs::path dir = ::mkdtemp(pattern.data());
        fs::copy_file(PARLEX_EXAMPLE, dir / "053.npc");
        auto speech = EdtFile::makeNew(EdtKind::NpcDialogues);
        for (int p = 0; p < 143; p += 2)
            (void)speech.setPhrase(p, "Фраза для проверки скорости");
        (void)speech.saveAs(dir / "053.EDT");
        std::atexit([] { fs::remove_all(modFolder()); });
        return dir;
    }();
    return folder;
}

} // namespace

static void BM_ReadScript(benchmark::State& state) {
    const fs::path script = modFolder() / "053.npc";
    for (auto _ : state) {
        auto file = NpcFile::load(script);
        benchmark::DoNotOptimize(file);
    }
}
BENCHMARK(BM_ReadScript);

static void BM_LintScript(benchmark::State& state) {
    const std::vector<fs::path> scripts{modFolder() / "053.npc"};
    const CodeLists lists(modFolder() / "lists", false);
    for (auto _ : state) {
        auto findings = mod::lintScripts(scripts, lists);
        benchmark::DoNotOptimize(findings);
    }
}
BENCHMARK(BM_LintScript);

static void BM_FindCode(benchmark::State& state) {
    const std::vector<fs::path> scripts{modFolder() / "053.npc"};
    const CodeLists lists(modFolder() / "lists", false);
    for (auto _ : state) {
        auto found = mod::findCode(scripts, ListKey::T, 500, lists);
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(BM_FindCode);

namespace {

// 200 varied scripts, a speech file beside half of them.
const std::vector<fs::path>& variedScripts() {
    static const std::vector<fs::path> scripts = [] {
        const fs::path root = modFolder() / "varied";
        bench::writeMod(root, 200, 1);
        return mod::collectScripts(std::span(&root, 1));
    }();
    return scripts;
}

} // namespace

// Reading every file of the varied mod, as lint reads them: each script and the
// speech file beside it.
static void BM_ReadVariedMod(benchmark::State& state) {
    const auto& scripts = variedScripts();
    for (auto _ : state) {
        for (const auto& script : scripts) {
            auto bytes = npcformat::readScript(script);
            auto speech =
                EdtFile::load(fs::path(script).replace_extension(".EDT"), EdtKind::NpcDialogues);
            benchmark::DoNotOptimize(bytes);
            benchmark::DoNotOptimize(speech);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(scripts.size()));
}
BENCHMARK(BM_ReadVariedMod)->Unit(benchmark::kMillisecond);

// Lint of the same mod, on all cores as the command runs it (wall time).
static void BM_LintVariedMod(benchmark::State& state) {
    const auto& scripts = variedScripts();
    const CodeLists lists(modFolder() / "lists", false);
    for (auto _ : state) {
        auto findings = mod::lintScripts(scripts, lists);
        benchmark::DoNotOptimize(findings);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(scripts.size()));
}
BENCHMARK(BM_LintVariedMod)->Unit(benchmark::kMillisecond)->UseRealTime();
