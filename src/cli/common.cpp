#include "cli/commands.h"

#include <ostream>

namespace parlex::cli {

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
