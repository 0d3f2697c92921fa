// Where settings and list files live: the core's rule, which the command-line tool
// uses without Qt, lands where Qt's own standard paths put them for the window.
#include "platform/files.h"
#include "settings/locations.h"
#include "testutil.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using parlex::locations;

// The user's folders as the desktop's variables name them, with and without them.
TEST(Locations, TheUsersFoldersAreWhereQtPutsThem) {
    testutil::TempDir dir;
    const QString savedName = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName("parlex");
    const auto restore = [&] {
        unsetenv("XDG_CONFIG_HOME");
        unsetenv("XDG_DATA_HOME");
        QCoreApplication::setApplicationName(savedName);
    };
    for (bool set : {true, false}) {
        if (set) {
            setenv("XDG_CONFIG_HOME", (dir / "config").c_str(), 1);
            setenv("XDG_DATA_HOME", (dir / "data").c_str(), 1);
        } else {
            unsetenv("XDG_CONFIG_HOME");
            unsetenv("XDG_DATA_HOME");
        }
        const auto l = locations("/nowhere", false, parlex::platform::userConfigHome(),
                                 parlex::platform::userDataHome());
        EXPECT_EQ(l.settingsFile.parent_path(),
                  QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation).toStdString())
            << set;
        EXPECT_EQ(l.listFolder,
                  QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString())
            << set;
    }
    restore();
}

} // namespace
