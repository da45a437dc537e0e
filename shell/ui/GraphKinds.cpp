#include "shell/ui/GraphKinds.h"

#include <QStringList>

#include "equation/EquationCurve.h"
#include "equation/EquationSolver.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph3d/SurfaceScene.h"
#include "parametric/ui/CurvePainter.h"
#include "shell/CommandState.h"
#include "shell/ui/CurveCommands.h"
#include "shell/ui/EquationCommands.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/MathCommands.h"
#include "shell/ui/RotationCommands.h"
#include "shell/ui/SurfaceCommands.h"
#include "shell/ui/ViewCommands.h"

namespace curvemill {

namespace {

bool hasDefinedPoint(const Curve& curve) {
    for (const PlotPoint& point : curve) {
        if (!point.isIndefinite) {
            return true;
        }
    }
    return false;
}

// The status line's word (not a box: nothing went wrong) on why a graph is empty.
QString noValueText(const QString& function, const QString& where) {
    return QStringLiteral("%1 has no value %2: nothing to draw").arg(function, where);
}

}  // namespace

void FlatGraph::toggleGrid() {
    view_.gridOn = !view_.gridOn;
    area_.redraw();
}

void FlatGraph::zoomBoth(bool in) {
    if (in) {
        commands_.zoomIn(ZoomAxis::kBoth);
    } else {
        commands_.zoomOut(ZoomAxis::kBoth);
    }
}

void FlatGraph::restoreZoom() {
    commands_.restore();
}

void FlatGraph::fillState(ShellState& state) const {
    state.gridOn = view_.gridOn;
}

// The sampler records an undefined function quietly and the graph is then empty; the status line
// tells the user why.
QString FunctionGraph::show() {
    area_.canvas()->showSurface(nullptr);
    area_.showNewGraph();
    QStringList undefined;
    if (graph_.main.exists() && !hasDefinedPoint(graph_.main)) {
        undefined << QString::fromStdString(graph_.mainFormulaText);
    }
    if (graph_.hasSecond() && !hasDefinedPoint(graph_.second)) {
        undefined << QString::fromStdString(graph_.secondFormulaText);
    }
    if (undefined.isEmpty()) {
        return QStringLiteral("Ready");
    }
    return noValueText(QStringLiteral("y = ") + undefined.join(QStringLiteral(" and y = ")),
                       QStringLiteral("between x = %1 and x = %2")
                           .arg(graph_.xBegin, 0, 'g', 15)
                           .arg(graph_.xEnd, 0, 'g', 15));
}

void FunctionGraph::openMathDialog() {
    math_.openMathDialog();
}

void FunctionGraph::openInformation() {
    math_.openInformation();
}

QString EquationGraph::show() {
    area_.canvas()->showSurface(nullptr);
    area_.showNewGraph();
    const EquationCurve& curve = equation_.curve();
    if (curve.count() == 0) {
        return QStringLiteral("%1 = 0 has no solution point on this grid")
            .arg(QString::fromStdString(curve.formulaText));
    }
    return curve.truncated ? QString::fromStdString(solutionLimitText())
                           : QStringLiteral("%1 solution points").arg(curve.count());
}

QString CurveShownGraph::show() {
    area_.canvas()->showSurface(nullptr);
    // The view opens on the curve at equal scales, laid out for the canvas it is shown on.
    area_.canvas()->layOutView();
    fitViewToCurve(view_, curves_.graph());
    area_.showNewGraph();
    return QStringLiteral("%1 points").arg(curves_.graph().points.size());
}

void CurveShownGraph::openMathDialog() {
    curves_.openMathDialog();
}

void CurveShownGraph::openInformation() {
    curves_.openInformation();
}

void EquationGraph::openMathDialog() {
    equation_.openSolutions();
}

void EquationGraph::openInformation() {
    equation_.openInformation();
}

QString SurfaceGraph::show() {
    rotation_.newFigure();
    area_.canvas()->showSurface(&scene_);
    const SurfaceGrid& grid = scene_.grid;
    if (grid.hasDefinedVertex()) {
        return {};
    }
    return noValueText(QStringLiteral("z = f(x, y)"),
                       QStringLiteral("on the grid x = %1 to %2, y = %3 to %4")
                           .arg(grid.xBegin, 0, 'g', 15)
                           .arg(grid.xEnd, 0, 'g', 15)
                           .arg(grid.yBegin, 0, 'g', 15)
                           .arg(grid.yEnd, 0, 'g', 15));
}

void SurfaceGraph::toggleGrid() {
    commands_.toggleGridBox();
}

void SurfaceGraph::restoreZoom() {
    zoom(1.0 / scene_.view.zoom);
}

void SurfaceGraph::fillState(ShellState& state) const {
    state.gridOn = commands_.gridBoxShown();
}

bool SurfaceGraph::zoom(double factor) {
    area_.beforeViewChange();
    if (!zoomFigure(scene_.view, factor)) {
        return false;
    }
    area_.canvas()->invalidate();
    return true;
}

}  // namespace curvemill
