// The speech file beside the script: its flows and the pane's state, without a window.
#include "sessiontest.h"

#include "core/speech/decompiler.h"

#include <QSignalSpy>

namespace sessiontest {
namespace {

using parlex::EdtFile;
using parlex::EdtKind;
using Step = parlex::session::SpeechDocument::Step;

// The bytes of a speech file with the given phrases (number, text) filled.
std::vector<std::uint8_t> edt(EdtKind kind,
                              std::initializer_list<std::pair<int, const char*>> filled) {
    EdtFile file = EdtFile::makeNew(kind);
    for (const auto& [index, text] : filled)
        EXPECT_TRUE(file.setPhrase(index, text));
    return file.toBytes();
}

class SpeechTest : public SessionTest {
protected:
    parlex::session::SpeechDocument& speech = session.speech();
    bool openEdt(const std::string& name, int filter) {
        prompts.choose(path(name), filter);
        return speech.open();
    }
};

TEST_F(SpeechTest, TheChosenFilterSaysTheKind) {
    const struct {
        int filter;
        int lastPhrase;
        const char* counter;
        bool decompile;
    } cases[] = {{1, 142, "(000:142)", true}, {2, 14, "(00:14)", false}, {3, 34, "(00:34)", false}};
    write("any.edt", std::vector<std::uint8_t>(480 * 2, 0));
    for (const auto& c : cases) {
        ASSERT_TRUE(openEdt("any.edt", c.filter));
        EXPECT_EQ(speech.lastPhrase(), c.lastPhrase);
        EXPECT_EQ(speech.phraseCounter(), c.counter);
        EXPECT_EQ(speech.canDecompile(), c.decompile);
    }
    const auto& request = prompts.requests.front();
    EXPECT_EQ(request.title, "ОТКРЫТИЕ (SPEECH).EDT ФАЙЛА...");
    ASSERT_EQ(request.filters.size(), 3u);
    EXPECT_EQ(request.filters[1].text, "Гражд.(<CIV+2н.>.EDTили <сектор>.EDT)");
    EXPECT_EQ(request.folder, QString::fromStdString(dir.path().string()))
        << "nothing opened yet: the program's folder";
    EXPECT_EQ(prompts.requests.back().proposedName, "any.edt") << "the last file is proposed";
}

TEST_F(SpeechTest, SizesTheKindCannotHaveAreRefused) {
    write("small.edt", std::vector<std::uint8_t>(319, 0));
    write("big.edt", std::vector<std::uint8_t>(4801, 0));
    write("fine.edt", std::vector<std::uint8_t>(321, 0)); // a part record is ignored
    ASSERT_TRUE(openEdt("fine.edt", 2));
    const struct {
        const char* name;
        QString text;
    } cases[] = {
        {"small.edt", "Файл " + path("small.edt") +
                          "\n(Тип: Диалоги гражданских) меньше чем 320 байт\n"
                          "Одна фраза имеет размер 320 байт"},
        {"big.edt",
         "Файл " + path("big.edt") + "\n(Тип: Диалоги гражданских) больше чем 4800 байт"},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(openEdt(c.name, 2));
        ASSERT_FALSE(prompts.messages.empty());
        EXPECT_EQ(prompts.messages.back().text, c.text);
        EXPECT_EQ(prompts.messages.back().title, "Parlex некоректный размер");
        EXPECT_EQ(prompts.messages.back().icon, Icon::Exclamation);
        EXPECT_EQ(speech.file()->path(), dir / "fine.edt") << "the old document stands";
    }
}

TEST_F(SpeechTest, NewDocumentsSaveThroughTheDialogWithTheirOwnNames) {
    const struct {
        EdtKind kind;
        const char* name;
        const char* filter;
        std::size_t size; // nothing typed: one record fewer than the kind has
    } cases[] = {
        {EdtKind::NpcDialogues, "NPC_NEW.EDT", "(Диалоги НПЦ).EDT", 68160},
        {EdtKind::Civilian, "CIV_NEW.EDT", "(Диалоги гражданских).EDT", 4480},
        {EdtKind::Remarks, "REM_NEW.EDT", "(Комметтарии НПЦ).EDT", 16320},
    };
    for (const auto& c : cases) {
        speech.newDocument(c.kind);
        EXPECT_TRUE(speech.isNew());
        EXPECT_TRUE(speech.canSave()) << "a new document can always be saved";
        prompts.choose(path(std::string("saved_") + c.name).chopped(4)); // no extension typed
        ASSERT_TRUE(speech.save());
        const auto& request = prompts.requests.back();
        EXPECT_EQ(request.title, "СОХРАНИТЬ EDT ФАЙЛ КАК...");
        EXPECT_EQ(request.proposedName, c.name);
        EXPECT_EQ(request.filters[0].text, c.filter);
        EXPECT_EQ(request.filters[1].text, "все файлы");
        EXPECT_EQ(read(std::string("saved_") + c.name).size(), c.size);
        EXPECT_FALSE(speech.isNew());
        EXPECT_FALSE(speech.canSave());
    }
}

TEST_F(SpeechTest, SaveWritesInPlaceOrAsksWhereItCannot) {
    write("d.edt", edt(EdtKind::NpcDialogues, {{0, "Привет"}}));
    ASSERT_TRUE(openEdt("d.edt", 1));
    speech.editPhrase("Пока");
    EXPECT_TRUE(speech.save()); // in place, no dialog
    EXPECT_EQ(prompts.requests.size(), 1u);
    EXPECT_EQ(read("d.edt"), edt(EdtKind::NpcDialogues, {{0, "Пока"}}));

    std::filesystem::remove(dir / "d.edt"); // gone from disk: a name is asked for
    speech.editPhrase("Снова");
    prompts.cancelDialog();
    EXPECT_FALSE(speech.save());
    EXPECT_EQ(prompts.requests.back().proposedName, "d.edt");

    const std::string readOnly = readOnlyFolder();
    if (readOnly.empty())
        return;
    prompts.choose(QString::fromStdString(readOnly + "/x.edt"));
    prompts.choose(path("elsewhere.edt"));
    EXPECT_TRUE(speech.saveAs());
    EXPECT_TRUE(prompts.messages.back().text.endsWith("\nтолько для чтения\nУкажите другой путь"));
}

TEST_F(SpeechTest, AFileReadAsAnotherKindIsSavedOverItselfOnlyWhenTheUserSaysSo) {
    auto bytes = edt(EdtKind::Civilian, {{0, "Эй"}});
    bytes.resize(1280); // four civilian phrases, opened as NPC dialogues
    write("c.edt", bytes);
    ASSERT_TRUE(openEdt("c.edt", 1));
    speech.editPhrase("Ой");
    prompts.answers = {Answer::No};
    EXPECT_FALSE(speech.save());
    ASSERT_EQ(prompts.questions.size(), 1u);
    EXPECT_TRUE(prompts.questions[0].contains("320 байт в конце"));
    EXPECT_EQ(read("c.edt"), bytes);
    // Saved elsewhere the file loses nothing: no question.
    prompts.choose(path("copy.edt"));
    EXPECT_TRUE(speech.saveAs());
    EXPECT_EQ(prompts.questions.size(), 1u);
}

TEST_F(SpeechTest, DecompilingWritesTheChosenTextFileOrNothing) {
    speech.decompile(); // nothing open: a beep, no dialog
    EXPECT_EQ(prompts.beeps, 1);
    write("rem.edt", edt(EdtKind::Remarks, {{0, "x"}}));
    ASSERT_TRUE(openEdt("rem.edt", 3));
    EXPECT_FALSE(speech.decompile()) << "remarks are not a dialogue";
    EXPECT_EQ(prompts.beeps, 2);

    write("d.edt", edt(EdtKind::NpcDialogues, {{3, "Здравствуй"}}));
    ASSERT_TRUE(openEdt("d.edt", 1));
    speech.editPhrase("Не сохранено"); // the text follows what is in memory
    const std::string expected = parlex::decompileText(*speech.file());
    write("Quotes.txt", {'o', 'l', 'd'});

    prompts.cancelDialog();
    EXPECT_FALSE(speech.decompile());
    EXPECT_EQ(read("Quotes.txt"), std::vector<std::uint8_t>({'o', 'l', 'd'}));
    const auto& request = prompts.requests.back();
    EXPECT_EQ(request.title, "ДЕКОМПИЛИРОВАТЬ EDT ФАЙЛ И СОХРАНИТЬ КАК...");
    EXPECT_EQ(request.proposedName, "Quotes.txt");
    EXPECT_EQ(request.folder, QString::fromStdString(dir.path().string()));
    ASSERT_EQ(request.filters.size(), 2u);
    EXPECT_EQ(request.filters[1].text, "все файлы (*.*)");

    prompts.choose(path("Quotes")); // typed without an extension
    EXPECT_TRUE(speech.decompile());
    EXPECT_EQ(read("Quotes.txt"), std::vector<std::uint8_t>(expected.begin(), expected.end()));

    write("afile", {'x'}); // a folder that is a file: the system's failure is told
    prompts.choose(path("afile") + "/Quotes.txt");
    EXPECT_FALSE(speech.decompile());
    ASSERT_FALSE(prompts.messages.empty());
    EXPECT_EQ(prompts.messages.back().icon, Icon::Critical);
    EXPECT_TRUE(prompts.messages.back().text.startsWith("Ошибка во время сохранения файла"));
    EXPECT_EQ(read("Quotes.txt"), std::vector<std::uint8_t>(expected.begin(), expected.end()));
    EXPECT_TRUE(speech.canSave()) << "the document keeps its edit";
}

TEST_F(SpeechTest, TheSaveQuestionAndEachAnswer) {
    const struct {
        const char* name;
        Answer answer;
        bool goesOn;
        bool saved;
    } cases[] = {
        {"yes", Answer::Yes, true, true},
        {"no", Answer::No, true, false},
        {"cancel", Answer::Cancel, false, false},
    };
    for (const auto& c : cases) {
        const std::string name = std::string(c.name) + ".edt";
        write(name, edt(EdtKind::Remarks, {{3, "Фраза"}}));
        ASSERT_TRUE(openEdt(name, 3));
        speech.showPhrase(3);
        speech.editPhrase("Изменено");
        prompts.answers = {c.answer};
        EXPECT_EQ(session.queryClose(), c.goesOn) << c.name;
        EXPECT_EQ(prompts.questions.back(), "Сохранть " + path(name) + "?") << c.name;
        EXPECT_EQ(EdtFile::load(dir / name, EdtKind::Remarks)->phrase(3),
                  c.saved ? "Изменено" : "Фраза")
            << c.name;
        if (!c.saved) { // back as it was: no question
            speech.editPhrase("Фраза");
            EXPECT_FALSE(speech.canSave());
        }
    }
    const std::size_t asked = prompts.questions.size();
    speech.newDocument(EdtKind::Civilian);
    EXPECT_TRUE(session.queryClose()) << "an empty new document closes without a question";
    EXPECT_EQ(prompts.questions.size(), asked);
    speech.editPhrase("Текст");
    prompts.answers = {Answer::Cancel};
    EXPECT_FALSE(session.queryClose());
    EXPECT_EQ(prompts.questions.back(), "Сохранть Новый EDT файл?");
}

TEST_F(SpeechTest, TheSpeechFileIsAskedAboutBeforeTheScript) {
    ASSERT_TRUE(session.flows().openPath(write("s.npc", testutil::script({1})).toStdString()));
    session.deleteRecord(false);
    speech.newDocument(EdtKind::NpcDialogues);
    speech.editPhrase("Текст");
    prompts.answers = {Answer::No, Answer::No};
    EXPECT_TRUE(session.queryClose());
    ASSERT_EQ(prompts.questions.size(), 2u);
    EXPECT_EQ(prompts.questions[0], "Сохранть Новый EDT файл?");
    EXPECT_EQ(prompts.questions[1], "Сохранть " + path("s.npc") + " ?");
}

TEST_F(SpeechTest, TheCompanionFollowsTheScript) {
    const QString script = write("053.npc", testutil::script({1}));
    write("other.edt", edt(EdtKind::Civilian, {{0, "Старый"}}));
    ASSERT_TRUE(openEdt("other.edt", 2));
    QSignalSpy missing(&speech, &parlex::session::SpeechDocument::companionMissing);

    session.updateOptions(
        [&](auto& o) { o.autoLoad = false; }); // remembered for the open dialog only
    ASSERT_TRUE(session.flows().openPath(script.toStdString()));
    EXPECT_EQ(speech.file()->path(), dir / "other.edt");
    EXPECT_EQ(speech.rememberedPath(), dir / "053.EDT");

    session.updateOptions(
        [&](auto& o) { o.autoLoad = true; }); // missing: told, and the old document stays
    ASSERT_TRUE(session.flows().openPath(script.toStdString()));
    ASSERT_EQ(missing.count(), 1);
    EXPECT_EQ(missing.front().front().toString(), "053.EDT");
    EXPECT_EQ(speech.file()->path(), dir / "other.edt");

    write("053.edt", edt(EdtKind::NpcDialogues, {{5, "Здравствуй"}})); // any case
    ASSERT_TRUE(session.flows().openPath(script.toStdString()));
    ASSERT_TRUE(speech.file());
    EXPECT_EQ(speech.file()->path(), dir / "053.edt");
    EXPECT_EQ(speech.lastPhrase(), 142) << "a companion is read as NPC dialogues";

    session.updateOptions([&](auto& o) { o.findEdtName = false; });
    speech.newDocument(EdtKind::Remarks);
    ASSERT_TRUE(session.flows().openPath(script.toStdString()));
    EXPECT_TRUE(speech.isNew()) << "nothing follows the script";
    EXPECT_EQ(missing.count(), 1);
}

TEST_F(SpeechTest, ThePaneStoresEveryEditAndCountsIt) {
    write("c.edt", edt(EdtKind::Civilian, {{0, "Привет"}}));
    ASSERT_TRUE(openEdt("c.edt", 2));
    EXPECT_EQ(speech.lengthCounter(), "006:160");
    EXPECT_FALSE(speech.canSave());
    EXPECT_EQ(speech.editPhrase("Приветы"), "Приветы");
    EXPECT_TRUE(speech.canSave());
    speech.editPhrase("Привет"); // typed and deleted again
    EXPECT_FALSE(speech.canSave());
    EXPECT_EQ(speech.editPhrase("Две\r\nстроки\nвместе"), "Двестрокивместе");
    EXPECT_EQ(speech.phraseText(), "Двестрокивместе");

    const std::size_t beeps = prompts.beeps;
    EXPECT_EQ(speech.editPhrase("Привет ☺"), "Двестрокивместе") << "refused whole";
    EXPECT_EQ(prompts.beeps, beeps + 1);
    EXPECT_EQ(prompts.messages.size(), 1u);

    speech.editPhrase(QString(161, QChar(u'ж')));
    EXPECT_EQ(speech.lengthCounter(), "161:160"); // kept whole until a save
    ASSERT_TRUE(speech.save());
    EXPECT_EQ(speech.lengthCounter(), "160:160");
}

TEST_F(SpeechTest, StepsStopAtTheEndsWithABeep) {
    speech.step(Step::Next);
    EXPECT_EQ(prompts.beeps, 1) << "nothing open";
    write("n.edt", edt(EdtKind::NpcDialogues, {{2, "a"}, {9, "b"}}));
    ASSERT_TRUE(openEdt("n.edt", 1));
    const struct {
        Step step;
        int phrase;
        bool beep;
    } steps[] = {
        {Step::Back, 0, true},         {Step::Home, 0, true},        {Step::Next, 1, false},
        {Step::FirstFilled, 2, false}, {Step::LastFilled, 9, false}, {Step::End, 142, false},
        {Step::Next, 142, true},       {Step::End, 142, true},       {Step::Home, 0, false},
    };
    for (const auto& s : steps) {
        const int before = prompts.beeps;
        speech.step(s.step);
        EXPECT_EQ(speech.phraseIndex(), s.phrase);
        EXPECT_EQ(prompts.beeps - before, s.beep ? 1 : 0) << s.phrase;
    }
    speech.step(Step::End);
    EXPECT_EQ(speech.phraseCounter(), "(142:142)");
    write("r.edt", edt(EdtKind::Remarks, {}));
    ASSERT_TRUE(openEdt("r.edt", 3));
    EXPECT_EQ(speech.phraseIndex(), 34) << "a shorter kind: its last phrase";
}

TEST_F(SpeechTest, ByteFourteenBringsItsPhraseIntoThePane) {
    auto bytes = testutil::script({1});
    bytes[13] = 7;        // first phrase 7
    bytes[14] = 1;        // one phrase
    bytes[32 + 13] = 200; // record 2: beyond any file
    ASSERT_TRUE(session.flows().openPath(write("p.npc", bytes).toStdString()));
    write("p.edt", edt(EdtKind::NpcDialogues, {{7, "Семь"}}));
    ASSERT_TRUE(openEdt("p.edt", 1));
    session.cursor().hover(13);
    EXPECT_EQ(speech.phraseIndex(), 7);
    EXPECT_EQ(speech.phraseText(), "Семь");
    session.cursor().hover(0);
    session.cursor().setPosition(2);
    session.cursor().hover(13);
    EXPECT_EQ(speech.phraseIndex(), 7) << "a phrase the file does not have";
    session.updateOptions([&](auto& o) { o.paneFollowsPhrase = false; });
    session.cursor().setPosition(1);
    speech.step(Step::Home);
    session.cursor().hover(13);
    EXPECT_EQ(speech.phraseIndex(), 0) << "the option is off";
}

TEST_F(SpeechTest, ThePhraseTextTakesTheChosenColourAndFontUnlessCancelled) {
    using parlex::TextFont;
    QSignalSpy restyled(&session, &Session::optionsChanged);
    const TextFont chosen{"Liberation Serif", 14, true, false};
    const struct {
        bool colour; // or the font
        std::optional<unsigned> colourAnswer;
        std::optional<TextFont> fontAnswer;
        unsigned colourAfter;
        TextFont fontAfter;
    } cases[] = {
        {true, std::nullopt, std::nullopt, 0xFFFFFF, TextFont{}},  // cancelled
        {true, 0xFFFF80, std::nullopt, 0xFFFF80, TextFont{}},      // chosen
        {false, std::nullopt, std::nullopt, 0xFFFF80, TextFont{}}, // cancelled
        {false, std::nullopt, chosen, 0xFFFF80, chosen},           // chosen
    };
    int emitted = 0;
    for (const auto& c : cases) {
        prompts.colourAnswer = c.colourAnswer;
        prompts.fontAnswer = c.fontAnswer;
        c.colour ? session.choosePhraseColour() : session.choosePhraseFont();
        emitted += (c.colourAnswer || c.fontAnswer) ? 1 : 0;
        EXPECT_EQ(session.options().phraseBackColour, c.colourAfter);
        EXPECT_EQ(session.options().phraseFont, c.fontAfter);
        EXPECT_EQ(restyled.count(), emitted);
    }
    ASSERT_EQ(prompts.fontLimits.size(), 2u);
    EXPECT_EQ(prompts.fontLimits[0], std::make_pair(4.0, 18.0));
}

} // namespace
} // namespace sessiontest
