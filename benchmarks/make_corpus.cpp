// Writes a mod of varied scripts for measuring the whole-mod commands: N scripts in
// 100 folders, "ja" and "ub" alike, each record empty or filled, each field of a
// filled record left neutral or drawn: mostly a value real scripts hold (a code the
// lists name), sometimes any value the field can hold. A speech file of NPC dialogues
// with a random set of phrases lies beside half of the scripts. The same seed gives
// the same mod.
// Usage: make-corpus DIR [N] [SEED]
#include "corpus.h"

#include <charconv>
#include <iostream>
#include <optional>
#include <string_view>

using namespace parlex;

namespace {

// Arguments as numbers: nothing for a word that is not one.
std::optional<unsigned> number(const char* text) {
    unsigned value = 0;
    const std::string_view s(text);
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (ec != std::errc() || end != s.data() + s.size())
        return std::nullopt;
    return value;
}

} // namespace

int main(int argc, char** argv) {
    const auto count = argc > 2 ? number(argv[2]) : std::optional<unsigned>(10000);
    const auto seed = argc > 3 ? number(argv[3]) : std::optional<unsigned>(1);
    if (argc < 2 || argc > 4 || !count || !seed) {
        std::cerr << "usage: make-corpus DIR [N] [SEED]\n";
        return 2;
    }
    if (!bench::writeMod(argv[1], *count, *seed)) {
        std::cerr << "make-corpus: cannot write into " << argv[1] << "\n";
        return 1;
    }
    return 0;
}
