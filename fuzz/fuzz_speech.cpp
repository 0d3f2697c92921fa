// Speech-file bytes of each kind: the phrases read save into bytes that read back as
// the same phrases, cut to the kind's limit, and save the same bytes again (a fixed
// point after one round); the decompiler, and export to JSON and PO and import back,
// agree with the phrases.
#include "check.h"
#include "core/speech/decompiler.h"
#include "core/speech/edtfile.h"
#include "core/speech/exchange.h"

#include <cstdint>
#include <span>

using namespace parlex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1)
        return -1;
    const EdtKind kinds[] = {EdtKind::NpcDialogues, EdtKind::Civilian, EdtKind::Remarks};
    const EdtKind kind = kinds[data[0] % 3];
    const std::span<const std::uint8_t> bytes(data + 1, size - 1);
    if (bytes.size() > kindInfo(kind).largestFile())
        return -1; // refused by size before it is read

    const EdtFile first = EdtFile::fromBytes(bytes, kind, "fuzz.edt");
    FUZZ_CHECK(first.bytesLostOnSave() == bytes.size() % kindInfo(kind).recordSize ||
               bytes.size() / kindInfo(kind).recordSize >= kindInfo(kind).phraseCount());
    // The first save keeps every phrase but cuts it to the kind's limit (the reader
    // takes any number of characters from a record, the writer two bytes for each).
    // From then on nothing changes.
    const std::size_t limit = kindInfo(kind).textLimit;
    const auto saved = first.toBytes();
    const EdtFile second = EdtFile::fromBytes(saved, kind, "fuzz.edt");
    FUZZ_CHECK(second.bytesLostOnSave() == 0);
    const EdtFile third = EdtFile::fromBytes(second.toBytes(), kind, "fuzz.edt");
    for (int i = 0; i <= first.lastPhrase(); ++i) {
        FUZZ_CHECK(second.phraseBytes(i) == first.phraseBytes(i).substr(0, limit));
        FUZZ_CHECK(third.phraseBytes(i) == second.phraseBytes(i));
    }
    FUZZ_CHECK(third.toBytes() == second.toBytes());

    if (kind == EdtKind::NpcDialogues)
        FUZZ_CHECK(!decompileText(second).empty());

    // JSON out and back in: every phrase, unchanged; importing them changes nothing.
    const auto json = phrasesFromJson(phrasesToJson(second));
    FUZZ_CHECK(json && json->size() == static_cast<std::size_t>(second.lastPhrase()) + 1);
    for (const PhraseText& p : *json)
        FUZZ_CHECK(p.text == second.phrase(p.phrase));
    EdtFile copy = second;
    if (importPhrases(copy, *json))
        FUZZ_CHECK(!copy.isChanged());
    // A catalogue as exported is untranslated: it reads, and brings nothing in.
    const auto po = phrasesFromPo(phrasesToPo(second));
    FUZZ_CHECK(po && po->empty());
    return 0;
}
