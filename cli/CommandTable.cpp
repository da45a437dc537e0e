#include <vector>

#include "cli/Command.h"
#include "cli/MathCommands.h"

namespace curvemill::cli {

std::span<const Command> commandTable() {
    static const std::vector<Command> table{
        checkCommand(), evalCommand(), sampleCommand(), plotCommand(),
        // the math tools
        integralCommand(), valueCommand(), extremesCommand(), rootsCommand(),
        // 3D surfaces
        surfaceCommand(),
        // equation curves
        equationCommand(),
        // curves drawn by a parameter t
        parametricCommand(), polarCommand(),
        // graph documents
        renderCommand()};
    return table;
}

}  // namespace curvemill::cli
