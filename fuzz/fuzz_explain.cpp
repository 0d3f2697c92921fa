// The explainer over any 32 bytes: every field, each layout, with the built-in lists
// and without any. Every field gets one sentence of text the program can show (UTF-8
// that Windows-1251 holds but for the names a list may bring), the same each time,
// and judging it alone agrees with the sentence.
#include "check.h"
#include "core/codelists/codelists.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/text/cp1251.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <optional>

using namespace parlex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A context byte and a record; what is missing is zero, what is more is left.
    std::uint8_t input[1 + kRecordSize] = {};
    std::memcpy(input, data, std::min(size, sizeof input));
    data = input;
    // A folder without list files: the built-in lists.
    static const CodeLists builtIn(std::filesystem::path("/nonexistent-parlex-lists"), false);
    const std::optional<NpcFileType> layouts[] = {std::nullopt, NpcFileType::Ub, NpcFileType::Ja};
    NpcRecord record{};
    std::memcpy(record.data(), data + 1, kRecordSize);
    ExplainContext context{layouts[data[0] % 3], (data[0] & 4) ? &builtIn : nullptr,
                           (data[0] & 8) != 0, (data[0] & 16) ? 142 : 0};
    for (const FieldInfo& field : fieldTable()) {
        const Explanation once = explain(&record, field.index, context);
        FUZZ_CHECK(!once.text.empty());
        FUZZ_CHECK(text::utf8ToCp1251(once.text + once.remark).has_value());
        const Explanation twice = explain(&record, field.index, context);
        FUZZ_CHECK(twice.text == once.text && twice.remark == once.remark &&
                   twice.alert == once.alert && twice.phrase == once.phrase);
        FUZZ_CHECK(!once.phrase || field.index == 13);
        // Judging without the sentence says what the sentence says.
        const Verdict verdict = judge(&record, field.index, context);
        FUZZ_CHECK(verdict.alert == once.alert && verdict.remark == !once.remark.empty());
        FUZZ_CHECK(explain(nullptr, field.index, context).text == "Запись не существует");
    }
    return 0;
}
