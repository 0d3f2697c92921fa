// Starting, opening, saving and converting, the save question in every flow that
// asks it, and the open script changed or removed by another program; without a window.
#include "core/npc/npcformat.h"
#include "sessiontest.h"

#include <filesystem>

namespace sessiontest {
namespace {

using parlex::kNeutralRecord;
using parlex::NpcFileType;
namespace npcformat = parlex::npcformat;

TEST_F(SessionTest, TheCommandLineOpensAFileOrTellsWhyNot) {
    const QString shortFile = write("short.npc", std::vector<std::uint8_t>(1599, 0));
    EXPECT_TRUE(session.start({shortFile}, "parlex"));
    EXPECT_EQ(prompts.messages.at(0).text, "Размер файла " + shortFile + "\nменьше чем 1600 байт");
    EXPECT_TRUE(session.start({"/nonexistent/zzz"}, "parlex"));
    EXPECT_EQ(prompts.messages.size(), 1u) << "a missing file is not told";
    EXPECT_FALSE(session.start({"/?"}, "parlex")) << "the usage is shown instead";
    EXPECT_EQ(prompts.messages.at(1).title, QString("Parlex <DOS>"));
    EXPECT_EQ(session.script(), nullptr);
    EXPECT_TRUE(session.start({write("053.npc", testutil::script({1}))}, "parlex"));
    ASSERT_NE(session.script(), nullptr);
    EXPECT_TRUE(prompts.requests.empty()) << "no dialog for a file on the command line";
}

TEST_F(SessionTest, SaveAsAddsTheExtensionAndReloadsInTheNewLayout) {
    ASSERT_TRUE(session.flows().openPath(write("t.npc", testutil::script({})).toStdString()));
    prompts.choose(write("bad.npc", std::vector<std::uint8_t>(10, 0)));
    EXPECT_FALSE(session.flows().open()) << "a wrong size keeps the document";
    EXPECT_EQ(session.script()->title(), "t.npc");
    parlex::NpcRecord r{};
    r[0] = 0x39, r[2] = 0x35, r[4] = 0x77;
    session.document().edit(0, r);
    prompts.choose(path("as")); // typed without an extension, filter "*.NPC"
    EXPECT_EQ(session.flows().saveAs(), Session::SaveOutcome::Saved);
    EXPECT_TRUE(std::filesystem::exists(dir / "as.npc"));
    EXPECT_EQ(session.script()->type(), NpcFileType::Ja) << "the first four bytes decide";
    EXPECT_EQ((*session.cursor().currentRecord())[0], 0x77);
    EXPECT_FALSE(session.document().canUndo()) << "the reload after a save empties the history";
    session.flows().showCurrentInfo();
    EXPECT_EQ(prompts.messages.back().text, QString("Тип файла:\nАгония Власти\nЗаписей: 1"));
}

TEST_F(SessionTest, ConversionOfTheOpenFileOntoItselfAsksToReload) {
    const QString doc = write("conv.npc", testutil::script({1, 50}));
    ASSERT_TRUE(session.flows().openPath(doc.toStdString()));
    prompts.choose(doc);    // the source
    prompts.choose(doc, 1); // the target, "ja"
    prompts.answers = {Answer::No};
    session.flows().convertLayout(); // record 50 is filled: declined, nothing written
    EXPECT_EQ(npcformat::detectType(read("conv.npc")), NpcFileType::Ub);
    prompts.choose(doc);
    prompts.choose(doc, 1);
    prompts.answers = {Answer::Yes, Answer::Yes}; // convert anyway, then reload
    session.flows().convertLayout();
    EXPECT_EQ(prompts.questions.back(),
              "Формат файла\n" + doc + " был изменен.\nЗагрузить файл заново?");
    EXPECT_EQ(session.script()->type(), NpcFileType::Ja);
    session.disk().check(); // our own conversion is no news from another program
    EXPECT_EQ(prompts.questions.size(), 3u);
}

// Another program rewrites the file: other bytes, and a later modification time.
void rewriteOutside(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    const auto before = std::filesystem::last_write_time(path);
    testutil::writeBytes(path, bytes);
    std::filesystem::last_write_time(path, before + std::chrono::seconds(2));
}

TEST_F(SessionTest, TheUserIsToldOfAnOutsideChangeOnceAndChooses) {
    // Unsaved changes first; the file deleted rather than rewritten; the answer to the
    // reload question, if one comes.
    using enum Answer;
    const std::tuple<bool, bool, Answer> cases[] = {
        {false, false, Yes}, {true, false, Yes}, {true, false, No}, {false, true, No}};
    for (const auto& [editedFirst, removed, answer] : cases) {
        ASSERT_TRUE(session.flows().openPath(write("w.npc", testutil::script({1})).toStdString()));
        prompts.questions.clear();
        if (editedFirst)
            session.deleteRecord(false);
        if (removed)
            std::filesystem::remove(dir / "w.npc");
        else
            rewriteOutside(dir / "w.npc", testutil::script({1, 2}));
        prompts.answers = {answer};
        session.disk().check();
        session.disk().check(); // the same change is told once
        ASSERT_EQ(prompts.questions.size(), removed ? 0u : 1u) << "told once";
        if (removed) {
            EXPECT_TRUE(prompts.messages.at(0).text.contains("удалён или переименован"));
            prompts.answers.clear();
            continue;
        }
        EXPECT_EQ(prompts.questions[0].contains("будут потеряны"), editedFirst);
        const bool reloaded = answer == Yes;
        EXPECT_EQ(session.script()->records()[1] == kNeutralRecord, reloaded);
        EXPECT_EQ(changed(), editedFirst && !reloaded);
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
