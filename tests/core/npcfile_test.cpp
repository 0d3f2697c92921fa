#include "core/explain/fieldlayout.h"
#include "core/npc/edithistory.h"
#include "core/npc/npcfile.h"
#include "testutil.h"

#include <csignal>
#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/resource.h>
#endif

using namespace parlex;
using testutil::TempDir;

namespace {

std::vector<std::uint8_t> recordBytes(const NpcRecord& r) {
    return {r.begin(), r.end()};
}

TEST(NpcFileLoad, UbLayoutPlacesRecordsFromOffsetZero) {
    TempDir dir;
    const auto bytes = testutil::patternBytes(1600);
    testutil::writeBytes(dir / "a.npc", bytes);
    auto file = NpcFile::load(dir / "a.npc");
    ASSERT_TRUE(file) << file.error().message;
    EXPECT_EQ(file->type(), NpcFileType::Ub);
    ASSERT_EQ(file->recordCount(), 50u);
    for (std::size_t i : {0u, 1u, 48u, 49u})
        EXPECT_EQ(recordBytes(file->record(i)),
                  std::vector<std::uint8_t>(bytes.begin() + i * 32, bytes.begin() + i * 32 + 32));
    EXPECT_FALSE(file->isChanged());
    EXPECT_FALSE(file->isNew());
    EXPECT_EQ(file->title(), "a.npc");
}

TEST(NpcFileLoad, JaLayoutSkipsMarkAndIgnoresTail) {
    TempDir dir;
    const auto bytes = testutil::jaBytes();
    testutil::writeBytes(dir / "ja.npc", bytes);
    auto file = NpcFile::load(dir / "ja.npc");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->type(), NpcFileType::Ja);
    ASSERT_EQ(file->recordCount(), 49u);
    EXPECT_EQ(recordBytes(file->record(0)),
              std::vector<std::uint8_t>(bytes.begin() + 4, bytes.begin() + 36));
    EXPECT_EQ(recordBytes(file->record(48)),
              std::vector<std::uint8_t>(bytes.begin() + 1540, bytes.begin() + 1572));
    // The tail is non-zero in this file, yet the document counts as unchanged.
    EXPECT_FALSE(file->isChanged());
    EXPECT_FALSE(file->hasRecordAt(50));
    EXPECT_TRUE(file->hasRecordAt(49));
}

TEST(NpcFileLoad, AllZeroFileIsUbWithEmptyRecords) {
    TempDir dir;
    testutil::writeBytes(dir / "z.npc", std::vector<std::uint8_t>(1600, 0));
    auto file = NpcFile::load(dir / "z.npc");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->type(), NpcFileType::Ub);
    EXPECT_EQ(file->nonEmptyCount(), 0u);
}

struct SizeCase {
    std::size_t size;
    ErrorKind kind;
    const char* word;
};

class NpcFileSize : public ::testing::TestWithParam<SizeCase> {};

TEST_P(NpcFileSize, OtherSizesAreRefusedWithTheSizeMessage) {
    TempDir dir;
    const auto path = dir / "bad.npc";
    testutil::writeBytes(path, std::vector<std::uint8_t>(GetParam().size, 0));
    auto file = NpcFile::load(path);
    ASSERT_FALSE(file);
    EXPECT_EQ(file.error().kind, GetParam().kind);
    EXPECT_EQ(file.error().message,
              "Размер файла " + path.string() + "\n" + GetParam().word + " чем 1600 байт");
}

INSTANTIATE_TEST_SUITE_P(Sizes, NpcFileSize,
                         ::testing::Values(SizeCase{1599, ErrorKind::TooSmall, "меньше"},
                                           SizeCase{0, ErrorKind::TooSmall, "меньше"},
                                           SizeCase{1601, ErrorKind::TooLarge, "больше"},
                                           SizeCase{3200, ErrorKind::TooLarge, "больше"}),
                         [](const auto& info) {
                             return std::to_string(info.param.size) + "Bytes";
                         });

TEST(NpcFileLoad, MissingFileGivesReadMessageWithSystemDescription) {
    TempDir dir;
    auto file = NpcFile::load(dir / "nope.npc");
    ASSERT_FALSE(file);
    EXPECT_EQ(file.error().kind, ErrorKind::NotFound);
    EXPECT_EQ(file.error().message, "Ошибка во время чтения файла. Error 2\n"
                                    "Нет такого файла или папки\nФайл: " +
                                        platform::utf8(dir / "nope.npc"));
}

TEST(NpcFileLoad, FolderInsteadOfFileIsRefused) {
    TempDir dir;
    auto file = NpcFile::load(dir.path());
    ASSERT_FALSE(file);
    EXPECT_EQ(file.error().kind, ErrorKind::Read);
}

TEST(NpcFileChange, ValueTypedAndTypedBackLeavesDocumentUnchanged) {
    NpcFile file = NpcFile::fromBytes(npcformat::FileBytes{}, "x.npc");
    NpcRecord r = file.record(3);
    r[14] = 0x42;
    file.setRecord(3, r);
    EXPECT_TRUE(file.isChanged());
    r[14] = 0;
    file.setRecord(3, r);
    EXPECT_FALSE(file.isChanged());
}

TEST(NpcFileChange, RecordCommandsAreSeenOnlyWhenBytesDiffer) {
    NpcFile file = NpcFile::makeNew();
    EXPECT_TRUE(file.isNew());
    EXPECT_FALSE(file.isChanged());
    file.setRecord(2, kEmptyRecord); // already empty
    EXPECT_FALSE(file.isChanged());
    file.setRecord(2, kNeutralRecord);
    EXPECT_TRUE(file.isChanged());
    EXPECT_EQ(file.nonEmptyCount(), 1u); // a standard-deleted record is not empty
    file.setRecord(2, kEmptyRecord);
    EXPECT_FALSE(file.isChanged());
    EXPECT_EQ(file.recordCount(), 50u);
}

TEST(RecordBuffer, CarriesAllBytesFromOneLayoutIntoTheOtherAndOutlivesLoads) {
    auto ubBytes = npcformat::FileBytes{};
    for (std::size_t i = 0; i < 32; ++i)
        ubBytes[32 * 7 + i] = static_cast<std::uint8_t>(i + 100);
    NpcFile ub = NpcFile::fromBytes(ubBytes, "u.npc");
    RecordBuffer buffer;
    EXPECT_FALSE(buffer.isFilled());
    NpcFile ja = NpcFile::fromBytes(
        npcformat::convertLayout(npcformat::FileBytes{}, NpcFileType::Ja).value(), "j.npc");
    buffer.copy(ub.record(7));
    ub = NpcFile::makeNew(); // the source document is gone
    ja.setRecord(48, *buffer.record());
    EXPECT_EQ(ja.record(48)[0], 100);
    EXPECT_EQ(ja.record(48)[31], 131);
    EXPECT_TRUE(ja.isChanged());
    // An empty record copied counts as filled; pasting it clears one.
    buffer.copy(ub.record(0));
    EXPECT_TRUE(buffer.isFilled());
    ja.setRecord(48, *buffer.record());
    EXPECT_FALSE(ja.isChanged());
}

TEST(NpcFileSave, UbRoundTripIsByteExact) {
    TempDir dir;
    const auto bytes = testutil::patternBytes(1600, 11);
    testutil::writeBytes(dir / "u.npc", bytes);
    auto file = NpcFile::load(dir / "u.npc");
    ASSERT_TRUE(file);
    ASSERT_TRUE(file->save());
    EXPECT_EQ(testutil::readBytes(dir / "u.npc"), bytes);
    ASSERT_TRUE(file->saveAs(dir / "copy.npc"));
    EXPECT_EQ(testutil::readBytes(dir / "copy.npc"), bytes);
    EXPECT_EQ(file->path(), dir / "copy.npc");
}

TEST(NpcFileSave, JaSaveKeepsRecordsAndZeroesTheTail) {
    TempDir dir;
    auto bytes = testutil::jaBytes();
    testutil::writeBytes(dir / "j.npc", bytes);
    auto file = NpcFile::load(dir / "j.npc");
    ASSERT_TRUE(file);
    ASSERT_TRUE(file->save());
    std::fill(bytes.begin() + 1572, bytes.end(), 0);
    EXPECT_EQ(testutil::readBytes(dir / "j.npc"), bytes);
    EXPECT_EQ(file->type(), NpcFileType::Ja);
    EXPECT_FALSE(file->isChanged());
}

TEST(NpcFileSave, UbRecordStartingWithJaMarkComesBackAsJa) {
    TempDir dir;
    testutil::writeBytes(dir / "u.npc", std::vector<std::uint8_t>(1600, 0));
    auto file = NpcFile::load(dir / "u.npc");
    ASSERT_TRUE(file);
    NpcRecord r = file->record(0);
    r[0] = 0x39, r[2] = 0x35, r[4] = 0xAB;
    file->setRecord(0, r);
    ASSERT_TRUE(file->save());
    EXPECT_EQ(file->type(), NpcFileType::Ja);
    EXPECT_EQ(file->recordCount(), 49u);
    EXPECT_EQ(file->record(0)[0], 0xAB); // shifted by the four mark bytes
    EXPECT_FALSE(file->isChanged());
}

TEST(NpcFileSave, NewDocumentSavedAtOnceIsAllZeroUb) {
    TempDir dir;
    NpcFile file = NpcFile::makeNew();
    EXPECT_EQ(file.saveRoute(), NpcFile::SaveRoute::AskForName);
    EXPECT_EQ(file.save().error().kind, ErrorKind::NotFound);
    ASSERT_TRUE(file.saveAs(dir / "new.npc"));
    EXPECT_EQ(testutil::readBytes(dir / "new.npc"), std::vector<std::uint8_t>(1600, 0));
    EXPECT_FALSE(file.isNew());
    EXPECT_EQ(file.saveRoute(), NpcFile::SaveRoute::InPlace);
    std::filesystem::remove(dir / "new.npc"); // gone from disk: a save asks for a name
    EXPECT_EQ(file.saveRoute(), NpcFile::SaveRoute::AskForName);
    EXPECT_EQ(file.type(), NpcFileType::Ub);
}

TEST(NpcFileSave, ReadOnlyFileIsReplacedAndLeftWritable) {
    TempDir dir;
    const auto path = dir / "ro.npc";
    testutil::writeBytes(path, std::vector<std::uint8_t>(1600, 0));
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    auto file = NpcFile::load(path);
    ASSERT_TRUE(file);
    file->setRecord(0, kNeutralRecord);
    ASSERT_TRUE(file->save());
    EXPECT_EQ(testutil::readBytes(path)[4], 0xFF);
    EXPECT_NE(std::filesystem::status(path).permissions() & std::filesystem::perms::owner_write,
              std::filesystem::perms::none);
}

TEST(NpcFileSave, FailureWhilstWritingLeavesOldFileIntactAndDocumentChanged) {
    TempDir dir;
    const auto path = dir / "keep.npc";
    const auto original = testutil::patternBytes(1600, 9);
    testutil::writeBytes(path, original);
    auto file = NpcFile::load(path);
    ASSERT_TRUE(file);
    file->setRecord(10, kNeutralRecord);

#ifdef _WIN32
    GTEST_SKIP() << "a file size limit (RLIMIT_FSIZE) is POSIX only";
#else
    // Let the write stop part-way: files may grow to 1000 bytes only.
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    ::getrlimit(RLIMIT_FSIZE, &old);
    rlimit limited = old;
    limited.rlim_cur = 1000;
    ::setrlimit(RLIMIT_FSIZE, &limited);
    auto saved = file->save();
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);

    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::Write);
    EXPECT_TRUE(saved.error().message.starts_with("Ошибка во время сохранения файла"));
    EXPECT_EQ(testutil::readBytes(path), original);
    EXPECT_TRUE(file->isChanged());
    EXPECT_EQ(file->path(), path);
    // No temporary file is left behind.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()),
                            std::filesystem::directory_iterator()),
              1);
#endif
}

TEST(NpcFileSave, PathBelowAFileFailsAndKeepsDocument) {
    TempDir dir;
    testutil::writeText(dir / "plain", "x");
    NpcFile file = NpcFile::makeNew();
    file.setRecord(0, kNeutralRecord);
    auto saved = file.saveAs(dir / "plain" / "a.npc");
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, ErrorKind::Write);
    EXPECT_TRUE(file.isNew());
    EXPECT_TRUE(file.isChanged());
}

TEST(NpcFileSave, TwoSavesInARowGiveTheSameFile) {
    TempDir dir;
    testutil::writeBytes(dir / "t.npc", testutil::patternBytes(1600, 1));
    auto file = NpcFile::load(dir / "t.npc");
    ASSERT_TRUE(file);
    file->setRecord(5, kNeutralRecord);
    ASSERT_TRUE(file->save());
    const auto first = testutil::readBytes(dir / "t.npc");
    EXPECT_FALSE(file->isChanged());
    ASSERT_TRUE(file->save());
    EXPECT_EQ(testutil::readBytes(dir / "t.npc"), first);
}

TEST(NpcFileSearch, FirstAndLastNonEmptyPositions) {
    struct Case {
        std::vector<int> filled; // positions holding a standard-deleted record
        bool ja;
        std::optional<int> first, last;
    };
    const Case cases[] = {
        {{}, false, std::nullopt, std::nullopt},
        {{1}, false, 1, 1},
        {{7, 3, 12}, false, 3, 12},
        {{50}, false, 50, 50},
        {{49}, true, 49, 49},
        {{2, 49}, true, 2, 49},
    };
    for (const auto& c : cases) {
        npcformat::FileBytes bytes{};
        if (c.ja)
            std::copy(npcformat::kJaMark.begin(), npcformat::kJaMark.end(), bytes.begin());
        NpcFile file = NpcFile::fromBytes(bytes, "s.npc");
        for (int position : c.filled)
            file.setRecord(static_cast<std::size_t>(position - 1), kNeutralRecord);
        EXPECT_EQ(file.firstNonEmptyPosition(), c.first) << c.filled.size();
        EXPECT_EQ(file.lastNonEmptyPosition(), c.last) << c.filled.size();
    }
}

TEST(NpcFileTexts, SummaryAndRefusalsAreTheSharedWords) {
    NpcFile file = NpcFile::fromBytes(
        npcformat::convertLayout(npcformat::FileBytes{}, NpcFileType::Ja).value(), "j.npc");
    file.setRecord(4, kNeutralRecord);
    EXPECT_EQ(file.summary(), "Тип файла:\nАгония Власти\nЗаписей: 1");
    EXPECT_EQ(file.positionRefusal("\"50\""), "Записи \"50\" в файле нет: записи с 1 по 49.");
    EXPECT_EQ(file.recordAt(50), nullptr);
    EXPECT_EQ(file.recordAt(5), &file.record(4));
    EXPECT_EQ(npcformat::sizeRefusal("/a/b.npc", 1599),
              "Размер файла /a/b.npc\nменьше чем 1600 байт");
    EXPECT_EQ(npcformat::sizeRefusal("b.npc", 1601), "Размер файла b.npc\nбольше чем 1600 байт");
}

// Replays a history against a document the way the session does and checks the
// records after every step.
TEST(EditHistory, UndoAndRedoWalkTheSnapshotsAndANewEditDropsTheRedoTail) {
    NpcFile file = NpcFile::makeNew();
    EditHistory history;
    const auto edit = [&](std::size_t index, const NpcRecord& record) {
        history.push({index, file.record(index), record});
        file.setRecord(index, record);
    };
    const auto undo = [&] {
        auto e = history.undo();
        if (e)
            file.setRecord(e->index, e->before);
        return e.has_value();
    };
    const auto redo = [&] {
        auto e = history.redo();
        if (e)
            file.setRecord(e->index, e->after);
        return e.has_value();
    };
    NpcRecord marked = kNeutralRecord;
    marked[13] = 7;

    edit(0, kNeutralRecord);
    edit(0, kNeutralRecord); // changes nothing: not a step
    edit(3, marked);
    edit(0, kEmptyRecord);
    EXPECT_EQ(history.undoSteps(), 3u);
    EXPECT_EQ(file.record(0), kEmptyRecord);
    EXPECT_TRUE(file.isChanged()) << "record 4 is still marked";

    ASSERT_TRUE(undo());
    EXPECT_EQ(file.record(0), kNeutralRecord);
    ASSERT_TRUE(undo());
    EXPECT_EQ(file.record(3), kEmptyRecord);
    ASSERT_TRUE(undo());
    EXPECT_FALSE(file.isChanged()) << "undoing back to the loaded bytes";
    EXPECT_FALSE(undo());
    EXPECT_EQ(history.redoSteps(), 3u);

    ASSERT_TRUE(redo());
    ASSERT_TRUE(redo());
    EXPECT_EQ(file.record(3), marked);
    edit(5, marked); // a new edit: the third step can no longer be redone
    EXPECT_FALSE(history.canRedo());
    EXPECT_FALSE(redo());
    EXPECT_EQ(file.record(0), kNeutralRecord);
    ASSERT_TRUE(undo());
    EXPECT_EQ(file.record(5), kEmptyRecord);

    history.clear();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
}

} // namespace
