#include <vector>

#include "cli/Command.h"

namespace curvemill::cli {

std::span<const Command> commandTable() {
    static const std::vector<Command> table{checkCommand(), evalCommand(), sampleCommand(),
                                            plotCommand()};
    return table;
}

}  // namespace curvemill::cli
