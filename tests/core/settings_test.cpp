// The settings file: what each line does to the settings, the limits the reader
// holds them to, and the file the writer makes.
#include "core/settings/settingsfile.h"
#include "testutil.h"

#include <functional>
#include <gtest/gtest.h>
#include <set>

using namespace parlex;

namespace {

// A screen of 1024 x 768 pixels and a frame of 8 x 46 pixels, in twips.
constexpr ScreenTwips kScreen{15360, 11520, 120, 690};

// The design window, as the program has it before the file is read.
Settings designed() {
    Settings s;
    s.width = 9000;
    s.height = 7005;
    s.top = 500;
    s.left = 600;
    s.splitterTop = 2000;
    s.splitterLeft = 2500;
    return s;
}

const std::set<std::string> kExisting = {"/mods/053.npc", "/mods/053.EDT"};

Settings read(const std::string& text) {
    Settings s = designed();
    applySettingsText(text, s, kScreen,
                      [](const std::string& path) { return kExisting.contains(path); });
    return s;
}

struct Case {
    const char* name;
    std::string text;
    std::function<void(const Settings&)> check;
};

class SettingsRead : public ::testing::TestWithParam<Case> {};

TEST_P(SettingsRead, TheLinesSetWhatTheySay) {
    GetParam().check(read(GetParam().text));
}

const Case kCases[] = {
    {"NoFileCentresTheWindowAndKeepsTheDefaults", "",
     [](const Settings& s) {
         EXPECT_EQ(s.left, (15360 - 9000) / 2.0);
         EXPECT_EQ(s.top, (11520 - 7005) / 2.0);
         EXPECT_TRUE(s.options.flagOverwrite && s.options.paneFollowsPhrase &&
                     s.options.findEdtName);
         EXPECT_EQ(s.options.phraseFont.pointSize, 9.75);
     }},
    {"AMissingFlagIsOffAndMissingSizesTakeTheirFallbacks", "Top=1000\r\n",
     [](const Settings& s) {
         EXPECT_EQ(s.top, 1000);
         EXPECT_FALSE(s.options.flagOverwrite || s.options.paneFollowsPhrase ||
                      s.options.toolTips || s.options.autoLoad);
         EXPECT_EQ(s.options.helpFontSize, 8);
         EXPECT_EQ(s.options.phraseFont.pointSize, 10);
         EXPECT_TRUE(s.options.findEdtName);
         EXPECT_EQ(s.options.phraseFont.family, "MS Sans Serif")
             << "a missing name keeps the design font";
     }},
    {"AlignmentFromItsFirstCharacter_12", "lAlig=12",
     [](const Settings& s) { EXPECT_EQ(s.options.helpAlignment, 1); }},
    {"ALeftOf9201IsCentred", "Width=12000\r\nLeft=-9201",
     [](const Settings& s) { EXPECT_EQ(s.left, (15360 - 12000) / 2.0); }},
    {"BarsOutsideTheWindowGoToAThirdAndAHalf", "wLeft=499\r\nwTop=1429",
     [](const Settings& s) {
         EXPECT_EQ(s.splitterLeft, 3000);
         EXPECT_EQ(s.splitterTop, 3502) << "7005 / 2 without the remainder";
     }},
    {"KeysInAnySectionOrNone", "ShowMessages=1\r\n[HISTORY]\r\nAnimation=1\r\n[X]\r\nAutoLoad=1",
     [](const Settings& s) {
         EXPECT_TRUE(s.options.paneFollowsPhrase && s.options.animationOff && s.options.autoLoad);
     }},
    {"OverviewPlacesOutOfRangeFallBack", "OverviewTab=7\r\nOverviewArea=3\r\nOverviewRecords=5,x",
     [](const Settings& s) { EXPECT_EQ(s.overview, OverviewPlace{}); }},
    {"RememberingThePathTurnsTheNameFindingOff", "RemebPath=1",
     [](const Settings& s) { EXPECT_TRUE(s.options.rememberPath && !s.options.findEdtName); }},
    {"TheColourIsBlueGreenRed", "edtTxtFon=8454143", // 0x0080FFFF
     [](const Settings& s) { EXPECT_EQ(s.options.phraseBackColour, 0xFFFF80u); }},
    {"PathsThatAreStillThereStay", "Path=/mods/053.npc\r\nsPath=/mods/053.EDT",
     [](const Settings& s) {
         EXPECT_EQ(s.scriptPath, "/mods/053.npc");
         EXPECT_EQ(s.speechPath, "/mods/053.EDT");
     }},
    {"ALongLineIsCutAndItsPathNoLongerFound",
     "Path=/mods/" + std::string(300, 'a') + "\r\nedtTxtFontName=" + std::string(300, 'b'),
     [](const Settings& s) {
         EXPECT_TRUE(s.scriptPath.empty());
         EXPECT_EQ(s.options.phraseFont.family.size(), 260u - 15u);
     }},
};

INSTANTIATE_TEST_SUITE_P(EveryRule, SettingsRead, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(SettingsFile, WhatIsWrittenReadsBackTheSame) {
    Settings s = designed();
    s.top = 1234.5;
    s.left = -100;
    s.width = 12000;
    s.height = 9000;
    s.splitterTop = 3000;
    s.splitterLeft = 4000;
    s.options.helpFontSize = 12;
    s.options.helpAlignment = 2;
    s.options.toolTips = s.options.animationOff = s.options.autoLoad = s.options.phraseFont.bold =
        s.options.phraseFont.italic = true;
    s.options.flagOverwrite = s.options.paneFollowsPhrase = false;
    s.options.rememberPath = true;
    s.options.findEdtName = false;
    s.options.phraseFont.family = "Шрифт";
    s.options.phraseFont.pointSize = 9.75;
    s.options.phraseBackColour = 0x80FFFF;
    s.scriptPath = "/mods/053.npc";
    s.speechPath = "/mods/053.EDT";
    s.overview = {true, 1, 2, {50, 260}, {}};
    const std::string text = settingsText(s);
    EXPECT_EQ(read(text), s);

    EXPECT_TRUE(
        text.starts_with("; PARLEX: CONFIGURATION FILE\r\n\r\n[POSITION]\r\nTop=1234.5\r\n"));
    EXPECT_NE(text.find("\r\nlAlig=2\r\n\r\n[INTERFACE]\r\nToolTip=1\r\n"), std::string::npos);
    EXPECT_NE(text.find("\r\nedtTxtFontName=\xd8\xf0\xe8\xf4\xf2\r\n"), std::string::npos);
    EXPECT_NE(text.find("[HISTORY]\r\nPath=/mods/053.npc\r\nsPath=/mods/053.EDT\r\n"),
              std::string::npos);
    EXPECT_TRUE(text.ends_with("\r\nOverviewRecords=50,260\r\nOverviewPhrases=\r\n"));
}

TEST(SettingsFile, APathWindows1251CannotHoldIsNotRemembered) {
    Settings s = designed();
    s.scriptPath = "/mods/✓.npc";
    EXPECT_NE(settingsText(s).find("\r\nPath=\r\n"), std::string::npos);
}

TEST(SettingsFile, WrittenAtomicallyOverAReadOnlyFileAndReadFromDisk) {
    testutil::TempDir dir;
    const auto file = dir / "Parlex.ini";
    Settings s = designed();
    s.options.toolTips = true;
    s.scriptPath = (dir / "053.npc").string();
    testutil::writeBytes(dir / "053.npc", {1});
    testutil::writeBytes(file, {'o', 'l', 'd'});
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    ASSERT_TRUE(writeSettingsFile(file, s));
    Settings back = designed();
    readSettingsFile(file, back, kScreen);
    EXPECT_EQ(back, s);
    std::filesystem::remove(dir / "053.npc");
    readSettingsFile(file, back, kScreen);
    EXPECT_TRUE(back.scriptPath.empty()) << "a script gone since is not remembered";

    // A file far too large to be settings counts as none, and is not read at all.
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    std::filesystem::resize_file(file, std::uintmax_t(4) << 30);
    Settings huge = designed();
    EXPECT_FALSE(readSettingsFile(file, huge, kScreen));
    EXPECT_EQ(huge.left, (15360 - 9000) / 2.0) << "no file: centred";
}

} // namespace
