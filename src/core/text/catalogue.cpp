#include "core/text/catalogue.h"

#include "core/codelists/listtexts.h"
#include "core/explain/explaintexts.h"
#include "core/mod/modtexts.h"
#include "core/npc/npctexts.h"
#include "core/platform/systemtexts.h"
#include "core/speech/speechtexts.h"
#include "core/text/encodingtexts.h"

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
    add(all, "lists", listtexts::kTexts);
    add(all, "mod", modtexts::kTexts);
    add(all, "npc", npctexts::kTexts);
    add(all, "speech", speechtexts::kTexts);
    add(all, "system", systemtexts::kTexts);
    add(all, "encoding", encodingtexts::kTexts);
    return all;
}

} // namespace parlex
