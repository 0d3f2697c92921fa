#include "gui/app/startclock.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace parlex::gui {
namespace {

StartClock* running = nullptr; // the clock of this start, while it runs

} // namespace

StartClock::StartClock() {
    if (qEnvironmentVariableIsEmpty("PARLEX_START_TIMES"))
        return;
    running = this;
    timer_.start();
}

StartClock::~StartClock() {
    if (running == this)
        running = nullptr;
}

void StartClock::mark(const char* step) {
    if (running)
        running->steps_.emplace_back(step, running->timer_.nsecsElapsed());
}

void StartClock::watch(QWidget* window) {
    if (running == this)
        window->installEventFilter(this);
}

bool StartClock::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        mark("first paint event");
        // The children paint in the same pass; the pass ends before the next turn.
        QTimer::singleShot(0, this, [this] {
            mark("painted");
            report();
            QCoreApplication::quit();
        });
    }
    return false;
}

void StartClock::report() {
    qint64 before = 0;
    for (const auto& [step, at] : steps_) {
        std::fprintf(stderr, "%8.2f ms %8.2f ms  %s\n", double(at - before) / 1e6, double(at) / 1e6,
                     step);
        before = at;
    }
}

} // namespace parlex::gui
