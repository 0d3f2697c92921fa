#include "core/settings/locations.h"

#include "core/platform/files.h"

namespace parlex {
namespace {

constexpr const char* kSettingsName = "Parlex.ini";
constexpr const char* kFolderName = "parlex";

// A program installed in the usual layout (a bin folder with share/parlex beside
// it). Its folder may be writable, to root for one, and is still no place for one
// user's settings.
bool installed(const std::filesystem::path& programDir) {
    std::error_code ec;
    return programDir.filename() == "bin" &&
           std::filesystem::is_directory(programDir.parent_path() / "share" / kFolderName, ec);
}

} // namespace

Locations locations(const std::filesystem::path& programDir) {
    return locations(programDir, platform::folderWritable(programDir) && !installed(programDir),
                     platform::userConfigHome(), platform::userDataHome());
}

Locations locations(const std::filesystem::path& programDir, bool portable,
                    const std::filesystem::path& configHome,
                    const std::filesystem::path& dataHome) {
    if (portable)
        return {programDir / kSettingsName, programDir, true};
    return {configHome / kFolderName / kSettingsName, dataHome / kFolderName, false};
}

} // namespace parlex
