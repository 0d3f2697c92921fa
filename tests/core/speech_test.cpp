#include "core/speech/companion.h"
#include "core/speech/decompiler.h"
#include "core/speech/edtfile.h"
#include "core/speech/edtsummary.h"
#include "core/speech/phrasecodec.h"
#include "core/text/cp1251.h"
#include "testutil.h"

#include <gtest/gtest.h>

#include <tuple>

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
    const std::pair<std::vector<std::uint8_t>, std::string> decodes[] = {
        {{0xE1, 0x00, 0xE2, 0x00, 0x20, 0x00, 0xE3, 0x00, 0x00, 0x01}, "аб вя"},
        {{0x00, 0x01, 0xE1, 0x00}, "яа"},            // a phrase that begins with "я"
        {{0x21, 0x00, 0x42, 0x00}, " A"},            // 0x21 reads as a blank too
        {{0x00, 0x00, 0xE1, 0x00}, ""},              // two zero bytes first: empty
        {{0x42, 0x00, 0x00, 0x00, 0x43, 0x00}, "A"}, // three zeros end the phrase
    };
    for (const auto& [head, phrase] : decodes)
        EXPECT_EQ(phrasecodec::decode(recordOf(head)), cp(phrase))
            << ::testing::PrintToString(head);
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
}

TEST(EdtSize, LimitsOfEachKind) {
    const std::tuple<EdtKind, std::size_t, std::optional<ErrorKind>> cases[] = {
        {EdtKind::NpcDialogues, 479, ErrorKind::TooSmall},   {EdtKind::NpcDialogues, 68640, {}},
        {EdtKind::NpcDialogues, 68641, ErrorKind::TooLarge}, {EdtKind::Civilian, 321, {}},
        {EdtKind::Civilian, 4801, ErrorKind::TooLarge},
    };
    for (const auto& [kind, size, refusal] : cases) {
        TempDir dir;
        testutil::writeBytes(dir / "f.edt", std::vector<std::uint8_t>(size, 0));
        auto file = EdtFile::load(dir / "f.edt", kind);
        EXPECT_EQ(file ? std::optional<ErrorKind>() : file.error().kind, refusal) << size;
        if (!file) {
            EXPECT_EQ(file.error().title, "Parlex некоректный размер");
        }
    }
    EXPECT_EQ(EdtFile::checkSize("/x/f.edt", 68641, EdtKind::NpcDialogues)->message,
              "Файл /x/f.edt\n(Тип: Диалоги НПЦ) больше чем 68640 байт\n"
              "(всего может быть 143 [0-142] фразы по 480 байт)");
}

// 321 bytes of civilian dialogues hold one phrase; the byte after it is ignored.
TEST(EdtFile, ReadingWholeRecordsOnly) {
    std::vector<std::uint8_t> odd = recordOf({0x44, 0x00}, 320);
    odd.push_back(0x55);
    const EdtFile one = EdtFile::fromBytes(odd, EdtKind::Civilian, "c");
    EXPECT_EQ(std::tuple(one.phraseBytes(0), one.phraseBytes(1), one.nonEmptyCount()),
              std::tuple(std::string("C"), std::string(), 1));
}

TEST(EdtFile, SavedSizesFollowTheLastNonEmptyPhrase) {
    const std::tuple<EdtKind, std::vector<int>, std::size_t> cases[] = {
        {EdtKind::NpcDialogues, {0, 5}, 2880}, {EdtKind::NpcDialogues, {}, 68160},
        {EdtKind::Civilian, {}, 4480},         {EdtKind::Civilian, {0}, 320},
        {EdtKind::NpcDialogues, {142}, 68640},
    };
    for (const auto& [kind, filled, size] : cases) {
        TempDir dir;
        EdtFile file = EdtFile::makeNew(kind);
        for (int n : filled)
            ASSERT_TRUE(file.setPhrase(n, "фраза " + std::to_string(n)));
        EXPECT_EQ(file.sizeAfterSave(), size);
        ASSERT_TRUE(file.saveAs(dir / "s.edt"));
        EXPECT_EQ(std::filesystem::file_size(dir / "s.edt"), size);
        EXPECT_FALSE(file.isChanged() || file.isNew());
        for (int n : filled)
            EXPECT_EQ(file.phrase(n), "фраза " + std::to_string(n));
    }
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
    for (const char* bad : {"✓", "a\nb", "del\x7F", "c1\u0098"})
        EXPECT_FALSE(file.setPhrase(2, bad)) << bad;
    EXPECT_FALSE(file.setPhrase(15, "x"));
    EXPECT_FALSE(file.isChanged());
}

std::size_t blocks(const std::string& s) {
    std::size_t n = 0;
    for (auto pos = s.find(std::string(80, '*')); pos != std::string::npos;
         pos = s.find(std::string(80, '*'), pos + 80))
        ++n;
    return n;
}

TEST(Decompile, BlockCountsFollowTheLastFilledPhrase) {
    const std::pair<std::vector<int>, std::size_t> cases[] = {{{0}, 143}, {{2, 5}, 12}, {{11}, 12}};
    for (const auto& [filled, count] : cases) {
        EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
        for (int n : filled)
            ASSERT_TRUE(file.setPhrase(n, "x"));
        EXPECT_EQ(blocks(decompileText(file)), count) << ::testing::PrintToString(filled);
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
    EdtFile remarks = EdtFile::makeNew(EdtKind::Remarks);
    EXPECT_EQ(summarize(&remarks).sizeOnDiskText, "Файл не сохранен");
    ASSERT_TRUE(remarks.setPhrase(3, "a"));
    ASSERT_TRUE(remarks.setPhrase(7, "b"));
    ASSERT_TRUE(remarks.saveAs(dir / "r.edt"));
    const auto s = summarize(&remarks);
    EXPECT_EQ((std::vector{s.kindText, s.countText, s.firstText, s.lastText, s.sizeOnDiskText}),
              (std::vector<std::string>{"Комментарии НПЦ", "2 (35)", "3", "7", "3840 байт"}));
    ASSERT_TRUE(remarks.setPhrase(7, "")); // the size after a save drops at once, not on disk
    EXPECT_EQ(summarize(&remarks).sizeAfterSaveText, "1920 байт");
    EXPECT_EQ(summarize(&remarks).sizeOnDiskText, "3840 байт");
    std::filesystem::remove(dir / "r.edt");
    EXPECT_EQ(summarize(&remarks).sizeOnDiskText, "Файл не найден");
}

} // namespace

TEST(Companion, FoundWhateverTheCaseOfItsExtension) {
    testutil::TempDir dir;
    const auto script = dir / "053.npc";
    EXPECT_EQ(parlex::findCompanion(script), std::nullopt);
    for (const char* name : {"053.edt", "054.EDT", "53.edt"})
        testutil::writeBytes(dir / name, {});
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
