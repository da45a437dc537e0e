// What the main window shows: the title page or one graph of a kind.
#pragma once

namespace curvemill {

enum class GraphKind {
    TitlePage,
    Function2D,
    Equation,
    Surface3D,
    // A parametric or polar curve, drawn on the 2D view.
    Curve,
};

// A flat graph the zoom commands, the scroll bars and the mouse act on: a sampled function or an
// equation (an equation with no solution still has its axes and title).
inline bool flatGraphShown(GraphKind kind, bool functionSampled) {
    return kind == GraphKind::Equation || kind == GraphKind::Curve ||
           (kind == GraphKind::Function2D && functionSampled);
}

}  // namespace curvemill
