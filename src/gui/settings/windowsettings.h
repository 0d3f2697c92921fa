#pragma once

#include <filesystem>

namespace parlex::gui {

class MainWindow;

// The settings file and the main window: read once before the window shows (its
// place, size, bars, the help text's look, the phrase text's font and colour, the
// options, the last paths) and written once at the end. Geometry is kept in twips,
// 15 to a pixel, the outer size counted with a fixed frame so that it never drifts.
void restoreWindow(MainWindow& window, const std::filesystem::path& file);
void saveWindow(MainWindow& window, const std::filesystem::path& file);

} // namespace parlex::gui
