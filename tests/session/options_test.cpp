// The options dialog without its widgets: the boxes at opening, the clicks, the
// tabs, the list buttons and what closing stores.
#include "core/association/registryassociation.h"
#include "memoryregistry.h"
#include "session/optionsmodel.h"
#include "sessiontest.h"

#include <QSignalSpy>
#include <cstdlib>

namespace {

using namespace sessiontest;
using parlex::ListKey;
using parlex::session::BoxState;
using parlex::session::OptionBox;
using parlex::session::OptionsModel;

class OptionsTest : public SessionTest {
protected:
    testutil::MemoryRegistry registry;
    parlex::RegistryAssociation association{registry, "C:\\Parlex\\Parlex.exe"};

    OptionsModel open() { return OptionsModel(session, &association); }
};

// The seven boxes that follow the options, in a fixed order for comparing.
constexpr OptionBox kShown[] = {OptionBox::Check,  OptionBox::CheckA, OptionBox::CheckH,
                                OptionBox::CheckM, OptionBox::CheckS, OptionBox::CheckS1,
                                OptionBox::CheckUS};

std::vector<BoxState> boxes(const OptionsModel& model) {
    std::vector<BoxState> out;
    for (auto box : kShown)
        out.push_back(model.box(box));
    return out;
}

constexpr BoxState on{true, true}, off{false, true}, onGrey{true, false}, offGrey{false, false};

TEST_F(OptionsTest, TheBoxesAtOpeningFollowTheOptions) {
    struct Case {
        const char* name;
        void (*set)(parlex::Options&);
        std::vector<BoxState> expected; // Check A H M S S1 US
    };
    const Case cases[] = {
        {"a first start", [](auto&) {}, {on, off, off, on, on, off, offGrey}},
        {"every flag turned",
         [](auto& o) {
             o.flagOverwrite = false, o.animationOff = true, o.toolTips = true;
             o.paneFollowsPhrase = false, o.autoLoad = true;
         },
         {off, on, on, off, on, on, offGrey}},
        {"the path remembered, loading at once kept while greyed",
         [](auto& o) { o.rememberPath = true, o.findEdtName = false, o.autoLoad = true; },
         {on, off, off, on, offGrey, onGrey, on}},
    };
    for (const auto& c : cases) {
        session.setOptions({});
        session.updateOptions(c.set);
        const auto model = open();
        EXPECT_EQ(boxes(model), c.expected) << c.name;
        EXPECT_EQ(model.tab(), 1) << c.name;
        EXPECT_EQ(model.frameCaption(), QString("Извлечь список"));
    }
}

TEST_F(OptionsTest, FourBoxesChangeTheirOptionAtTheClickAndTellIt) {
    auto model = open();
    QSignalSpy told(&session, &Session::optionsChanged);
    model.setTicked(OptionBox::Check, false);
    model.setTicked(OptionBox::CheckA, true);
    model.setTicked(OptionBox::CheckH, true);
    model.setTicked(OptionBox::CheckM, false);
    EXPECT_EQ(told.count(), 4) << "the window shows a new option at once";
    model.setTicked(OptionBox::CheckS1, true);
    EXPECT_EQ(told.count(), 4) << "loading at once waits for the close";
    model.close();
    EXPECT_EQ(told.count(), 5);
    const auto& o = session.options();
    EXPECT_FALSE(o.flagOverwrite);
    EXPECT_TRUE(o.animationOff);
    EXPECT_TRUE(o.toolTips);
    EXPECT_FALSE(o.paneFollowsPhrase);
    EXPECT_EQ(boxes(model), (std::vector<BoxState>{off, on, on, off, on, on, offGrey}));
}

// The speech-file boxes: the clicks, the boxes after them, and the options after
// closing, which are not touched before it.
TEST_F(OptionsTest, TheSpeechFileBoxesPairAndAreStoredAtClosing) {
    struct Click {
        OptionBox box;
        bool ticked;
    };
    struct Case {
        const char* name;
        bool remembered; // at opening
        std::vector<Click> clicks;
        std::vector<BoxState> expected; // Check A H M S S1 US
        bool rememberPath, autoLoad;    // after closing
    };
    const Case cases[] = {
        {"untick the name rule",
         false,
         {{OptionBox::CheckS, false}},
         {on, off, off, on, offGrey, offGrey, on},
         true,
         false},
        {"and back again",
         false,
         {{OptionBox::CheckS, false}, {OptionBox::CheckUS, false}},
         {on, off, off, on, on, off, offGrey},
         false,
         false},
        {"a click that leaves the box ticked does nothing",
         false,
         {{OptionBox::CheckS, true}},
         {on, off, off, on, on, off, offGrey},
         false,
         false},
        {"loading at once keeps its tick while greyed",
         false,
         {{OptionBox::CheckS1, true}, {OptionBox::CheckS, false}},
         {on, off, off, on, offGrey, onGrey, on},
         true,
         true},
        {"a greyed box cannot be clicked",
         true,
         {{OptionBox::CheckS1, true}, {OptionBox::CheckS, true}},
         {on, off, off, on, offGrey, offGrey, on},
         true,
         false},
        {"from the remembered path to the name rule",
         true,
         {{OptionBox::CheckUS, false}, {OptionBox::CheckS1, true}},
         {on, off, off, on, on, on, offGrey},
         false,
         true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        session.setOptions({});
        session.updateOptions([&](auto& o) {
            o.rememberPath = c.remembered;
            o.findEdtName = !c.remembered;
        });
        const auto before = session.options();
        auto model = open();
        for (const auto& click : c.clicks)
            model.setTicked(click.box, click.ticked);
        EXPECT_EQ(boxes(model), c.expected);
        EXPECT_EQ(session.options(), before) << "nothing is stored before closing";
        model.close();
        EXPECT_EQ(session.options().rememberPath, c.rememberPath);
        EXPECT_EQ(session.options().findEdtName, !c.rememberPath);
        EXPECT_EQ(session.options().autoLoad, c.autoLoad);
        EXPECT_EQ(boxes(open()), c.expected) << "the next opening shows what was stored";
    }
}

TEST_F(OptionsTest, TheAssociationBoxActsAtOnceAndShowsTheTrueStateAtOpening) {
    EXPECT_EQ(open().box(OptionBox::CheckR), off);
    open().setTicked(OptionBox::CheckR, true);
    EXPECT_TRUE(association.isAssociated()) << "without closing the dialog";
    EXPECT_EQ(open().box(OptionBox::CheckR), on);

    open().setTicked(OptionBox::CheckR, false);
    EXPECT_FALSE(association.isAssociated());

    registry.readOnly = true;
    auto model = open();
    model.setTicked(OptionBox::CheckR, true);
    EXPECT_EQ(model.box(OptionBox::CheckR), on) << "the box stays as the user set it";
    EXPECT_TRUE(prompts.messages.empty()) << "a failure is silent";
    EXPECT_EQ(open().box(OptionBox::CheckR), off);

    EXPECT_EQ(OptionsModel(session, nullptr).box(OptionBox::CheckR), offGrey)
        << "no association where the desktop has none";
}

// ---------------------------------------------------------------- the list buttons

const char* const kFiles[] = {"React.txt", "Action.txt",  "Trigg.txt",   "Items.txt",
                              "Npc.txt",   "Q_Input.txt", "Q_Output.txt"};

TEST_F(OptionsTest, ExtractAllWritesTheSevenFilesBesideAPortableProgram) {
    auto model = open();
    model.extractAll();
    for (const char* file : kFiles)
        EXPECT_TRUE(std::filesystem::exists(dir / file)) << file;
    EXPECT_TRUE(prompts.messages.empty()) << "success is not told";
}

TEST_F(OptionsTest, ExistingFilesAreReplacedAfterAYesOrSilentlyWithoutTheBox) {
    for (const char* file : kFiles)
        testutil::writeText(dir / file, "old");
    auto model = open();
    // The third list (triggers) is refused; every other file is replaced.
    prompts.answers = {Answer::Yes, Answer::Yes, Answer::No, Answer::Yes,
                       Answer::Yes, Answer::Yes, Answer::Yes};
    model.extractAll();
    ASSERT_EQ(prompts.questions.size(), 7u);
    EXPECT_EQ(prompts.questions[0], QString::fromStdString("Файл " + (dir / "React.txt").string() +
                                                           "\nуже существует. Заменить его?"));
    for (const char* file : kFiles)
        EXPECT_EQ(testutil::readText(dir / file) == "old", std::string(file) == "Trigg.txt")
            << file;

    // Unticked, a read-only file is replaced without a question.
    std::filesystem::permissions(dir / "Trigg.txt", std::filesystem::perms::owner_read);
    model.setTicked(parlex::session::OptionBox::Check, false);
    model.extract(ListKey::T);
    EXPECT_EQ(prompts.questions.size(), 7u);
    EXPECT_TRUE(testutil::readText(dir / "Trigg.txt").starts_with("; "));
}

TEST_F(OptionsTest, AListFolderOnAReadOnlyDriveIsRefusedWithItsRoot) {
    const std::string readOnly = readOnlyFolder();
    if (readOnly.empty())
        GTEST_SKIP() << "no read-only file system on this machine";
    // A program folder that cannot be written sends the lists to the data home,
    // here on the read-only drive too.
    setenv("XDG_DATA_HOME", readOnly.c_str(), 1);
    Session onDisc(prompts, readOnly);
    OptionsModel(onDisc, nullptr).extract(ListKey::N);
    unsetenv("XDG_DATA_HOME");
    ASSERT_EQ(prompts.messages.size(), 1u);
    EXPECT_EQ(prompts.messages[0].icon, Icon::Critical);
    EXPECT_TRUE(prompts.messages[0].text.startsWith("Диск "));
    EXPECT_TRUE(prompts.messages[0].text.endsWith("\nтолько для чтения"));
}

} // namespace
