#include "npc/npcrecord.h"

namespace parlex {

std::string byteHex(std::uint8_t byte) {
    static constexpr char digits[] = "0123456789ABCDEF";
    return {digits[byte >> 4], digits[byte & 0xF]};
}

std::string toHex(const NpcRecord& record, std::string_view separator) {
    std::string out;
    for (std::size_t i = 0; i < record.size(); ++i) {
        if (i)
            out += separator;
        out += byteHex(record[i]);
    }
    return out;
}

} // namespace parlex
