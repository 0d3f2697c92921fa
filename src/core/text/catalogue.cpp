#include "core/text/catalogue.h"

#include "core/explain/explaintexts.h"

namespace parlex {
namespace {

template <class Table>
void add(std::vector<CatalogueEntry>& all, std::string_view name, const Table& table) {
    for (const Text& text : table.all())
        all.push_back({name, text});
}

} // namespace

std::vector<CatalogueEntry> textCatalogue() {
    std::vector<CatalogueEntry> all;
    add(all, "explain", explaintexts::kTexts);
    return all;
}

} // namespace parlex
