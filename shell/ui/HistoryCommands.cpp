#include "shell/ui/HistoryCommands.h"

#include "history/HistoryPort.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"

namespace curvemill {

void bindHistoryCommands(CommandActions& actions, std::function<HistoryPort*()> history,
                         std::function<void()> changed) {
    actions.bind(Command::SaveNewEntries, [history, changed] {
        if (HistoryPort* port = history()) {
            port->saveNow();
        }
        changed();
    });
    // The list knows the keys by their numbers.
    for (const Command id : {Command::Find, Command::FindNext, Command::DeleteItem}) {
        actions.bind(id, [history, id] {
            if (HistoryPort* port = history()) {
                port->runListCommand(commandRow(id).id);
            }
        });
    }
}

}  // namespace curvemill
