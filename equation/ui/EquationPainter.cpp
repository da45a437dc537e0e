#include "equation/ui/EquationPainter.h"

#include <algorithm>
#include <cmath>

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include "equation/EquationView.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/GraphPainter.h"

namespace curvemill {

namespace {

const QColor kDotColor(200, 0, 0);
const QColor kMarkColor(0, 0, 160);
// The squares' side in layout pixels: big enough to find a lone point, small enough not to merge
// the dots of a 500-step grid into a band.
constexpr double kSquareSide = 5.0;

bool isVectorTarget(const QPainter& painter) {
    const QPaintEngine* engine = painter.paintEngine();
    return engine != nullptr &&
           (engine->type() == QPaintEngine::SVG || engine->type() == QPaintEngine::Pdf);
}

}  // namespace

void EquationPainter::draw(GraphPainter& graphPainter, QPainter& painter,
                           const EquationCurve& curve, GraphView& view, const EquationLook& look) {
    // No function curve is drawn while an equation is shown: the 2D painter gets none.
    static const TwoDGraph kNoCurves;
    GraphExtras extras;
    extras.titleGraph = TitleGraph::kEquation;
    extras.otherTitleText = curve.formulaText;
    extras.labels = look.labels;
    extras.afterCurves = [this, &curve, &look](QPainter& target, const GraphView& pixels) {
        solutionPixels(curve.solutions, pixels, pixels_);
        // One dot is one pixel of the layout, so as many target pixels as the target is denser.
        const int dot = std::max(1, static_cast<int>(std::lround(pixels.pixelRatio)));
        target.setRenderHint(QPainter::Antialiasing, false);
        const int side =
            std::max(3, static_cast<int>(std::lround(kSquareSide * pixels.pixelRatio)));
        const int half = side / 2;
        if (isVectorTarget(target)) {
            // One path of merged rows: a file with an element per dot grows to hundreds of MB
            // when the solutions fill the grid. A square (side - 1 wide plus its cosmetic pen)
            // covers side pixels from p - half, and covers its dot.
            QPainterPath path;
            path.setFillRule(Qt::WindingFill);
            if (look.squares) {
                for (PixelPoint& p : pixels_) {
                    p = {p.x - half, p.y - half};
                }
            }
            const int size = look.squares ? side : dot;
            for (const DotRun& run : dotRuns(pixels_, size)) {
                path.addRect(run.x, run.y, run.width, size);
            }
            target.fillPath(path, kDotColor);
        } else {
            for (const PixelPoint& p : pixels_) {
                target.fillRect(p.x, p.y, dot, dot, kDotColor);
            }
            if (look.squares) {
                target.setPen(QPen(kDotColor, 0));
                target.setBrush(kDotColor);
                for (const PixelPoint& p : pixels_) {
                    target.drawRect(p.x - half, p.y - half, side - 1, side - 1);
                }
                target.setBrush(Qt::NoBrush);
            }
        }
        if (look.hasMark) {
            const double px = pixels.toPixelX(look.mark.x);
            const double py = pixels.toPixelY(look.mark.y);
            if (std::isfinite(px) && std::isfinite(py) && std::fabs(px) < 1e6 &&
                std::fabs(py) < 1e6) {
                const double r = 7.0 * pixels.pixelRatio;
                // The whole box leaves room for the ring; its ticks stop at the frame.
                target.save();
                target.setClipRect(
                    QRectF(pixels.left, pixels.top, pixels.visibleWidth(), pixels.visibleHeight()));
                target.setRenderHint(QPainter::Antialiasing, pixels.smoothLines);
                target.setPen(QPen(kMarkColor, std::max(1.0, 2.0 * pixels.pixelRatio)));
                target.drawEllipse(QPointF(px, py), r, r);
                target.drawLine(QPointF(px - 2 * r, py), QPointF(px - r, py));
                target.drawLine(QPointF(px + r, py), QPointF(px + 2 * r, py));
                target.drawLine(QPointF(px, py - 2 * r), QPointF(px, py - r));
                target.drawLine(QPointF(px, py + r), QPointF(px, py + 2 * r));
                target.restore();
            }
        }
    };
    graphPainter.draw(painter, kNoCurves, view, extras);
}

}  // namespace curvemill
