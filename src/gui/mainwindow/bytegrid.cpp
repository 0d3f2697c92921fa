#include "gui/mainwindow/bytegrid.h"

#include "core/explain/fieldlayout.h"
#include "core/text/hex.h"

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
    for (int i = 0; i < static_cast<int>(kRecordSize); ++i) {
        auto* label = new QLabel(this);
        label->setObjectName("Lbl" + QString::number(i));
        label->setAlignment(Qt::AlignCenter);
        label->setFrameStyle(QFrame::Box | QFrame::Plain);
        label->setMinimumSize(16, 22);
        label->setMouseTracking(true);
        label->setAutoFillBackground(true);
        label->installEventFilter(this);
        layout->addWidget(label, 0, i);
        layout->setColumnStretch(i, 1);
        labels_[static_cast<std::size_t>(i)] = label;
    }
    markField(std::nullopt, {});
}

void ByteGrid::showRecord(const std::optional<NpcRecord>& record) {
    for (std::size_t i = 0; i < kRecordSize; ++i)
        labels_[i]->setText(record ? QString::fromLatin1(text::byteHex((*record)[i])) : QString());
}

void ByteGrid::setColour(int index, const QColor& colour) {
    auto& current = colours_[static_cast<std::size_t>(index)];
    if (current == colour)
        return; // a palette change costs a repaint; most labels keep theirs
    current = colour;
    QLabel* label = labels_[static_cast<std::size_t>(index)];
    QPalette p = label->palette();
    p.setColor(QPalette::Window, colour);
    label->setPalette(p);
}

void ByteGrid::markField(std::optional<int> index, const QColor& colour) {
    const QColor normal = palette().color(QPalette::Button);
    const FieldInfo* field = index ? &fieldAt(*index) : nullptr;
    for (int i = 0; i < static_cast<int>(kRecordSize); ++i)
        setColour(i, field && field->contains(i) ? colour : normal);
}

bool ByteGrid::eventFilter(QObject* watched, QEvent* event) {
    const auto* label = qobject_cast<QLabel*>(watched);
    if (!label)
        return false;
    const auto found = std::find(labels_.begin(), labels_.end(), label);
    if (found == labels_.end())
        return false;
    const int index = static_cast<int>(found - labels_.begin());
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
