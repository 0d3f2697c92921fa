// The session between runs: the settings of a past run become the options and the
// start of the open dialogs, and come back unchanged to be written.
#include "sessiontest.h"

#include <QSignalSpy>

namespace sessiontest {
namespace {

TEST_F(SessionTest, TheSettingsOfAPastRunComeBackUnchangedAndStartTheDialogs) {
    write("053.npc", testutil::script({1}));
    parlex::Settings s;
    s.width = 12345; // the window's own: passed through untouched
    s.options.toolTips = s.options.autoLoad = s.options.rememberPath = true;
    s.options.findEdtName = false;
    s.options.phraseBackColour = 0xFFFF80;
    s.scriptPath = (dir / "053.npc").string();
    s.speechPath = (dir / "053.EDT").string();
    QSignalSpy restyled(&session, &Session::optionsChanged);
    session.restore(s);
    EXPECT_EQ(session.options(), s.options);
    EXPECT_EQ(restyled.count(), 1);
    EXPECT_EQ(session.remembered(s), s);

    prompts.cancelDialog();
    session.flows().open();
    EXPECT_EQ(prompts.requests.back().folder, QString::fromStdString(dir.path().string()));
    EXPECT_EQ(prompts.requests.back().proposedName, "053.npc");
    prompts.cancelDialog();
    session.speech().open();
    EXPECT_EQ(prompts.requests.back().proposedName, "053.EDT");
}

} // namespace
} // namespace sessiontest
