// Script bytes: the document made of them saves the same bytes (a "ja" script but
// for its tail, which is not part of the document), and converting into the other
// layout and back keeps every record that both layouts hold.
#include "check.h"
#include "core/npc/npcfile.h"
#include "core/npc/npcformat.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

using namespace parlex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The reader refuses any other size before it looks at the bytes: a shorter input
    // is taken with zeros after it, a longer one is cut.
    npcformat::FileBytes bytes{};
    std::memcpy(bytes.data(), data, std::min(size, bytes.size()));
    const NpcFileType type = npcformat::detectType(bytes);
    const NpcFile document = NpcFile::fromBytes(bytes, "fuzz.npc");
    FUZZ_CHECK(!document.isChanged());
    FUZZ_CHECK(document.recordCount() == (type == NpcFileType::Ja ? 49u : 50u));

    npcformat::FileBytes expected = bytes;
    const std::size_t tail = npcformat::recordOffset(NpcFileType::Ja, 49);
    if (type == NpcFileType::Ja)
        std::fill(expected.begin() + tail, expected.end(), 0);
    FUZZ_CHECK(document.toBytes() == expected);

    const NpcFileType other = type == NpcFileType::Ja ? NpcFileType::Ub : NpcFileType::Ja;
    FUZZ_CHECK(!npcformat::convertLayout(bytes, type)); // into itself: refused
    const auto converted = npcformat::convertLayout(bytes, other);
    FUZZ_CHECK(converted.has_value());
    if (npcformat::detectType(*converted) != other) {
        // A "ja" record 1 that begins with the "ja" mark: said before converting.
        FUZZ_CHECK(type == NpcFileType::Ja && npcformat::conversionLoss(bytes, other));
        return 0;
    }
    const auto back = npcformat::convertLayout(*converted, type);
    FUZZ_CHECK(back.has_value());
    for (std::size_t i = 0; i < 49; ++i)
        FUZZ_CHECK(std::equal(bytes.begin() + npcformat::recordOffset(type, i),
                              bytes.begin() + npcformat::recordOffset(type, i) + kRecordSize,
                              back->begin() + npcformat::recordOffset(type, i)));
    if (type == NpcFileType::Ja) {
        FUZZ_CHECK(*back == bytes); // the tail rides along in "ub" record 50
    } else {
        // "ja" holds 49 records: a filled record 50 is what the conversion says it loses.
        NpcRecord last{};
        std::copy_n(bytes.begin() + npcformat::recordOffset(type, 49), kRecordSize, last.begin());
        FUZZ_CHECK(npcformat::conversionLoss(bytes, other).has_value() == !isEmptyRecord(last));
    }
    return 0;
}
