// What the availability of the commands and their words depend on: the state of the main window.
#pragma once

#include <string_view>

#include "shell/CommandTable.h"
#include "shell/GraphKind.h"

namespace curvemill {

// What the enabling depends on.
struct ShellState {
    GraphKind kind = GraphKind::TitlePage;
    bool hasSecondFunction = false;
    bool hasDerivative = false;
    bool hasIntegral = false;
    bool gridOn = false;
    // A history implementation is wired in; without it its commands have nothing to act on.
    bool historyWired = false;
    bool historyChanged = false;
    // An integral's area is painted on the graph.
    bool areaPainted = false;
    // The stretches without a value are marked on the graph.
    bool indefiniteMarked = false;
    // Where the 2D view's zoom stands against its limits, and its stretch stack.
    bool canZoomInX = true;
    bool canZoomInY = true;
    bool canZoomOutX = true;
    bool canZoomOutY = true;
    bool canStretch = false;
    bool canUndoStretch = false;
    bool selectArea = false;
    bool drawingProcess = false;
    // Graph documents were opened or saved before (File > Recent Graphs has entries).
    bool hasRecentGraphs = false;
};

// The table's rule of `command` in this state, whether or not its work is bound.
bool commandAvailable(Command command, const ShellState& state);

struct CommandLook {
    std::string_view text;
    std::string_view tooltip;
};

// Text and tooltip in this state (the second function and grid entries change their words).
CommandLook commandLook(const CommandRow& row, const ShellState& state);

}  // namespace curvemill
