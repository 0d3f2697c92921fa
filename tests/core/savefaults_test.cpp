// An atomic save where the target cannot simply be replaced: each case either
// replaces the file whole or leaves everything as it was, with no stray file.
#include "platform/files.h"
#include "testutil.h"

#include <gtest/gtest.h>

using namespace parlex;
namespace fs = std::filesystem;

namespace {

std::size_t entries(const fs::path& folder) {
    std::size_t n = 0;
    for (auto it = fs::recursive_directory_iterator(folder);
         it != fs::recursive_directory_iterator(); ++it)
        ++n;
    return n;
}

TEST(SaveFaults, TheTargetIsReplacedWholeOrNotAtAll) {
    struct Case {
        const char* name;
        // Prepares the folder and gives the target.
        fs::path (*prepare)(const fs::path& dir);
        bool saved;
    };
    const std::vector<std::uint8_t> old(1600, 7);
    static std::vector<std::uint8_t> kept;
    kept = old;
    const Case cases[] = {
        {"a read-only target",
         [](const fs::path& dir) {
             testutil::writeBytes(dir / "t.npc", kept);
             fs::permissions(dir / "t.npc", fs::perms::owner_read | fs::perms::group_read);
             return dir / "t.npc";
         },
         true},
        {"a folder in place of the file",
         [](const fs::path& dir) {
             fs::create_directory(dir / "t.npc");
             testutil::writeBytes(dir / "t.npc" / "inside", kept);
             return dir / "t.npc";
         },
         false},
        {"a folder that does not exist",
         [](const fs::path& dir) { return dir / "missing" / "t.npc"; }, false},
        {"a file where the folder should be",
         [](const fs::path& dir) {
             testutil::writeBytes(dir / "plain", kept);
             return dir / "plain" / "t.npc";
         },
         false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        testutil::TempDir dir;
        const fs::path target = c.prepare(dir.path());
        const std::size_t before = entries(dir.path());
        const auto saved = platform::writeFileAtomic(target, std::string(1600, '\x09'));
        EXPECT_EQ(bool(saved), c.saved) << (saved ? "" : saved.error().message);
        EXPECT_EQ(entries(dir.path()), before) << "no stray file";
        if (c.saved) {
            EXPECT_EQ(testutil::readBytes(target), std::vector<std::uint8_t>(1600, 9));
        } else {
            EXPECT_EQ(saved.error().kind, ErrorKind::Write);
            for (const auto& entry : fs::recursive_directory_iterator(dir.path())) {
                if (entry.is_regular_file()) {
                    EXPECT_EQ(testutil::readBytes(entry.path()), kept) << entry.path();
                }
            }
        }
    }
}

} // namespace
