// Windows-1251 <-> UTF-8: every byte string comes back from UTF-8 unchanged; UTF-8
// that encodes comes back from Windows-1251 unchanged; a text file read in either
// code page never grows and leaves ASCII as it is.
#include "check.h"
#include "core/text/cp1251.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

using namespace parlex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    const std::string utf8 = text::cp1251ToUtf8(bytes);
    const auto again = text::utf8ToCp1251(utf8);
    FUZZ_CHECK(again && *again == bytes);

    if (const auto encoded = text::utf8ToCp1251(bytes))
        FUZZ_CHECK(text::cp1251ToUtf8(*encoded) == bytes);

    const std::string file = text::textFileAsCp1251(bytes);
    FUZZ_CHECK(file.size() <= bytes.size());
    const bool ascii =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
    if (ascii)
        FUZZ_CHECK(file == bytes);
    return 0;
}
