#include "core/text/pathfit.h"

namespace parlex::text {

std::string fitPath(std::string_view path, std::string_view title, int available, int spare,
                    const std::function<int(std::string_view)>& width, char separator) {
    if (available >= width(path) + spare)
        return std::string(path);
    const std::string dots = std::string("...") + separator;
    std::string head(path);
    int needed = width(path) + spare;
    while (available < needed) {
        // The separator before the last one still in `head` (head ends in one after a cut).
        if (head.size() < 2)
            break;
        const auto cut = head.rfind(separator, head.size() - 2);
        if (cut == std::string::npos)
            break;
        head.resize(cut + 1);
        needed = width(head + dots + std::string(title)) + spare;
    }
    return head + dots + std::string(title);
}

} // namespace parlex::text
