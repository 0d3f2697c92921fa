#include "cli/commands.h"
#include "platform/files.h"
#include "settings/locations.h"

#include <ostream>

namespace parlex::cli {

std::filesystem::path listsFolder(const Args& args) {
    if (auto dir = args.value("--lists"))
        return *dir;
    return locations(platform::programDir()).listFolder;
}

int report(const Error& error, Io io) {
    io.err << "parlex-cli: " << error.message << "\n";
    return kFailed;
}

int usage(std::string_view command, std::string_view complaint, Io io) {
    io.err << "parlex-cli " << command << ": " << complaint << "\nПодробности: parlex-cli "
           << command << " --help\n";
    return kUsage;
}

} // namespace parlex::cli
