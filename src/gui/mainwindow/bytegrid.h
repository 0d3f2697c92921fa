#pragma once

#include "core/npc/npcrecord.h"

#include <QColor>
#include <QFrame>
#include <QLabel>
#include <array>
#include <optional>

namespace parlex::gui {

// One row of 32 labels, Lbl0..Lbl31, showing the bytes of the current record as hex
// pairs. It only shows and reports: what a hover or a click means is the session's.
class ByteGrid : public QFrame {
    Q_OBJECT
public:
    static const QColor kHover;  // light green: the field under the mouse
    static const QColor kPinned; // yellow: the pinned field

    explicit ByteGrid(QWidget* parent = nullptr);

    // Shows a record, or empty labels where the position holds none.
    void showRecord(const std::optional<NpcRecord>& record);

    // Colours every label of the field that byte `index` belongs to, the others in
    // the normal colour; without an index every label is normal.
    void markField(std::optional<int> index, const QColor& colour);
    QColor colour(int index) const { return colours_.at(static_cast<std::size_t>(index)); }
    QLabel* label(int index) const { return labels_.at(static_cast<std::size_t>(index)); }

signals:
    void hovered(int index);
    void pressed(int index, Qt::MouseButton button);
    void doubleClicked(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setColour(int index, const QColor& colour);
    std::array<QLabel*, kRecordSize> labels_{};
    std::array<QColor, kRecordSize> colours_{};
};

} // namespace parlex::gui
