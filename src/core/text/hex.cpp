#include "core/text/hex.h"

namespace parlex::text {

std::string byteHex(std::uint8_t byte) {
    static constexpr char digits[] = "0123456789ABCDEF";
    return {digits[byte >> 4], digits[byte & 0xF]};
}

std::string hexBytes(std::span<const std::uint8_t> bytes, std::string_view separator) {
    std::string out;
    out.reserve(bytes.size() * (2 + separator.size()));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i)
            out += separator;
        out += byteHex(bytes[i]);
    }
    return out;
}

} // namespace parlex::text
