#include "gui/app/selfplacingframe.h"

#include <QEvent>

namespace parlex::gui {

bool SelfPlacingFrame::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        placeChildren();
        return true;
    }
    return QFrame::event(event);
}

void SelfPlacingFrame::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    placeChildren();
}

} // namespace parlex::gui
