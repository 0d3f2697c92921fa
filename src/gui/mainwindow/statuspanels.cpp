#include "mainwindow/statuspanels.h"

#include <QHBoxLayout>

namespace parlex::gui {

StatusPanels::StatusPanels(const QString& name, int panels, int stretch, QWidget* parent)
    : QFrame(parent) {
    setObjectName(name);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (int i = 1; i <= panels; ++i) {
        auto* label = new QLabel(this);
        label->setObjectName(name + "_" + QString::number(i));
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setMinimumWidth(16);
        label->setTextFormat(Qt::PlainText);
        layout->addWidget(label, i == stretch ? 1 : 0);
        labels_.push_back(label);
    }
}

} // namespace parlex::gui
