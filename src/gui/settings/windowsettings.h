#pragma once

#include <filesystem>

class QSplitter;
class QWidget;

namespace parlex::session {
class Session;
}

namespace parlex::gui {

// The parts of the main window that its settings place and fill.
struct WindowParts {
    QWidget& window;
    QSplitter& helpBar; // the help text above, the list and the speech pane below
    QSplitter& paneBar; // the list left, the speech pane right
    session::Session& session;
};

// The settings file and the main window: read once before the window shows (its
// place, size, bars, the help text's look, the phrase text's font and colour, the
// options, the last paths) and written once at the end. Geometry is kept in twips,
// 15 to a pixel, the outer size counted with a fixed frame so that it never drifts.
void restoreWindow(const WindowParts& parts, const std::filesystem::path& file);
void saveWindow(const WindowParts& parts, const std::filesystem::path& file);

} // namespace parlex::gui
