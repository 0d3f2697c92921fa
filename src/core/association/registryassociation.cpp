#include "core/association/registryassociation.h"

#include "core/platform/systemtexts.h"
#include <algorithm>
#include <array>

namespace parlex {
namespace {

enum class Data { Fixed, Icon, Command };

struct Row {
    const char* key;
    Data data;
    const char* text; // for Fixed
};

// The keys in the order they are written.
constexpr std::array<Row, 6> kRows{{
    {".npc", Data::Fixed, "Parlex"},
    {"Parlex", Data::Fixed, "NPC SCRIPT FILE (Ja2/UB games)"},
    {"Parlex\\DefaultIcon", Data::Icon, ""},
    {"Parlex\\Shell", Data::Fixed, "Open"},
    {"Parlex\\Shell\\Open", Data::Fixed, ""},
    {R"(Parlex\Shell\Open\Command)", Data::Command, ""},
}};

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    const auto lower = [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; };
    return std::ranges::equal(a, b, [&](char x, char y) { return lower(x) == lower(y); });
}

// The program's path with its extension made ".exe" ("parlex" or "Parlex.EXE" both
// give "...\\Parlex.exe" with the stem as it was).
std::string withExe(std::string path) {
    const auto slash = path.find_last_of("\\/");
    const auto dot = path.find_last_of('.');
    if (dot != std::string::npos && (slash == std::string::npos || dot > slash))
        path.erase(dot);
    return path + ".exe";
}

} // namespace

RegistryAssociation::RegistryAssociation(Registry& registry, std::string programPath)
    : registry_(registry), exe_(withExe(std::move(programPath))) {}

std::string RegistryAssociation::command() const {
    return exe_ + " %1";
}

bool RegistryAssociation::isAssociated() const {
    const auto command = registry_.defaultValue(R"(Parlex\Shell\Open\Command)");
    if (!command || !equalIgnoringCase(*command, this->command()))
        return false;
    const auto type = registry_.defaultValue(".npc");
    return type && equalIgnoringCase(*type, "Parlex");
}

Result<void> RegistryAssociation::associate() {
    std::optional<std::string> failed;
    for (const auto& row : kRows) {
        const std::string value = row.data == Data::Icon      ? exe_ + ",3"
                                  : row.data == Data::Command ? command()
                                                              : row.text;
        if (!registry_.setDefaultValue(row.key, value) && !failed)
            failed = row.key;
    }
    if (failed)
        return fail(ErrorKind::Write,
                    say(systemtexts::kTexts[systemtexts::Say::CannotWriteKey], {*failed}));
    return {};
}

Result<void> RegistryAssociation::disassociate() {
    const bool type = registry_.deleteKey(".npc");
    registry_.deleteKey("Parlex");
    if (!type && registry_.defaultValue(".npc"))
        return fail(ErrorKind::Write, say(systemtexts::kTexts[systemtexts::Say::CannotRemoveKey]));
    return {};
}

} // namespace parlex
