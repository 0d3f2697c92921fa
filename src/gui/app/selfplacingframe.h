#pragma once

#include <QFrame>

namespace parlex::gui {

// A frame that places its child labels itself instead of through a layout. A child's
// new text asks its parent for a new layout; here that request ends at this frame,
// so a text that changes on every mouse move never lays out the whole window again.
class SelfPlacingFrame : public QFrame {
public:
    using QFrame::QFrame;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    virtual void placeChildren() = 0;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace parlex::gui
