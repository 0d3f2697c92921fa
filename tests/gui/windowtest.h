#pragma once

// A main window over a temporary folder, answered by a script, with the ways the
// GUI tests look at it and drive it.
#include "gui/mainwindow/bytegrid.h"
#include "gui/mainwindow/mainwindow.h"
#include "scriptedprompts.h"
#include "testutil.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QTest>
#include <memory>

namespace testutil {

class WindowTest : public QObject {
protected:
    struct Fixture {
        TempDir dir;
        ScriptedPrompts prompts;
        std::unique_ptr<parlex::gui::MainWindow> window;
    };
    std::unique_ptr<Fixture> f;

    void makeWindow() {
        f = std::make_unique<Fixture>();
        f->window = std::make_unique<parlex::gui::MainWindow>(f->prompts, f->dir.path());
        win().show();
        win().activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&win()));
    }

    parlex::gui::MainWindow& win() { return *f->window; }
    template <typename T = QWidget> T* child(const QString& name) {
        return win().findChild<T*>(name);
    }
    QAction* act(const QString& name) { return win().findChild<QAction*>(name); }
    parlex::gui::ByteGrid* grid() { return child<parlex::gui::ByteGrid>("Frame"); }
    QString cellText(int i) { return grid()->text(i); }
    QPoint cellCentre(int i) { return grid()->cellRect(i).center(); }
    QString info() { return child<QLabel>("LblInfo")->text(); }

    QString write(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        writeBytes(f->dir / name, bytes);
        return QString::fromStdString((f->dir / name).string());
    }
    bool open(const QString& path) { return win().session().flows().openPath(path.toStdString()); }
    void hoverOn(int index) {
        const QPointF at = cellCentre(index);
        QMouseEvent move(QEvent::MouseMove, at, grid()->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(grid(), &move);
    }
    void clickOn(int index, Qt::MouseButton button) {
        QTest::mousePress(grid(), button, Qt::NoModifier, cellCentre(index));
    }
    bool changed() { return win().session().script()->isChanged(); }
};

} // namespace testutil
