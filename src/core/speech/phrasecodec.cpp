#include "core/speech/phrasecodec.h"

namespace parlex::phrasecodec {

namespace {
constexpr unsigned char kBlank = 0x20;
constexpr unsigned char kYa = 0xFF; // "я" in Windows-1251
} // namespace

std::string decode(std::span<const std::uint8_t> record) {
    std::string phrase;
    if (record.empty() || (record[0] == 0 && (record.size() < 2 || record[1] == 0)))
        return phrase;
    int zeros = 0;
    for (std::uint8_t b : record) {
        if (b == 0) {
            if (++zeros == 3)
                break;
            continue;
        }
        auto c = static_cast<unsigned char>(b - 1);
        if (c == 0)
            c = kYa;
        else if (c == 31)
            c = kBlank;
        phrase += static_cast<char>(c);
        zeros = 0;
    }
    return phrase;
}

std::vector<std::uint8_t> encode(std::string_view phrase, std::size_t recordSize) {
    std::vector<std::uint8_t> record(recordSize, 0);
    const std::size_t limit = recordSize / 2;
    for (std::size_t i = 0; i < phrase.size() && i < limit; ++i) {
        const auto c = static_cast<unsigned char>(phrase[i]);
        if (c == kBlank) {
            record[2 * i] = 0x20;
        } else if (c == kYa) {
            record[2 * i + 1] = 0x01;
        } else {
            record[2 * i] = static_cast<std::uint8_t>(c + 1);
        }
    }
    return record;
}

bool couldBePhrases(std::span<const std::uint8_t> bytes) {
    for (std::size_t i = 1; i < bytes.size(); i += 2)
        if (bytes[i] > 1)
            return false;
    return true;
}

} // namespace parlex::phrasecodec
