#include "shell/ui/HistoryCommands.h"

#include "history/HistoryPort.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"

namespace curvemill {

void bindHistoryCommands(CommandActions& actions, std::function<HistoryPort*()> history,
                         std::function<void()> changed) {
    actions.bind(cmd::kSaveNewEntries, [history, changed] {
        if (HistoryPort* port = history()) {
            port->saveNow();
        }
        changed();
    });
    for (const int id : {cmd::kFind, cmd::kFindNext, cmd::kDeleteItem}) {
        actions.bind(id, [history, id] {
            if (HistoryPort* port = history()) {
                port->runListCommand(id);
            }
        });
    }
}

}  // namespace curvemill
