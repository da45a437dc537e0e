// The history's commands in the main window: Save New Entries, and the list keys handed on to it.
#pragma once

#include <functional>

namespace curvemill {

class CommandActions;
class HistoryPort;

// `history` gives the port wired now (null: none, and the commands do nothing); `changed` lets
// the menus follow a save.
void bindHistoryCommands(CommandActions& actions, std::function<HistoryPort*()> history,
                         std::function<void()> changed);

}  // namespace curvemill
