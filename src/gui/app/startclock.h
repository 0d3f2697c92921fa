#pragma once

// Where the start of the program goes. With PARLEX_START_TIMES set in the
// environment, the steps of the start are marked as they end, and at the end of the
// window's first paint each step's milliseconds go to standard error and the program
// quits. Without it nothing is measured or written.
#include <QElapsedTimer>
#include <QObject>

#include <utility>
#include <vector>

class QWidget;

namespace parlex::gui {

class StartClock : public QObject {
public:
    StartClock();
    ~StartClock() override;
    StartClock(const StartClock&) = delete;
    StartClock& operator=(const StartClock&) = delete;

    // The step that just ended, on the clock that runs (if one does).
    static void mark(const char* step);
    // Stops the clock at the end of `window`'s first paint.
    void watch(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void report();

    QElapsedTimer timer_;
    std::vector<std::pair<const char*, qint64>> steps_; // name, nanoseconds since the start
};

} // namespace parlex::gui
