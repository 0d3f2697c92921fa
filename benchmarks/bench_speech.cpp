// Decoding and encoding a full file of NPC dialogues (143 phrases of 240 characters).
#include "core/speech/edtfile.h"

#include <benchmark/benchmark.h>

using namespace parlex;

namespace {
EdtFile fullDialogues() {
    EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
    for (int i = 0; i <= file.lastPhrase(); ++i) {
        std::string phrase;
        while (phrase.size() < 480)
            phrase += "Фраза номер " + std::to_string(i) + " я ";
        (void)file.setPhrase(i, phrase.substr(0, phrase.find(' ', 400)));
    }
    return file;
}
} // namespace

static void BM_EncodeFullNpcDialogues(benchmark::State& state) {
    const EdtFile file = fullDialogues();
    for (auto _ : state) {
        auto bytes = file.toBytes();
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(BM_EncodeFullNpcDialogues);

static void BM_DecodeFullNpcDialogues(benchmark::State& state) {
    const auto bytes = fullDialogues().toBytes();
    for (auto _ : state) {
        auto file = EdtFile::fromBytes(bytes, EdtKind::NpcDialogues, "x.edt");
        benchmark::DoNotOptimize(file);
    }
}
BENCHMARK(BM_DecodeFullNpcDialogues);
