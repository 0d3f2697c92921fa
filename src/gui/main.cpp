// parlex: the desktop editor of .npc scripts.
#include "core/association/systemassociation.h"
#include "core/platform/files.h"
#include "core/settings/locations.h"
#include "gui/app/deferredicons.h"
#include "gui/app/drawings.h"
#include "gui/app/startclock.h"
#include "gui/app/translations.h"
#include "gui/mainwindow/mainwindow.h"
#include "gui/prompts/dialogprompts.h"
#include "gui/settings/windowsettings.h"
#include "session/pathtext.h"

#include <QApplication>
#include <QFileInfo>

int main(int argc, char** argv) {
    using parlex::gui::StartClock;
    StartClock clock; // PARLEX_START_TIMES=1: where the start goes
    QApplication app(argc, argv);
    StartClock::mark("QApplication (display, platform)");
    QApplication::setApplicationName("parlex"); // the user's folders are named after it
    QApplication::setStyle(new parlex::gui::DeferredIconStyle); // Qt's pictures when drawn
    QApplication::setWindowIcon(parlex::gui::programIcon());
    QGuiApplication::setDesktopFileName("org.parlex.Parlex");
    StartClock::mark("style and icon");
    parlex::gui::applyLanguage(parlex::Language::Russian); // the settings may change it
    StartClock::mark("Qt's translations");
    parlex::gui::DialogPrompts prompts;
    parlex::gui::MainWindow window(prompts, parlex::platform::programDir());
    prompts.setParent(&window);
    window.setAssociation(
        parlex::systemAssociation(parlex::session::pathOf(QApplication::applicationFilePath())));
    StartClock::mark("file association");
    // Read once before the window shows, written once at the end: a crash keeps
    // the settings of the last run that ended.
    const auto settingsFile = parlex::locations(parlex::platform::programDir()).settingsFile;
    parlex::gui::restoreWindow(window.settingsParts(), settingsFile);
    StartClock::mark("settings read and applied");
    QStringList arguments = QApplication::arguments();
    arguments.removeFirst();
    if (!window.session().start(arguments,
                                QFileInfo(QApplication::applicationFilePath()).fileName()))
        return 0;
    StartClock::mark("script and speech file read and shown");
    clock.watch(&window);
    window.show();
    StartClock::mark("window shown");
    const int status = QApplication::exec();
    parlex::gui::saveWindow(window.settingsParts(), settingsFile);
    return status;
}
