// Which sentence the explainer chooses for a field, and its verdict. The sentences
// themselves are the explainer's table: a case names only the part that tells its
// branch from the others.
#include "core/codelists/codelists.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/text/cp1251.h"
#include "testutil.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace parlex;
using testutil::TempDir;

namespace {

constexpr auto Ja = NpcFileType::Ja;

struct Case {
    const char* set; // "field=value ..." written over the neutral record
    int field;
    std::string says;         // a part of the sentence, then " | " and the remark
    const char* verdict = ""; // "!" an alert, "+" a remark, "" neither
    std::optional<NpcFileType> type = NpcFileType::Ub;
};

class ExplainerTest : public ::testing::Test {
protected:
    TempDir dir;
    CodeLists lists{dir.path()};

    // Each case's sentence, and the verdict that lint takes without the sentence.
    void check(const std::vector<Case>& cases) {
        for (const auto& c : cases) {
            SCOPED_TRACE(std::to_string(c.field) + " with " + c.set);
            NpcRecord r = kNeutralRecord;
            std::istringstream in(c.set);
            int field = 0;
            std::uint32_t value = 0;
            for (char eq = 0; in >> field >> eq >> value;)
                ASSERT_TRUE(setFieldValue(r, field, value));
            const ExplainContext context{c.type, &lists, false, 0};
            const Explanation e = explain(&r, c.field, context);
            const std::string said = e.text + (e.remark.empty() ? "" : " | " + e.remark);
            EXPECT_NE(said.find(c.says), std::string::npos) << said;
            const std::string verdict = c.verdict;
            EXPECT_EQ(e.alert, verdict == "!");
            EXPECT_EQ(!e.remark.empty(), verdict == "+");
            const Verdict v = judge(&r, c.field, context);
            EXPECT_EQ(v.alert, e.alert);
            EXPECT_EQ(v.remark, !e.remark.empty());
        }
    }
};

const std::string kTooMany = "В файле (speech).edt максимум может быть 143 фразы (0-142)!";

TEST_F(ExplainerTest, EveryFieldChoosesItsSentenceByTheValueAndItsNeighbours) {
    const std::string bad11 = " | , но значение байта 11 не верно!";
    const std::string bad15 = " | , но значение байта 15 не верно!";
    check({
        {"0=0", 0, "будет срабатывать всегда"},
        {"0=2", 0, "только один раз (во всей игре)"},
        {"0=4", 0, "только один раз в день"},
        {"0=3", 0, "№_3  | (возможны только три значения: 0, 2 или 4)", "+"},
        {"2=0", 2, "не проверяет наличия предметов"},
        {"2=1", 2, "Предмет №_1 <Глок 17> должен быть у НПЦ"},
        {"22=1", 22, "передает игроку предмет №_1 <Глок 17>"},
        {"22=400", 22, "№_400 <?>"},
        {"4=65535", 4, "не проверяет триггеры"},
        {"4=500", 4, "№_500  | (всего существует 500 триггеров [0-499])", "+"},
        {"6=12", 6, "Триггер №_12 <Пакос напуган> должен иметь значение FALSE"},
        {"20=12", 20, "<Пакос напуган> будет переведен в значение TRUE"},
        {"4=400", 4, "Мэри (#119) погибла UB> должен иметь значение TRUE"},
        {"8=255", 8, "не проверяет получение квестов"},
        {"8=0", 8, "Квест №_0 <Доставить письмо Мигелю> уже должен быть получен"},
        {"15=27", 15, "Игрок получает квест №_27 <>"},
        {"16=0", 16, "№_0 <Воссоединение с повстанцами> будет считаться выполненым"},
        {"9=10 10=10", 9, "только с 10 дня" + bad11, "+"},
        {"9=10 10=10", 10, "не может сработать с 10 и до 10 дня!", "!"},
        {"9=0 10=0", 9, "с начала игры" + bad11, "+"},
        {"9=0 10=0", 10, "не может сработать с начала игры и до 0 дня!", "!"},
        {"9=255 10=20", 9, "Эта запись не сработает никогда!", "!"},
        {"9=255", 10, "Байт 10 не может иметь значение \"FF\"", "!"},
        {"9=5 10=255", 9, "Запись сработает только с 5 дня"},
        {"9=5 10=255", 10, "Ограничения на срабатывание данной записи нет"},
        {"9=5 10=4", 10, "с 5 и до 4 дня!", "!"},
        {"9=5 10=6", 10, "начиная с 5 и до 6 дня"},
        {"11=0", 11, "№_0 <Игрок говорит или дружески или прямо>"},
        {"12=0", 12, "независимо от уровня лидерства"},
        {"12=50", 12, "будет не меньше чем 50"},
        {"12=100", 12, "будет не меньше чем 100"},
        {"12=101", 12, "Уровень лидерства не может быть 101!", "!"},
        {"26=65229", 26, "<Проиграть файл \"...\\Data\\Sounds.slf\\TOILETFLUSH.WAV\" (UB)>"},
        {"13=255 14=1", 13, "НПЦ ничего не скажет"},
        {"13=255 14=2", 13, "Значение байта 15 не верно!", "!"},
        {"13=255 14=2", 14, "байт 15 должен быть равен \"01\"!", "!"},
        {"13=142 14=2", 13, "скажет фразу №_142" + bad15, "+"},
        {"13=142 14=2", 14, "не сможет сказать 2 фразы после фразы №_142", "!"},
        {"13=143 14=1", 13, "№_143  | " + kTooMany, "+"},
        {"13=10 14=0", 13, "скажет фразу №_10" + bad15, "+"},
        {"13=10 14=0", 14, "По умолчанию этот байт должен быть равен \"01\"!", "!"},
        {"13=0 14=144", 14, "№_144  | " + kTooMany, "+"},
        {"13=0 14=21", 14, "НПЦ скажет 21 фразу после фразы №_0 (включительно)"},
        {"13=140 14=4", 14, "не сможет сказать 4 фразы после фразы №_140", "!"},
        {"17=255", 17, "Запись не передает управление"},
        {"17=57", 17, "Управление переходит к №_57 <Мигель\\PGMale 4>"},
        {"17=170", 17, "№_170  | В игре всего 170 (0-169) персонажей!", "+"},
        {"18=48", 18, "передается на запись №_49", "", Ja},
        {"18=49", 18, "| Файл формата \"Агонии власти\" может иметь максимум 49", "+", Ja},
        {"18=49", 18, "передается на запись №_50"},
        {"18=50", 18, "| Может быть не более 50 (0-49) записей по 32 байта!", "+"},
        {"18=200", 18, "передается на запись №_201", "", std::nullopt},
        {"", 19, "Данный байт у всех существующих НПЦ равен \"00\""},
        {"", 28, "Данные байты у всех существующих НПЦ равны \"00\""},
        {"31=1", 28, "равны \"00\"!", "!"},
        {"24=65535", 24, "Запись не перемещает НПЦ"},
        {"24=12345", 24, "НПЦ переместиться на координаты 12345"},
    });
}

TEST_F(ExplainerTest, AnOverrideFileNamesTheCodesItHolds) {
    testutil::writeText(dir / "Items.txt", text::utf8ToCp1251("400=Условие\r\n").value());
    check({{"22=400", 22, "№_400 <Условие>"}, {"2=1", 2, "Предмет №_1 <?> должен быть у НПЦ"}});
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

TEST_F(ExplainerTest, AnEmptyOrMissingRecordIsSaidSoOnEveryField) {
    for (const auto& f : fieldTable()) {
        const auto empty = explain(&kEmptyRecord, f.index, ExplainContext{NpcFileType::Ub, &lists});
        EXPECT_EQ(std::tuple(empty.text, empty.alert, empty.remark),
                  std::tuple(std::string("Запись пустая"), true, std::string()));
        EXPECT_EQ(explain(nullptr, f.index, ExplainContext{Ja, &lists}).text,
                  "Запись не существует");
    }
}

TEST_F(ExplainerTest, PhraseStepNamesThePhraseOnlyWhenThePaneShouldFollow) {
    NpcRecord r = kNeutralRecord;
    r[14] = 1;
    // The first phrase, whether the pane follows it, the speech file's last phrase.
    const std::tuple<std::uint8_t, bool, int, std::optional<int>> cases[] = {
        {7, true, 14, 7},
        {14, true, 14, 14},
        {20, true, 14, std::nullopt},
        {7, false, 14, std::nullopt},
        {255, true, 142, std::nullopt},
        {0, true, 34, 0},
    };
    for (const auto& [first, follows, last, phrase] : cases) {
        r[13] = first;
        const ExplainContext context{NpcFileType::Ub, &lists, follows, last};
        EXPECT_EQ(explain(&r, 13, context).phrase, phrase) << int(first) << " " << follows;
        EXPECT_FALSE(explain(&r, 14, context).phrase) << "other fields never move the pane";
    }
}

} // namespace
