// The options dialog as the user works it, the program's pictures, and help.
#include "core/association/registryassociation.h"
#include "gui/app/statuspanels.h"
#include "gui/settings/optionsdialog.h"
#include "memoryregistry.h"
#include "windowtest.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QGroupBox>
#include <QPushButton>
#include <QTabBar>

using namespace parlex;
using namespace parlex::gui;

// Records what the desktop was asked to open.
class UrlRecorder : public QObject {
    Q_OBJECT
public:
    QList<QUrl> opened;
public slots:
    void open(const QUrl& url) { opened << url; }
};

class OptionsDialogTest : public testutil::WindowTest {
    Q_OBJECT
private slots:
    void init() {
        makeWindow();
        registry = new testutil::MemoryRegistry;
        win().setAssociation(std::make_unique<RegistryAssociation>(*registry, "C:\\P\\Parlex.exe"));
    }
    void cleanup() {
        QCOMPARE(f->prompts.unexpected, 0);
        f.reset();
        delete registry;
    }
    void theMenuOpensItOnTheLoadingTab();
    void theTabsShowTheirControlsInAFrameOfOneSize();
    void clicksReachTheOptionsAndClosingStoresTheRest();
    void theAssociationBoxTiesScripts();
    void aListButtonWritesItsFile();
    void helpOpensThroughTheDesktopOrSaysWhyNot();

private:
    testutil::MemoryRegistry* registry = nullptr;

    OptionsDialog* dialog() { return win().findChild<OptionsDialog*>("Options"); }
    template <typename T = QWidget> T* in(const char* name) {
        return dialog()->findChild<T*>(name);
    }
    OptionsDialog* openDialog() {
        // A dialog closed before is gone first, so that only the new one is found.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        act("nOptions")->trigger();
        auto* d = dialog();
        if (d) [[maybe_unused]]
            const bool shown = QTest::qWaitForWindowExposed(d);
        return d;
    }
    void click(const char* name) { QTest::mouseClick(in<QAbstractButton>(name), Qt::LeftButton); }
    bool shown(const char* name) { return in(name)->isVisible(); }
};

void OptionsDialogTest::theMenuOpensItOnTheLoadingTab() {
    QVERIFY(openDialog());
    QCOMPARE(dialog()->windowTitle(), QString("PARLEX Параметры..."));
    QVERIFY(dialog()->isModal());
    QCOMPARE(in<QTabBar>("TabStrip")->currentIndex(), 0);
    QCOMPARE(in<QTabBar>("TabStrip")->tabText(1), QString("Интерфейс"));
    QVERIFY(in<QCheckBox>("Check")->isChecked());
    // Centred over the window.
    const QPoint middle = win().frameGeometry().center() - dialog()->frameGeometry().center();
    QVERIFY2(qAbs(middle.x()) <= 2 && qAbs(middle.y()) <= 2,
             qPrintable(QString("%1,%2").arg(middle.x()).arg(middle.y())));
    QTest::keyClick(dialog(), Qt::Key_Escape);
    QTRY_VERIFY(!dialog());
}

void OptionsDialogTest::theTabsShowTheirControlsInAFrameOfOneSize() {
    QVERIFY(openDialog());
    const QSize size = dialog()->size();
    const char* const listTab[] = {"ComReact", "ComAction", "ComTrig", "ComItem", "ComName",
                                   "ComQi",    "ComQo",     "ComAll",  "Check"};
    const char* const interfaceTab[] = {"CheckR", "CheckA",  "CheckH", "CheckM",
                                        "CheckS", "CheckS1", "CheckUS"};
    for (int tab : {1, 0}) {
        in<QTabBar>("TabStrip")->setCurrentIndex(tab);
        QCOMPARE(in<QGroupBox>("Frame1")->title(), QString(tab ? "Разное" : "Извлечь список"));
        for (const char* name : listTab)
            QVERIFY2(shown(name) == (tab == 0), name);
        for (const char* name : interfaceTab)
            QVERIFY2(shown(name) == (tab == 1), name);
        QCOMPARE(dialog()->size(), size);
        for (const char* name : interfaceTab) // nothing of tab 2 is cut off
            QVERIFY2(tab == 0 || dialog()->rect().contains(
                                     QRect(in(name)->mapTo(dialog(), QPoint()), in(name)->size())),
                     name);
    }
    click("ComOK");
    QTRY_VERIFY(!dialog());
}

void OptionsDialogTest::clicksReachTheOptionsAndClosingStoresTheRest() {
    win().session().updateOptions([&](auto& o) { o.animationOff = true; });
    QVERIFY(openDialog());
    in<QTabBar>("TabStrip")->setCurrentIndex(1);
    click("CheckH");
    QVERIFY(win().session().options().toolTips);
    click("CheckS"); // the boxes follow the model (whose rules are the session's)
    QVERIFY(in<QCheckBox>("CheckUS")->isChecked() && !win().session().options().rememberPath);
    QTest::keyClick(dialog(), Qt::Key_Escape);
    QVERIFY2(!dialog() || !dialog()->isVisible(), "closed at once with the animation off");
    QVERIFY(win().session().options().rememberPath);

    QVERIFY(openDialog());
    QVERIFY(in<QCheckBox>("CheckUS")->isChecked());
    QCOMPARE(in<QTabBar>("TabStrip")->currentIndex(), 0); // a new opening starts on tab 1
    click("ComOK");
}

void OptionsDialogTest::theAssociationBoxTiesScripts() {
    QVERIFY(openDialog());
    in<QTabBar>("TabStrip")->setCurrentIndex(1);
    QVERIFY(!in<QCheckBox>("CheckR")->isChecked());
    click("CheckR");
    QCOMPARE(registry->keys.at("parlex\\shell\\open\\command"),
             std::string("C:\\P\\Parlex.exe %1"));
    click("ComOK");
    QTRY_VERIFY(!dialog());
    QVERIFY(openDialog());
    QVERIFY(in<QCheckBox>("CheckR")->isChecked());
    click("ComOK");

    win().setAssociation(nullptr);
    QTRY_VERIFY(!dialog());
    QVERIFY(openDialog());
    QVERIFY(!in<QCheckBox>("CheckR")->isEnabled());
    click("ComOK");
}

void OptionsDialogTest::aListButtonWritesItsFile() {
    QVERIFY(openDialog());
    click("ComName");
    QVERIFY(std::filesystem::exists(f->dir / "Npc.txt"));
    click("ComOK");
}

void OptionsDialogTest::helpOpensThroughTheDesktopOrSaysWhyNot() {
    testutil::writeText(f->dir / "Parlex.html", "<html></html>");
    // The offscreen platform has no desktop to hand the file to.
    win().openHelp();
    QVERIFY(f->prompts.messages.back().text.startsWith(
        "Не удается открыть файл справки " + QString::fromStdString(f->dir.path().string())));
    // An installed program finds it in the shared folder beside its bin folder.
    const auto shared = f->dir / "share" / "parlex" / "Parlex.html";
    std::filesystem::create_directories(f->dir / "bin");
    std::filesystem::create_directories(shared.parent_path());
    std::filesystem::copy_file(f->dir / "Parlex.html", shared);
    MainWindow installed(f->prompts, f->dir / "bin");
    UrlRecorder recorder;
    QDesktopServices::setUrlHandler("file", &recorder, "open");
    const auto before = f->prompts.messages.size();
    win().openHelp();
    installed.openHelp();
    QDesktopServices::unsetUrlHandler("file");
    const auto url = [](const std::filesystem::path& p) {
        return QUrl::fromLocalFile(QString::fromStdString(p.string()));
    };
    QCOMPARE(recorder.opened, (QList<QUrl>{url(f->dir / "Parlex.html"), url(shared)}));
    QCOMPARE(f->prompts.messages.size(), before);
}

QTEST_MAIN(OptionsDialogTest)
#include "optionsdialog_test.moc"
