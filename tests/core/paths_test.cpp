// File names beyond ASCII, given and shown as UTF-8, on every platform.
#include "npc/npcfile.h"
#include "platform/files.h"
#include "speech/companion.h"
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

} // namespace
