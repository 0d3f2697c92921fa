// The speech file beside the script: its flows and the pane's state, without a window.
#include "sessiontest.h"

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

TEST_F(SpeechTest, TheSaveQuestionComesFirstAndEachAnswerIsKept) {
    // The answer, whether closing goes on, the phrase on disk afterwards.
    using enum Answer;
    const std::tuple<Answer, bool, std::string> cases[] = {
        {Yes, true, "Изменено"}, {No, true, "Фраза"}, {Cancel, false, "Фраза"}};
    ASSERT_TRUE(session.flows().openPath(write("s.npc", testutil::script({1})).toStdString()));
    for (const auto& [answer, goesOn, onDisk] : cases) {
        write("r.edt", edt(EdtKind::Remarks, {{3, "Фраза"}}));
        ASSERT_TRUE(openEdt("r.edt", 3));
        speech.showPhrase(3);
        speech.editPhrase("Изменено");
        prompts.answers = {answer};
        EXPECT_EQ(session.queryClose(), goesOn) << onDisk;
        EXPECT_EQ(prompts.questions.back(), "Сохранть " + path("r.edt") + "?");
        EXPECT_EQ(EdtFile::load(dir / "r.edt", EdtKind::Remarks)->phrase(3), onDisk);
        if (answer != Yes) { // back as it was: no question
            speech.editPhrase("Фраза");
            EXPECT_FALSE(speech.canSave());
        }
    }
    speech.newDocument(EdtKind::Civilian);
    prompts.questions.clear();
    EXPECT_TRUE(session.queryClose() && prompts.questions.empty())
        << "an empty new document closes without a question";
    session.deleteRecord(false);
    speech.editPhrase("Текст");
    prompts.answers = {No, No};
    EXPECT_TRUE(session.queryClose());
    EXPECT_EQ(prompts.questions, (std::vector<QString>{"Сохранть Новый EDT файл?",
                                                       "Сохранть " + path("s.npc") + " ?"}));
}

TEST_F(SpeechTest, ThePaneStoresEveryEditAndCountsIt) {
    write("c.edt", edt(EdtKind::Civilian, {{0, "Привет"}}));
    ASSERT_TRUE(openEdt("c.edt", 2));
    EXPECT_EQ(speech.lengthCounter(), "006:160");
    EXPECT_EQ(speech.editPhrase("Приветы"), "Приветы");
    EXPECT_TRUE(speech.canSave());
    speech.editPhrase("Привет"); // typed and deleted again
    EXPECT_FALSE(speech.canSave());
    EXPECT_EQ(speech.editPhrase("Две\r\nстроки\nвместе"), "Двестрокивместе");
    EXPECT_EQ(speech.editPhrase("Привет ☺"), "Двестрокивместе") << "refused whole";
    EXPECT_EQ(prompts.beeps, 1);
    EXPECT_EQ(prompts.messages.size(), 1u);
    speech.editPhrase(QString(161, QChar(u'ж')));
    EXPECT_EQ(speech.lengthCounter(), "161:160"); // kept whole until a save
    ASSERT_TRUE(speech.save());
    EXPECT_EQ(speech.lengthCounter(), "160:160");
}

TEST_F(SpeechTest, StepsStopAtTheEndsWithABeep) {
    write("n.edt", edt(EdtKind::NpcDialogues, {{2, "a"}, {9, "b"}}));
    ASSERT_TRUE(openEdt("n.edt", 1));
    // A step, the phrase it reaches, whether it beeps.
    const std::tuple<Step, int, bool> steps[] = {
        {Step::Back, 0, true},         {Step::Home, 0, true},        {Step::Next, 1, false},
        {Step::FirstFilled, 2, false}, {Step::LastFilled, 9, false}, {Step::End, 142, false},
        {Step::Next, 142, true},
    };
    for (const auto& [step, phrase, beep] : steps) {
        const int before = prompts.beeps;
        speech.step(step);
        EXPECT_EQ(speech.phraseIndex(), phrase);
        EXPECT_EQ(prompts.beeps - before, beep ? 1 : 0) << phrase;
    }
    EXPECT_EQ(speech.phraseCounter(), "(142:142)");
}

TEST_F(SpeechTest, TheCompanionAndByteFourteenFollowTheScript) {
    auto bytes = testutil::script({1});
    bytes[13] = 7; // first phrase 7
    bytes[14] = 1;
    const QString script = write("053.npc", bytes);
    write("other.edt", edt(EdtKind::Civilian, {{0, "Старый"}}));
    ASSERT_TRUE(openEdt("other.edt", 2));
    QSignalSpy missing(&speech, &parlex::session::SpeechDocument::companionMissing);
    session.updateOptions([&](auto& o) { o.autoLoad = true; });
    ASSERT_TRUE(session.flows().openPath(script.toStdString()));
    ASSERT_EQ(missing.count(), 1) << "missing: told, and the old document stays";
    EXPECT_EQ(speech.file()->path(), dir / "other.edt");

    write("053.edt", edt(EdtKind::NpcDialogues, {{7, "Семь"}})); // any case
    ASSERT_TRUE(session.flows().openPath(script.toStdString()));
    EXPECT_EQ(speech.file()->path(), dir / "053.edt");
    EXPECT_EQ(speech.lastPhrase(), 142) << "a companion is read as NPC dialogues";
    session.cursor().hover(13);
    EXPECT_EQ(speech.phraseText(), "Семь");
    session.updateOptions([&](auto& o) { o.paneFollowsPhrase = false; });
    speech.step(Step::Home);
    session.cursor().hover(0);
    session.cursor().hover(13);
    EXPECT_EQ(speech.phraseIndex(), 0) << "the option is off";
}

} // namespace
} // namespace sessiontest
