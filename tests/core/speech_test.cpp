#include "core/speech/companion.h"
#include "core/speech/decompiler.h"
#include "core/speech/edtfile.h"
#include "core/speech/edtsummary.h"
#include "core/speech/phrasecodec.h"
#include "core/text/cp1251.h"
#include "testutil.h"

#include <gtest/gtest.h>

using namespace parlex;
using testutil::TempDir;

namespace {

std::string cp(const std::string& utf8) {
    return text::utf8ToCp1251(utf8).value();
}

std::vector<std::uint8_t> recordOf(std::vector<std::uint8_t> head, std::size_t size = 480) {
    head.resize(size, 0);
    return head;
}

TEST(PhraseCodec, UnitTableByteExact) {
    EXPECT_EQ(phrasecodec::encode(cp("аб вя"), 480),
              recordOf({0xE1, 0x00, 0xE2, 0x00, 0x20, 0x00, 0xE3, 0x00, 0x00, 0x01}));
    struct Case {
        std::vector<std::uint8_t> head;
        std::string phrase;
    } decodes[] = {
        {{0xE1, 0x00, 0xE2, 0x00, 0x20, 0x00, 0xE3, 0x00, 0x00, 0x01}, "аб вя"},
        {{0x00, 0x01, 0xE1, 0x00}, "яа"}, // a phrase that begins with "я"
        {{0x00, 0x01, 0x00, 0x01}, "яя"},
        {{0x21, 0x00, 0x42, 0x00}, " A"}, // 0x21 reads as a blank too
        {{0x20, 0x00, 0x20, 0x00, 0x42}, "  A"},
        {{0x00, 0x00, 0xE1, 0x00}, ""},              // two zero bytes first: empty
        {{0x42, 0x00, 0x00, 0x00, 0x43, 0x00}, "A"}, // three zeros end the phrase
        {{0x42, 0x43, 0x44, 0x00}, "ABC"},           // every non-zero byte is a character
        {{}, ""},
    };
    for (const auto& c : decodes)
        EXPECT_EQ(phrasecodec::decode(recordOf(c.head)), cp(c.phrase))
            << ::testing::PrintToString(c.head);
}

TEST(PhraseCodec, EveryCharacterOfTheCodePageRoundTrips) {
    std::string all;
    for (int c = 0x20; c < 256; ++c)
        all += static_cast<char>(c);
    const std::string first = all.substr(0, 200), second = all.substr(200);
    for (const auto& phrase : {first, second, std::string("\xFF") + first.substr(0, 100)})
        EXPECT_EQ(phrasecodec::decode(phrasecodec::encode(phrase, 480)), phrase);
}

// Stored phrases have 0 or 1 in every second byte; anything else is no speech file.
TEST(PhraseCodec, OnlyZeroOrOneInOddBytesCouldBePhrases) {
    const std::pair<std::vector<std::uint8_t>, bool> cases[] = {
        {{0xE1, 0x00, 0x00, 0x01}, true},
        {{0xE1, 0x02}, false},
        {{0xE1, 0x00, 0x00, 0xFF}, false},
    };
    for (const auto& [bytes, phrases] : cases)
        EXPECT_EQ(phrasecodec::couldBePhrases(bytes), phrases) << ::testing::PrintToString(bytes);
}

TEST(PhraseCodec, FullLimitFillsTheRecordAndLongerIsCut) {
    const std::string full(240, '\xE0');
    const auto record = phrasecodec::encode(full, 480);
    EXPECT_EQ(record[478], 0xE1);
    EXPECT_EQ(phrasecodec::decode(record), full);
    EXPECT_EQ(phrasecodec::decode(phrasecodec::encode(std::string(241, 'x'), 480)),
              std::string(240, 'x'));
    EXPECT_EQ(phrasecodec::decode(phrasecodec::encode(std::string(200, 'y'), 320)),
              std::string(160, 'y'));
    const std::string ya(240, '\xFF');
    EXPECT_EQ(phrasecodec::decode(phrasecodec::encode(ya, 480)), ya);
}

struct SizeCase {
    EdtKind kind;
    std::size_t size;
    std::optional<ErrorKind> refusal;
};

TEST(EdtSize, LimitsOfEachKind) {
    const SizeCase cases[] = {
        {EdtKind::NpcDialogues, 479, ErrorKind::TooSmall},
        {EdtKind::NpcDialogues, 480, {}},
        {EdtKind::NpcDialogues, 68640, {}},
        {EdtKind::NpcDialogues, 68641, ErrorKind::TooLarge},
        {EdtKind::Civilian, 319, ErrorKind::TooSmall},
        {EdtKind::Civilian, 320, {}},
        {EdtKind::Civilian, 321, {}},
        {EdtKind::Civilian, 4800, {}},
        {EdtKind::Civilian, 4801, ErrorKind::TooLarge},
        {EdtKind::Remarks, 16800, {}},
        {EdtKind::Remarks, 16801, ErrorKind::TooLarge},
        {EdtKind::Remarks, 0, ErrorKind::TooSmall},
    };
    for (const auto& c : cases) {
        TempDir dir;
        testutil::writeBytes(dir / "f.edt", std::vector<std::uint8_t>(c.size, 0));
        auto file = EdtFile::load(dir / "f.edt", c.kind);
        EXPECT_EQ(file.has_value(), !c.refusal) << kindInfo(c.kind).name << " " << c.size;
        if (!file && c.refusal) {
            EXPECT_EQ(file.error().kind, *c.refusal);
            EXPECT_EQ(file.error().title, "Parlex некоректный размер");
        }
    }
}

TEST(EdtSize, MessagesNameTheKindAndItsLimits) {
    const std::filesystem::path p = "/x/f.edt";
    EXPECT_EQ(
        EdtFile::checkSize(p, 479, EdtKind::NpcDialogues)->message,
        "Файл /x/f.edt\n(Тип: Диалоги НПЦ) меньше чем 480 байт\nОдна фраза имеет размер 480 байт");
    EXPECT_EQ(EdtFile::checkSize(p, 68641, EdtKind::NpcDialogues)->message,
              "Файл /x/f.edt\n(Тип: Диалоги НПЦ) больше чем 68640 байт\n"
              "(всего может быть 143 [0-142] фразы по 480 байт)");
    EXPECT_EQ(EdtFile::checkSize(p, 4801, EdtKind::Civilian)->message,
              "Файл /x/f.edt\n(Тип: Диалоги гражданских) больше чем 4800 байт");
    EXPECT_EQ(EdtFile::checkSize(p, 16801, EdtKind::Remarks)->message,
              "Файл /x/f.edt\n(Тип: Коментарии НПЦ) больше чем 16800 байт\n"
              "(всего может быть 35 [0-34] фразы по 480 байт)");
}

TEST(EdtFile, ReadingWholeRecordsOnly) {
    auto bytes = recordOf({0x42, 0x00}, 480);
    auto more = recordOf({0x43, 0x00}, 480);
    bytes.insert(bytes.end(), more.begin(), more.end());
    // A 480-byte record read as civilian dialogues: phrase 0 from the first 320 bytes.
    const EdtFile civ = EdtFile::fromBytes(std::span(bytes).first(480), EdtKind::Civilian, "c");
    EXPECT_EQ(civ.phraseBytes(0), "A");
    EXPECT_EQ(civ.nonEmptyCount(), 1);
    // 321 bytes of civilian dialogues: one phrase, the last byte ignored.
    std::vector<std::uint8_t> odd = recordOf({0x44, 0x00}, 320);
    odd.push_back(0x55);
    const EdtFile one = EdtFile::fromBytes(odd, EdtKind::Civilian, "c");
    EXPECT_EQ(one.phraseBytes(0), "C");
    EXPECT_EQ(one.phraseBytes(1), "");
    const EdtFile npc = EdtFile::fromBytes(bytes, EdtKind::NpcDialogues, "n");
    EXPECT_EQ(npc.phraseBytes(1), "B");
    EXPECT_EQ(npc.lastNonEmpty(), 1);
}

TEST(EdtFile, SavedSizesFollowTheLastNonEmptyPhrase) {
    struct Case {
        EdtKind kind;
        std::vector<int> filled;
        std::size_t size;
    } cases[] = {
        {EdtKind::NpcDialogues, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 4800},
        {EdtKind::NpcDialogues, {0, 5}, 2880},
        {EdtKind::NpcDialogues, {}, 68160},
        {EdtKind::Remarks, {}, 16320},
        {EdtKind::Civilian, {}, 4480},
        {EdtKind::Civilian, {0}, 320},
        {EdtKind::Remarks, {3, 7}, 3840},
        {EdtKind::NpcDialogues, {142}, 68640},
    };
    for (const auto& c : cases) {
        TempDir dir;
        EdtFile file = EdtFile::makeNew(c.kind);
        for (int n : c.filled)
            ASSERT_TRUE(file.setPhrase(n, "фраза " + std::to_string(n)));
        EXPECT_EQ(file.sizeAfterSave(), c.size);
        ASSERT_TRUE(file.saveAs(dir / "s.edt"));
        EXPECT_EQ(std::filesystem::file_size(dir / "s.edt"), c.size);
        EXPECT_FALSE(file.isChanged());
        EXPECT_FALSE(file.isNew());
        for (int n : c.filled)
            EXPECT_EQ(file.phrase(n), "фраза " + std::to_string(n));
    }
}

TEST(EdtFile, PhraseStartingWithYaSurvivesASave) {
    TempDir dir;
    EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
    ASSERT_TRUE(file.setPhrase(0, "я здесь"));
    ASSERT_TRUE(file.saveAs(dir / "ya.edt"));
    EXPECT_EQ(file.phrase(0), "я здесь");
    EXPECT_EQ(testutil::readBytes(dir / "ya.edt")[1], 0x01);
    auto reread = EdtFile::load(dir / "ya.edt", EdtKind::NpcDialogues);
    ASSERT_TRUE(reread);
    EXPECT_EQ(reread->phrase(0), "я здесь");
}

TEST(EdtFile, SaveCutsLongPhrasesInTheDocumentToo) {
    TempDir dir;
    EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
    ASSERT_TRUE(file.setPhrase(3, std::string(241, 'z')));
    EXPECT_EQ(file.phraseBytes(3).size(), 241u);
    ASSERT_TRUE(file.saveAs(dir / "cut.edt"));
    EXPECT_EQ(file.phraseBytes(3), std::string(240, 'z'));
}

TEST(EdtFile, ChangeTestAndRefusals) {
    EdtFile file = EdtFile::makeNew(EdtKind::Civilian);
    EXPECT_FALSE(file.isChanged());
    ASSERT_TRUE(file.setPhrase(2, "да"));
    EXPECT_TRUE(file.isChanged());
    ASSERT_TRUE(file.setPhrase(2, ""));
    EXPECT_FALSE(file.isChanged());
    // Characters Windows-1251 lacks, and control characters: C0, DEL and the C1
    // character that the code page's undefined byte stands for.
    for (const char* bad : {"✓", "日", "a\nb", "tab\t", "del\x7F", "c1\u0098", "c1\u0085"}) {
        auto r = file.setPhrase(2, bad);
        EXPECT_FALSE(r) << bad;
    }
    EXPECT_FALSE(file.setPhrase(15, "x"));
    EXPECT_FALSE(file.setPhrase(-1, "x"));
    EXPECT_FALSE(file.isChanged());
}

TEST(EdtFile, ByteTwentyOneIsWrittenBackAsBlank) {
    TempDir dir;
    testutil::writeBytes(dir / "b.edt", recordOf({0x42, 0x00, 0x21, 0x00, 0x43, 0x00}, 480));
    auto file = EdtFile::load(dir / "b.edt", EdtKind::NpcDialogues);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->phraseBytes(0), "A B");
    ASSERT_TRUE(file->save());
    EXPECT_EQ(testutil::readBytes(dir / "b.edt"),
              recordOf({0x42, 0x00, 0x20, 0x00, 0x43, 0x00}, 480));
}

TEST(Wrap, BreaksAtBlanksTrimsAndSplitsLongWords) {
    struct Case {
        std::string text;
        std::size_t width;
        std::vector<std::string> lines;
    } cases[] = {
        {"", 10, {}},
        {"   ", 10, {}},
        {"one two three", 7, {"one two", "three"}},
        {"  lead   and trail  ", 40, {"lead   and trail"}},
        {"abcdefghijkl", 5, {"abcde", "fghij", "kl"}},
        {"ab abcdefghij", 5, {"ab", "abcde", "fghij"}},
        {"exactly10c next", 10, {"exactly10c", "next"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(wrapText(c.text, c.width), c.lines) << c.text;
    for (const auto& line : wrapText(std::string(500, 'w') + " " + std::string(300, 'v')))
        EXPECT_LE(line.size(), kWrapWidth);
}

std::size_t blocks(const std::string& s) {
    std::size_t n = 0;
    for (auto pos = s.find(std::string(80, '*')); pos != std::string::npos;
         pos = s.find(std::string(80, '*'), pos + 80))
        ++n;
    return n;
}

TEST(Decompile, BlockCountsFollowTheLastFilledPhrase) {
    struct Case {
        std::vector<int> filled;
        std::size_t blocks;
    } cases[] = {{{}, 143},  {{0}, 143}, {{5}, 12},   {{2, 5}, 12},
                 {{20}, 21}, {{11}, 12}, {{142}, 143}};
    for (const auto& c : cases) {
        EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
        for (int n : c.filled)
            ASSERT_TRUE(file.setPhrase(n, "x"));
        EXPECT_EQ(blocks(decompileText(file)), c.blocks) << ::testing::PrintToString(c.filled);
    }
}

TEST(Decompile, BlockLayoutHeadsLinesAndEncoding) {
    EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
    std::string longText;
    for (int i = 0; i < 60; ++i)
        longText += "слово ";
    ASSERT_TRUE(file.setPhrase(4, longText));
    ASSERT_TRUE(file.setPhrase(12, "  коротко  "));
    const std::string out = text::cp1251ToUtf8(decompileText(file));
    const std::string stars(80, '*');
    EXPECT_TRUE(
        out.starts_with("Фраза 000. Начало диалога и НПЦ ничего реально не говорит\r\n"
                        "Запись сработает: только один раз во всей игре!\r\n1.\r\n2.\r\n3.\r\n" +
                        stars + "\r\n"));
    EXPECT_NE(out.find("Фраза 010. (Здесь и далее можно вставлять свои комментарии)\r\n\r\n1.\r\n"),
              std::string::npos);
    EXPECT_NE(out.find("Фраза 012.\r\n\r\n1.коротко\r\n2.\r\n3.\r\n" + stars + "\r\n"),
              std::string::npos);
    // Phrase 4 wraps into more than three lines; only three reach the file.
    const auto at = out.find("Фраза 004. Игрок передает предмет НПЦ  и НПЦ возвращает его\r\n"
                             "Запись сработает: всегда!\r\n1.слово");
    ASSERT_NE(at, std::string::npos);
    const auto block = out.substr(at, out.find(stars, at) - at);
    EXPECT_NE(block.find("\r\n3.слово"), std::string::npos);
    EXPECT_EQ(block.find("\r\n4."), std::string::npos);
    EXPECT_TRUE(out.ends_with("Фраза 012.\r\n\r\n1.коротко\r\n2.\r\n3.\r\n" + stars + "\r\n"));
    const std::string bytes = decompileText(file);
    EXPECT_NE(bytes.find("\xD4\xF0\xE0\xE7\xE0 000."), std::string::npos) << "Windows-1251";
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'),
              std::count(bytes.begin(), bytes.end(), '\r'));
}

TEST(Decompile, OnlyNpcDialogues) {
    TempDir dir;
    EXPECT_FALSE(decompileToFile(EdtFile::makeNew(EdtKind::Civilian), dir / "q.txt"));
    EXPECT_FALSE(std::filesystem::exists(dir / "q.txt"));
    EXPECT_TRUE(decompileToFile(EdtFile::makeNew(EdtKind::NpcDialogues), dir / "q.txt"));
}

TEST(Summary, PropertiesWindowNumbers) {
    TempDir dir;
    EXPECT_EQ(summarize(nullptr).kindText, "-");
    EdtFile fresh = EdtFile::makeNew(EdtKind::NpcDialogues);
    auto s = summarize(&fresh);
    EXPECT_EQ(s.kindText, "Диалоги НПЦ");
    EXPECT_EQ(s.countText, " (143)");
    EXPECT_EQ(s.firstText, "Нет");
    EXPECT_EQ(s.lastText, "Нет");
    EXPECT_EQ(s.sizeOnDiskText, "Файл не сохранен");
    EXPECT_EQ(s.sizeAfterSaveText, "68160 байт");

    EdtFile remarks = EdtFile::makeNew(EdtKind::Remarks);
    ASSERT_TRUE(remarks.setPhrase(3, "a"));
    ASSERT_TRUE(remarks.setPhrase(7, "b"));
    ASSERT_TRUE(remarks.saveAs(dir / "r.edt"));
    s = summarize(&remarks);
    EXPECT_EQ(s.kindText, "Комментарии НПЦ");
    EXPECT_EQ(s.countText, "2 (35)");
    EXPECT_EQ(s.firstText, "3");
    EXPECT_EQ(s.lastText, "7");
    EXPECT_EQ(s.sizeOnDiskText, "3840 байт");
    EXPECT_EQ(s.sizeAfterSaveText, "3840 байт");
    // Emptying the last phrase lowers the size after a save at once, not the size on disk.
    ASSERT_TRUE(remarks.setPhrase(7, ""));
    s = summarize(&remarks);
    EXPECT_EQ(s.sizeAfterSaveText, "1920 байт");
    EXPECT_EQ(s.sizeOnDiskText, "3840 байт");
    ASSERT_TRUE(remarks.setPhrase(3, ""));
    ASSERT_TRUE(remarks.saveAs(dir / "r.edt"));
    EXPECT_EQ(summarize(&remarks).countText, "0 (35)") << "a file read has its count, 0 too";
    std::filesystem::remove(dir / "r.edt");
    EXPECT_EQ(summarize(&remarks).sizeOnDiskText, "Файл не найден");
    EdtFile civ = EdtFile::makeNew(EdtKind::Civilian);
    ASSERT_TRUE(civ.setPhrase(0, "a"));
    EXPECT_EQ(summarize(&civ).sizeAfterSaveText, "320 байт");
    EXPECT_EQ(summarize(&civ).kindText, "Диалоги гражд-их");
}

} // namespace

TEST(Companion, NameOfTheSpeechFileBesideTheScript) {
    const struct {
        const char* script;
        const char* companion;
    } cases[] = {
        {"/mod/053.npc", "/mod/053.EDT"}, {"/mod/053.NPC", "/mod/053.EDT"},
        {"/mod/a.Npc", "/mod/a.EDT"},     {"/mod/053.bin", "/mod/053.bin.EDT"},
        {"/mod/abc", "/mod/abc.EDT"},     {"/mod/x.npcx", "/mod/x.npcx.EDT"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parlex::companionPath(c.script), std::filesystem::path(c.companion)) << c.script;
}

TEST(Companion, FoundWhateverTheCaseOfItsExtension) {
    testutil::TempDir dir;
    const auto script = dir / "053.npc";
    EXPECT_EQ(parlex::findCompanion(script), std::nullopt);
    testutil::writeBytes(dir / "053.edt", {});
    testutil::writeBytes(dir / "054.EDT", {});
    testutil::writeBytes(dir / "53.edt", {});
    const auto found = parlex::findCompanion(script);
    ASSERT_TRUE(found);
    EXPECT_TRUE(std::filesystem::equivalent(*found, dir / "053.edt"));
#ifndef _WIN32 // two spellings of one name are one file on Windows
    EXPECT_EQ(found, dir / "053.edt");
    testutil::writeBytes(dir / "053.EDT", {});
    EXPECT_EQ(parlex::findCompanion(script), dir / "053.EDT") << "the exact name first";
#endif
    std::filesystem::create_directory(dir / "055.EDT");
    EXPECT_EQ(parlex::findCompanion(dir / "055.npc"), std::nullopt) << "a folder is no file";
}
