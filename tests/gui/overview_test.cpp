// The overview pane's wiring: shown and hidden from the menu and by Ctrl+T, a row
// click moves the grid, an edit refreshes its row, and the rows it marks.
#include "core/speech/edtfile.h"
#include "gui/overview/overviewpane.h"
#include "windowtest.h"

#include <QCheckBox>
#include <QClipboard>
#include <QSlider>
#include <QTableView>

using namespace parlex::gui;

class OverviewPaneTest : public testutil::WindowTest {
    Q_OBJECT
private slots:
    void init() {
        makeWindow();
        QVERIFY(open(write("o.npc", testutil::script({2, 5}))));
    }
    void cleanup() { f.reset(); }
    void theMenuAndCtrlTShowAndHideIt();
    void aRowClickShowsItsRecordAndAnEditItsRow();
    void aPhraseRowShowsThePhraseOrTheRecordThatSpeaksIt();

private:
    OverviewPane* pane() { return win().findChild<OverviewPane*>(); }
    QString cell(int row, int column) {
        return pane()->records()->model()->index(row, column).data().toString();
    }
};

void OverviewPaneTest::theMenuAndCtrlTShowAndHideIt() {
    QVERIFY(!pane());
    act("nOverview")->trigger();
    QVERIFY(pane() && pane()->isVisible());
    QVERIFY(act("nOverview")->isChecked());
    QTest::keyClick(&win(), Qt::Key_T, Qt::ControlModifier);
    QTRY_VERIFY(!pane()->isVisible());
    QVERIFY(!act("nOverview")->isChecked());
    QTest::keyClick(&win(), Qt::Key_T, Qt::ControlModifier);
    QTRY_VERIFY(pane()->isVisible());
}

void OverviewPaneTest::aRowClickShowsItsRecordAndAnEditItsRow() {
    act("nOverview")->trigger();
    QTableView* records = pane()->records();
    QCOMPARE(records->model()->rowCount(), 2);
    const QRect second = records->visualRect(records->model()->index(1, 1));
    QTest::mouseClick(records->viewport(), Qt::LeftButton, {}, second.center());
    QCOMPARE(child<QSlider>("Slider")->value(), 5);
    QCOMPARE(records->selectionModel()->selectedRows().value(0).row(), 1); // the row marked
    child<QSlider>("Slider")->setValue(2);
    QCOMPARE(records->selectionModel()->selectedRows().value(0).row(), 0);
    QVERIFY(!cell(0, 1).contains("№_3"));
    auto record = *win().session().cursor().currentRecord();
    record[0] = 3; // fire mode 3
    win().session().document().edit(1, record);
    QVERIFY(cell(0, 1).contains("№_3"));
    QCOMPARE(records->model()->index(0, 1).data(Qt::ForegroundRole), QVariant());
    QVERIFY(records->model()->index(0, 1).data(Qt::FontRole).value<QFont>().bold()); // a remark
    records->findChild<QAction*>("OverviewRecordsCopy")->trigger(); // the row marked
    QVERIFY(QGuiApplication::clipboard()->text().startsWith("2\t№_0 <"));
    pane()->findChild<QCheckBox*>("OverviewRecordsAll")->setChecked(true);
    QCOMPARE(records->model()->rowCount(), 50);
}

void OverviewPaneTest::aPhraseRowShowsThePhraseOrTheRecordThatSpeaksIt() {
    auto bytes = testutil::script({3});
    bytes[2 * 32 + 13] = 1; // record 3 says phrase 1
    QVERIFY(open(write("p.npc", bytes)));
    auto speech = parlex::EdtFile::makeNew(parlex::EdtKind::NpcDialogues);
    QVERIFY(speech.setPhrase(1, "Один"));
    QVERIFY(win().session().speech().openPath(write("p.edt", speech.toBytes()).toStdString(),
                                              parlex::EdtKind::NpcDialogues));
    act("nOverview")->trigger();
    QTableView* phrases = pane()->phrases();
    QCOMPARE(phrases->model()->rowCount(), 1);
    const QPoint at = phrases->visualRect(phrases->model()->index(0, 1)).center();
    QTest::mouseClick(phrases->viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(win().session().speech().phraseIndex(), 1);
    QCOMPARE(child<QSlider>("Slider")->value(), 1);
    QTest::mouseDClick(phrases->viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(child<QSlider>("Slider")->value(), 3);
}

QTEST_MAIN(OverviewPaneTest)
#include "overview_test.moc"
