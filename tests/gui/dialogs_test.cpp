// Qt's own dialogs as the user meets them: Russian texts and the filter lists.
#include "app/translations.h"
#include "prompts/dialogprompts.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPushButton>
#include <QTest>

using parlex::gui::DialogPrompts;

class DialogsTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void qtSpeaksRussian();
    void filterListShowsTheTextsExactly_data();
    void filterListShowsTheTextsExactly();
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
    QTest::newRow("save as") << QStringList{"*.NPC", "Все файлы"} << QStringList{"*.npc", "*"};
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

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
