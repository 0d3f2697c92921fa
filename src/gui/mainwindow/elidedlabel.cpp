#include "gui/mainwindow/elidedlabel.h"

#include "gui/app/accessibletext.h"

#include <QEvent>
#include <QPainter>
#include <QResizeEvent>

namespace parlex::gui {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    markAsStaticText(this); // the whole text, also where the line shows it cut
}

void ElidedLabel::setFullText(const QString& text) {
    if (text == this->text())
        return;
    setText(text);
    measure();
    announceTextChange(this);
}

void ElidedLabel::measure() {
    advance_ = fontMetrics().horizontalAdvance(text());
    shownWidth_ = -1;
    updateToolTip();
}

bool ElidedLabel::isElided() const {
    return advance_ > contentsRect().width();
}

QSize ElidedLabel::sizeHint() const {
    const QMargins m = contentsMargins();
    const int frame = 2 * (frameWidth() + margin());
    return {advance_ + m.left() + m.right() + frame,
            fontMetrics().height() + m.top() + m.bottom() + frame};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(QStringLiteral("…")) * 3, sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    const QRect area = contentsRect();
    if (area.width() != shownWidth_) {
        shownWidth_ = area.width();
        shown_.setText(advance_ > area.width()
                           ? fontMetrics().elidedText(text(), Qt::ElideRight, area.width())
                           : text());
        shown_.setTextFormat(Qt::PlainText);
        shown_.prepare(QTransform(), font());
    }
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const int top = area.top() + (area.height() - fontMetrics().height()) / 2;
    const int free = area.width() - static_cast<int>(shown_.size().width());
    const Qt::Alignment h = alignment() & Qt::AlignHorizontal_Mask;
    const int left = area.left() + (h & Qt::AlignRight     ? free
                                    : h & Qt::AlignHCenter ? free / 2
                                                           : 0);
    painter.drawStaticText(left, top, shown_);
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    updateToolTip();
}

void ElidedLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        measure();
}

void ElidedLabel::updateToolTip() {
    setToolTip(isElided() ? text() : QString());
}

} // namespace parlex::gui
