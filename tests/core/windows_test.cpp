// What only Windows has: drive types, file attributes kept by a save. Under Wine
// in the Windows build; on other systems these tests are not compiled.
#ifdef _WIN32
#include "core/platform/files.h"
#include "testutil.h"

#include <gtest/gtest.h>
#include <windows.h>

using namespace parlex;

namespace {

TEST(Windows, TheTemporaryFolderIsAFixedDriveNamedByItsRoot) {
    testutil::TempDir dir;
    EXPECT_EQ(platform::driveKind(dir.path()), platform::DriveKind::Fixed);
    const std::string root = platform::driveRoot(dir.path());
    ASSERT_EQ(root.size(), 3u) << root;
    EXPECT_EQ(root.substr(1), ":\\");
    EXPECT_TRUE(std::isupper(static_cast<unsigned char>(root[0])));
    EXPECT_EQ(platform::readOnlyDriveError(dir.path(), false).message,
              "Диск " + root + "\nтолько для чтения");
}

TEST(Windows, ASaveKeepsTheFilesAttributesButTheReadOnlyMark) {
    testutil::TempDir dir;
    const auto path = dir / "kept.npc";
    testutil::writeBytes(path, std::vector<std::uint8_t>(1600, 1));
    ASSERT_TRUE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY |
                                                       FILE_ATTRIBUTE_ARCHIVE));
    if (!(::GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN))
        GTEST_SKIP() << "this file system keeps no hidden mark (Wine where the folder has no "
                        "extended attributes)";
    ASSERT_TRUE(platform::writeFileAtomic(path, std::string(1600, '\2')));
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    EXPECT_TRUE(attributes & FILE_ATTRIBUTE_HIDDEN) << attributes;
    EXPECT_FALSE(attributes & FILE_ATTRIBUTE_READONLY) << attributes;
    EXPECT_EQ(testutil::readBytes(path), std::vector<std::uint8_t>(1600, 2));
    // Nothing but the file is left in the folder.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()),
                            std::filesystem::directory_iterator()),
              1);
}

TEST(Windows, TheProgramsFolderAndTheUsersFolders) {
    EXPECT_TRUE(std::filesystem::exists(platform::programDir() / "core_tests.exe"));
    EXPECT_FALSE(platform::userConfigHome().empty());
    EXPECT_NE(platform::userConfigHome(), platform::userDataHome());
}

} // namespace
#endif
