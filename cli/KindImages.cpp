// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "cli/KindImages.h"

#include "cli/Command.h"
#include "cli/ImageOutput.h"
#include "cli/ImageSetup.h"
#include "equation/EquationCurve.h"
#include "graph2d/GraphView.h"
#include "graph3d/SurfaceScene.h"
#include "parametric/CurveGraph.h"

#include <QGuiApplication>
#include <QPainter>

#include "equation/ui/EquationPainter.h"
#include "graph2d/ui/GraphPainter.h"
#include "graph3d/ui/SurfacePainter.h"
#include "parametric/ui/CurvePainter.h"

namespace curvemill::cli {

std::optional<ImageTarget> imageTarget(const ParsedArguments& arguments, UsageErrors& usage,
                                       bool& ok) {
    ImageTarget target;
    const auto output = arguments.value("output");
    const std::optional<int> depth = outputDepth(arguments.value("depth"), usage);
    std::optional<ImageFormat> format;
    if (output) {
        format = outputFormat(*output, usage);
    }
    ok = readImageSize(arguments.value("size"), target.width, target.height, usage) && depth &&
         (!output || format);
    if (!ok || !output) {
        return std::nullopt;
    }
    target.path = *output;
    target.format = *format;
    target.depth = *depth;
    return target;
}

namespace {

int writeImage(const ImageTarget& target, const PageDrawing& draw, std::ostream& out) {
    ImageFileOptions options;
    options.bitsPerPixel = target.depth;
    return writeGraphImage(target.path, target.format, draw, QSize(target.width, target.height),
                           options, out);
}

GraphView pageView(const GraphView& view, QSize pixels) {
    return scaledView(view, double(pixels.width()) / view.width);
}

// A picture of the 2D view: `draw` gets the view laid out again for the page's pixels.
template <typename Draw>
int writeFlatImage(const ImageTarget& target, const GraphView& view, const Draw& draw,
                   std::ostream& out) {
    const auto app = ensureGuiApplication();
    return writeImage(
        target,
        [&](QPainter& painter, QSize pixels) {
            GraphView page = pageView(view, pixels);
            draw(painter, page);
        },
        out);
}

}  // namespace

int writeTwoDImage(const ImageTarget& target, const TwoDGraph& graph, const GraphView& view,
                   std::ostream& out) {
    return writeFlatImage(
        target, view, [&](QPainter& painter, GraphView& page) { drawGraph(painter, graph, page); },
        out);
}

int writeEquationImage(const ImageTarget& target, const EquationCurve& curve, const GraphView& view,
                       const EquationLook& look, std::ostream& out) {
    return writeFlatImage(
        target, view,
        [&](QPainter& painter, GraphView& page) {
            GraphPainter graphPainter;
            EquationPainter().draw(graphPainter, painter, curve, page, look);
        },
        out);
}

int writeCurveImage(const ImageTarget& target, const CurveGraph& graph, const GraphView& view,
                    const CurveLook& look, std::ostream& out) {
    return writeFlatImage(
        target, view,
        [&](QPainter& painter, GraphView& page) {
            GraphPainter graphPainter;
            CurvePainter().draw(graphPainter, painter, graph, page, look);
        },
        out);
}

void tellNothingDrawn(UsageErrors& usage, std::string_view variable, const std::string& begin,
                      const std::string& end) {
    usage.report() << "nothing to draw: no value for " << variable << " from " << begin << " to "
                   << end << "; the picture shows the axes only\n";
}

int writeSurfaceImage(const ImageTarget& target, SurfaceScene& scene, std::ostream& out) {
    const auto app = ensureGuiApplication();
    return writeImage(
        target,
        [&scene](QPainter& painter, QSize pixels) { paintSurfacePicture(painter, scene, pixels); },
        out);
}

}  // namespace curvemill::cli
