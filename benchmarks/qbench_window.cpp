// The window's speed, with Qt Test benchmarks on the offscreen platform. Each case
// has a baseline of plain Qt doing the least the same screen change needs, measured
// in the same process, so the two can be compared:
//   hover:  the mouse onto another field until the explanation is repainted, against
//           one plain label changing its text and being repainted;
//   list:   F5 (500 trigger rows) until the list is repainted, against 500 rows put
//           into a plain list widget one by one;
//   type:   a letter typed and deleted in the phrase text of a full file of NPC
//           dialogues, until repainted, against the same keys in a plain text box.
// Run: QT_QPA_PLATFORM=offscreen build/benchmarks/qbench_window -median 15
#include "core/speech/edtfile.h"
#include "gui/codes/codelistpane.h"
#include "gui/mainwindow/mainwindow.h"
#include "gui/prompts/dialogprompts.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTest>
#include <filesystem>

class WindowBench : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void hover();
    void hoverBaseline();
    void showList();
    void showListBaseline();
    void type();
    void typeBaseline();

private:
    void hoverOn(int index) {
        QLabel* label = window_->findChild<QLabel*>("Lbl" + QString::number(index));
        QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), label->mapToGlobal(QPointF(3, 3)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(label, &move);
    }
    static void repaintNow() { QCoreApplication::sendPostedEvents(); }

    parlex::gui::DialogPrompts prompts_;
    parlex::gui::MainWindow* window_ = nullptr;
};

void WindowBench::initTestCase() {
    window_ = new parlex::gui::MainWindow(prompts_, std::filesystem::temp_directory_path());
    window_->show();
    QVERIFY(QTest::qWaitForWindowExposed(window_));
    QVERIFY(window_->session().flows().openPath(PARLEX_EXAMPLE));
}

void WindowBench::cleanupTestCase() {
    delete window_;
}

void WindowBench::hover() {
    const int bytes[] = {3, 12, 22, 14}; // four fields of different widths
    int i = 0;
    QBENCHMARK {
        hoverOn(bytes[i++ % 4]);
        repaintNow();
    }
}

void WindowBench::hoverBaseline() {
    QLabel label;
    label.resize(600, 20);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    const QString texts[] = {"Запись не проверяет наличия предметов у НПЦ",
                             "Эта запись будет срабатывать всегда"};
    int i = 0;
    QBENCHMARK {
        label.setText(texts[i++ % 2]);
        repaintNow();
    }
}

void WindowBench::showList() {
    QAction* triggers = window_->findChild<QAction*>("nTrig");
    QBENCHMARK {
        triggers->trigger();
        repaintNow();
    }
    QCOMPARE(window_->findChild<parlex::gui::CodeListPane*>("List")->count(), 500);
}

void WindowBench::showListBaseline() {
    QListWidget list;
    list.resize(200, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QStringList rows;
    for (int i = 0; i < 500; ++i)
        rows << QString("№_%1 (%2) Триггер").arg(i).arg(i % 256, 2, 16, QChar('0'));
    QBENCHMARK {
        list.clear();
        for (const QString& row : rows)
            list.addItem(row);
        repaintNow();
    }
}

// Two keystrokes an iteration: a letter at the end of the phrase, and Backspace.
static void typeAndDelete(QPlainTextEdit* text) {
    QBENCHMARK {
        QTest::keyClick(text, Qt::Key_A);
        QCoreApplication::sendPostedEvents();
        QTest::keyClick(text, Qt::Key_Backspace);
        QCoreApplication::sendPostedEvents();
    }
}

void WindowBench::type() {
    using namespace parlex;
    EdtFile file = EdtFile::makeNew(EdtKind::NpcDialogues);
    for (int i = 0; i <= file.lastPhrase(); ++i) {
        std::string phrase;
        while (phrase.size() < 440)
            phrase += "Фраза номер " + std::to_string(i) + " я ";
        QVERIFY(file.setPhrase(i, phrase.substr(0, phrase.find(' ', 400))));
    }
    const auto path = std::filesystem::temp_directory_path() / "qbench_window.edt";
    QVERIFY(file.saveAs(path));
    QVERIFY(window_->session().speech().openPath(path, EdtKind::NpcDialogues));
    window_->session().speech().showPhrase(71);
    auto* text = window_->findChild<QPlainTextEdit*>("Txt");
    text->moveCursor(QTextCursor::End);
    typeAndDelete(text);
    std::filesystem::remove(path);
}

void WindowBench::typeBaseline() {
    QPlainTextEdit text;
    text.resize(400, 120);
    text.setPlainText(window_->findChild<QPlainTextEdit*>("Txt")->toPlainText());
    text.show();
    QVERIFY(QTest::qWaitForWindowExposed(&text));
    text.moveCursor(QTextCursor::End);
    typeAndDelete(&text);
}

QTEST_MAIN(WindowBench)
#include "qbench_window.moc"
