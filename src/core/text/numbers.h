#pragma once

#include <string>

namespace parlex::text {

// The decimal text of `n` with leading zeros up to `width` digits: zeroPadded(7, 3) is "007".
inline std::string zeroPadded(unsigned n, std::size_t width) {
    std::string s = std::to_string(n);
    return s.size() < width ? std::string(width - s.size(), '0') + s : s;
}

} // namespace parlex::text
