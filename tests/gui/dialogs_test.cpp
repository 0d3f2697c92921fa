// Qt's own dialogs as the user meets them: Russian texts and the filter lists.
#include "gui/app/deferredicons.h"
#include "gui/app/drawings.h"
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
    void filterListShowsTheTextsExactly();
    void fontSizesStayWithinTheLimits();
    void qtPicturesAreTheStylesOnceDrawn();
    void theProgramsPicturesComeInEverySizeDrawn();
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

// The dialog's list shows the texts as written, with no pattern appended, while the
// patterns still decide which files are listed and the chosen one is told apart.
void DialogsTest::filterListShowsTheTextsExactly() {
    using Filters = std::vector<DialogPrompts::Filter>;
    for (const Filters& filters :
         {Filters{{"*.npc", "*.npc"}, {"все файлы (*.*)", "*"}},
          Filters{{"Buka: АВ", "*.npc"}, {"Ja2:eng.,UB:eng.&rus.", "*.npc"}}}) {
        QFileDialog dialog;
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setOption(QFileDialog::HideNameFilterDetails);
        dialog.setNameFilters(DialogPrompts::qtFilters(filters));
        auto* combo = dialog.findChild<QComboBox*>("fileTypeCombo");
        QVERIFY(combo);
        QCOMPARE(combo->count(), int(filters.size()));
        for (int number = 1; number <= combo->count(); ++number) {
            QCOMPARE(combo->itemText(number - 1), filters[number - 1].text);
            dialog.selectNameFilter(DialogPrompts::qtFilters(filters)[number - 1]);
            QCOMPARE(DialogPrompts::filterNumber(filters, dialog.selectedNameFilter()), number);
        }
    }
}

void DialogsTest::fontSizesStayWithinTheLimits() {
    // The size the dialog starts with, what is typed into the size box, the size chosen.
    const std::tuple<double, QString, double> cases[] = {
        {9.75, "", 9.75}, {30.0, "", 18.0}, {10.0, "2", 10.0}, {10.0, "12", 12.0}};
    for (const auto& [start, typed, chosen] : cases) {
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
        QVERIFY(font.bold && font.italic && !font.family.empty());
    }
}

// Qt's own pictures are read when first drawn, and then are what the style draws.
void DialogsTest::qtPicturesAreTheStylesOnceDrawn() {
    parlex::gui::DeferredIconStyle style;
    for (auto picture : {QStyle::SP_ToolBarHorizontalExtensionButton, QStyle::SP_MessageBoxWarning,
                         QStyle::SP_DialogOkButton}) {
        const QIcon deferred = style.standardIcon(picture);
        QVERIFY(!deferred.isNull());
        QCOMPARE(deferred.pixmap(32).toImage(),
                 style.baseStyle()->standardIcon(picture).pixmap(32).toImage());
    }
}

// Drawn at build time: every size, each with something in its middle.
void DialogsTest::theProgramsPicturesComeInEverySizeDrawn() {
    QCOMPARE(parlex::gui::programIcon().availableSizes(),
             (QList<QSize>{{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}}));
    QCOMPARE(parlex::gui::aboutPicture().availableSizes().last(), QSize(128, 128));
    QCOMPARE(parlex::gui::scriptIcon().availableSizes(), (QList<QSize>{{16, 16}, {32, 32}}));
    for (const QIcon& icon : {parlex::gui::aboutPicture(), parlex::gui::scriptIcon()})
        QVERIFY(icon.pixmap(16).toImage().pixelColor(8, 8).alpha() > 0);
}

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
