// The session between runs: what a settings file gives the options and the open
// dialogs, and what the session hands back to be written.
#include "sessiontest.h"

#include <QSignalSpy>

namespace sessiontest {
namespace {

class RestoreTest : public SessionTest {};

TEST_F(RestoreTest, TheSettingsOfAPastRunBecomeTheOptionsAndComeBackUnchanged) {
    write("053.npc", testutil::script({1}));
    parlex::Settings s;
    s.width = 12345; // the window's own: passed through untouched
    s.toolTips = s.animation = s.autoLoad = s.bold = true;
    s.flagOverwrite = s.showMessages = false;
    s.helpFontSize = 12;
    s.helpAlignment = 2;
    s.fontName = "Liberation Sans";
    s.fontSize = 11.5;
    s.backColour = 0x0080FFFF; // 0x00BBGGRR: blue 80, green FF, red FF
    s.rememberPath = true;
    s.findEdtName = false;
    s.scriptPath = (dir / "053.npc").string();
    s.speechPath = (dir / "053.EDT").string();
    QSignalSpy restyled(&session, &Session::optionsChanged);
    session.restore(s);
    const auto& o = session.options();
    EXPECT_TRUE(o.toolTips && o.animation && o.autoLoad && o.rememberPath);
    EXPECT_FALSE(o.flagOverwrite || o.showMessages || o.findEdtName);
    EXPECT_EQ(o.helpFontSize, 12);
    EXPECT_EQ(o.helpAlignment, 2);
    EXPECT_EQ(o.phraseFont, (parlex::session::TextFont{"Liberation Sans", 11.5, true, false}));
    EXPECT_EQ(o.phraseBackColour, 0xFFFF80u) << "0x00BBGGRR in the file, 0xRRGGBB inside";
    EXPECT_EQ(restyled.count(), 1);
    EXPECT_EQ(session.remembered(s), s);

    // The open dialogs start where the last run left off.
    prompts.cancelDialog();
    session.flows().open();
    EXPECT_EQ(prompts.requests.back().folder, QString::fromStdString(dir.path().string()));
    EXPECT_EQ(prompts.requests.back().proposedName, "053.npc");
    prompts.cancelDialog();
    session.speech().open();
    EXPECT_EQ(prompts.requests.back().proposedName, "053.EDT");
}

TEST_F(RestoreTest, ASystemColourIsTheUsualWhite) {
    parlex::Settings s;
    s.backColour = -2147483643; // the system's window colour
    session.restore(s);
    EXPECT_EQ(session.options().phraseBackColour, 0xFFFFFFu);
    EXPECT_EQ(session.remembered({}).backColour, 0x00FFFFFF);
}

} // namespace
} // namespace sessiontest
