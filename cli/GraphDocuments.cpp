// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "cli/GraphDocuments.h"

#include <atomic>
#include <iostream>
#include <memory>

#include "cli/Command.h"
#include "cli/GraphArguments.h"
#include "cli/KindImages.h"
#include "cli/Printable.h"
#include "document/DocumentState.h"
#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "equation/EquationSolver.h"
#include "equation/EquationView.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"
#include "graph3d/SurfaceCompute.h"
#include "graph3d/SurfaceRotation.h"
#include "graph3d/SurfaceScene.h"
#include "mathtools/Integral.h"
#include "mathtools/MathMessages.h"
#include "mathtools/PreciseIntegral.h"
#include "parametric/CurveGraph.h"

#include "document/ui/GraphDocumentFile.h"
#include "equation/ui/EquationPainter.h"
#include "parametric/ui/CurvePainter.h"

namespace curvemill::cli {

OptionSpec saveGraphOption() {
    return {"save-graph", "DOC",
            "also write the graph document of what was drawn (open it in the\n"
            "program, or draw it again with 'curvemill-cli render');\n"
            "--no-smooth and --squares are not kept"};
}

bool acceptSavedGraph(const GraphDocument& document, UsageErrors& usage) {
    const std::optional<DocumentRefusal> refusal = checkGraphDocument(document);
    if (refusal) {
        usage.report() << "--save-graph: a graph document cannot hold this: "
                       << printable(refusal->text()) << '\n';
    }
    return !refusal;
}

int saveGraph(const std::string& path, const GraphDocument& document, std::ostream& out) {
    if (path == "-") {
        out << graphDocumentJson(document);
        return kExitOk;
    }
    if (const auto failure = saveGraphDocument(path, document)) {
        out << "CANNOT WRITE " << quoted(path) << ": " << *failure << '\n';
        return kExitRefused;
    }
    return kExitOk;
}

std::optional<std::string> computeSurfaceFigure(Formula& formula, SurfaceScene& scene) {
    const std::atomic<bool> keepComputing{true};
    if (computeSurface(formula, scene.grid, {}, keepComputing) == SurfaceOutcome::NoMemory) {
        return kNoMemoryMessage;
    }
    startNewFigure(scene);
    scene.complete = true;
    return std::nullopt;
}

bool solveEquationGrid(Formula& formula, const EquationGrid& grid, const std::string& typed,
                       EquationCurve& curve) {
    EquationWork work;
    const std::atomic<bool> running{true};
    solveEquation(formula, grid, running, work, curve);
    curve.formulaText = typed;
    return !curve.truncated;
}

namespace {

// What a document's 2D view needs besides its graph: the settings and stretches it keeps.
struct FlatParts {
    GraphView view;
    TwoDSettings settings;
    StretchStack stretches;
};

// The integral painted as the Math dialog paints it: the quick sum, or the precise one where the
// document says it was computed so.
std::optional<std::string> paintIntegral(const IntegralArea& area, Formula& formula,
                                         TwoDGraph& graph, GraphView& view) {
    NumberBox from(math_messages::kBoxXBegin);
    NumberBox to(math_messages::kBoxXEnd);
    from.setText(area.range.begin);
    to.setText(area.range.end);
    IntegralState state;
    if (auto refusal = acceptIntegralInterval(formula, graph, from, to, state)) {
        return refusal;
    }
    if (area.precise) {
        integratePrecise(graph.main, formula, state, {});
    } else {
        integrateQuick(graph.main, formula, state);
    }
    if (auto refusal = integralValueRefusal(state)) {
        return refusal;
    }
    if (area.precise) {
        finishPreciseIntegral(graph, view, state, true);
    } else {
        showIntegralArea(graph, view, state);
    }
    return std::nullopt;
}

int renderFunction(const FunctionSection& section, const DocumentValues& values, Formula& formula,
                   const ImageTarget& target, std::ostream& out) {
    TwoDGraph graph;
    applyFunctionEntries(section, values, graph);
    sampleGraph(graph, formula, !section.secondFormula.empty(), section.derivative,
                section.integralCurve);
    FlatParts parts;
    setViewSize(parts.view, target.width, target.height);
    applyFlatLook(section.look, parts.settings, graph, parts.view);
    resetView(parts.view, graph);
    if (section.integral.shown) {
        if (const auto refusal = paintIntegral(section.integral, formula, graph, parts.view)) {
            out << *refusal << '\n';
            return kExitRefused;
        }
    }
    parts.view.indefiniteMarked = section.indefiniteMarked;
    applyFlatView(section.view, parts.view, parts.stretches);
    return writeTwoDImage(target, graph, parts.view, out);
}

int renderEquation(const EquationSection& section, const DocumentValues& values, Formula& formula,
                   const ImageTarget& target, std::ostream& out) {
    const EquationGrid grid{values.xBegin,   values.xEnd,     values.yBegin,          values.yEnd,
                            section.xPoints, section.yPoints, section.precisionDigits};
    EquationCurve curve;
    if (!solveEquationGrid(formula, grid, section.formula, curve)) {
        std::cerr << "curvemill-cli render: " << solutionLimitText() << '\n';
    }
    FlatParts parts;
    TwoDGraph noFunction;
    setViewSize(parts.view, target.width, target.height);
    applyFlatLook(section.look, parts.settings, noFunction, parts.view);
    resetEquationView(parts.view, curve, parts.settings.maxYRatio);
    applyFlatView(section.view, parts.view, parts.stretches);
    return writeEquationImage(target, curve, parts.view, EquationLook(), out);
}

int renderSurface(const SurfaceSection& section, const DocumentValues& values, Formula& formula,
                  const ImageTarget& target, std::ostream& out) {
    SurfaceScene scene;
    scene.grid.requestedNx = section.xPoints;
    scene.grid.requestedNy = section.yPoints;
    scene.grid.xBegin = values.xBegin;
    scene.grid.xEnd = values.xEnd;
    scene.grid.yBegin = values.yBegin;
    scene.grid.yEnd = values.yEnd;
    if (const auto refusal = computeSurfaceFigure(formula, scene)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    RotationAngles angles;
    curvemill::applySurfaceLook(section, scene, angles);
    return writeSurfaceImage(target, scene, out);
}

int renderCurve(const CurveSection& section, const DocumentValues& values, Formula& formula,
                const ImageTarget& target, std::ostream& out) {
    CurveGraph curve;
    applyCurveEntries(section, values, curve);
    curvemill::runCurve(formula, curve, {});
    FlatParts parts;
    TwoDGraph noFunction;
    setViewSize(parts.view, target.width, target.height);
    applyFlatLook(section.look, parts.settings, noFunction, parts.view);
    fitViewToCurve(parts.view, curve);
    applyFlatView(section.view, parts.view, parts.stretches);
    return writeCurveImage(target, curve, parts.view, CurveLook(), out);
}

}  // namespace

int renderDocument(const std::string& path, const ImageTarget& target, std::ostream& out) {
    const DocumentReading reading = readGraphDocument(path);
    if (!reading.document) {
        out << reading.message << '\n';
        return kExitRefused;
    }
    const GraphDocument& document = *reading.document;
    const auto formula = std::make_unique<Formula>();
    const PreparedDocument prepared = prepareDocumentFormulas(*formula, document);
    if (prepared.refusal) {
        out << prepared.refusal->text() << '\n';
        return kExitRefused;
    }
    switch (document.kind) {
        case DocumentKind::kFunction:
            return renderFunction(document.function, prepared.values, *formula, target, out);
        case DocumentKind::kEquation:
            return renderEquation(document.equation, prepared.values, *formula, target, out);
        case DocumentKind::kSurface:
            return renderSurface(document.surface, prepared.values, *formula, target, out);
        case DocumentKind::kCurve:
            return renderCurve(document.curve, prepared.values, *formula, target, out);
    }
    return kExitRefused;
}

}  // namespace curvemill::cli
