// The open script changed or removed by another program.
#include "sessiontest.h"

#include <filesystem>
#include <thread>

namespace sessiontest {
namespace {

using parlex::kNeutralRecord;

// Another program rewrites the file: other bytes, and a later modification time.
void rewriteOutside(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    const auto before = std::filesystem::last_write_time(path);
    testutil::writeBytes(path, bytes);
    std::filesystem::last_write_time(path, before + std::chrono::seconds(2));
}

struct DiskCase {
    const char* name;
    bool editedFirst; // the document has unsaved changes
    bool removed;     // the file is deleted rather than rewritten
    Answer answer;    // to the reload question, if one comes
    bool reloaded;    // the document then shows the new bytes
};

const DiskCase kCases[] = {
    {"UnchangedReloads", false, false, Answer::Yes, true},
    {"UnchangedKeeps", false, false, Answer::No, false},
    {"ChangedReloadsLosingEdits", true, false, Answer::Yes, true},
    {"ChangedKeepsEdits", true, false, Answer::No, false},
    {"RemovedIsToldOnly", false, true, Answer::No, false},
};

class DiskWatch : public SessionTest, public ::testing::WithParamInterface<DiskCase> {};

TEST_P(DiskWatch, TheUserIsToldAndChooses) {
    const DiskCase& c = GetParam();
    const QString doc = write("w.npc", testutil::script({1}));
    ASSERT_TRUE(session.flows().openPath(doc.toStdString()));
    if (c.editedFirst)
        session.deleteRecord(false);
    if (c.removed) {
        std::filesystem::remove(dir / "w.npc");
    } else {
        rewriteOutside(dir / "w.npc", testutil::script({1, 2}));
        prompts.answers.push_back(c.answer);
    }
    session.disk().check();
    if (c.removed) {
        ASSERT_EQ(prompts.messages.size(), 1u);
        EXPECT_EQ(prompts.messages[0].icon, Icon::Information);
        EXPECT_EQ(prompts.messages[0].text,
                  "Файл\n" + doc +
                      "\nудалён или переименован другой программой.\n"
                      "При сохранении будет предложено указать имя файла.");
        EXPECT_TRUE(prompts.questions.empty());
        return;
    }
    ASSERT_EQ(prompts.questions.size(), 1u);
    EXPECT_TRUE(prompts.questions[0].startsWith("Файл\n" + doc + "\nизменён другой программой."));
    EXPECT_EQ(prompts.questions[0].contains("будут потеряны"), c.editedFirst);
    EXPECT_EQ(session.script()->records()[1] == kNeutralRecord, c.reloaded);
    EXPECT_EQ(changed(), c.editedFirst && !c.reloaded);
    session.disk().check(); // the same change is told once
    EXPECT_EQ(prompts.questions.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Branches, DiskWatch, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SessionTest, SaveAsksBeforeOverwritingAnOutsideChange) {
    const QString doc = write("s.npc", testutil::script({1}));
    ASSERT_TRUE(session.flows().openPath(doc.toStdString()));
    session.deleteRecord(false);
    const auto outside = testutil::script({3});
    rewriteOutside(dir / "s.npc", outside);
    prompts.answers = {Answer::No};
    EXPECT_EQ(session.flows().save(), Session::SaveOutcome::Cancelled);
    EXPECT_EQ(read("s.npc"), outside) << "the other program's bytes stay";
    EXPECT_EQ(prompts.questions.back(), "Файл\n" + doc +
                                            "\nизменён другой программой после загрузки.\n"
                                            "Заменить его содержимым редактора?");
    EXPECT_TRUE(changed());
    prompts.answers = {Answer::Yes};
    EXPECT_EQ(session.flows().save(), Session::SaveOutcome::Saved);
    EXPECT_EQ(read("s.npc"), testutil::script({}));
    EXPECT_EQ(session.flows().save(), Session::SaveOutcome::Saved)
        << "our own save is no outside change";
    EXPECT_EQ(prompts.questions.size(), 2u);
}

TEST_F(SessionTest, TheWatchNoticesWithoutBeingAsked) {
    ASSERT_TRUE(session.flows().openPath(write("live.npc", testutil::script({1})).toStdString()));
    // Our own saves, whose temporary files come and go in the folder, stay quiet.
    session.deleteRecord(true);
    ASSERT_EQ(session.flows().save(), Session::SaveOutcome::Saved);
    waitFor([] { return false; }, 300);
    EXPECT_TRUE(prompts.questions.empty());

    prompts.answers = {Answer::Yes};
    rewriteOutside(dir / "live.npc", testutil::script({1, 2}));
    EXPECT_TRUE(waitFor([&] { return !prompts.questions.empty(); }))
        << "the file watch did not report the change";
    EXPECT_EQ(session.script()->records()[1], kNeutralRecord);
}

} // namespace
} // namespace sessiontest
