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

// A save path under test: the name of its file, what the file holds before, and the
// save of other content there.
using SavePath =
    std::tuple<const char*, const char*, std::function<Result<void>(const fs::path& target)>>;

// Every save path under every planted failure: the old file byte-identical, no
// temporary file left, a message that names the file and the cause; without the
// failure the same save goes through.
TEST(SaveFaults, EverySavePathLeavesTheOldFileOnEveryFailure) {
    EdtFile dialogues = EdtFile::makeNew(EdtKind::NpcDialogues);
    ASSERT_TRUE(dialogues.setPhrase(11, "Фраза"));
    const SavePath paths[] = {
        {"Скрипт.npc", "",
         [](const fs::path& target) {
             NpcFile document = NpcFile::makeNew();
             document.setRecord(3, kNeutralRecord);
             auto result = document.saveAs(target);
             EXPECT_EQ(document.isChanged(), !result) << "a failed save keeps the changes";
             return result;
         }},
        {"Реплики.edt", "old",
         [](const fs::path& target) {
             EdtFile document = EdtFile::makeNew(EdtKind::Civilian);
             EXPECT_TRUE(document.setPhrase(2, "Привет"));
             return document.saveAs(target);
         }},
        {"Quotes.txt", "older text\r\n",
         [&](const fs::path& target) { return decompileToFile(dialogues, target); }},
        {"Items.txt", "1=old\r\n",
         [](const fs::path& target) {
             const auto written = writeListFile(ListKey::I, target.parent_path(), std::tm{}, true);
             return written ? Result<void>() : std::unexpected(written.error());
         }},
        {"Parlex.ini", "[old]\r\n",
         [](const fs::path& target) { return writeSettingsFile(target, Settings{}); }},
    };
    for (const auto& [fileName, oldText, save] : paths)
        for (const auto& fault : kFaults) {
            SCOPED_TRACE(std::string(fileName) + " " + fault.cause);
            testutil::TempDir dir;
            const fs::path target = dir.path() / fileName;
            testutil::writeText(target, oldText);
            const auto before = entries(dir.path());
            Result<void> saved;
            {
                SaveFault planted(fault.step, fault.errorNumber);
                saved = save(target);
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
            ASSERT_TRUE(save(target));
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

// Through a symbolic or a hard link, the file both names lead to gets the new
// content and the link stays what it was.
TEST(SaveFaults, LinksAndNamesAreKept) {
    for (bool symbolic : {true, false}) {
        testutil::TempDir dir;
        fs::create_directory(dir / "real");
        const fs::path real = dir / "real" / "t.npc", link = dir / "link.npc";
        testutil::writeBytes(real, kOld);
        symbolic ? fs::create_symlink("real/t.npc", link) : fs::create_hard_link(real, link);
        const auto before = entries(dir.path());
        const auto saved = saveNew(link);
        ASSERT_TRUE(saved) << saved.error().message;
        EXPECT_EQ(testutil::readBytes(link), kNew);
        EXPECT_EQ(testutil::readBytes(real), kNew);
        EXPECT_EQ(fs::is_symlink(link), symbolic);
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

#endif

} // namespace
