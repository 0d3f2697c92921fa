#include "mainwindow/explanationbar.h"

#include "mainwindow/elidedlabel.h"

#include <QHBoxLayout>

namespace parlex::gui {

const QColor ExplanationBar::kAlert{192, 0, 0};

ExplanationBar::ExplanationBar(QWidget* parent) : QFrame(parent) {
    setObjectName("Frame1");
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setSpacing(0);
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
    layout->addWidget(info_);
    layout->addWidget(remark_); // right behind the sentence
    layout->addStretch(1);
    setMinimumHeight(info_->sizeHint().height() + 8);
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
}

} // namespace parlex::gui
