// Every answer to the save question, in every flow that asks it.
#include "sessiontest.h"

#include <filesystem>

namespace sessiontest {
namespace {

enum class Flow { Open, New, Close, ConvertOpenFile };

// What the user does at the question and at what follows it.
struct Answering {
    const char* name;
    bool newDocument; // the changed document was never saved
    bool fileGone;    // its file was removed from disk before the question
    Answer answer;
    const char* saveAsTo;  // the save dialog that follows: a file name, "" to cancel, null: none
    bool goesOn;           // the flow that asked goes on
    const char* writtenTo; // the file that then holds the changes, or null
};

const Answering kAnswers[] = {
    {"YesSavesInPlace", false, false, Answer::Yes, nullptr, true, "doc.npc"},
    {"YesOnAFileGoneAsksForAName", false, true, Answer::Yes, "again.npc", true, "again.npc"},
    {"YesOnANewScriptAsksForAName", true, false, Answer::Yes, "named.npc", true, "named.npc"},
    {"YesThenCancelledDialogStops", true, false, Answer::Yes, "", false, nullptr},
    {"YesThenFailedWriteStops", true, false, Answer::Yes, "plain/x.npc", false, nullptr},
    {"NoDropsTheChanges", false, false, Answer::No, nullptr, true, nullptr},
    {"CancelStops", false, false, Answer::Cancel, nullptr, false, nullptr},
};

class SaveQuestion : public SessionTest,
                     public ::testing::WithParamInterface<std::tuple<Flow, Answering>> {};

TEST_P(SaveQuestion, AnswersDecideWhetherTheFlowGoesOn) {
    const auto [flow, a] = GetParam();
    testutil::writeText(dir / "plain", "x"); // a file where a folder is expected: writes fail
    const QString doc = write("doc.npc", testutil::script({}));
    write("other.npc", testutil::script({9}));
    if (a.newDocument)
        session.flows().newScript();
    else
        ASSERT_TRUE(session.flows().openPath(doc.toStdString()));
    session.deleteRecord(true); // record 1 becomes the neutral one: the document changed
    ASSERT_TRUE(changed());
    if (a.fileGone)
        std::filesystem::remove(dir / "doc.npc");

    prompts.answers.push_back(a.answer);
    if (a.saveAsTo) {
        if (*a.saveAsTo)
            prompts.choose(path(a.saveAsTo));
        else
            prompts.cancelDialog();
    }
    bool wentOn = false;
    switch (flow) {
    case Flow::Open:
        if (a.goesOn)
            prompts.choose(path("other.npc"));
        wentOn = session.flows().open();
        EXPECT_EQ(session.script()->title() == "other.npc", a.goesOn);
        break;
    case Flow::New:
        session.flows().newScript();
        wentOn = !changed();
        EXPECT_EQ(session.script()->isNew(), a.goesOn || a.newDocument);
        break;
    case Flow::Close:
        wentOn = session.queryClose();
        break;
    case Flow::ConvertOpenFile:
        if (a.newDocument || a.fileGone) {
            // Only the open file's own conversion asks; nothing to try here.
            prompts.answers.clear();
            prompts.files.clear();
            return;
        }
        prompts.choose(doc); // the source: the open, changed file
        if (a.goesOn)
            prompts.cancelDialog(); // the target dialog: shown only when the flow went on
        session.flows().convertLayout();
        wentOn = prompts.requests.size() == 2;
        break;
    }
    EXPECT_EQ(wentOn, a.goesOn);
    ASSERT_EQ(prompts.questions.size(), 1u);
    EXPECT_EQ(prompts.questions[0],
              a.newDocument ? QString("Сохранть новый NPC файл?") : "Сохранть " + doc + " ?");
    if (a.writtenTo) {
        EXPECT_EQ(read(a.writtenTo)[4], 0xFF) << "the changes are on disk";
    } else if (!a.goesOn) {
        EXPECT_TRUE(changed()) << "a flow that stops keeps the changed document";
    }
    if (!a.newDocument && !a.fileGone && !a.writtenTo) {
        EXPECT_EQ(read("doc.npc"), testutil::script({})) << "the file is untouched";
    }
}

constexpr const char* kFlowNames[] = {"Open", "New", "Close", "ConvertOpenFile"};

INSTANTIATE_TEST_SUITE_P(EveryFlow, SaveQuestion,
                         ::testing::Combine(::testing::Values(Flow::Open, Flow::New, Flow::Close,
                                                              Flow::ConvertOpenFile),
                                            ::testing::ValuesIn(kAnswers)),
                         [](const auto& info) {
                             return std::string(kFlowNames[int(std::get<0>(info.param))]) + "_" +
                                    std::get<1>(info.param).name;
                         });

} // namespace
} // namespace sessiontest
