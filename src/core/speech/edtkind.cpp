#include "core/speech/edtkind.h"

#include "core/speech/speechtexts.h"

#include <array>

namespace parlex {
namespace {

using speechtexts::kTexts;
using speechtexts::Say;

constexpr std::array<EdtKindInfo, 3> kKinds{{
    {EdtKind::NpcDialogues, "npc", kNpcLastPhrase, 480, 240, kTexts[Say::KindNpc],
     kTexts[Say::LimitNpc], kTexts[Say::SummaryNpc], 1},
    {EdtKind::Civilian,
     "civ",
     14,
     320,
     160,
     kTexts[Say::KindCivilian],
     {},
     kTexts[Say::SummaryCivilian],
     2},
    {EdtKind::Remarks, "rem", 34, 480, 240, kTexts[Say::KindRemarks], kTexts[Say::LimitRemarks],
     kTexts[Say::SummaryRemarks], 3},
}};

} // namespace

const EdtKindInfo& kindInfo(EdtKind kind) {
    return kKinds[static_cast<std::size_t>(kind)];
}

std::optional<EdtKind> parseEdtKind(std::string_view name) {
    for (const auto& k : kKinds)
        if (k.name == name)
            return k.kind;
    return std::nullopt;
}

} // namespace parlex
