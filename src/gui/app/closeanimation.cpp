#include "gui/app/closeanimation.h"

#include <QLayout>
#include <QPropertyAnimation>
#include <QWidget>

namespace parlex::gui {

void shrinkAway(QWidget* window, int milliseconds, std::function<void()> finished) {
    // A layout would hold the window at its minimum size: let it go for the last frames.
    if (QLayout* layout = window->layout())
        layout->setSizeConstraint(QLayout::SetNoConstraint);
    window->setMinimumSize(0, 0);
    const QRect from = window->geometry();
    auto* animation = new QPropertyAnimation(window, "geometry", window);
    animation->setDuration(milliseconds);
    animation->setStartValue(from);
    animation->setEndValue(QRect(from.center(), QSize(1, 1)));
    animation->setEasingCurve(QEasingCurve::InQuad);
    QObject::connect(animation, &QPropertyAnimation::finished, window, std::move(finished));
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace parlex::gui
