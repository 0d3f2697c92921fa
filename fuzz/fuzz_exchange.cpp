// JSON and PO files a translator hands back: read without fault, and whatever they
// bring in is either refused whole or set as read.
#include "check.h"
#include "core/speech/edtfile.h"
#include "core/speech/exchange.h"

#include <cstdint>
#include <string_view>

using namespace parlex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const bool json : {true, false}) {
        const auto read = json ? phrasesFromJson(text) : phrasesFromPo(text);
        if (!read) {
            FUZZ_CHECK(!read.error().message.empty());
            continue;
        }
        EdtFile file = EdtFile::makeNew(EdtKind::Civilian);
        const EdtFile before = file;
        if (!importPhrases(file, *read)) {
            FUZZ_CHECK(file.toBytes() == before.toBytes()); // all or nothing
            continue;
        }
        // The last text given for a phrase is the one it holds.
        for (auto it = read->rbegin(); it != read->rend(); ++it) {
            bool later = false;
            for (auto next = read->rbegin(); next != it; ++next)
                later = later || next->phrase == it->phrase;
            if (!later)
                FUZZ_CHECK(file.phrase(it->phrase) == it->text);
        }
    }
    return 0;
}
