#include "gui/mainwindow/captionwarning.h"

#include <QWidget>

namespace parlex::gui {
namespace {

constexpr int kBlinkMilliseconds = 700;
constexpr int kWarnings = 4; // the fourth is never seen: it ends the warning

} // namespace

CaptionWarning::CaptionWarning(QWidget* window, QString bareTitle)
    : QObject(window), window_(window), bare_(std::move(bareTitle)) {
    timer_.setInterval(kBlinkMilliseconds);
    connect(&timer_, &QTimer::timeout, this, &CaptionWarning::tick);
}

void CaptionWarning::start(const QString& missingName) {
    timer_.stop();
    window_->setWindowTitle(bare_);
    count_ = 0;
    name_ = missingName;
    timer_.start();
    tick(); // the first warning at once
}

void CaptionWarning::tick() {
    if (window_->windowTitle() == bare_) {
        window_->setWindowTitle(bare_ + "    " +
                                tr("(Автозагрузка: Файл %1 - не найден)").arg(name_));
        ++count_;
    } else {
        window_->setWindowTitle(bare_);
    }
    if (count_ == kWarnings) {
        timer_.stop();
        window_->setWindowTitle(bare_);
    }
}

} // namespace parlex::gui
