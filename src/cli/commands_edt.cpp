#include "cli/commands.h"

namespace parlex::cli {
std::span<const Command> edtCommands() {
    return {};
}
} // namespace parlex::cli
