#include "settings/locations.h"

#include "platform/files.h"

namespace parlex {
namespace {

constexpr const char* kSettingsName = "Parlex.ini";
constexpr const char* kFolderName = "parlex";

} // namespace

Locations locations(const std::filesystem::path& programDir) {
    return locations(programDir, platform::folderWritable(programDir), platform::userConfigHome(),
                     platform::userDataHome());
}

Locations locations(const std::filesystem::path& programDir, bool programDirWritable,
                    const std::filesystem::path& configHome,
                    const std::filesystem::path& dataHome) {
    if (programDirWritable)
        return {programDir / kSettingsName, programDir, true};
    return {configHome / kFolderName / kSettingsName, dataHome / kFolderName, false};
}

} // namespace parlex
