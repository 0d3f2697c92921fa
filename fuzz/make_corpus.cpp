// Writes the seed corpus of every fuzz target from the program's own files and the
// bundled example, never from game files.
// Usage: make_corpus EXAMPLE.npc OUT_DIR   (writes OUT_DIR/<target>/<name>)
#include "core/codelists/listwriter.h"
#include "core/explain/fieldlayout.h"
#include "core/npc/npcfile.h"
#include "core/npc/npcformat.h"
#include "core/settings/settingsfile.h"
#include "core/speech/edtfile.h"
#include "core/speech/exchange.h"
#include "core/text/cp1251.h"

#include <fstream>
#include <iostream>

using namespace parlex;
namespace fs = std::filesystem;

namespace {

fs::path out;

void seed(const std::string& target, const std::string& name, std::string_view bytes) {
    fs::create_directories(out / target);
    std::ofstream(out / target / name, std::ios::binary).write(bytes.data(), bytes.size());
}

template <typename Bytes> std::string_view view(const Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: make_corpus EXAMPLE.npc OUT_DIR\n";
        return 2;
    }
    out = argv[2];
    const auto example = npcformat::readScript(argv[1]);
    if (!example) {
        std::cerr << example.error().message << "\n";
        return 1;
    }

    // Scripts: the example in both layouts, and a new one.
    seed("fuzz_script", "example-ub", view(*example));
    seed("fuzz_script", "example-ja", view(*npcformat::convertLayout(*example, NpcFileType::Ja)));
    seed("fuzz_script", "new", view(NpcFile::makeNew().toBytes()));
    // Found by fuzzing: a "ja" record 1 that begins with the "ja" mark.
    auto marked = *npcformat::convertLayout(*example, NpcFileType::Ja);
    std::copy(npcformat::kJaMark.begin(), npcformat::kJaMark.end(),
              marked.begin() + npcformat::kJaHeaderSize);
    seed("fuzz_script", "ja-mark-in-record-1", view(marked));

    // Records of the example, and the neutral one, under each context.
    const NpcFile file = NpcFile::fromBytes(*example, "053.npc");
    for (int i = 0; i < 6; ++i) {
        std::string input(1, static_cast<char>(i * 5));
        input += view(i == 5 ? kNeutralRecord : file.record(static_cast<std::size_t>(i)));
        seed("fuzz_explain", "record-" + std::to_string(i), input);
    }

    // Speech files of each kind with a few phrases, and what they export to.
    const EdtKind kinds[] = {EdtKind::NpcDialogues, EdtKind::Civilian, EdtKind::Remarks};
    for (int k = 0; k < 3; ++k) {
        EdtFile speech = EdtFile::makeNew(kinds[k]);
        (void)speech.setPhrase(0, "Привет, наёмник.");
        (void)speech.setPhrase(2, "Ёж, \"кавычки\" и №1");
        (void)speech.setPhrase(speech.lastPhrase(), std::string(kindInfo(kinds[k]).textLimit, 'z'));
        const auto bytes = speech.toBytes();
        seed("fuzz_speech", std::string(kindInfo(kinds[k]).name),
             std::string(1, static_cast<char>(k)) + std::string(view(bytes)));
        seed("fuzz_exchange", std::string(kindInfo(kinds[k]).name) + ".json",
             phrasesToJson(speech));
        seed("fuzz_exchange", std::string(kindInfo(kinds[k]).name) + ".po", phrasesToPo(speech));
    }
    seed("fuzz_exchange", "translated.po",
         "msgctxt \"002\"\nmsgid \"Hi\"\nmsgstr \"Привет\"\n\n#, fuzzy\nmsgctxt \"003\"\n"
         "msgid \"x\"\nmsgstr \"y\"\n");

    // Code pages: Russian in both, a byte-order mark, the undefined byte.
    seed("fuzz_cp1251", "utf8", "Привет, Ёж №1");
    seed("fuzz_cp1251", "cp1251", *text::utf8ToCp1251("Привет, Ёж №1"));
    seed("fuzz_cp1251", "bom",
         "\xEF\xBB\xBF"
         "5=Пять\r\n");
    seed("fuzz_cp1251", "undefined", std::string_view("\x98\x7F\x00", 3));

    // List files as the program writes them, in both code pages.
    const std::tm moment{};
    const ListKey keys[] = {ListKey::N,  ListKey::T, ListKey::I, ListKey::Qi,
                            ListKey::Qo, ListKey::A, ListKey::R};
    for (int k = 0; k < 7; ++k) {
        const CodeList& list = codeList(keys[k]);
        const std::string text = listFileText(keys[k], list.overrideFile, moment);
        const std::string key(1, static_cast<char>(k));
        seed("fuzz_lists", std::string(list.keyText) + "-utf8", key + text);
        seed("fuzz_lists", std::string(list.keyText) + "-cp1251", key + *text::utf8ToCp1251(text));
    }
    seed("fuzz_lists", "short", std::string(1, 0) + "5=Пять\r\n;note\r\n7=\r\n5=again\r\n");

    // Settings as written, defaults and changed ones.
    Settings settings;
    seed("fuzz_settings", "defaults", settingsText(settings));
    settings.options.toolTips = settings.options.phraseFont.bold = true;
    settings.options.phraseFont.family = "Arial";
    settings.scriptPath = "/home/u/mods/053.npc";
    settings.width = 9000;
    seed("fuzz_settings", "changed", settingsText(settings));
    return 0;
}
