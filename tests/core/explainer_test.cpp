#include "core/codelists/codelists.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/text/cp1251.h"
#include "testutil.h"

#include <gtest/gtest.h>

using namespace parlex;
using testutil::TempDir;

namespace {

struct Case {
    std::vector<std::pair<int, std::uint32_t>> set; // fields written over the neutral record
    int field;
    std::string text;
    bool alert = false;
    std::string remark = {};
    std::optional<NpcFileType> type = NpcFileType::Ub;
};

class ExplainerTest : public ::testing::Test {
protected:
    TempDir dir;
    CodeLists lists{dir.path()};

    NpcRecord record(const Case& c) {
        NpcRecord r = kNeutralRecord;
        for (auto [field, value] : c.set)
            EXPECT_TRUE(setFieldValue(r, field, value)) << field << "=" << value;
        return r;
    }
    Explanation run(const Case& c) {
        const NpcRecord r = record(c);
        return explain(&r, c.field, ExplainContext{c.type, &lists, false, 0});
    }

    // Each case's sentence, and the verdict that lint takes without the sentence.
    void check(const std::vector<Case>& cases) {
        for (const auto& c : cases) {
            const Explanation e = run(c);
            const auto where = ::testing::Message() << "field " << c.field << " with "
                                                    << ::testing::PrintToString(c.set);
            EXPECT_EQ(e.text, c.text) << where;
            EXPECT_EQ(e.alert, c.alert) << where;
            EXPECT_EQ(e.remark, c.remark) << where;
            const NpcRecord r = record(c);
            const Verdict v = judge(&r, c.field, ExplainContext{c.type, &lists, false, 0});
            EXPECT_EQ(v.alert, c.alert) << where;
            EXPECT_EQ(v.remark, !c.remark.empty()) << where;
        }
    }
};

const std::string kTooMany = "В файле (speech).edt максимум может быть 143 фразы (0-142)!";

TEST_F(ExplainerTest, FireMode) {
    check({
        {{{0, 0}}, 0, "Эта запись будет срабатывать всегда, без передачи на стандартные записи"},
        {{{0, 2}},
         0,
         "Эта запись сработает только один раз (во всей игре) и управление перейдет к стандартной "
         "записи"},
        {{{0, 4}},
         0,
         "Эта запись сработает только один раз в день и до начала следующего дня управление "
         "перейдет к стандартной записи"},
        {{{0, 3}}, 0, "№_3 ", false, "(возможны только три значения: 0, 2 или 4)"},
    });
}

TEST_F(ExplainerTest, Items) {
    check({
        {{{2, 0}}, 2, "Запись не проверяет наличия предметов у НПЦ"},
        {{{2, 1}}, 2, "Предмет №_1 <Глок 17> должен быть у НПЦ"},
        {{{22, 1}}, 22, "При соблюдении всех условий НПЦ передает игроку предмет №_1 <Глок 17>"},
        {{{22, 400}}, 22, "№_400 <?>"},
    });
}

TEST_F(ExplainerTest, ItemConditionNamedByOverrideLine) {
    testutil::writeText(dir / "Items.txt", text::utf8ToCp1251("400=Условие\r\n").value());
    check(
        {{{{22, 400}}, 22, "№_400 <Условие>"}, {{{2, 1}}, 2, "Предмет №_1 <?> должен быть у НПЦ"}});
}

TEST_F(ExplainerTest, Triggers) {
    const std::string t12 = "№_12 <Пакос напуган>";
    check({
        {{{4, 65535}}, 4, "Запись не проверяет триггеры на логическое условие TRUE"},
        {{{4, 500}}, 4, "№_500 ", false, "(всего существует 500 триггеров [0-499])"},
        {{{6, 12}}, 6, "Триггер " + t12 + " должен иметь значение FALSE"},
        {{{20, 12}}, 20, "Триггер " + t12 + " будет переведен в значение TRUE"},
        {{{4, 400}},
         4,
         "Триггер №_400 <Игрок импортировал сохраненную игру и Мэри (#119) погибла UB> должен "
         "иметь значение TRUE"},
    });
}

TEST_F(ExplainerTest, Quests) {
    check({
        {{{8, 255}}, 8, "Запись не проверяет получение квестов игроком"},
        {{{8, 0}}, 8, "Квест №_0 <Доставить письмо Мигелю> уже должен быть получен игроком"},
        {{{15, 27}}, 15, "Игрок получает квест №_27 <>"},
        {{{16, 0}}, 16, "Квест №_0 <Воссоединение с повстанцами> будет считаться выполненым"},
    });
}

TEST_F(ExplainerTest, Days) {
    const std::string bad11 = ", но значение байта 11 не верно!";
    check({
        {{{9, 10}, {10, 10}}, 9, "Запись сработает только с 10 дня", false, bad11},
        {{{9, 10}, {10, 10}}, 10, "Запись не может сработать с 10 и до 10 дня!", true},
        {{{9, 0}, {10, 0}}, 9, "Запись сработает с начала игры", false, bad11},
        {{{9, 0}, {10, 0}}, 10, "Запись не может сработать с начала игры и до 0 дня!", true},
        {{{9, 255}, {10, 20}}, 9, "Эта запись не сработает никогда!", true},
        {{{9, 255}},
         10,
         "Байт 10 не может иметь значение \"FF\". Эта запись не сработает никогда!",
         true},
        {{{9, 5}, {10, 255}}, 9, "Запись сработает только с 5 дня"},
        {{{9, 5}, {10, 255}}, 10, "Ограничения на срабатывание данной записи нет"},
        {{{9, 5}, {10, 4}}, 10, "Запись не может сработать с 5 и до 4 дня!", true},
        {{{9, 5}, {10, 6}}, 10, "Запись сработает начиная с 5 и до 6 дня"},
    });
}

TEST_F(ExplainerTest, ActionLeadershipReaction) {
    check({
        {{{11, 0}}, 11, "№_0 <Игрок говорит или дружески или прямо>"},
        {{{12, 0}},
         12,
         "Запись сработает независимо от уровня лидерства говорящего с НПЦ наемника"},
        {{{12, 50}},
         12,
         "Запись сработает только если уровень лидерства говорящего с НПЦ наемника будет не меньше "
         "чем 50"},
        {{{12, 100}},
         12,
         "Запись сработает только если уровень лидерства говорящего с НПЦ наемника будет не меньше "
         "чем 100"},
        {{{12, 101}}, 12, "Уровень лидерства не может быть 101!", true},
        {{{26, 65229}},
         26,
         "№_65229 <Проиграть файл \"...\\Data\\Sounds.slf\\TOILETFLUSH.WAV\" (UB)>"},
    });
}

TEST_F(ExplainerTest, PhraseFirstAndCount) {
    const std::string bad15 = ", но значение байта 15 не верно!";
    check({
        {{{13, 255}, {14, 1}}, 13, "НПЦ ничего не скажет"},
        {{{13, 255}, {14, 2}}, 13, "Значение байта 15 не верно!", true},
        {{{13, 255}, {14, 2}},
         14,
         "Байт 14 = \"FF\" <НПЦ ничего не скажет>, байт 15 должен быть равен \"01\"!",
         true},
        {{{13, 142}, {14, 2}}, 13, "НПЦ скажет фразу №_142", false, bad15},
        {{{13, 142}, {14, 2}},
         14,
         "НПЦ не сможет сказать 2 фразы после фразы №_142, т. к. в файле (speech).edt может быть "
         "максимум 143 фразы (0-142)!",
         true},
        {{{13, 143}, {14, 1}}, 13, "№_143 ", false, kTooMany},
        {{{13, 10}, {14, 0}}, 13, "НПЦ скажет фразу №_10", false, bad15},
        {{{13, 10}, {14, 0}}, 14, "По умолчанию этот байт должен быть равен \"01\"!", true},
        {{{13, 0}, {14, 144}}, 14, "№_144 ", false, kTooMany},
        {{{13, 0}, {14, 21}}, 14, "НПЦ скажет 21 фразу после фразы №_0 (включительно)"},
        {{{13, 140}, {14, 4}},
         14,
         "НПЦ не сможет сказать 4 фразы после фразы №_140, т. к. в файле (speech).edt может быть "
         "максимум 143 фразы (0-142)!",
         true},
    });
}

TEST(PhraseWord, RussianFormsForANumberOfPhrases) {
    const std::pair<std::uint32_t, const char*> cases[] = {
        {1, " фразу "},  {4, " фразы "},  {5, " фраз "},    {11, " фраз "},   {19, " фраз "},
        {21, " фразу "}, {22, " фразы "}, {111, " фразу "}, {113, " фразы "}, // only 11-19 are
                                                                              // exempt
    };
    for (auto [n, word] : cases)
        EXPECT_EQ(phraseWord(n), word) << n;
}

TEST_F(ExplainerTest, Jumps) {
    check({
        {{{17, 255}}, 17, "Запись не передает управление"},
        {{{17, 57}}, 17, "Управление переходит к №_57 <Мигель\\PGMale 4>"},
        {{{17, 170}}, 17, "№_170 ", false, "В игре всего 170 (0-169) персонажей!"},
        {{{18, 48}}, 18, "Управление передается на запись №_49", false, "", NpcFileType::Ja},
        {{{18, 49}},
         18,
         "№_49 ",
         false,
         "Файл формата \"Агонии власти\" может иметь максимум 49 (0-48) записей!",
         NpcFileType::Ja},
        {{{18, 49}}, 18, "Управление передается на запись №_50", false, "", NpcFileType::Ub},
        {{{18, 50}},
         18,
         "№_50 ",
         false,
         "Может быть не более 50 (0-49) записей по 32 байта!",
         NpcFileType::Ub},
        {{{18, 200}}, 18, "Управление передается на запись №_201", false, "", std::nullopt},
    });
}

TEST_F(ExplainerTest, SpareMoveBytes) {
    check({
        {{}, 19, "Данный байт у всех существующих НПЦ равен \"00\""},
        {{}, 28, "Данные байты у всех существующих НПЦ равны \"00\""},
        {{{31, 1}}, 28, "Данные байты у всех существующих НПЦ равны \"00\"!", true},
        {{{24, 65535}}, 24, "Запись не перемещает НПЦ"},
        {{{24, 12345}}, 24, "НПЦ переместиться на координаты 12345"},
    });
}

TEST_F(ExplainerTest, EmptyRecordAndMissingPositionOnEveryField) {
    for (const auto& f : fieldTable()) {
        const Explanation empty =
            explain(&kEmptyRecord, f.index, ExplainContext{NpcFileType::Ub, &lists});
        EXPECT_EQ(empty.text, "Запись пустая");
        EXPECT_TRUE(empty.alert);
        EXPECT_EQ(empty.remark, "");
        const Explanation missing =
            explain(nullptr, f.index, ExplainContext{NpcFileType::Ja, &lists});
        EXPECT_EQ(missing.text, "Запись не существует");
        EXPECT_TRUE(missing.alert);
    }
    EXPECT_EQ(explain(nullptr, 0, {}).text, "Запись не существует");
}

TEST_F(ExplainerTest, PhraseStepNamesThePhraseOnlyWhenThePaneShouldFollow) {
    NpcRecord r = kNeutralRecord;
    r[14] = 1;
    struct StepCase {
        std::uint8_t first;
        bool paneFollowsPhrase;
        int lastPhrase;
        std::optional<int> phrase;
    } cases[] = {
        {7, true, 14, 7},
        {14, true, 14, 14},
        {20, true, 14, std::nullopt},
        {255, true, 142, std::nullopt},
        {0, true, 34, 0},
    };
    for (const auto& c : cases) {
        r[13] = c.first;
        const auto e = explain(
            &r, 13, ExplainContext{NpcFileType::Ub, &lists, c.paneFollowsPhrase, c.lastPhrase});
        EXPECT_EQ(e.phrase, c.phrase)
            << int(c.first) << " " << c.paneFollowsPhrase << " " << c.lastPhrase;
        // Other fields never move the pane.
        EXPECT_FALSE(explain(&r, 14, ExplainContext{NpcFileType::Ub, &lists, true, 142}).phrase);
    }
}

TEST_F(ExplainerTest, LongOverrideLineIsCutInTheSentence) {
    testutil::writeText(dir / "Npc.txt", "57=" + std::string(97, 'w') + "\r\n");
    NpcRecord r = kNeutralRecord;
    r[17] = 57;
    EXPECT_EQ(explain(&r, 17, ExplainContext{NpcFileType::Ub, &lists}).text,
              "Управление переходит к №_57 <" + std::string(74, 'w') + "...>");
}

} // namespace
