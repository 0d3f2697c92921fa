// Speech files to JSON and gettext catalogues and back.
#include "core/speech/edtfile.h"
#include "core/speech/exchange.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace parlex;

namespace {

EdtFile filled(EdtKind kind) {
    auto file = EdtFile::makeNew(kind);
    const int last = file.lastPhrase();
    for (const auto& [n, text] :
         std::vector<std::pair<int, std::string>>{{0, "Привет, \"наёмник\"!"},
                                                  {3, "C:\\Games\\JA2 / слэш"},
                                                  {last, "Последняя фраза №9"}})
        EXPECT_TRUE(file.setPhrase(n, text)) << n;
    return file;
}

std::vector<std::string> phrasesOf(const EdtFile& file) {
    std::vector<std::string> out;
    for (int i = 0; i <= file.lastPhrase(); ++i)
        out.push_back(file.phrase(i));
    return out;
}

TEST(Exchange, JsonAndPoComeBackToTheSamePhrasesForEveryKind) {
    for (EdtKind kind : {EdtKind::NpcDialogues, EdtKind::Civilian, EdtKind::Remarks}) {
        SCOPED_TRACE(std::string(kindInfo(kind).name));
        const EdtFile source = filled(kind);

        const auto json = phrasesFromJson(phrasesToJson(source));
        ASSERT_TRUE(json);
        EXPECT_EQ(json->size(), static_cast<std::size_t>(source.lastPhrase() + 1));
        auto fromJson = EdtFile::makeNew(kind);
        ASSERT_TRUE(importPhrases(fromJson, *json));
        EXPECT_EQ(phrasesOf(fromJson), phrasesOf(source));

        // A catalogue as exported has no translations: it imports nothing. With
        // every msgstr filled by its msgid it gives the phrases back.
        const std::string po = phrasesToPo(source);
        EXPECT_TRUE(phrasesFromPo(po)->empty());
        std::string translated;
        std::string lastId;
        for (std::size_t at = 0, nl; at < po.size(); at = nl + 1) {
            nl = po.find('\n', at);
            const std::string line = po.substr(at, nl - at);
            if (line.starts_with("msgid "))
                lastId = line.substr(6);
            translated += line == "msgstr \"\"" && lastId != "\"\"" ? "msgstr " + lastId : line;
            translated += "\n";
        }
        const auto fromPo = phrasesFromPo(translated);
        ASSERT_TRUE(fromPo);
        EXPECT_EQ(fromPo->size(), 3u);
        auto back = EdtFile::makeNew(kind);
        ASSERT_TRUE(importPhrases(back, *fromPo));
        EXPECT_EQ(phrasesOf(back), phrasesOf(source));
    }
}

TEST(Exchange, PoEntriesAsTranslatorsLeaveThem) {
    const std::string po =
        "msgid \"\"\nmsgstr \"\"\n\"Language: ru\\n\"\n\n"
        "#. a role\nmsgctxt \"001\"\nmsgid \"one\"\nmsgstr \"\"\n\"раз \"\n\"два\"\n\n"
        "#, fuzzy\nmsgctxt \"002\"\nmsgid \"two\"\nmsgstr \"guess\"\n\n"
        "msgctxt \"003\"\nmsgid \"three\"\nmsgstr \"\"\n\n"
        "msgctxt \"010\"\nmsgid \"ten\"\nmsgstr \"десять\"\n"
        "msgctxt \"011\"\nmsgid \"eleven\"\nmsgstr \"одиннадцать\"";
    const auto entries = phrasesFromPo(po);
    ASSERT_TRUE(entries) << entries.error().message;
    ASSERT_EQ(entries->size(), 3u);
    EXPECT_EQ((*entries)[0].phrase, 1);
    EXPECT_EQ((*entries)[0].text, "раз два");
    EXPECT_EQ((*entries)[1].phrase, 10);
    EXPECT_EQ((*entries)[2].text, "одиннадцать");
}

TEST(Exchange, BrokenInputIsRefusedWithItsPlace) {
    // JSON or PO, the text read, the start of the refusal.
    const std::tuple<bool, std::string, std::string> cases[] = {
        {true, "{\"a\":1}", "JSON, строка 1: ожидался массив"},
        {true, "[\"a\",\n\"b\"", "JSON, строка 2: ожидалась \",\" или \"]\""},
        {true, "[\"a\\q\"]", "JSON, строка 1: неизвестная escape"},
        {true, "[] []", "JSON, строка 1: лишний текст"},
        {false, "msgctxt \"x1\"\nmsgid \"a\"\nmsgstr \"b\"\n", "PO, строка 1: msgctxt должен"},
        {false, "msgid \"a\"\nmsgstr b\n", "PO, строка 2: ожидалась строка"},
    };
    for (const auto& [json, text, start] : cases) {
        const auto result = json ? phrasesFromJson(text) : phrasesFromPo(text);
        ASSERT_FALSE(result) << text;
        EXPECT_TRUE(result.error().message.starts_with(start)) << result.error().message;
    }
    const auto escapes = phrasesFromJson("[\"\\u0416\\n\\/\", \"\\ud83d\\ude00\"]");
    ASSERT_TRUE(escapes);
    EXPECT_EQ((*escapes)[0].text, "Ж\n/");
    EXPECT_EQ((*escapes)[1].text, "\xF0\x9F\x98\x80");
}

TEST(Exchange, ImportIsAllOrNothing) {
    const std::pair<std::vector<PhraseText>, std::string> cases[] = {
        {{{0, "ok"}, {15, "past the civilian kind"}},
         "фраза 15: такой фразы нет (фразы с 0 по 14)"},
        {{{0, "ok"}, {2, "漢字"}}, "фраза 2: "},
    };
    for (const auto& [phrases, start] : cases) {
        auto file = filled(EdtKind::Civilian);
        const auto before = phrasesOf(file);
        const auto imported = importPhrases(file, phrases);
        ASSERT_FALSE(imported);
        EXPECT_TRUE(imported.error().message.starts_with(start)) << imported.error().message;
        EXPECT_EQ(phrasesOf(file), before);
    }
}

} // namespace
