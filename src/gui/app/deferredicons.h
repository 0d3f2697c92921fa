#pragma once

// Qt's own pictures (the arrows of a tool bar too narrow for its buttons, the icons of
// message boxes and file dialogs) come from image files that only Qt's image readers
// can read, and a reader loads every image plug-in first. The menu bar and the tool
// bar ask for theirs while they are built, long before anyone sees them. This style
// hands out each of Qt's pictures as a promise, read when it is first drawn.
#include <QProxyStyle>

namespace parlex::gui {

class DeferredIconStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
};

} // namespace parlex::gui
