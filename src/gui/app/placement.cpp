#include "gui/app/placement.h"

namespace parlex::gui {
namespace {

// Kept free at the screen's edge when a dialog is brought back: 100 and 1100 twips.
constexpr int kSideMargin = 7;
constexpr int kBottomMargin = 73;

} // namespace

QPoint centredOver(const QRect& owner, const QSize& dialog, const QRect& screen) {
    int left = owner.x() + (owner.width() - dialog.width()) / 2;
    int top = owner.y() + (owner.height() - dialog.height()) / 2;
    if (left > screen.x() + screen.width())
        left = screen.x() + screen.width() - (dialog.width() + kSideMargin);
    else if (left < screen.x())
        left = screen.x() + kSideMargin;
    if (top > screen.y() + screen.height())
        top = screen.y() + screen.height() - (dialog.height() + kBottomMargin);
    else if (top < screen.y())
        top = screen.y() + kSideMargin;
    return {left, top};
}

} // namespace parlex::gui
