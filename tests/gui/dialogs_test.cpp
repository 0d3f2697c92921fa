// Qt's own dialogs as the user meets them: Russian texts and the filter lists.
#include "gui/app/translations.h"
#include "gui/prompts/dialogprompts.h"
#include "gui/prompts/fontchooser.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QPushButton>
#include <QTest>

using parlex::gui::DialogPrompts;
using parlex::gui::FontChooser;

class DialogsTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void qtSpeaksRussian();
    void filterListShowsTheTextsExactly_data();
    void filterListShowsTheTextsExactly();
    void fontSizesStayWithinTheLimits_data();
    void fontSizesStayWithinTheLimits();
};

void DialogsTest::initTestCase() {
    QVERIFY2(parlex::gui::loadQtTranslations(*qApp),
             "qtbase_ru.qm not found (Debian package qt6-translations-l10n)");
}

void DialogsTest::qtSpeaksRussian() {
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString("Отмена"));
    QDialogButtonBox box(QDialogButtonBox::Open | QDialogButtonBox::Cancel);
    QCOMPARE(box.button(QDialogButtonBox::Cancel)->text(), QString("Отмена"));
}

void DialogsTest::filterListShowsTheTextsExactly_data() {
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("patterns");
    QTest::newRow("open") << QStringList{"*.npc", "все файлы (*.*)"} << QStringList{"*.npc", "*"};
    QTest::newRow("layouts") << QStringList{"Buka: АВ", "Ja2:eng.,UB:eng.&rus."}
                             << QStringList{"*.npc", "*.npc"};
}

// The dialog's list shows the texts as written, with no pattern appended, while the
// patterns still decide which files are listed.
void DialogsTest::filterListShowsTheTextsExactly() {
    QFETCH(QStringList, texts);
    QFETCH(QStringList, patterns);
    std::vector<DialogPrompts::Filter> filters;
    for (qsizetype i = 0; i < texts.size(); ++i)
        filters.push_back({texts[i], patterns[i]});
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(DialogPrompts::qtFilters(filters));
    auto* combo = dialog.findChild<QComboBox*>("fileTypeCombo");
    QVERIFY(combo);
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i)
        shown << combo->itemText(i);
    QCOMPARE(shown, texts);
    // The chosen filter is still told apart, though the dialog names it by its text.
    for (int number = 1; number <= int(filters.size()); ++number) {
        dialog.selectNameFilter(DialogPrompts::qtFilters(filters)[number - 1]);
        QCOMPARE(DialogPrompts::filterNumber(filters, dialog.selectedNameFilter()), number);
    }
}

void DialogsTest::fontSizesStayWithinTheLimits_data() {
    QTest::addColumn<double>("start");
    QTest::addColumn<QString>("typed"); // into the size box
    QTest::addColumn<double>("chosen");
    QTest::newRow("start kept") << 9.75 << QString() << 9.75;
    QTest::newRow("start too large") << 30.0 << QString() << 18.0;
    QTest::newRow("typed too small: refused") << 10.0 << "2" << 10.0;
    QTest::newRow("typed within") << 10.0 << "12" << 12.0;
}

void DialogsTest::fontSizesStayWithinTheLimits() {
    QFETCH(double, start);
    QFETCH(QString, typed);
    QFETCH(double, chosen);
    FontChooser dialog({"MS Sans Serif", start, false, true}, 4, 18);
    auto* size = dialog.findChild<QDoubleSpinBox*>("FontSize");
    if (!typed.isEmpty()) {
        size->selectAll();
        QTest::keyClicks(size, typed);
        size->interpretText();
        QTest::keyClick(size, Qt::Key_Tab);
    }
    dialog.findChild<QCheckBox*>("FontBold")->setChecked(true);
    const auto font = dialog.font();
    QCOMPARE(font.pointSize, chosen);
    QVERIFY(font.bold && font.italic);
    QVERIFY(!font.family.empty());
}

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
