#include "shell/CommandState.h"

namespace curvemill {

bool commandAvailable(int id, const ShellState& state) {
    const bool graph = state.kind != GraphKind::TitlePage;
    const bool plane = state.kind == GraphKind::Function2D || state.kind == GraphKind::Equation;
    const bool function2D = state.kind == GraphKind::Function2D;
    const bool surface = state.kind == GraphKind::Surface3D;
    switch (id) {
        case 40012:  // the math tools work on the function or the equation on screen
        case 40200:
            return function2D || state.kind == GraphKind::Equation;
        case 40051:  // a second function goes beside a first one
            return function2D;
        case 40033:
            return function2D && state.indefiniteMarked;
        case 40054:
            return function2D && state.hasSecondFunction;
        case 40029:  // the integral curve and the painted area go together
            return function2D && (state.hasIntegral || state.areaPainted);
        case 40031:
            return function2D && state.hasDerivative;
        case 40093:
            return state.historyWired && state.historyChanged;
        case 40022:
        case 40023:
        case 40021:
            return state.historyWired;
        case 40110:
        case 40111:
        case 40030:  // saving, printing and copying need a picture
        case 40018:
        case 40052:
            return graph;
        case 40003:
            return plane && state.canZoomInX;
        case 40004:
            return plane && state.canZoomInY;
        case 40005:  // "Both" scales a surface too
            return (plane && (state.canZoomInX || state.canZoomInY)) || surface;
        case 40006:
            return plane && state.canZoomOutX;
        case 40007:
            return plane && state.canZoomOutY;
        case 40008:
            return (plane && (state.canZoomOutX || state.canZoomOutY)) || surface;
        case 40049:  // a selection to stretch, a level left on the stack
            return plane && state.canStretch;
        case 40050:
            return plane && state.canUndoStretch;
        case 40010:  // the grid of a flat view, the box of a surface
            return plane || surface;
        case 40139:
            return surface;
        case 40126:  // Restore brings back a wheel-zoomed surface too
            return plane || surface;
        case 40201:  // fitting, grid and mouse modes act on a flat view
        case 40133:
        case 40063:
        case 40064:
            return plane;
        case 40114:  // rotation only turns a surface
        case 40101:
        case 40102:
            return surface;
        default:
            return true;
    }
}

CommandLook commandLook(const CommandRow& row, const ShellState& state) {
    if (row.id == cmd::kSecondFunction && state.hasSecondFunction) {
        return {"Erase Another Function", "ERASE SECOND FUNCTION"};
    }
    if (row.id == cmd::kDrawGrid && state.gridOn) {
        return {row.text, "ERASE GRID"};
    }
    return {row.text, row.tooltip};
}

}  // namespace curvemill
