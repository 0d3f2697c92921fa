// Starting, opening, saving and converting, without a window.
#include "core/npc/npcformat.h"
#include "sessiontest.h"

namespace sessiontest {
namespace {

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

} // namespace
} // namespace sessiontest
