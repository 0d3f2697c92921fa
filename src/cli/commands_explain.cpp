#include "cli/commands.h"

namespace parlex::cli {
std::span<const Command> explainCommands() {
    return {};
}
} // namespace parlex::cli
