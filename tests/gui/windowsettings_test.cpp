// The window between runs: a first start centred, and a start after a run that
// brings back the place, size, bars, the help text's look and the phrase text's.
#include "core/settings/settingsfile.h"
#include "gui/mainwindow/helppanel.h"
#include "gui/overview/overviewpane.h"
#include "gui/settings/windowsettings.h"
#include "windowtest.h"

#include <QLayout>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSplitter>

using namespace parlex;
using namespace parlex::gui;

class WindowSettingsTest : public testutil::WindowTest {
    Q_OBJECT
private slots:
    void init() { makeWindow(); }
    void cleanup() { f.reset(); }
    void aFirstStartIsCentred();
    void aStartAfterARunBringsItAllBack();

private:
    static int bar(MainWindow& w, const char* name) {
        auto* s = w.findChild<QSplitter*>(name);
        const QPoint at = s->handle(1)->mapTo(&w, QPoint(0, 0));
        return s->orientation() == Qt::Vertical ? at.y() : at.x();
    }
};

void WindowSettingsTest::aFirstStartIsCentred() {
    MainWindow fresh(f->prompts, f->dir.path());
    restoreWindow(fresh.settingsParts(), f->dir / "none.ini");
    fresh.show();
    QVERIFY(QTest::qWaitForWindowExposed(&fresh));
    QCoreApplication::processEvents();
    QCOMPARE(bar(fresh, "Pic1"), bar(win(), "Pic1")); // the bars stay as designed
    const QRect area = fresh.screen()->geometry();
    QVERIFY(qAbs(fresh.x() - (area.x() + (area.width() - fresh.width() - 8) / 2)) <= 1);
    QVERIFY(qAbs(fresh.y() - (area.y() + (area.height() - fresh.height() - 46) / 2)) <= 1);
}

void WindowSettingsTest::aStartAfterARunBringsItAllBack() {
    win().resize(700, 520);
    win().move(30, 40);
    QCoreApplication::processEvents();
    win().findChild<QSplitter*>("Pic3")->setSizes({120, 300});
    win().findChild<QSplitter*>("Pic1")->setSizes({250, 400});
    win().session().updateOptions([](auto& o) {
        o.toolTips = true;
        o.helpFontSize = 12;
        o.helpAlignment = 1;
        o.phraseFont = {"Serif", 13, false, true};
        o.phraseBackColour = 0xFFFF80;
    });
    OverviewPane* shown = win().overviewPane(true);
    shown->setTab(1);
    shown->setColumnWidths(shown->records(), {70});
    const int helpBar = bar(win(), "Pic3");
    const int paneBar = bar(win(), "Pic1");
    const auto file = f->dir / "Parlex.ini";
    saveWindow(win().settingsParts(), file);
    QVERIFY(std::filesystem::exists(file));

    MainWindow next(f->prompts, f->dir.path());
    restoreWindow(next.settingsParts(), file);
    next.show();
    QVERIFY(QTest::qWaitForWindowExposed(&next));
    QCoreApplication::processEvents();
    QCOMPARE(next.size(), QSize(700, 520));
    QCOMPARE(next.pos(), QPoint(30, 40));
    OverviewPane* pane = next.overviewPane(false);
    QVERIFY(pane && pane->isVisible());
    QCOMPARE(pane->tab(), 1);
    QCOMPARE(pane->columnWidths(pane->records()).front(), 70);
    QCOMPARE(bar(next, "Pic3"), helpBar);
    QCOMPARE(bar(next, "Pic1"), paneBar);
    QVERIFY(next.session().options().toolTips);
    auto* help = next.findChild<HelpPanel*>();
    QCOMPARE(help->fontSize(), 12);
    QCOMPARE(help->alignmentIndex(), 1);
    const auto* text = next.findChild<QPlainTextEdit*>("Txt");
    // The phrase font waits for a phrase to show: here, a new speech document.
    next.session().speech().newDocument(EdtKind::NpcDialogues);
    QCOMPARE(std::tuple(text->font().family(), text->font().pointSizeF(), text->font().italic()),
             std::tuple(QString("Serif"), 13.0, true));
    QCOMPARE(text->palette().color(QPalette::Base), QColor(0xFF, 0xFF, 0x80));
}

QTEST_MAIN(WindowSettingsTest)
#include "windowsettings_test.moc"
