// Where settings and list files live: the core's rule, which the command-line tool
// uses without Qt, lands where Qt's own standard paths put them for the window.
#include "core/platform/files.h"
#include "core/settings/locations.h"
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

// A writable folder is a portable install, unless the program is installed with
// its shared files beside its bin folder (as root can write to /usr/bin).
TEST(Locations, AnInstalledProgramIsNeverPortable) {
    testutil::TempDir dir;
    struct Case {
        const char* programDir;
        const char* made; // a folder made beside it, or null
        bool portable;
    };
    const Case cases[] = {
        {"portable", nullptr, true},
        {"usr/bin", "usr/share/parlex", false},
        {"usr/bin", nullptr, true},
        {"tools", "share/parlex", true},
    };
    for (const auto& c : cases) {
        const auto program = dir / c.programDir;
        std::filesystem::remove_all(dir.path() / "usr");
        std::filesystem::create_directories(program);
        if (c.made)
            std::filesystem::create_directories(dir / c.made);
        const auto l = locations(program);
        EXPECT_EQ(l.portable, c.portable) << c.programDir << " " << (c.made ? c.made : "");
        EXPECT_EQ(l.settingsFile.parent_path() == program, c.portable);
    }
}

} // namespace
