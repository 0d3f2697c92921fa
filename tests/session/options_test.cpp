// The options between runs, and the options dialog without its widgets: the boxes,
// the clicks, the list buttons and what closing stores.
#include "session/optionsmodel.h"
#include "sessiontest.h"

#include <QSignalSpy>
#include <functional>

namespace {

using namespace sessiontest;
using parlex::ListKey;
using parlex::session::BoxState;
using parlex::session::OptionBox;
using parlex::session::OptionsModel;

class OptionsTest : public SessionTest {
protected:
    OptionsModel open() { return OptionsModel(session, nullptr); }
};

TEST_F(OptionsTest, TheSettingsOfAPastRunComeBackUnchangedAndStartTheDialogs) {
    parlex::Settings s;
    s.options.toolTips = s.options.autoLoad = true;
    s.scriptPath = path("053.npc").toStdString();
    QSignalSpy restyled(&session, &Session::optionsChanged);
    session.restore(s);
    EXPECT_EQ(std::pair(session.options(), restyled.count()), std::pair(s.options, qsizetype(1)));
    prompts.cancelDialog();
    session.flows().open();
    EXPECT_EQ(prompts.requests.back().proposedName, "053.npc");
}

// A change of the options names what it touches on the screen, so that the window
// repaints only that.
TEST(OptionChanges, NameWhatTheyTouch) {
    using enum parlex::session::OptionChange;
    const std::pair<std::function<void(parlex::Options&)>, parlex::session::OptionChanges> cases[] =
        {{[](auto& o) { o.helpAlignment = 2; }, HelpText},
         {[](auto& o) { o.phraseFont.bold = true; }, PhraseStyle},
         {[](auto& o) { o.autoLoad = o.toolTips = true; }, Behaviour | ToolTips},
         {[](auto&) {}, {}}};
    for (const auto& [change, expected] : cases) {
        parlex::Options after;
        change(after);
        EXPECT_EQ(parlex::session::optionChanges(parlex::Options{}, after), expected);
    }
}

// The seven boxes that follow the options: Check, A, H, M, S, S1, US.
std::vector<BoxState> boxes(const OptionsModel& model) {
    std::vector<BoxState> out;
    for (auto box : {OptionBox::Check, OptionBox::CheckA, OptionBox::CheckH, OptionBox::CheckM,
                     OptionBox::CheckS, OptionBox::CheckS1, OptionBox::CheckUS})
        out.push_back(model.box(box));
    return out;
}

constexpr BoxState on{true, true}, off{false, true}, onGrey{true, false}, offGrey{false, false};

TEST_F(OptionsTest, FourBoxesActAtTheClickTheSpeechBoxesAtClosing) {
    EXPECT_EQ(boxes(open()), (std::vector<BoxState>{on, off, off, on, on, off, offGrey}));
    auto model = open();
    QSignalSpy told(&session, &Session::optionsChanged);
    model.setTicked(OptionBox::Check, false);
    model.setTicked(OptionBox::CheckA, true);
    model.setTicked(OptionBox::CheckH, true);
    model.setTicked(OptionBox::CheckM, false);
    EXPECT_EQ(told.count(), 4) << "the window shows a new option at once";
    model.setTicked(OptionBox::CheckS1, true);
    model.setTicked(OptionBox::CheckS, false); // loading at once keeps its tick while greyed
    EXPECT_EQ(told.count(), 4) << "the speech-file boxes wait for the close";
    const std::vector<BoxState> expected{off, on, on, off, offGrey, onGrey, on};
    EXPECT_EQ(boxes(model), expected);
    model.close();
    const auto& o = session.options();
    EXPECT_FALSE(o.flagOverwrite || o.paneFollowsPhrase || o.findEdtName);
    EXPECT_TRUE(o.animationOff && o.toolTips && o.rememberPath && o.autoLoad);
    EXPECT_EQ(boxes(open()), expected) << "the next opening shows what was stored";

    auto again = open(); // from the remembered path back to the name rule
    again.setTicked(OptionBox::CheckUS, false);
    again.setTicked(OptionBox::CheckS1, true);
    EXPECT_EQ(boxes(again), (std::vector<BoxState>{off, on, on, off, on, on, offGrey}));
    again.close();
    EXPECT_TRUE(session.options().findEdtName && session.options().autoLoad);
    EXPECT_FALSE(session.options().rememberPath);
}

TEST_F(OptionsTest, ExistingListFilesAreReplacedAfterAYesOrSilentlyWithoutTheBox) {
    testutil::writeText(dir / "Trigg.txt", "old");
    auto model = open();
    prompts.answers = {Answer::No}; // only the triggers exist: one question
    model.extractAll();
    EXPECT_EQ(prompts.questions,
              (std::vector{"Файл " + path("Trigg.txt") + "\nуже существует. Заменить его?"}));
    EXPECT_EQ(testutil::readText(dir / "Trigg.txt"), "old");
    EXPECT_TRUE(std::filesystem::exists(dir / "Q_Output.txt"));
    model.setTicked(OptionBox::Check, false); // unticked: replaced without a question
    model.extract(ListKey::T);
    EXPECT_EQ(prompts.questions.size(), 1u);
    EXPECT_TRUE(testutil::readText(dir / "Trigg.txt").starts_with("; "));
    EXPECT_TRUE(prompts.messages.empty()) << "success is not told";
}

} // namespace
