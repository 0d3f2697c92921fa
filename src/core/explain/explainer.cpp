#include "core/explain/explainer.h"

#include "core/codelists/codelists.h"
#include "core/explain/explaintexts.h"
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

using explaintexts::kTexts;
using explaintexts::Say;

std::string str(std::uint32_t v) {
    return std::to_string(v);
}

// A sentence as it is given: a fixed text, or a function that composes it.
std::string compose(std::string_view text) {
    return std::string(text);
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

    // A text of the table in the language of the context.
    std::string_view t(Say key) const { return kTexts(key, ctx_.language); }

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
            return spare(t(Say::SpareByte));
        case fields::MoveTo:
            return v_ == kNoWord ? normal(t(Say::NoMove))
                                 : normal([&] { return fill(t(Say::MovesTo), {str(v_)}); });
        case fields::Spare29:
            return spare(t(Say::SpareBytes));
        default:
            return {};
        }
    }

private:
    template <class Text> Explanation normal(const Text& text, std::string_view remark = {}) const {
        Explanation e;
        if (compose_)
            e.text = compose(text);
        e.remark = remark;
        return e;
    }
    template <class Text> Explanation red(const Text& text) const {
        Explanation e = normal(text);
        e.alert = true;
        return e;
    }

    // "№_12 ": the value as a number.
    std::string numberText() const { return fill(t(Say::Number), {str(v_)}); }
    // The value as a number, with its name from the field's list.
    std::string namedText() const {
        const std::string name = ctx_.lists ? ctx_.lists->lookupCode(i_, v_) : std::string("?");
        return numberText() + "<" + name + ">";
    }
    // The value alone with a remark, for a value the field cannot hold.
    Explanation beyond(std::string_view remark) const {
        return normal([&] { return numberText(); }, remark);
    }

    Explanation fireMode() const {
        switch (v_) {
        case 0:
            return normal(t(Say::FiresAlways));
        case 2:
            return normal(t(Say::FiresOnce));
        case 4:
            return normal(t(Say::FiresOnceADay));
        default:
            return beyond(t(Say::OnlyThreeModes));
        }
    }

    Explanation item() const {
        const bool needed = i_ == fields::NeededItem;
        if (v_ == 0)
            return normal(t(needed ? Say::NoItemChecked : Say::NoItemGiven));
        if (v_ >= kFirstCondition)
            return normal([&] { return namedText(); });
        return normal(
            [&] { return fill(t(needed ? Say::ItemNeeded : Say::ItemGiven), {namedText()}); });
    }

    Explanation trigger() const {
        if (v_ == kNoWord) {
            if (i_ == fields::TriggerSet)
                return normal(t(Say::NoTriggerSet));
            return normal(t(i_ == fields::TriggerTrue ? Say::NoTriggerTrue : Say::NoTriggerFalse));
        }
        if (v_ >= kTriggers)
            return beyond(t(Say::OnlyTriggers));
        if (i_ == fields::TriggerSet)
            return normal([&] { return fill(t(Say::TriggerSet), {namedText()}); });
        return normal([&] {
            return fill(t(Say::TriggerMust),
                        {namedText(), i_ == fields::TriggerTrue ? "TRUE" : "FALSE"});
        });
    }

    Explanation quest() const {
        if (v_ == kNoByte) {
            switch (i_) {
            case fields::QuestHeld:
                return normal(t(Say::NoQuestHeld));
            case fields::QuestGiven:
                return normal(t(Say::NoQuestGiven));
            default:
                return normal(t(Say::NoQuestClosed));
            }
        }
        const Say say = i_ == fields::QuestHeld    ? Say::QuestHeld
                        : i_ == fields::QuestGiven ? Say::QuestGiven
                                                   : Say::QuestClosed;
        return normal([&] { return fill(t(say), {namedText()}); });
    }

    Explanation firstDay() const {
        if (v_ == kNoByte)
            return red(t(Say::NeverFires));
        const auto last = static_cast<int>(fieldValue(r_, fields::LastDay));
        Explanation e = v_ == 0 ? normal(t(Say::FromStart))
                                : normal([&] { return fill(t(Say::FromDay), {str(v_)}); });
        if (last == 0 || last - static_cast<int>(v_) <= 0)
            e.remark = t(Say::LastDayWrong);
        return e;
    }

    Explanation lastDay() const {
        const std::uint32_t first = fieldValue(r_, fields::FirstDay);
        if (first == kNoByte)
            return red(t(Say::FirstDayFF));
        if (v_ <= first) {
            if (first == 0)
                return red(t(Say::NotFromStartToZero));
            return red([&] { return fill(t(Say::NotFromTo), {str(first), str(v_)}); });
        }
        if (v_ == kNoByte)
            return normal(t(Say::NoDayLimit));
        return normal([&] { return fill(t(Say::FromTo), {str(first), str(v_)}); });
    }

    Explanation leadership() const {
        if (v_ > 100)
            return red([&] { return fill(t(Say::LeadershipTooHigh), {str(v_)}); });
        if (v_ == 0)
            return normal(t(Say::AnyLeadership));
        return normal([&] { return fill(t(Say::LeadershipAtLeast), {str(v_)}); });
    }

    Explanation phraseFirst() const {
        const std::uint32_t count = fieldValue(r_, fields::PhraseCount);
        Explanation e;
        if (v_ == kNoByte && count == 1)
            e = normal(t(Say::SaysNothing));
        else if (v_ == kNoByte)
            e = red(t(Say::CountWrong));
        else if (v_ > kLastPhrase)
            e = beyond(t(Say::TooManyPhrases));
        else {
            e = normal([&] { return fill(t(Say::SaysPhrase), {str(v_)}); });
            if (count > kPhraseSlots || count == 0 || v_ + count > kPhraseSlots)
                e.remark = t(Say::CountWrongRemark);
        }
        if (ctx_.paneFollowsPhrase && ctx_.lastPhrase != 0 &&
            v_ <= static_cast<std::uint32_t>(ctx_.lastPhrase))
            e.phrase = static_cast<int>(v_);
        return e;
    }

    Explanation phraseCount() const {
        const std::uint32_t first = fieldValue(r_, fields::PhraseFirst);
        if (first == kNoByte && v_ == 1)
            return normal(t(Say::SaysNothing));
        if (first == kNoByte)
            return red(t(Say::CountMustBeOne));
        if (first > kLastPhrase)
            return red(t(Say::FirstWrong));
        if (v_ > kPhraseSlots)
            return beyond(t(Say::TooManyPhrases));
        const auto many = [&](Say say) {
            return fill(t(say), {str(v_), phraseWord(v_, ctx_.language), str(first)});
        };
        if (v_ + first > kPhraseSlots)
            return red([&] { return many(Say::CannotSay); });
        if (v_ == 0)
            return red(t(Say::CountDefault));
        if (v_ == 1)
            return normal([&] { return fill(t(Say::SaysOnly), {str(first)}); });
        return normal([&] { return many(Say::SaysMany); });
    }

    Explanation jumpNpc() const {
        if (v_ == kNoByte)
            return normal(t(Say::NoJump));
        if (v_ >= kCharacters)
            return beyond(t(Say::OnlyCharacters));
        return normal([&] { return fill(t(Say::JumpsToNpc), {namedText()}); });
    }

    Explanation jumpRecord() const {
        if (v_ == kNoByte)
            return normal(t(Say::NoJump));
        if (ctx_.fileType == NpcFileType::Ja && v_ >= kJaRecords)
            return beyond(t(Say::JaRecords));
        if (ctx_.fileType == NpcFileType::Ub && v_ >= kUbRecords)
            return beyond(t(Say::UbRecords));
        return normal([&] { return fill(t(Say::JumpsToRecord), {str(v_ + 1)}); });
    }

    Explanation spare(std::string_view text) const {
        return v_ == 0 ? normal(text) : red([&] { return std::string(text) + "!"; });
    }

    const NpcRecord& r_;
    int i_;
    const ExplainContext& ctx_;
    std::uint32_t v_;
    bool compose_;
};

} // namespace

std::string phraseWord(std::uint32_t count, Language language) {
    const std::uint32_t d = count % 10;
    Say say = Say::PhraseFew;
    if (d == 0 || d > 4 || (count > 10 && count < 20))
        say = Say::PhraseMany;
    else if (d == 1)
        say = Say::PhraseOne;
    // English counts one phrase apart from any other number of them.
    if (language == Language::English)
        say = count == 1 ? Say::PhraseOne : Say::PhraseMany;
    return std::string(kTexts(say, language));
}

Explanation explain(const NpcRecord* record, int fieldIndex, const ExplainContext& context) {
    if (record == nullptr)
        return {std::string(kTexts(Say::NoRecord, context.language)), true, {}, std::nullopt};
    if (isEmptyRecord(*record))
        return {std::string(kTexts(Say::EmptyRecord, context.language)), true, {}, std::nullopt};
    return FieldExplainer(*record, fieldIndex, context, true).run();
}

Verdict judge(const NpcRecord* record, int fieldIndex, const ExplainContext& context) {
    if (record == nullptr || isEmptyRecord(*record))
        return {true, false};
    const Explanation e = FieldExplainer(*record, fieldIndex, context, false).run();
    return {e.alert, !e.remark.empty()};
}

} // namespace parlex
