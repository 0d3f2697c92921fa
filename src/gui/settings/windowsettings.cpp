#include "gui/settings/windowsettings.h"

#include "core/settings/settingsfile.h"
#include "gui/overview/overviewpane.h"
#include "session/session.h"

#include <QEvent>
#include <QMainWindow>
#include <QScreen>
#include <QSplitter>
#include <QTimer>
#include <functional>

namespace parlex::gui {
namespace {

constexpr int kTwips = 15;
// The frame counted around the inner size: the old program's window border.
constexpr int kFrameWidth = 8;
constexpr int kFrameHeight = 46;

// Where a splitter's bar lies in the window, across its direction, in pixels.
int barPosition(QWidget& w, QSplitter& splitter) {
    const QPoint at = splitter.handle(1)->mapTo(&w, QPoint(0, 0));
    return splitter.orientation() == Qt::Vertical ? at.y() : at.x();
}

// Moves a splitter's bar to `position` in window pixels.
void placeBar(QWidget& w, QSplitter& splitter, int position) {
    const bool vertical = splitter.orientation() == Qt::Vertical;
    const QPoint origin = splitter.mapTo(&w, QPoint(0, 0));
    const int total = (vertical ? splitter.height() : splitter.width()) - splitter.handleWidth();
    const int first = std::clamp(position - (vertical ? origin.y() : origin.x()), 0, total);
    splitter.setSizes({first, total - first});
}

// Runs a task once, after the window it watches was first shown and laid out.
class OnFirstShow : public QObject {
public:
    OnFirstShow(QWidget* window, std::function<void()> task)
        : QObject(window), task_(std::move(task)) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, watched, task_);
            deleteLater();
        }
        return false;
    }

private:
    std::function<void()> task_;
};

} // namespace

void restoreWindow(const WindowParts& parts, const std::filesystem::path& file) {
    QWidget& w = parts.window;
    const QScreen* screen = w.screen();
    const QRect area = screen ? screen->geometry() : QRect(0, 0, 1024, 768);
    Settings s;
    s.width = (w.width() + kFrameWidth) * kTwips;
    s.height = (w.height() + kFrameHeight) * kTwips;
    s.top = w.y() * kTwips;
    s.left = w.x() * kTwips;
    const bool found =
        readSettingsFile(file, s,
                         {double(area.width() * kTwips), double(area.height() * kTwips),
                          double(kFrameWidth * kTwips), double(kFrameHeight * kTwips)});
    parts.session.restore(s); // the window shows the options restored

    w.resize(int(s.width) / kTwips - kFrameWidth, int(s.height) / kTwips - kFrameHeight);
    if (s.overview.shown) { // the window's height already holds it
        OverviewPane* pane = parts.overview(true);
        if (auto* main = qobject_cast<QMainWindow*>(&w))
            main->addDockWidget(Qt::DockWidgetArea(s.overview.area), pane);
        pane->setTab(s.overview.tab);
        pane->setColumnWidths(pane->records(), s.overview.recordColumns);
        pane->setColumnWidths(pane->phrases(), s.overview.phraseColumns);
    }
    w.move(area.x() + int(s.left) / kTwips, area.y() + int(s.top) / kTwips);
    if (!found)
        return; // the bars stay as designed
    // The bars are placed once the window is shown and laid out at its new size.
    const int top = int(s.splitterTop) / kTwips;
    const int left = int(s.splitterLeft) / kTwips;
    const auto place = [parts, top, left] {
        placeBar(parts.window, parts.helpBar, top);
        placeBar(parts.window, parts.paneBar, left);
    };
    if (w.isVisible())
        place();
    else
        w.installEventFilter(new OnFirstShow(&w, place));
}

void saveWindow(const WindowParts& parts, const std::filesystem::path& file) {
    QWidget& w = parts.window;
    const QScreen* screen = w.screen();
    const QPoint origin = screen ? screen->geometry().topLeft() : QPoint();
    Settings s;
    s.left = (w.x() - origin.x()) * kTwips;
    s.top = (w.y() - origin.y()) * kTwips;
    s.width = (w.width() + kFrameWidth) * kTwips;
    s.height = (w.height() + kFrameHeight) * kTwips;
    s.splitterTop = barPosition(w, parts.helpBar) * kTwips;
    s.splitterLeft = barPosition(w, parts.paneBar) * kTwips;
    if (OverviewPane* pane = parts.overview(false)) {
        auto* main = qobject_cast<QMainWindow*>(&w);
        s.overview = {pane->isVisibleTo(&w), pane->tab(),
                      main ? int(main->dockWidgetArea(pane)) : 8,
                      pane->columnWidths(pane->records()), pane->columnWidths(pane->phrases())};
    }
    std::error_code ignored; // a folder that cannot be made fails the write below
    std::filesystem::create_directories(file.parent_path(), ignored);
    // Nothing is said when the file cannot be written: the next start has defaults.
    (void)writeSettingsFile(file, parts.session.remembered(s));
}

} // namespace parlex::gui
