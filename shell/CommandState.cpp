#include "shell/CommandState.h"

namespace curvemill {

bool commandAvailable(Command command, const ShellState& state) {
    return commandRow(command).available(state);
}

CommandLook commandLook(const CommandRow& row, const ShellState& state) {
    if (row.command == Command::SecondFunction && state.hasSecondFunction) {
        return {"Erase Another Function", "ERASE SECOND FUNCTION"};
    }
    if (row.command == Command::DrawGrid && state.gridOn) {
        return {row.text, "ERASE GRID"};
    }
    return {row.text, row.tooltip};
}

}  // namespace curvemill
