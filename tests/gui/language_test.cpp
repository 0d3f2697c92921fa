// The window in English and back in Russian, without a restart: the language chosen
// in the options dialog reaches every text at once.
#include "gui/mainwindow/helptext.h"
#include "gui/settings/optionsdialog.h"
#include "windowtest.h"

#include <QComboBox>
#include <QMenu>
#include <QTabBar>

using namespace parlex;
using namespace parlex::gui;

class LanguageTest : public testutil::WindowTest {
    Q_OBJECT
private slots:
    void init() { makeWindow(); }
    void cleanup() {
        win().session().updateOptions([](Options& o) { o.language = Language::Russian; });
        QCOMPARE(f->prompts.unexpected, 0);
        f.reset();
    }
    void theOptionsSwitchEveryTextBothWays();
};

// What the window says, in the places that show each kind of text: a menu, a menu
// item with its hot key, the status bar, the help text, the sentence, a dialog.
void LanguageTest::theOptionsSwitchEveryTextBothWays() {
    QVERIFY(open(write("a.npc", testutil::script({1}))));
    hoverOn(0);
    OptionsDialog dialog(win().session(), nullptr, &win());
    auto* choice = dialog.findChild<QComboBox*>("ComboLanguage");
    QVERIFY(choice);
    const auto texts = [&] {
        return QStringList{win().findChild<QMenu*>("nFile")->title(),
                           act("nSave")->text(),
                           act("nOq")->text(),
                           child<HelpText>("LblHelp")->text().section('\n', 0, 0),
                           info(),
                           dialog.findChild<QTabBar*>("TabStrip")->tabText(1),
                           dialog.windowTitle()};
    };
    const QStringList russian = texts();
    QCOMPARE(russian.mid(0, 3),
             (QStringList{"&Файл", "&Сохранить\tAlt+S (F2)", "Коды Завершенных &квестов"}));
    QVERIFY(russian[3].startsWith("Байты 01-02"));
    QCOMPARE(russian[5], QString("Интерфейс"));

    for (const auto& [index, expected] :
         {std::pair{1, QStringList{"&File", "&Save\tAlt+S (F2)", "Codes of quests &completed",
                                   "Bytes 01-02 (as Word) - How the record fires.",
                                   "This record fires every time, without passing on to the "
                                   "standard records",
                                   "Interface"}},
          std::pair{0, russian.mid(0, 6)}}) {
        choice->setCurrentIndex(index);
        emit choice->activated(index);
        QCOMPARE(texts().mid(0, 6), expected);
        QVERIFY(texts()[6].endsWith(index ? " Options..." : " Параметры..."));
    }
    QCOMPARE(texts(), russian);
}

QTEST_MAIN(LanguageTest)
#include "language_test.moc"
