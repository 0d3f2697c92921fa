#pragma once

#include <functional>

class QWidget;

namespace parlex::gui {

// Shrinks a window towards its centre over `milliseconds`, then runs `finished`
// (which closes it for good). The window keeps its contents while it shrinks.
void shrinkAway(QWidget* window, int milliseconds, std::function<void()> finished);

} // namespace parlex::gui
