#include "core/speech/edtkind.h"

#include <array>

namespace parlex {
namespace {

constexpr std::array<EdtKindInfo, 3> kKinds{{
    {EdtKind::NpcDialogues, "npc", kNpcLastPhrase, 480, 240, "(Тип: Диалоги НПЦ)",
     "(всего может быть 143 [0-142] фразы по 480 байт)", "Диалоги НПЦ", 1},
    {EdtKind::Civilian, "civ", 14, 320, 160, "(Тип: Диалоги гражданских)", "", "Диалоги гражд-их",
     2},
    {EdtKind::Remarks, "rem", 34, 480, 240, "(Тип: Коментарии НПЦ)",
     "(всего может быть 35 [0-34] фразы по 480 байт)", "Комментарии НПЦ", 3},
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
