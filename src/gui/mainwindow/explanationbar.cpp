#include "gui/mainwindow/explanationbar.h"

#include "gui/mainwindow/elidedlabel.h"

#include <algorithm>

namespace parlex::gui {

const QColor ExplanationBar::kAlert{192, 0, 0};

ExplanationBar::ExplanationBar(QWidget* parent) : SelfPlacingFrame(parent) {
    setObjectName("Frame1");
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    info_ = new ElidedLabel(this);
    info_->setObjectName("LblInfo");
    remark_ = new ElidedLabel(this);
    remark_->setObjectName("LblSize");
    QFont bold = remark_->font();
    bold.setBold(true);
    remark_->setFont(bold);
    QPalette red = remark_->palette();
    red.setColor(QPalette::WindowText, kAlert);
    remark_->setPalette(red);
    remark_->hide();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ExplanationBar::sizeHint() const {
    return {100, info_->sizeHint().height() + 2 * frameWidth() + 6};
}

void ExplanationBar::placeChildren() {
    const QRect area = contentsRect().adjusted(4, 2, -4, -2);
    const int remarkWidth =
        remark_->isHidden() ? 0 : std::min(area.width() / 2, remark_->sizeHint().width());
    const int infoWidth = std::min(info_->sizeHint().width(), area.width() - remarkWidth);
    info_->setGeometry(area.x(), area.y(), infoWidth, area.height());
    remark_->setGeometry(area.x() + infoWidth, area.y(), remarkWidth, area.height());
}

void ExplanationBar::showExplanation(const Explanation& e) {
    info_->setFullText(QString::fromStdString(e.text));
    if (e.alert != alert_) {
        alert_ = e.alert;
        QPalette p = info_->palette();
        p.setColor(QPalette::WindowText, alert_ ? kAlert : palette().color(QPalette::ButtonText));
        info_->setPalette(p);
    }
    remark_->setFullText(QString::fromStdString(e.remark));
    remark_->setVisible(!e.remark.empty());
    placeChildren();
}

} // namespace parlex::gui
