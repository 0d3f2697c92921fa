#pragma once

#include "core/common/error.h"
#include "core/settings/options.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace parlex {

// Where the overview pane was and how it looked, kept as keys of its own that the old
// program passes over.
struct OverviewPlace {
    bool shown = false;
    int tab = 0;  // 0 the records, 1 the phrases
    int area = 8; // the window's side it is docked to: 1 left, 2 right, 4 top, 8 bottom
    std::vector<int> recordColumns, phraseColumns; // pixels; empty: as designed
    bool operator==(const OverviewPlace&) const = default;
};

// What the program remembers between runs: the window's place, the options and the
// last paths. Geometry is in twips (15 to a pixel); paths are UTF-8.
struct Settings {
    double top = 0, left = 0, width = 0, height = 0; // the window, outer
    double splitterTop = 0;  // top of the bar between the help text and the panes
    double splitterLeft = 0; // left of the bar between the list and the speech pane
    Options options;
    std::string scriptPath; // the last script, kept only while it is still there
    std::string speechPath; // the last speech file, likewise
    OverviewPlace overview;
    bool operator==(const Settings&) const = default;
};

// The screen and the window's frame (outer size minus inner size), in twips.
struct ScreenTwips {
    double width = 0, height = 0;
    double frameWidth = 0, frameHeight = 0;
};

// Applies the text of a settings file (Windows-1251) to `settings`, which holds the
// defaults and the window's design geometry. Lines are matched by their keys at the
// start, case-sensitively, in any section; a value that is no number leaves its
// setting as it was; a flag missing from the file is off; the window and the bars
// are brought back within the screen and the limits, sizes kept within theirs.
// Remembered paths are kept only when `stillThere` says so. Empty text centres the
// window and leaves the defaults.
void applySettingsText(std::string_view text, Settings& settings, const ScreenTwips& screen,
                       const std::function<bool(const std::string&)>& stillThere);

// The file's 28 lines, Windows-1251 with CR LF; floats with a "." separator.
std::string settingsText(const Settings& settings);

// A remembered path is kept when it is a file or folder on a fixed, local disk.
bool rememberedPathUsable(const std::string& path);

// The settings file read and applied (a missing or unreadable file counts as empty);
// false when there was none.
bool readSettingsFile(const std::filesystem::path& file, Settings& settings,
                      const ScreenTwips& screen);
// Written atomically; on a read-only medium nothing is written (ReadOnlyDrive).
Result<void> writeSettingsFile(const std::filesystem::path& file, const Settings& settings);

} // namespace parlex
