#pragma once

#include <filesystem>
#include <functional>

class QSplitter;
class QWidget;

namespace parlex::session {
class Session;
}

namespace parlex::gui {

class OverviewPane;

// The parts of the main window that its settings place and fill.
struct WindowParts {
    QWidget& window;
    QSplitter& helpBar; // the help text above, the list and the speech pane below
    QSplitter& paneBar; // the list left, the speech pane right
    session::Session& session;
    // The overview pane if there is one; with `make`, made (and shown) if not.
    std::function<OverviewPane*(bool make)> overview;
};

// The settings file and the main window: read once before the window shows (its
// place, size, bars, the help text's look, the phrase text's font and colour, the
// options, the last paths, the overview pane: shown or not, its side, tab and columns)
// and written once at the end. Geometry is kept in twips,
// 15 to a pixel, the outer size counted with a fixed frame so that it never drifts.
void restoreWindow(const WindowParts& parts, const std::filesystem::path& file);
void saveWindow(const WindowParts& parts, const std::filesystem::path& file);

} // namespace parlex::gui
