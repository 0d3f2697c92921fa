#pragma once

#include "core/text/language.h"

#include <string_view>
#include <vector>

namespace parlex {

// Every text of the core's tables, each with the name of its table: what a check of
// the languages walks (both columns filled, the same placeholders).
struct CatalogueEntry {
    std::string_view table;
    Text text;
};
std::vector<CatalogueEntry> textCatalogue();

} // namespace parlex
