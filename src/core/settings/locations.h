#pragma once

#include <filesystem>

namespace parlex {

// Where the program keeps its settings file and the list files that replace the
// built-in code lists. A program folder the user can write to is a portable
// install: both live beside the executable, unless the program is installed in the
// usual layout (bin/ with share/parlex/ beside it). Otherwise they live in the user's
// folders: the settings in the config home, the lists in the data home, each under
// "parlex" (where Qt's QStandardPaths puts them for an application named so).
struct Locations {
    std::filesystem::path settingsFile;
    std::filesystem::path listFolder;
    bool portable = false;
};

Locations locations(const std::filesystem::path& programDir);
// The same rule, given what `locations` asks of the system.
Locations locations(const std::filesystem::path& programDir, bool portable,
                    const std::filesystem::path& configHome, const std::filesystem::path& dataHome);

} // namespace parlex
