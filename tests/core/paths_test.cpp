// File names beyond ASCII, given and shown as UTF-8, on every platform.
#include "core/npc/npcfile.h"
#include "core/platform/files.h"
#include "core/speech/companion.h"
#include "testutil.h"

#include <gtest/gtest.h>

using namespace parlex;

namespace {

TEST(Paths, CyrillicNamesAreReadSavedAndShownAsTyped) {
    testutil::TempDir dir;
    for (const char* name : {"Дом скрипт.npc", "ёЁ №1.npc", "日本.npc"}) {
        const auto path = dir.path() / platform::pathFromUtf8(name);
        EXPECT_EQ(platform::utf8(path.filename()), name);
        ASSERT_TRUE(platform::writeFileAtomic(path, std::string(1600, '\0'))) << name;
        auto file = NpcFile::load(path);
        ASSERT_TRUE(file) << file.error().message;
        EXPECT_EQ(file->title(), name);
        file->setRecord(0, kNeutralRecord);
        ASSERT_TRUE(file->save()) << name;
        EXPECT_EQ(platform::fileSize(path).value(), 1600u);
        const std::string title = name;
        EXPECT_EQ(platform::utf8(companionPath(path).filename()),
                  title.substr(0, title.size() - 3) + "EDT");
    }
    const auto missing = NpcFile::load(dir.path() / platform::pathFromUtf8("нет.npc"));
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().kind, ErrorKind::NotFound);
}

// A bare file name, as typed on a command line, is saved in the current folder.
TEST(Paths, ABareNameIsSavedInTheCurrentFolder) {
    testutil::TempDir dir;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(dir.path());
    const auto bare = platform::pathFromUtf8("Тест.npc");
    testutil::writeBytes(dir.path() / bare, std::vector<std::uint8_t>(1600, 1));
    const auto saved = platform::writeFileAtomic(bare, std::string(1600, '\2'));
    std::filesystem::current_path(before);
    ASSERT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(testutil::readBytes(dir.path() / bare), std::vector<std::uint8_t>(1600, 2));
}

} // namespace
