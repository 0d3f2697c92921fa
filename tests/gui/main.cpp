// Runs every Qt Test class of the window; the exit status counts the failed ones.
#include <QApplication>
#include <QTest>

#include "gui/testclasses.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    int failed = 0;
    {
        KeyMapTest t;
        failed += QTest::qExec(&t, argc, argv);
    }
    {
        MainWindowTest t;
        failed += QTest::qExec(&t, argc, argv);
    }
    return failed;
}
