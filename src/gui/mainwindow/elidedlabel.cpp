#include "mainwindow/elidedlabel.h"

#include <QPainter>
#include <QResizeEvent>

namespace parlex::gui {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setFullText(const QString& text) {
    if (text == this->text())
        return;
    setText(text);
    updateToolTip();
}

bool ElidedLabel::isElided() const {
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(QStringLiteral("…")) * 3, QLabel::sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect area = contentsRect();
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(area, static_cast<int>(alignment()),
                     fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    updateToolTip();
}

void ElidedLabel::updateToolTip() {
    setToolTip(isElided() ? text() : QString());
}

} // namespace parlex::gui
