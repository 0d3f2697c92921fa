#include "core/explain/explainer.h"

#include "core/codelists/codelists.h"
#include "core/explain/fieldlayout.h"
#include "core/speech/edtkind.h"

#include <concepts>

namespace parlex {
namespace {

constexpr std::uint32_t kNoWord = kMaxWordValue;
constexpr std::uint32_t kNoByte = kMaxByteValue;
constexpr std::uint32_t kLastPhrase = kNpcLastPhrase; // phrases of a speech file: 0-142
constexpr std::uint32_t kPhraseSlots = kLastPhrase + 1;
constexpr std::uint32_t kTriggers = 500;
constexpr std::uint32_t kFirstCondition = 351; // items end at 350; larger Words are conditions
constexpr std::uint32_t kCharacters = 170;

const char* const kTooManyPhrases = "В файле (speech).edt максимум может быть 143 фразы (0-142)!";

std::string str(std::uint32_t v) {
    return std::to_string(v);
}

// A sentence as it is given: a fixed text, or a function that composes it.
std::string compose(const char* text) {
    return text;
}
template <std::invocable Composer> std::string compose(const Composer& composer) {
    return composer();
}

// The rules of every field. Each rule gives its sentence as a fixed text or as a
// function that composes it, so that judging a field (`compose` false: is it wrong,
// has it a remark) costs no text: lint judges every field of every script and
// composes only what it reports.
class FieldExplainer {
public:
    FieldExplainer(const NpcRecord& record, int field, const ExplainContext& context, bool compose)
        : r_(record), i_(field), ctx_(context), v_(fieldValue(record, field)), compose_(compose) {}

    Explanation run() const {
        switch (i_) {
        case fields::FireMode:
            return fireMode();
        case fields::NeededItem:
        case fields::GivenItem:
            return item();
        case fields::TriggerTrue:
        case fields::TriggerFalse:
        case fields::TriggerSet:
            return trigger();
        case fields::QuestHeld:
        case fields::QuestGiven:
        case fields::QuestClosed:
            return quest();
        case fields::FirstDay:
            return firstDay();
        case fields::LastDay:
            return lastDay();
        case fields::ActionCode:
        case fields::ReactionCode:
            return normal([&] { return namedText(); });
        case fields::Leadership:
            return leadership();
        case fields::PhraseFirst:
            return phraseFirst();
        case fields::PhraseCount:
            return phraseCount();
        case fields::JumpNpc:
            return jumpNpc();
        case fields::JumpRecord:
            return jumpRecord();
        case fields::Spare20:
            return spare("Данный байт у всех существующих НПЦ равен \"00\"");
        case fields::MoveTo:
            return v_ == kNoWord
                       ? normal("Запись не перемещает НПЦ")
                       : normal([&] { return "НПЦ переместиться на координаты " + str(v_); });
        case fields::Spare29:
            return spare("Данные байты у всех существующих НПЦ равны \"00\"");
        default:
            return {};
        }
    }

private:
    template <class Text> Explanation normal(const Text& text, const char* remark = nullptr) const {
        Explanation e;
        if (compose_)
            e.text = compose(text);
        if (remark)
            e.remark = remark;
        return e;
    }
    template <class Text> Explanation red(const Text& text) const {
        Explanation e = normal(text);
        e.alert = true;
        return e;
    }

    // "№_12 ": the value as a number.
    std::string numberText() const { return "№_" + str(v_) + " "; }
    // The value as a number, with its name from the field's list.
    std::string namedText() const {
        const std::string name = ctx_.lists ? ctx_.lists->lookupCode(i_, v_) : std::string("?");
        return numberText() + "<" + name + ">";
    }
    // The value alone with a remark, for a value the field cannot hold.
    Explanation beyond(const char* remark) const {
        return normal([&] { return numberText(); }, remark);
    }

    Explanation fireMode() const {
        switch (v_) {
        case 0:
            return normal(
                "Эта запись будет срабатывать всегда, без передачи на стандартные записи");
        case 2:
            return normal("Эта запись сработает только один раз (во всей игре) и управление "
                          "перейдет к стандартной записи");
        case 4:
            return normal("Эта запись сработает только один раз в день и до начала следующего "
                          "дня управление перейдет к стандартной записи");
        default:
            return beyond("(возможны только три значения: 0, 2 или 4)");
        }
    }

    Explanation item() const {
        const bool needed = i_ == fields::NeededItem;
        if (v_ == 0)
            return normal(needed ? "Запись не проверяет наличия предметов у НПЦ"
                                 : "НПЦ не передает игроку никаких предметов");
        if (v_ >= kFirstCondition)
            return normal([&] { return namedText(); });
        return normal([&] {
            return needed
                       ? "Предмет " + namedText() + " должен быть у НПЦ"
                       : "При соблюдении всех условий НПЦ передает игроку предмет " + namedText();
        });
    }

    Explanation trigger() const {
        if (v_ == kNoWord) {
            if (i_ == fields::TriggerSet)
                return normal("Запись не переводит трииггеры в логическое значение TRUE");
            return normal(i_ == fields::TriggerTrue
                              ? "Запись не проверяет триггеры на логическое условие TRUE"
                              : "Запись не проверяет триггеры на логическое условие FALSE");
        }
        if (v_ >= kTriggers)
            return beyond("(всего существует 500 триггеров [0-499])");
        if (i_ == fields::TriggerSet)
            return normal(
                [&] { return "Триггер " + namedText() + " будет переведен в значение TRUE"; });
        return normal([&] {
            return "Триггер " + namedText() + " должен иметь значение " +
                   (i_ == fields::TriggerTrue ? "TRUE" : "FALSE");
        });
    }

    Explanation quest() const {
        if (v_ == kNoByte) {
            switch (i_) {
            case fields::QuestHeld:
                return normal("Запись не проверяет получение квестов игроком");
            case fields::QuestGiven:
                return normal("Запись не дает квестов");
            default:
                return normal("Запись не закрывает квестов");
            }
        }
        switch (i_) {
        case fields::QuestHeld:
            return normal(
                [&] { return "Квест " + namedText() + " уже должен быть получен игроком"; });
        case fields::QuestGiven:
            return normal([&] { return "Игрок получает квест " + namedText(); });
        default:
            return normal([&] { return "Квест " + namedText() + " будет считаться выполненым"; });
        }
    }

    Explanation firstDay() const {
        if (v_ == kNoByte)
            return red("Эта запись не сработает никогда!");
        const auto last = static_cast<int>(fieldValue(r_, fields::LastDay));
        Explanation e =
            v_ == 0 ? normal("Запись сработает с начала игры")
                    : normal([&] { return "Запись сработает только с " + str(v_) + " дня"; });
        if (last == 0 || last - static_cast<int>(v_) <= 0)
            e.remark = ", но значение байта 11 не верно!";
        return e;
    }

    Explanation lastDay() const {
        const std::uint32_t first = fieldValue(r_, fields::FirstDay);
        if (first == kNoByte)
            return red("Байт 10 не может иметь значение \"FF\". Эта запись не сработает никогда!");
        if (v_ <= first) {
            if (first == 0)
                return red("Запись не может сработать с начала игры и до 0 дня!");
            return red([&] {
                return "Запись не может сработать с " + str(first) + " и до " + str(v_) + " дня!";
            });
        }
        if (v_ == kNoByte)
            return normal("Ограничения на срабатывание данной записи нет");
        return normal([&] {
            return "Запись сработает начиная с " + str(first) + " и до " + str(v_) + " дня";
        });
    }

    Explanation leadership() const {
        if (v_ > 100)
            return red([&] { return "Уровень лидерства не может быть " + str(v_) + "!"; });
        if (v_ == 0)
            return normal(
                "Запись сработает независимо от уровня лидерства говорящего с НПЦ наемника");
        return normal([&] {
            return "Запись сработает только если уровень лидерства говорящего с НПЦ наемника "
                   "будет не меньше чем " +
                   str(v_);
        });
    }

    Explanation phraseFirst() const {
        const std::uint32_t count = fieldValue(r_, fields::PhraseCount);
        Explanation e;
        if (v_ == kNoByte && count == 1)
            e = normal("НПЦ ничего не скажет");
        else if (v_ == kNoByte)
            e = red("Значение байта 15 не верно!");
        else if (v_ > kLastPhrase)
            e = beyond(kTooManyPhrases);
        else {
            e = normal([&] { return "НПЦ скажет фразу №_" + str(v_); });
            if (count > kPhraseSlots || count == 0 || v_ + count > kPhraseSlots)
                e.remark = ", но значение байта 15 не верно!";
        }
        if (ctx_.paneFollowsPhrase && ctx_.lastPhrase != 0 &&
            v_ <= static_cast<std::uint32_t>(ctx_.lastPhrase))
            e.phrase = static_cast<int>(v_);
        return e;
    }

    Explanation phraseCount() const {
        const std::uint32_t first = fieldValue(r_, fields::PhraseFirst);
        if (first == kNoByte && v_ == 1)
            return normal("НПЦ ничего не скажет");
        if (first == kNoByte)
            return red(
                "Байт 14 = \"FF\" <НПЦ ничего не скажет>, байт 15 должен быть равен \"01\"!");
        if (first > kLastPhrase)
            return red("Значение байта 14 не верно!");
        if (v_ > kPhraseSlots)
            return beyond(kTooManyPhrases);
        if (v_ + first > kPhraseSlots)
            return red([&] {
                return "НПЦ не сможет сказать " + str(v_) + phraseWord(v_) + "после фразы №_" +
                       str(first) +
                       ", т. к. в файле (speech).edt может быть максимум 143 фразы (0-142)!";
            });
        if (v_ == 0)
            return red("По умолчанию этот байт должен быть равен \"01\"!");
        if (v_ == 1)
            return normal([&] { return "НПЦ скажет только фразу №_" + str(first); });
        return normal([&] {
            return "НПЦ скажет " + str(v_) + phraseWord(v_) + "после фразы №_" + str(first) +
                   " (включительно)";
        });
    }

    Explanation jumpNpc() const {
        if (v_ == kNoByte)
            return normal("Запись не передает управление");
        if (v_ >= kCharacters)
            return beyond("В игре всего 170 (0-169) персонажей!");
        return normal([&] { return "Управление переходит к " + namedText(); });
    }

    Explanation jumpRecord() const {
        if (v_ == kNoByte)
            return normal("Запись не передает управление");
        if (ctx_.fileType == NpcFileType::Ja && v_ >= kJaRecords)
            return beyond("Файл формата \"Агонии власти\" может иметь максимум 49 (0-48) записей!");
        if (ctx_.fileType == NpcFileType::Ub && v_ >= kUbRecords)
            return beyond("Может быть не более 50 (0-49) записей по 32 байта!");
        return normal([&] { return "Управление передается на запись №_" + str(v_ + 1); });
    }

    Explanation spare(const char* text) const {
        return v_ == 0 ? normal(text) : red([&] { return std::string(text) + "!"; });
    }

    const NpcRecord& r_;
    int i_;
    const ExplainContext& ctx_;
    std::uint32_t v_;
    bool compose_;
};

} // namespace

std::string phraseWord(std::uint32_t count) {
    const std::uint32_t d = count % 10;
    if (d == 0 || d > 4)
        return " фраз ";
    if (count > 10 && count < 20)
        return " фраз ";
    if (d == 1)
        return " фразу ";
    return " фразы ";
}

Explanation explain(const NpcRecord* record, int fieldIndex, const ExplainContext& context) {
    if (record == nullptr)
        return {"Запись не существует", true, {}, std::nullopt};
    if (isEmptyRecord(*record))
        return {"Запись пустая", true, {}, std::nullopt};
    return FieldExplainer(*record, fieldIndex, context, true).run();
}

Verdict judge(const NpcRecord* record, int fieldIndex, const ExplainContext& context) {
    if (record == nullptr || isEmptyRecord(*record))
        return {true, false};
    const Explanation e = FieldExplainer(*record, fieldIndex, context, false).run();
    return {e.alert, !e.remark.empty()};
}

} // namespace parlex
