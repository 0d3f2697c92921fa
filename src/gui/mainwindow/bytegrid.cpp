#include "mainwindow/bytegrid.h"

#include "explain/fieldlayout.h"
#include "text/hex.h"

#include <QGridLayout>
#include <QMouseEvent>

namespace parlex::gui {

const QColor ByteGrid::kHover{192, 255, 192};
const QColor ByteGrid::kPinned{255, 255, 0};

ByteGrid::ByteGrid(QWidget* parent) : QFrame(parent) {
    setObjectName("Frame");
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(0);
    QFont mono = font();
    mono.setStyleHint(QFont::Monospace);
    mono.setFamily("Monospace");
    for (int i = 0; i < 32; ++i) {
        auto* label = new QLabel(this);
        label->setObjectName("Lbl" + QString::number(i));
        label->setAlignment(Qt::AlignCenter);
        label->setFrameStyle(QFrame::Box | QFrame::Plain);
        label->setMinimumSize(16, 22);
        label->setFont(mono);
        label->setMouseTracking(true);
        label->setAutoFillBackground(true);
        label->installEventFilter(this);
        layout->addWidget(label, 0, i);
        layout->setColumnStretch(i, 1);
        labels_[i] = label;
    }
    resetColours();
}

void ByteGrid::showRecord(const std::optional<NpcRecord>& record) {
    for (int i = 0; i < 32; ++i)
        labels_[i]->setText(record ? QString::fromStdString(text::byteHex((*record)[i]))
                                   : QString());
}

void ByteGrid::setColour(int index, const QColor& colour) {
    QPalette p = labels_[index]->palette();
    p.setColor(QPalette::Window, colour);
    labels_[index]->setPalette(p);
}

QColor ByteGrid::colour(int index) const {
    return labels_[index]->palette().color(QPalette::Window);
}

void ByteGrid::resetColours() {
    const QColor normal = palette().color(QPalette::Button);
    for (int i = 0; i < 32; ++i)
        setColour(i, normal);
}

void ByteGrid::markField(int index, const QColor& colour) {
    const FieldInfo& field = fieldAt(index);
    for (int i = field.index; i < field.index + field.size(); ++i)
        setColour(i, colour);
}

bool ByteGrid::eventFilter(QObject* watched, QEvent* event) {
    const auto* label = qobject_cast<QLabel*>(watched);
    if (!label)
        return false;
    const int index =
        static_cast<int>(std::find(labels_.begin(), labels_.end(), label) - labels_.begin());
    if (index >= 32)
        return false;
    switch (event->type()) {
    case QEvent::MouseMove:
        emit hovered(index);
        return false;
    case QEvent::MouseButtonPress:
        emit pressed(index, static_cast<QMouseEvent*>(event)->button());
        return true;
    case QEvent::MouseButtonDblClick:
        emit doubleClicked(index);
        return true;
    default:
        return false;
    }
}

} // namespace parlex::gui
