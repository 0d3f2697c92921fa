#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace parlex::text {

// Fits a path into a status bar panel `available` pixels wide. A path that fits
// (with `spare` pixels to go) stays whole; otherwise folders are dropped from the
// tail of the folder chain, one at a time, until "head/.../title" fits or only the
// first folder is left. `width` measures a text in the panel's font.
std::string fitPath(std::string_view path, std::string_view title, int available, int spare,
                    const std::function<int(std::string_view)>& width, char separator = '/');

} // namespace parlex::text
