#pragma once

#include "core/npc/npcrecord.h"

#include <QColor>
#include <QFrame>
#include <array>
#include <optional>

namespace parlex::gui {

// One row of 32 cells showing the bytes of the current record as hex pairs. It only
// shows and reports: what a hover or a click means is the session's.
//
// The grid draws its cells itself: 32 label widgets cost the start a few milliseconds
// of making, polishing, laying out and showing. Each cell is still an object of its
// own, named Lbl0..Lbl31, which screen readers read as a static text.
class ByteGrid : public QFrame {
    Q_OBJECT
public:
    static const QColor kHover;  // light green: the field under the mouse
    static const QColor kPinned; // yellow: the pinned field

    explicit ByteGrid(QWidget* parent = nullptr);

    // Shows a record, or empty cells where the position holds none.
    void showRecord(const std::optional<NpcRecord>& record);

    // Colours every cell of the field that byte `index` belongs to, the others in
    // the normal colour; without an index every cell is normal.
    void markField(std::optional<int> index, const QColor& colour);
    QColor colour(int index) const { return colours_.at(static_cast<std::size_t>(index)); }
    QString text(int index) const { return texts_.at(static_cast<std::size_t>(index)); }

    // Where cell `index` is drawn, in the grid's pixels; the cell at a point, or -1.
    QRect cellRect(int index) const;
    int cellAt(QPoint at) const;
    QObject* cell(int index) const { return cells_.at(static_cast<std::size_t>(index)); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void hovered(int index);
    void pressed(int index, Qt::MouseButton button);
    void doubleClicked(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    std::array<QObject*, kRecordSize> cells_{};
    std::array<QString, kRecordSize> texts_{};
    std::array<QColor, kRecordSize> colours_{};
};

} // namespace parlex::gui
