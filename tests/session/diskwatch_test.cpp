// The open script changed or removed by another program.
#include "sessiontest.h"

#include <filesystem>

namespace sessiontest {
namespace {

using parlex::kNeutralRecord;

// Another program rewrites the file: other bytes, and a later modification time.
void rewriteOutside(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    const auto before = std::filesystem::last_write_time(path);
    testutil::writeBytes(path, bytes);
    std::filesystem::last_write_time(path, before + std::chrono::seconds(2));
}

TEST_F(SessionTest, TheUserIsToldOfAnOutsideChangeOnceAndChooses) {
    const struct {
        bool editedFirst; // the document has unsaved changes
        bool removed;     // the file is deleted rather than rewritten
        Answer answer;    // to the reload question, if one comes
    } cases[] = {{false, false, Answer::Yes},
                 {true, false, Answer::Yes},
                 {true, false, Answer::No},
                 {false, true, Answer::No}};
    for (const auto& c : cases) {
        ASSERT_TRUE(session.flows().openPath(write("w.npc", testutil::script({1})).toStdString()));
        prompts.questions.clear();
        if (c.editedFirst)
            session.deleteRecord(false);
        if (c.removed)
            std::filesystem::remove(dir / "w.npc");
        else
            rewriteOutside(dir / "w.npc", testutil::script({1, 2}));
        prompts.answers = {c.answer};
        session.disk().check();
        session.disk().check(); // the same change is told once
        if (c.removed) {
            EXPECT_TRUE(prompts.messages.at(0).text.contains("удалён или переименован"));
            EXPECT_TRUE(prompts.questions.empty());
            prompts.answers.clear();
            continue;
        }
        ASSERT_EQ(prompts.questions.size(), 1u);
        EXPECT_EQ(prompts.questions[0].contains("будут потеряны"), c.editedFirst);
        const bool reloaded = c.answer == Answer::Yes;
        EXPECT_EQ(session.script()->records()[1] == kNeutralRecord, reloaded);
        EXPECT_EQ(changed(), c.editedFirst && !reloaded);
    }
}

TEST_F(SessionTest, SaveAsksBeforeOverwritingAnOutsideChange) {
    ASSERT_TRUE(session.flows().openPath(write("s.npc", testutil::script({1})).toStdString()));
    session.deleteRecord(false);
    const auto outside = testutil::script({3});
    rewriteOutside(dir / "s.npc", outside);
    prompts.answers = {Answer::No};
    EXPECT_EQ(session.flows().save(), Session::SaveOutcome::Cancelled);
    EXPECT_EQ(read("s.npc"), outside) << "the other program's bytes stay";
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
