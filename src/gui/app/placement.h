#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace parlex::gui {

// Where a dialog opens: centred on the window that owns it, and brought back when
// its left or top edge lies beyond the screen (the far edges may stick out).
QPoint centredOver(const QRect& owner, const QSize& dialog, const QRect& screen);

} // namespace parlex::gui
