// Opening, saving, converting and starting, without a window.
#include "core/npc/npcformat.h"
#include "core/platform/files.h"
#include "sessiontest.h"

#include <QSignalSpy>
#include <fstream>

namespace sessiontest {
namespace {

using parlex::kNeutralRecord;
using parlex::NpcFileType;
namespace npcformat = parlex::npcformat;
namespace platform = parlex::platform;

TEST_F(SessionTest, CommandLineSizesAndHelpSwitches) {
    const QString shortFile = write("short.npc", std::vector<std::uint8_t>(1599, 0));
    const QString longFile = write("long.npc", std::vector<std::uint8_t>(1601, 0));
    struct Case {
        QString line;
        bool goesOn;
        QString title, text;
    } cases[] = {
        {shortFile, true, "PARLEX - ОШИБКА ЗАГРУЗКИ",
         "Размер файла " + shortFile + "\nменьше чем 1600 байт"},
        {longFile, true, "PARLEX - ОШИБКА ЗАГРУЗКИ",
         "Размер файла " + longFile + "\nбольше чем 1600 байт"},
        {"/nonexistent/zzz", true, {}, {}},
    };
    const QString usage = "Usage:\n<parlex> <FileName> for open current file\n"
                          "<parlex> without parameters for run programm";
    for (const auto& c : cases) {
        prompts.messages.clear();
        EXPECT_EQ(session.start({c.line}, "parlex"), c.goesOn) << c.line.toStdString();
        if (c.text.isEmpty()) {
            EXPECT_TRUE(prompts.messages.empty());
        } else {
            ASSERT_EQ(prompts.messages.size(), 1u);
            EXPECT_EQ(prompts.messages[0].title, c.title);
            EXPECT_EQ(prompts.messages[0].text, c.text);
        }
        EXPECT_EQ(session.script(), nullptr);
    }
    for (const char* helpSwitch : {"/HELP", "help", "/?", "?"}) {
        prompts.messages.clear();
        EXPECT_FALSE(session.start({helpSwitch}, "parlex")) << helpSwitch;
        ASSERT_EQ(prompts.messages.size(), 1u);
        EXPECT_EQ(prompts.messages[0].title, QString("Parlex <DOS>"));
        EXPECT_EQ(prompts.messages[0].text, usage);
    }
    EXPECT_TRUE(session.start({write("053.npc", testutil::script({1}))}, "parlex"));
    ASSERT_NE(session.script(), nullptr);
    EXPECT_TRUE(prompts.requests.empty()) << "no dialog for a file on the command line";
    EXPECT_EQ(session.cursor().explanation().text,
              "Эта запись будет срабатывать всегда, без передачи на стандартные записи");
}

TEST_F(SessionTest, OpenDialogStartsAtTheLastScriptAlsoAfterNew) {
    prompts.cancelDialog();
    EXPECT_FALSE(session.flows().open());
    EXPECT_EQ(prompts.requests.back().folder, QString::fromStdString(dir.path().string()));
    EXPECT_EQ(prompts.requests.back().title, QString("ОТКРЫТИЕ NPC ФАЙЛА"));
    ASSERT_EQ(prompts.requests.back().filters.size(), 2u);
    EXPECT_EQ(prompts.requests.back().filters[1].text, QString("все файлы (*.*)"));

    std::filesystem::create_directories(dir / "mod");
    const QString inMod = write("mod/057.npc", testutil::script({3}));
    prompts.choose(inMod);
    ASSERT_TRUE(session.flows().open());
    session.flows().newScript();
    prompts.cancelDialog();
    session.flows().open();
    EXPECT_EQ(prompts.requests.back().folder, QString::fromStdString((dir / "mod").string()));
    EXPECT_EQ(prompts.requests.back().proposedName, QString("057.npc"));
}

TEST_F(SessionTest, WrongSizeOrCancelledOpenKeepsTheDocument) {
    ASSERT_TRUE(session.flows().openPath(write("keep.npc", testutil::script({2})).toStdString()));
    prompts.choose(write("bad.npc", std::vector<std::uint8_t>(10, 0)));
    EXPECT_FALSE(session.flows().open());
    EXPECT_EQ(prompts.messages.back().icon, Icon::Exclamation);
    EXPECT_EQ(prompts.messages.back().title, QString("Parlex"));
    EXPECT_EQ(session.script()->title(), "keep.npc");
    const auto shown = prompts.messages.size();
    prompts.cancelDialog();
    EXPECT_FALSE(session.flows().open());
    EXPECT_EQ(prompts.messages.size(), shown) << "a cancelled dialog says nothing";
}

TEST_F(SessionTest, SaveAsAddsTheExtensionAndReloadsInTheNewLayout) {
    ASSERT_TRUE(session.flows().openPath(write("t.npc", testutil::script({})).toStdString()));
    parlex::NpcRecord r{};
    r[0] = 0x39, r[2] = 0x35, r[4] = 0x77;
    session.document().edit(0, r);
    prompts.choose(path("as")); // typed without an extension, filter "*.NPC"
    EXPECT_EQ(session.flows().saveAs(), Session::SaveOutcome::Saved);
    EXPECT_EQ(prompts.requests.back().title, QString("СОХРАНИТЬ NPC ФАЙЛ КАК..."));
    EXPECT_EQ(prompts.requests.back().proposedName, QString("t.npc"));
    EXPECT_TRUE(std::filesystem::exists(dir / "as.npc"));
    EXPECT_EQ(session.script()->type(), NpcFileType::Ja) << "the first four bytes decide";
    EXPECT_EQ((*session.cursor().currentRecord())[0], 0x77);
    EXPECT_FALSE(session.document().canUndo()) << "the reload after a save empties the history";
    // "Все файлы" adds nothing.
    prompts.files.push_back(testutil::ScriptedPrompts::FileChoice{path("plain"), 2});
    EXPECT_EQ(session.flows().saveAs(), Session::SaveOutcome::Saved);
    EXPECT_TRUE(std::filesystem::exists(dir / "plain"));
    session.flows().showCurrentInfo();
    EXPECT_EQ(prompts.messages.back().title, QString("Текущий файл..."));
    EXPECT_EQ(prompts.messages.back().text, QString("Тип файла:\nАгония Власти\nЗаписей: 1"));
}

TEST_F(SessionTest, ReadOnlyDriveSaysSoAndAsksAgain) {
    const std::string readOnly = readOnlyFolder();
    if (readOnly.empty())
        GTEST_SKIP() << "no read-only file system on this machine";
    ASSERT_TRUE(session.flows().openPath(write("ro.npc", testutil::script({1})).toStdString()));
    prompts.choose(QString::fromStdString(readOnly + "/x.npc"));
    prompts.choose(path("fine.npc"));
    EXPECT_EQ(session.flows().saveAs(), Session::SaveOutcome::Saved);
    EXPECT_EQ(prompts.requests.size(), 2u) << "the dialog returns after the refusal";
    EXPECT_TRUE(prompts.messages.back().text.endsWith("\nтолько для чтения\nУкажите другой путь"));
}

TEST_F(SessionTest, SavingAFileGoneFromDiskAsksForAName) {
    ASSERT_TRUE(session.flows().openPath(write("gone.npc", testutil::script({1})).toStdString()));
    std::filesystem::remove(dir / "gone.npc");
    prompts.cancelDialog();
    EXPECT_EQ(session.flows().save(), Session::SaveOutcome::Cancelled);
    EXPECT_EQ(prompts.requests.back().title, QString("СОХРАНИТЬ NPC ФАЙЛ КАК..."));
}

TEST_F(SessionTest, ConversionOfTheOpenFileOntoItselfAsksToReload) {
    const QString doc = write("conv.npc", testutil::script({1, 50}));
    ASSERT_TRUE(session.flows().openPath(doc.toStdString()));
    prompts.choose(doc);    // the source
    prompts.choose(doc, 1); // the target, "Buka: АВ"
    // Record 50 is filled and has no place in "ja": asked first, then the reload.
    prompts.answers = {Answer::Yes, Answer::Yes};
    session.flows().convertLayout();
    EXPECT_EQ(prompts.questions.front(), "Запись 50 не пуста: в формате \"ja\" 49 записей, она "
                                         "не сохранится.\nПреобразовать всё равно?");
    ASSERT_EQ(prompts.requests.size(), 2u);
    EXPECT_EQ(prompts.requests[0].title, QString("ИЗМЕНЕНИЕ ФОРМАТА NPC ФАЙЛА"));
    EXPECT_EQ(prompts.requests[1].title,
              QString("ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:ENG., JA2UB:ENG. & RUS. СОХРАНИТЬ КАК..."));
    EXPECT_EQ(prompts.requests[1].filterIndex, 1);
    EXPECT_EQ(prompts.questions.back(),
              "Формат файла\n" + doc + " был изменен.\nЗагрузить файл заново?");
    EXPECT_FALSE(prompts.withCancel.back());
    EXPECT_EQ(session.script()->type(), NpcFileType::Ja);
    session.cursor().setPosition(50);
    EXPECT_EQ(session.cursor().explanation().text, "Запись не существует");

    // Back again, choosing the layout the file has first: refused, and asked again.
    prompts.choose(doc);
    prompts.choose(doc, 1);         // "ja" again
    prompts.choose(doc, 2);         // "ub"
    prompts.answers = {Answer::No}; // keep the document as it is
    session.flows().convertLayout();
    EXPECT_EQ(prompts.requests.back().filterIndex, 2);
    EXPECT_EQ(prompts.messages.back().icon, Icon::Exclamation);
    EXPECT_EQ(session.script()->type(), NpcFileType::Ja);
    EXPECT_EQ(npcformat::detectType(read("conv.npc")), NpcFileType::Ub);
    // Our own conversion is no news from another program.
    session.disk().check();
    EXPECT_EQ(prompts.questions.size(), 3u);
}

TEST_F(SessionTest, ConvertingAFilledRecord50AwayCanBeDeclined) {
    const QString doc = write("full.npc", testutil::script({50}));
    const auto before = read("full.npc");
    prompts.choose(doc);
    prompts.choose(path("out.npc"), 1);
    prompts.answers = {Answer::No};
    session.flows().convertLayout();
    EXPECT_EQ(prompts.questions.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(dir / "out.npc"));
    EXPECT_EQ(read("full.npc"), before);
}

TEST_F(SessionTest, ConvertingAnotherFileAsksNothingAboutTheOpenOne) {
    ASSERT_TRUE(session.flows().openPath(write("open.npc", testutil::script({1})).toStdString()));
    session.deleteRecord(false);
    const QString other = write("other.npc", testutil::script({4}));
    prompts.choose(other);
    prompts.choose(path("other-ja.npc"), 1);
    session.flows().convertLayout();
    EXPECT_TRUE(prompts.questions.empty());
    EXPECT_EQ(npcformat::detectType(read("other-ja.npc")), NpcFileType::Ja);
    EXPECT_EQ(read("other.npc"), testutil::script({4})) << "the source is not touched";
    EXPECT_TRUE(changed());
}

TEST_F(SessionTest, ListRowsAndTheirLimitWarning) {
    EXPECT_EQ(session.lists().rows(parlex::ListKey::T).size(), 500u);
    std::string big;
    for (int i = 0; i < 32800; ++i)
        big += std::to_string(i % 500) + "=x\r\n";
    testutil::writeText(dir / "Trigg.txt", big);
    const auto rows = session.lists().rows(parlex::ListKey::T);
    EXPECT_EQ(rows.back(), "Error - аварийное прерывание");
    ASSERT_EQ(prompts.messages.size(), 1u);
    EXPECT_EQ(prompts.messages[0].icon, Icon::Exclamation);
}

TEST_F(SessionTest, AListFileThatCannotBeReadIsSaidAsASystemFailure) {
    const auto list = dir / "Trigg.txt";
    testutil::writeText(list, "12=x\r\n");
    std::filesystem::resize_file(list, std::uintmax_t(1) << 30);
    EXPECT_TRUE(session.lists().rows(parlex::ListKey::T).empty());
    ASSERT_EQ(prompts.messages.size(), 1u);
    EXPECT_TRUE(prompts.messages[0].text.contains(QString::fromStdString(list.string())));
    testutil::writeText(list, "12=x\r\n");
    EXPECT_EQ(session.lists().rows(parlex::ListKey::T).size(), 1u);
    EXPECT_EQ(prompts.messages.size(), 1u);
}

} // namespace
} // namespace sessiontest
