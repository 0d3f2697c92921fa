#include "core/text/pathfit.h"

#include <gtest/gtest.h>

using parlex::text::fitPath;

namespace {

// Ten pixels a character: widths are easy to reason about.
int tenPerChar(std::string_view s) {
    return static_cast<int>(s.size()) * 10;
}

TEST(FitPath, DropsFoldersFromTheTailAndKeepsTheHead) {
    const std::string path = "/home/user/mods/ja2/scripts/053.npc"; // 35 characters
    // The width available, the path shown.
    const std::pair<int, std::string> cases[] = {
        {350 + 47, path}, // fits with the spare
        {350 + 46, "/home/user/mods/ja2/.../053.npc"},
        {310 + 47, "/home/user/mods/ja2/.../053.npc"},
        {309 + 47, "/home/user/mods/.../053.npc"},
        {250, "/home/.../053.npc"},
        {216, "/.../053.npc"},
        {10, "/.../053.npc"}, // nothing more to drop
    };
    for (const auto& [available, shown] : cases)
        EXPECT_EQ(fitPath(path, "053.npc", available, 47, tenPerChar), shown) << available;
    // No folder to drop: the rule still writes the dots before the title.
    EXPECT_EQ(fitPath("053.npc", "053.npc", 0, 47, tenPerChar), "053.npc.../053.npc");
    EXPECT_EQ(fitPath("053.npc", "053.npc", 1000, 47, tenPerChar), "053.npc");
}

} // namespace
