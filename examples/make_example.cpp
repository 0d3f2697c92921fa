// Writes examples/053.npc, a hand-made "ub" script whose records touch most fields,
// and beside it 053.EDT, the NPC dialogues with the phrases its records speak.
// Usage: make-example OUT.npc
#include "core/explain/fieldlayout.h"
#include "core/npc/npcfile.h"
#include "core/speech/companion.h"
#include "core/speech/edtfile.h"

#include <iostream>

using namespace parlex;

namespace {

// A record built from the neutral one with the given fields set.
NpcRecord rule(std::initializer_list<std::pair<int, std::uint32_t>> fields) {
    NpcRecord r = kNeutralRecord;
    for (auto [field, value] : fields)
        (void)setFieldValue(r, field, value);
    return r;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make-example OUT.npc\n";
        return 2;
    }
    NpcFile file = NpcFile::makeNew();
    const NpcRecord records[] = {
        // Greeting at the start of a dialogue, once in the whole game.
        rule({{0, 2}, {11, 0}, {13, 0}, {14, 1}}),
        // Friendly talk once a day from day 3 to day 20, needs leadership 40.
        rule({{0, 4}, {9, 3}, {10, 20}, {11, 1}, {12, 40}, {13, 3}, {14, 2}}),
        // Receives the letter (item 227), gives quest 0, sets trigger 13.
        rule({{2, 227}, {11, 6}, {13, 11}, {14, 3}, {15, 0}, {20, 13}, {26, 1}}),
        // Fires only while trigger 12 is TRUE and 25 FALSE; closes quest 1.
        rule({{4, 12}, {6, 25}, {8, 1}, {13, 14}, {14, 1}, {16, 1}}),
        // Hands over item 43 and walks to map cell 12345.
        rule({{11, 2}, {13, 15}, {14, 1}, {22, 43}, {24, 12345}}),
        // Passes control to record 7 of character 57.
        rule({{11, 10}, {17, 57}, {18, 6}}),
        // Joins the team for money.
        rule({{11, 4}, {12, 60}, {13, 16}, {14, 2}, {26, 23}}),
        // Wrong on purpose: fire mode 3, day 10 to 10, phrase count 0, spare bytes set.
        rule({{0, 3}, {9, 10}, {10, 10}, {13, 20}, {14, 0}, {19, 1}, {31, 1}}),
        // Phrases past the end of the speech file and a jump past the last record.
        rule({{11, 3}, {13, 142}, {14, 2}, {17, 170}, {18, 50}, {4, 500}}),
        // A standard-deleted record.
        kNeutralRecord,
        // Reaction CD FE: the sound of UB.
        rule({{11, 13}, {13, 17}, {14, 1}, {26, 65229}}),
    };
    std::size_t i = 0;
    for (const auto& r : records)
        file.setRecord(i++, r);
    file.setRecord(19, rule({{0, 0}, {11, 28}, {13, 9}, {14, 1}, {26, 41}}));
    // Records 12-19 and 21-50 stay empty.
    if (auto saved = file.saveAs(argv[1]); !saved) {
        std::cerr << saved.error().message << "\n";
        return 1;
    }

    // The phrases the records speak (bytes 14-15), but those of record 9, which are
    // meant to lie past the end of the speech file.
    EdtFile speech = EdtFile::makeNew(EdtKind::NpcDialogues);
    const std::pair<int, const char*> phrases[] = {
        {0, "Привет, чужак. Давно у нас не было гостей."},
        {3, "Рад тебя видеть! Заходи, поговорим."},
        {4, "Только не задерживайся: дел у меня много."},
        {9, "Прощай. Береги себя."},
        {11, "Письмо? От брата? Давай его сюда!"},
        {12, "Он пишет, что на шахте беда. Помоги ему, прошу."},
        {13, "Я отмечу на карте, где его искать."},
        {14, "Спасибо, ты сделал всё, о чём я просил."},
        {15, "Вот, возьми. А мне пора идти."},
        {16, "За хорошую плату я пойду с тобой."},
        {17, "Деньги вперёд."},
    };
    for (const auto& [number, text] : phrases)
        (void)speech.setPhrase(number, text);
    if (auto saved = speech.saveAs(companionPath(argv[1])); !saved) {
        std::cerr << saved.error().message << "\n";
        return 1;
    }
    return 0;
}
