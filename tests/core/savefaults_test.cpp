// Saves when the file system fails or surprises: each case either replaces the file
// whole or leaves everything as it was, with no stray file and a message that names
// the file.
#include "core/codelists/listwriter.h"
#include "core/npc/npcfile.h"
#include "core/platform/files.h"
#include "core/settings/settingsfile.h"
#include "core/speech/decompiler.h"
#include "core/speech/edtfile.h"
#include "testutil.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#ifndef _WIN32
#include <csignal>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace parlex;
using platform::SaveFault;
using platform::SaveStep;
namespace fs = std::filesystem;

namespace {

std::vector<fs::path> entries(const fs::path& folder) {
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        found.push_back(entry.path());
    std::sort(found.begin(), found.end());
    return found;
}

// ------------------------------------------------------------ every save path, every step

// The failures the seam plants, with the Russian cause each message must give.
struct Fault {
    SaveStep step;
    int errorNumber;
    const char* cause;
};

#ifdef _WIN32
// Windows error codes: no space, access denied, a device error.
const Fault kFaults[] = {
    {SaveStep::Create, 5, "Нет прав доступа"},      {SaveStep::Write, 112, "На диске нет места"},
    {SaveStep::Flush, 1117, "Ошибка ввода-вывода"}, {SaveStep::Sync, 1117, "Ошибка ввода-вывода"},
    {SaveStep::Rename, 5, "Нет прав доступа"},
};
#else
const Fault kFaults[] = {
    {SaveStep::Create, ENOSPC, "На диске нет места"},
    {SaveStep::Write, ENOSPC, "На диске нет места"},
    {SaveStep::Write, EDQUOT, "Превышена дисковая квота"},
    {SaveStep::Flush, EIO, "Ошибка ввода-вывода"},
    {SaveStep::Sync, EIO, "Ошибка ввода-вывода"},
    {SaveStep::Rename, EROFS, "Файловая система только для чтения"},
};
#endif

// A save path under test: makes a file at `target`, then saves other content there.
struct SavePath {
    std::function<void(const fs::path& target)> prepare;
    std::function<Result<void>(const fs::path& target)> save;
};

// Every save path under every planted failure: the old file byte-identical, no
// temporary file left, a message that names the file and the cause; without the
// failure the same save goes through.
TEST(SaveFaults, EverySavePathLeavesTheOldFileOnEveryFailure) {
    EdtFile dialogues = EdtFile::makeNew(EdtKind::NpcDialogues);
    ASSERT_TRUE(dialogues.setPhrase(11, "Фраза"));
    const auto old = [](const char* text) {
        return [text](const fs::path& target) { testutil::writeText(target, text); };
    };
    const std::pair<const char*, SavePath> paths[] = {
        {"Скрипт.npc",
         {old(""),
          [](const fs::path& target) {
              NpcFile document = NpcFile::makeNew();
              document.setRecord(3, kNeutralRecord);
              auto result = document.saveAs(target);
              EXPECT_EQ(document.isChanged(), !result) << "a failed save keeps the changes";
              return result;
          }}},
        {"Реплики.edt",
         {old("old"),
          [](const fs::path& target) {
              EdtFile document = EdtFile::makeNew(EdtKind::Civilian);
              EXPECT_TRUE(document.setPhrase(2, "Привет"));
              return document.saveAs(target);
          }}},
        {"Quotes.txt",
         {old("older text\r\n"),
          [&](const fs::path& target) { return decompileToFile(dialogues, target); }}},
        {"Items.txt",
         {old("1=old\r\n"),
          [](const fs::path& target) -> Result<void> {
              const auto written = writeListFile(ListKey::I, target.parent_path(), std::tm{}, true);
              if (!written)
                  return std::unexpected(written.error());
              return {};
          }}},
        {"Parlex.ini",
         {old("[old]\r\n"),
          [](const fs::path& target) { return writeSettingsFile(target, Settings{}); }}},
    };
    for (const auto& [fileName, path] : paths)
        for (const auto& fault : kFaults) {
            SCOPED_TRACE(std::string(fileName) + " " + fault.cause);
            testutil::TempDir dir;
            const fs::path target = dir.path() / fileName;
            path.prepare(target);
            const auto before = entries(dir.path());
            Result<void> saved;
            {
                SaveFault planted(fault.step, fault.errorNumber);
                saved = path.save(target);
            }
            ASSERT_FALSE(saved);
            EXPECT_EQ(entries(dir.path()), before);
            const std::string& message = saved.error().message;
            EXPECT_TRUE(message.starts_with("Ошибка во время сохранения файла. Error " +
                                            std::to_string(fault.errorNumber) + "\n"))
                << message;
            EXPECT_NE(message.find(fault.cause), std::string::npos) << message;
            EXPECT_NE(message.find(platform::utf8(target)), std::string::npos) << message;
            const auto old = testutil::readBytes(target);
            ASSERT_TRUE(path.save(target));
            EXPECT_NE(testutil::readBytes(target), old);
        }
}

#ifndef _WIN32
// ------------------------------------------------------------ what the system does

struct stat statOf(const fs::path& path) {
    struct stat st {};
    EXPECT_EQ(::stat(path.c_str(), &st), 0) << path;
    return st;
}

const std::vector<std::uint8_t> kOld(1600, 7);
const std::vector<std::uint8_t> kNew(1600, 9);

Result<void> saveNew(const fs::path& target) {
    return platform::writeFileAtomic(target, kNew);
}

TEST(SaveFaults, LinksAndNamesAreKept) {
    struct Case {
        const char* name;
        // Prepares the folder; gives the path saved to and the names that must all
        // show the new content afterwards.
        std::pair<fs::path, std::vector<fs::path>> (*prepare)(const fs::path& dir);
    };
    const Case cases[] = {
        {"a symbolic link: the file it names changes, the link stays",
         [](const fs::path& dir) {
             fs::create_directory(dir / "real");
             testutil::writeBytes(dir / "real" / "t.npc", kOld);
             fs::create_symlink("real/t.npc", dir / "link.npc");
             return std::pair{dir / "link.npc",
                              std::vector{dir / "link.npc", dir / "real" / "t.npc"}};
         }},
        {"a hard link: both names see the new content",
         [](const fs::path& dir) {
             testutil::writeBytes(dir / "t.npc", kOld);
             fs::create_hard_link(dir / "t.npc", dir / "other.npc");
             return std::pair{dir / "t.npc", std::vector{dir / "t.npc", dir / "other.npc"}};
         }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        testutil::TempDir dir;
        const auto [target, names] = c.prepare(dir.path());
        const auto before = entries(dir.path());
        const bool wasLink = fs::is_symlink(target);
        const auto saved = saveNew(target);
        ASSERT_TRUE(saved) << saved.error().message;
        for (const auto& name : names)
            EXPECT_EQ(testutil::readBytes(name), kNew) << name;
        EXPECT_EQ(fs::is_symlink(target), wasLink);
        EXPECT_EQ(entries(dir.path()), before);
    }
}

TEST(SaveFaults, ModeOwnerAndGroupAreKept) {
    struct Case {
        const char* name;
        mode_t mode;
        bool otherOwner; // only root can give a file away
        int ownerFault;  // the system refuses to pass mode and owner on
        mode_t expected;
    };
    const Case cases[] = {
        {"read-only: writable for its owner afterwards", 0444, false, 0, 0644},
        {"with the set-group bit", 02750, false, 0, 02750},
        {"mode refused: written in place", 0604, false, EPERM, 0604},
        {"another owner", 0664, true, 0, 0664},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        if (c.otherOwner && ::geteuid() != 0)
            continue; // nobody else can hand a file to another user
        testutil::TempDir dir;
        const fs::path target = dir / "t.npc";
        testutil::writeBytes(target, kOld);
        if (c.otherOwner) {
            ASSERT_EQ(::chown(target.c_str(), 4242, 4343), 0);
        }
        ASSERT_EQ(::chmod(target.c_str(), c.mode), 0);
        const auto before = statOf(target);
        Result<void> saved;
        {
            SaveFault planted(SaveStep::Owner, c.ownerFault);
            saved = saveNew(target);
        }
        ASSERT_TRUE(saved) << saved.error().message;
        const auto after = statOf(target);
        EXPECT_EQ(testutil::readBytes(target), kNew);
        EXPECT_EQ(after.st_mode & 07777, c.expected);
        EXPECT_EQ(after.st_uid, before.st_uid);
        EXPECT_EQ(after.st_gid, before.st_gid);
        EXPECT_EQ(after.st_ino == before.st_ino, c.ownerFault != 0) << "in place or replaced";
        EXPECT_EQ(entries(dir.path()).size(), 1u);
    }
}

TEST(SaveFaults, AFolderThatTakesNoNewFileIsWrittenInPlace) {
    testutil::TempDir dir;
    const fs::path target = dir / "t.npc";
    testutil::writeBytes(target, kOld);
    const auto before = statOf(target);
    {
        SaveFault planted(SaveStep::Create, EACCES);
        ASSERT_TRUE(saveNew(target));
        // A new file cannot be made there at all.
        const auto refused = saveNew(dir / "new.npc");
        ASSERT_FALSE(refused);
        EXPECT_NE(refused.error().message.find("Нет прав доступа"), std::string::npos);
    }
    EXPECT_EQ(testutil::readBytes(target), kNew);
    EXPECT_EQ(statOf(target).st_ino, before.st_ino);
    // In place, a write that fails before the first byte leaves the old content.
    testutil::writeBytes(target, kOld);
    SaveFault noCreate(SaveStep::Create, EACCES);
    SaveFault noSpace(SaveStep::Write, ENOSPC);
    ASSERT_FALSE(saveNew(target));
    EXPECT_EQ(testutil::readBytes(target), kOld);
}

TEST(SaveFaults, TheFileSizeLimitIsAFailureNotAKill) {
    testutil::TempDir dir;
    const fs::path target = dir / "t.npc";
    testutil::writeBytes(target, kOld);
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    rlimit small = old;
    small.rlim_cur = 1000;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto saved = saveNew(target);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &old), 0);
    ASSERT_FALSE(saved);
    EXPECT_NE(saved.error().message.find("Error " + std::to_string(EFBIG)), std::string::npos)
        << saved.error().message;
    EXPECT_EQ(testutil::readBytes(target), kOld);
    EXPECT_EQ(entries(dir.path()).size(), 1u);
}

// A save killed at `step`, in a child process, on `target`.
void killedSave(const fs::path& target, SaveStep step) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        SaveFault kill(step, [] {
            ::raise(SIGKILL);
            return 0;
        });
        (void)saveNew(target);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
}

TEST(SaveFaults, AKilledSaveLeavesNothingTheNextSaveKeeps) {
    testutil::TempDir dir;
    const fs::path target = dir / "t.npc";
    testutil::writeBytes(target, kOld);
    // Killed before its temporary file has a name: nothing is left.
    killedSave(target, SaveStep::Sync);
    EXPECT_EQ(entries(dir.path()).size(), 1u);
    // Killed between naming it and the rename: the next save removes it at once.
    killedSave(target, SaveStep::Rename);
    ASSERT_EQ(entries(dir.path()).size(), 2u) << "the killed save's file";
    const fs::path stray = entries(dir.path()).front();
    // A temporary file of a live save: locked by its writer, the next save keeps it.
    const fs::path live = dir / ".parlex-LIVE01";
    testutil::writeBytes(live, kOld);
    const int lock = ::open(live.c_str(), O_RDONLY);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    ASSERT_TRUE(saveNew(target));
    EXPECT_FALSE(fs::exists(stray));
    EXPECT_TRUE(fs::exists(live));
    ::close(lock);
    EXPECT_EQ(testutil::readBytes(target), kNew);
    EXPECT_EQ(testutil::readBytes(live), kOld);
}

TEST(MountPoint, TheLongestMountOfTheSameDeviceAbovePath) {
    const std::string table =
        "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
        "40 22 0:5 / /dev rw - devtmpfs udev rw\n"
        "51 22 8:1 /home/u/mods /mnt/ro\\040mods ro,relatime - ext4 /dev/sda1 rw\n"
        "52 22 8:2 / /mnt/ro rw - ext4 /dev/sda2 rw\n"
        "53 22 8:1 /srv /srvx rw - ext4 /dev/sda1 rw";
    struct Case {
        const char* path;
        unsigned major, minor;
        const char* expected;
    };
    const Case cases[] = {
        {"/mnt/ro mods/a/t.npc", 8, 1, "/mnt/ro mods"}, // the bind mount, with its blank
        {"/mnt/ro/t.npc", 8, 2, "/mnt/ro"},
        {"/srvxy/t.npc", 8, 1, "/"}, // a longer name is no folder below /srvx
        {"/anything", 9, 9, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(platform::mountPointOf(table, c.path, c.major, c.minor), c.expected) << c.path;
}
#endif

} // namespace
