#include "core/explain/fieldlayout.h"
#include "core/npc/edithistory.h"
#include "core/npc/npcfile.h"
#include "testutil.h"

#include <gtest/gtest.h>
#include <tuple>

using namespace parlex;
using testutil::TempDir;

namespace {

std::vector<std::uint8_t> recordBytes(const NpcRecord& r) {
    return {r.begin(), r.end()};
}

TEST(NpcFileLoad, TheFirstFourBytesChooseTheLayout) {
    TempDir dir;
    const auto ub = testutil::patternBytes(1600), ja = testutil::jaBytes();
    testutil::writeBytes(dir / "u.npc", ub);
    testutil::writeBytes(dir / "j.npc", ja);
    const auto u = NpcFile::load(dir / "u.npc"), j = NpcFile::load(dir / "j.npc");
    ASSERT_TRUE(u && j);
    EXPECT_EQ(std::tuple(u->type(), u->recordCount(), u->title()),
              std::tuple(NpcFileType::Ub, 50u, std::string("u.npc")));
    EXPECT_EQ(recordBytes(u->record(49)), std::vector(ub.begin() + 1568, ub.end()));
    EXPECT_EQ(std::tuple(j->type(), j->recordCount()), std::tuple(NpcFileType::Ja, 49u));
    EXPECT_EQ(recordBytes(j->record(48)), std::vector(ja.begin() + 1540, ja.begin() + 1572));
    EXPECT_FALSE(j->isChanged()) << "a non-zero tail is no change";
}

TEST(NpcFileLoad, WhatCannotBeAScriptIsRefusedWithItsReason) {
    TempDir dir;
    for (auto [size, kind] : {std::pair{1599, ErrorKind::TooSmall}, {3200, ErrorKind::TooLarge}}) {
        testutil::writeBytes(dir / "s.npc", std::vector<std::uint8_t>(size, 0));
        const auto refused = NpcFile::load(dir / "s.npc");
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().kind, kind);
        EXPECT_EQ(refused.error().message, npcformat::sizeRefusal((dir / "s.npc").string(), size));
    }
    const auto missing = NpcFile::load(dir / "nope.npc");
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().message,
              "Ошибка во время чтения файла. Error 2\nНет такого файла или папки\nФайл: " +
                  platform::utf8(dir / "nope.npc"));
    EXPECT_EQ(NpcFile::load(dir.path()).error().kind, ErrorKind::Read) << "a folder";
    EXPECT_EQ(npcformat::sizeRefusal("b.npc", 1601), "Размер файла b.npc\nбольше чем 1600 байт");
}

TEST(NpcFileSave, ASaveWritesTheLayoutItsBytesSayAndReadsItBack) {
    TempDir dir;
    auto ub = testutil::patternBytes(1600, 11), ja = testutil::jaBytes();
    testutil::writeBytes(dir / "u.npc", ub);
    testutil::writeBytes(dir / "j.npc", ja);
    auto u = NpcFile::load(dir / "u.npc"), j = NpcFile::load(dir / "j.npc");
    ASSERT_TRUE(u && j && u->save() && j->save());
    EXPECT_EQ(testutil::readBytes(dir / "u.npc"), ub);
    std::fill(ja.begin() + 1572, ja.end(), 0);
    EXPECT_EQ(testutil::readBytes(dir / "j.npc"), ja) << "the ja tail is written as zeroes";

    NpcFile file = NpcFile::makeNew();
    EXPECT_EQ(file.saveRoute(), NpcFile::SaveRoute::AskForName);
    NpcRecord r{};
    r[0] = 0x39, r[2] = 0x35, r[4] = 0xAB; // the ja mark in a ub record
    file.setRecord(0, r);
    ASSERT_TRUE(file.saveAs(dir / "new.npc"));
    EXPECT_EQ(file.type(), NpcFileType::Ja);
    EXPECT_EQ(file.record(0)[0], 0xAB); // shifted by the four mark bytes
    EXPECT_FALSE(file.isChanged());
    EXPECT_EQ(file.saveRoute(), NpcFile::SaveRoute::InPlace);
    std::filesystem::remove(dir / "new.npc"); // gone from disk: a save asks for a name
    EXPECT_EQ(file.saveRoute(), NpcFile::SaveRoute::AskForName);
}

TEST(NpcFileSearch, FirstAndLastNonEmptyPositions) {
    // Positions holding a standard-deleted record, the ja layout, the first and last.
    const std::tuple<std::vector<int>, bool, std::optional<int>, std::optional<int>> cases[] = {
        {{}, false, std::nullopt, std::nullopt},
        {{7, 3, 12}, false, 3, 12},
        {{50}, false, 50, 50},
        {{2, 49}, true, 2, 49},
    };
    for (const auto& [filled, ja, first, last] : cases) {
        npcformat::FileBytes bytes{};
        if (ja)
            std::copy(npcformat::kJaMark.begin(), npcformat::kJaMark.end(), bytes.begin());
        NpcFile file = NpcFile::fromBytes(bytes, "s.npc");
        for (int position : filled)
            file.setRecord(static_cast<std::size_t>(position - 1), kNeutralRecord);
        EXPECT_EQ(std::pair(file.firstNonEmptyPosition(), file.lastNonEmptyPosition()),
                  std::pair(first, last));
    }
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
        const auto e = history.undo();
        return e && (file.setRecord(e->index, e->before), true);
    };
    const auto redo = [&] {
        const auto e = history.redo();
        return e && (file.setRecord(e->index, e->after), true);
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
