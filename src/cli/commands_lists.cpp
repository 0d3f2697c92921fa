#include "cli/commands.h"

namespace parlex::cli {
std::span<const Command> listCommands() {
    return {};
}
} // namespace parlex::cli
