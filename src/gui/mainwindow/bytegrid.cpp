#include "gui/mainwindow/bytegrid.h"

#include "core/explain/fieldlayout.h"
#include "core/text/hex.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QVariant>

#include <string_view>

namespace parlex::gui {
namespace {

constexpr int kCellWidth = 16;  // the narrowest a cell gets
constexpr int kCellHeight = 22; // and the lowest
constexpr char kCellIndex[] = "parlexCellIndex";

ByteGrid* gridOf(const QObject* cell) {
    return qobject_cast<ByteGrid*>(cell->parent());
}

// A cell as a screen reader reads it: a static text named by the byte it shows.
class CellAccessible : public QAccessibleObject {
public:
    explicit CellAccessible(QObject* cell) : QAccessibleObject(cell) {}

    int index() const { return object()->property(kCellIndex).toInt(); }
    ByteGrid* grid() const { return gridOf(object()); }

    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(grid());
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text t) const override {
        return t == QAccessible::Name || t == QAccessible::Value ? grid()->text(index())
                                                                 : QString();
    }
    QAccessible::Role role() const override { return QAccessible::StaticText; }
    QAccessible::State state() const override {
        QAccessible::State s;
        s.invisible = !grid()->isVisible();
        return s;
    }
    QRect rect() const override {
        const QRect at = grid()->cellRect(index());
        return {grid()->mapToGlobal(at.topLeft()), at.size()};
    }
};

// The grid: a row of its cells.
class GridAccessible : public QAccessibleWidget {
public:
    explicit GridAccessible(ByteGrid* grid) : QAccessibleWidget(grid, QAccessible::Row) {}

    ByteGrid* grid() const { return static_cast<ByteGrid*>(widget()); }

    int childCount() const override { return static_cast<int>(kRecordSize); }
    QAccessibleInterface* child(int index) const override {
        return index >= 0 && index < childCount()
                   ? QAccessible::queryAccessibleInterface(grid()->cell(index))
                   : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const QObject* cell = child ? child->object() : nullptr;
        return cell && cell->parent() == grid() ? cell->property(kCellIndex).toInt() : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const int index = grid()->cellAt(grid()->mapFromGlobal(QPoint(x, y)));
        return index < 0 ? nullptr : child(index);
    }
};

QAccessibleInterface* gridFactory(const QString&, QObject* object) {
    if (auto* grid = qobject_cast<ByteGrid*>(object))
        return new GridAccessible(grid);
    if (object && object->property(kCellIndex).isValid() && gridOf(object))
        return new CellAccessible(object);
    return nullptr;
}

} // namespace

const QColor ByteGrid::kHover{192, 255, 192};
const QColor ByteGrid::kPinned{255, 255, 0};

ByteGrid::ByteGrid(QWidget* parent) : QFrame(parent) {
    static const bool installed = [] {
        QAccessible::installFactory(gridFactory);
        return true;
    }();
    (void)installed;
    setObjectName("Frame");
    setMouseTracking(true);
    for (std::size_t i = 0; i < kRecordSize; ++i) {
        auto* cell = new QObject(this);
        cell->setObjectName("Lbl" + QString::number(i));
        cell->setProperty(kCellIndex, static_cast<int>(i));
        cells_[i] = cell;
    }
    markField(std::nullopt, {});
}

void ByteGrid::showRecord(const std::optional<NpcRecord>& record) {
    for (std::size_t i = 0; i < kRecordSize; ++i) {
        QString shown = record ? QString::fromLatin1(text::byteHex((*record)[i])) : QString();
        if (shown == texts_[i])
            continue;
        texts_[i] = std::move(shown);
        update(cellRect(static_cast<int>(i)));
        if (QAccessible::isActive()) {
            QAccessibleEvent named(cells_[i], QAccessible::NameChanged);
            QAccessible::updateAccessibility(&named);
        }
    }
}

void ByteGrid::markField(std::optional<int> index, const QColor& colour) {
    const QColor normal = palette().color(QPalette::Button);
    const FieldInfo* field = index ? &fieldAt(*index) : nullptr;
    for (std::size_t i = 0; i < kRecordSize; ++i) {
        const QColor wanted = field && field->contains(static_cast<int>(i)) ? colour : normal;
        if (colours_[i] != wanted) { // only the cells that change are painted anew
            colours_[i] = wanted;
            update(cellRect(static_cast<int>(i)));
        }
    }
}

// The cells share the width as a grid of equal columns would, the odd pixels spread.
QRect ByteGrid::cellRect(int index) const {
    const QRect area = contentsRect();
    const int n = static_cast<int>(kRecordSize);
    const int left = area.left() + area.width() * index / n;
    const int right = area.left() + area.width() * (index + 1) / n;
    return {left, area.top(), right - left, area.height()};
}

int ByteGrid::cellAt(QPoint at) const {
    for (int i = 0; i < static_cast<int>(kRecordSize); ++i)
        if (cellRect(i).contains(at))
            return i;
    return -1;
}

QSize ByteGrid::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    int widest = 0; // of the hex digits, which need not all be as wide
    for (const char digit : std::string_view("0123456789ABCDEF"))
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    const int width = std::max(kCellWidth, 2 * widest + 4);
    const int height = std::max(kCellHeight, metrics.height() + 2);
    const QMargins m = contentsMargins();
    return {width * static_cast<int>(kRecordSize) + m.left() + m.right(),
            height + m.top() + m.bottom()};
}

QSize ByteGrid::minimumSizeHint() const {
    const QMargins m = contentsMargins();
    return {kCellWidth * static_cast<int>(kRecordSize) + m.left() + m.right(),
            kCellHeight + m.top() + m.bottom()};
}

void ByteGrid::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QColor line = palette().color(QPalette::WindowText);
    for (int i = 0; i < static_cast<int>(kRecordSize); ++i) {
        const QRect cell = cellRect(i);
        if (!event->rect().intersects(cell))
            continue;
        const auto at = static_cast<std::size_t>(i);
        painter.fillRect(cell, colours_[at]);
        painter.setPen(line);
        painter.drawRect(cell.adjusted(0, 0, -1, -1)); // a box of one pixel inside the cell
        painter.drawText(cell, Qt::AlignCenter, texts_[at]);
    }
}

void ByteGrid::mouseMoveEvent(QMouseEvent* event) {
    if (const int index = cellAt(event->position().toPoint()); index >= 0)
        emit hovered(index);
    QFrame::mouseMoveEvent(event);
}

void ByteGrid::mousePressEvent(QMouseEvent* event) {
    if (const int index = cellAt(event->position().toPoint()); index >= 0)
        emit pressed(index, event->button());
    event->accept();
}

void ByteGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (const int index = cellAt(event->position().toPoint()); index >= 0)
        emit doubleClicked(index);
    event->accept();
}

} // namespace parlex::gui
