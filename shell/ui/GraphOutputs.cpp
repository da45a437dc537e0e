#include "shell/ui/GraphOutputs.h"

#include <cmath>

#include <QPainter>
#include <QPrinter>

#include "equation/EquationCsv.h"
#include "graph2d/GraphPointsCsv.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ViewResize.h"
#include "graph2d/ui/GraphPainter.h"
#include "graph3d/SurfaceCsv.h"
#include "output/ui/ClipboardCopy.h"
#include "output/ui/GraphPrinting.h"
#include "output/ui/SaveToFileDialog.h"
#include "parametric/CurveCsv.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/KindPictures.h"

namespace curvemill {

GraphView twoDDocumentView(const GraphView& view) {
    GraphView document = view;
    document.scrollX = 0.0;
    document.scrollY = 0.0;
    // Laid out at zoom 1 across a surface as wide as the zoomed graph, the x scale is the
    // zoomed one; the y zoom keeps its ratio to it.
    document.yZoom = view.yZoom / view.xZoom;
    document.xZoom = 1.0;
    setViewSize(document, view.contentWidth + 2.0 * view.marginX,
                view.contentHeight + 2.0 * view.marginY);
    return document;
}

GraphView targetView(const GraphView& view, const QPainter& painter, QSize pixels,
                     PictureExtent extent) {
    if (extent == PictureExtent::PrintedPage && painter.device() != nullptr) {
        return pageView(view, pixels.width(), pixels.height(),
                        printedPixelRatio(*painter.device()));
    }
    const GraphView base = extent == PictureExtent::Document ? twoDDocumentView(view) : view;
    return scaledView(base, pixels.width() / std::max(1.0, base.width));
}

GraphDrawing twoDGraphDrawing(const TwoDGraph& graph, const GraphView& view) {
    return [&graph, &view](QPainter& painter, QSize pixels, PictureExtent extent) {
        if (!graph.main.exists()) {
            return;
        }
        GraphView target = targetView(view, painter, pixels, extent);
        GraphExtras extras;
        extras.widePens = extent == PictureExtent::PrintedPage;
        drawGraph(painter, graph, target, extras);
    };
}

GraphOutputs::GraphOutputs(const TwoDGraph& graph, const GraphView& view, GraphArea& area,
                           QWidget* window)
    : graph_(graph), view_(view), area_(area), window_(window) {}

GraphOutputs::~GraphOutputs() = default;

GraphPicture GraphOutputs::picture() const {
    GraphCanvas* canvas = area_.canvas();
    canvas->layOutView();
    const double ratio = canvas->devicePixelRatioF();
    const auto devicePixels = [ratio](double logical) {
        return static_cast<int>(std::lround(logical * ratio));
    };
    GraphPicture picture;
    picture.draw = twoDGraphDrawing(graph_, view_);
    picture.screenPixels = [canvas] { return canvas->renderedImage(); };
    picture.screenSize = QSize(devicePixels(view_.width), devicePixels(view_.height));
    picture.documentSize = QSize(devicePixels(view_.contentWidth + 2.0 * view_.marginX),
                                 devicePixels(view_.contentHeight + 2.0 * view_.marginY));
    if (selection_) {
        if (const std::optional<QRect> selected = selection_()) {
            picture.selection =
                QRect(devicePixels(selected->x()), devicePixels(selected->y()),
                      devicePixels(selected->width()), devicePixels(selected->height()));
        }
    }
    const GraphKind kind = others_.shownKind ? others_.shownKind() : GraphKind::Function2D;
    if (kind == GraphKind::Surface3D && others_.surface != nullptr) {
        // The figure is fitted to the window, not scrolled: its whole is what the window shows.
        // The screen's copy is drawn afresh too, since on screen it may still be coming in
        // slices; the same routine at the same size gives the same pixels.
        SurfaceScene* scene = others_.surface;
        picture.draw = surfaceDrawing(*scene);
        picture.screenPixels = nullptr;
        picture.documentSize = picture.screenSize;
        const QSize screen = picture.screenSize;
        picture.pointsCsv = [scene, screen](const std::optional<QRect>& part) {
            // Whole device pixels: a part holds the points from its first to its last pixel.
            const auto pixels =
                part
                    ? std::optional<PixelRect>(PixelRect{double(part->left()), double(part->top()),
                                                         part->right() + 0.5, part->bottom() + 0.5})
                    : std::nullopt;
            return surfaceVerticesCsv(*scene, screen.width(), screen.height(), pixels);
        };
        return picture;
    }
    const auto logicalPart = [ratio](const std::optional<QRect>& part) -> std::optional<PixelRect> {
        if (!part) {
            return std::nullopt;
        }
        const double left = part->x() / ratio;
        const double top = part->y() / ratio;
        return PixelRect{left, top, left + part->width() / ratio, top + part->height() / ratio};
    };
    const GraphView& view = view_;
    if (kind == GraphKind::Equation && others_.equation != nullptr &&
        others_.equationLook != nullptr) {
        const EquationCurve& curve = *others_.equation;
        picture.draw = equationDrawing(curve, *others_.equationLook, view_);
        picture.pointsCsv = [&curve, &view, logicalPart](const std::optional<QRect>& part) {
            return equationPointsCsv(curve, view, logicalPart(part));
        };
        return picture;
    }
    if (kind == GraphKind::Curve && others_.curve != nullptr) {
        picture.draw = curveDrawing(*others_.curve, view_);
        const CurveGraph& curve = *others_.curve;
        picture.pointsCsv = [&curve, &view, logicalPart](const std::optional<QRect>& part) {
            return curvePointsCsv(curve, view, logicalPart(part));
        };
        return picture;
    }
    const TwoDGraph& graph = graph_;
    picture.pointsCsv = [&graph, &view, logicalPart](const std::optional<QRect>& part) {
        return twoDPointsCsv(graph, view, logicalPart(part));
    };
    return picture;
}

void GraphOutputs::bindCommands(CommandActions& actions) {
    actions.bind(Command::SaveAsFile, [this] { saveAsFile(); });
    actions.bind(Command::Print, [this] { print(); });
    actions.bind(Command::Copy, [this] { copy(); });
}

void GraphOutputs::saveAsFile() {
    SaveToFileDialog dialog(picture(), window_);
    dialog.setFileName(fileName_);
    dialog.exec();
    fileName_ = dialog.fileName();
}

void GraphOutputs::print() {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer_->setDocName(QStringLiteral("CurveMill graph"));
    }
    PrintPreviewWindow preview(*printer_, picture(), window_);
    preview.exec();
}

void GraphOutputs::copy() {
    copyToClipboard(picture());
}

}  // namespace curvemill
