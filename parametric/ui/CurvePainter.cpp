#include "parametric/ui/CurvePainter.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QPainterPath>

#include "graph2d/GraphView.h"
#include "graph2d/SegmentClip.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/GraphPainter.h"
#include "graph2d/ui/GraphPens.h"

namespace curvemill {

namespace {

// Points closer than this (in target pixels) to the last one drawn add nothing to the line.
constexpr double kSkipPixels = 0.3;
// How far beyond the plotting area a line is followed before it is cut: a zoomed-in view can put
// points millions of pixels away, where the painter loses precision.
constexpr double kOutside = 64.0;
// The arrow's length and half-width in layout pixels.
constexpr double kArrowLength = 9.0;
constexpr double kArrowHalfWidth = 4.0;

// Cuts the segment a-b to `box`; false when nothing of it is inside.
bool clipToBox(QPointF& a, QPointF& b, const QRectF& box) {
    Segment s{a.x(), a.y(), b.x(), b.y()};
    if (!clipSegment(s, box.left(), box.top(), box.right(), box.bottom())) {
        return false;
    }
    a = QPointF(s.x0, s.y0);
    b = QPointF(s.x1, s.y1);
    return true;
}

bool inBox(QPointF p, const QRectF& box) {
    return p.x() >= box.left() && p.x() <= box.right() && p.y() >= box.top() &&
           p.y() <= box.bottom();
}

void drawArrow(QPainter& painter, const CurveGraph& graph, const GraphView& view, double scale) {
    const std::vector<CurvePoint>& points = graph.points;
    const QPointF start(view.toPixelX(points.front().x), view.toPixelY(points.front().y));
    // The direction is taken over a few pixels of the curve, not the first tiny step.
    for (std::size_t n = 1; n < points.size() && !points[n].isBreak; ++n) {
        const QPointF next(view.toPixelX(points[n].x), view.toPixelY(points[n].y));
        const QPointF d = next - start;
        const double length = std::hypot(d.x(), d.y());
        if (length < 3 * scale) {
            continue;
        }
        const QPointF along = d / length;
        const QPointF across(-along.y(), along.x());
        const QPointF tip = start + along * kArrowLength * scale;
        QPainterPath head;
        head.moveTo(tip);
        head.lineTo(start + across * kArrowHalfWidth * scale);
        head.lineTo(start - across * kArrowHalfWidth * scale);
        head.closeSubpath();
        painter.fillPath(head, graph_colors::kMainFunction);
        return;
    }
}

}  // namespace

void fitViewToCurve(GraphView& view, const CurveGraph& graph) {
    const CurveBox box = viewBox(graph.points);
    setViewRanges(view, box.xMin, box.xMax, box.yMin, box.yMax, true);
}

void CurvePainter::draw(GraphPainter& graphPainter, QPainter& painter, const CurveGraph& graph,
                        GraphView& view, const CurveLook& look) {
    // The 2D painter draws no function curve under this one.
    static const TwoDGraph kNoCurves;
    GraphExtras extras;
    extras.titleGraph = look.title ? TitleGraph::kAsGiven : TitleGraph::kNothing;
    extras.otherTitleText = graph.title();
    extras.labels = look.labels;
    extras.afterCurves = [this, &graph, &look](QPainter& target, const GraphView& pixels) {
        if (!graph.exists()) {
            return;
        }
        target.save();
        target.setRenderHint(QPainter::Antialiasing, pixels.smoothLines);
        target.setPen(QPen(graph_colors::kMainFunction, std::max(1.0, pixels.pixelRatio),
                           Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        target.setClipRect(
            QRectF(pixels.left, pixels.top, pixels.visibleWidth(), pixels.visibleHeight()));
        const QRectF box(pixels.left - kOutside, pixels.top - kOutside,
                         pixels.visibleWidth() + 2 * kOutside,
                         pixels.visibleHeight() + 2 * kOutside);
        const auto flush = [this, &target] {
            if (run_.size() >= 2) {
                target.drawPolyline(run_.data(), static_cast<int>(run_.size()));
            }
            run_.clear();
        };
        run_.clear();
        // A run is at most every point and the one where it enters the box: room for it at once
        // instead of a list that doubles and copies itself (megabytes for a long curve).
        run_.reserve(graph.points.size() + 1);
        QPointF previous;
        const double tLast = look.drawnPart >= 1.0
                                 ? graph.tEnd
                                 : graph.tBegin + look.drawnPart * (graph.tEnd - graph.tBegin);
        for (std::size_t n = 0; n < graph.points.size(); ++n) {
            const CurvePoint& p = graph.points[n];
            if (p.t > tLast) {
                break;
            }
            const QPointF here(pixels.toPixelX(p.x), pixels.toPixelY(p.y));
            if (n > 0 && !p.isBreak) {
                QPointF a = previous, b = here;
                // Most segments lie inside the box, where cutting would change nothing.
                const bool whole = inBox(a, box) && inBox(b, box);
                if (!whole && !clipToBox(a, b, box)) {
                    flush();
                } else {
                    if (run_.empty() || (!whole && a != previous)) {
                        flush();
                        run_.push_back(a);
                    }
                    const bool leaves = !whole && b != here;
                    const QPointF d = b - run_.back();
                    // The segment's end is kept even when close: the run must end where the
                    // curve leaves the box or breaks.
                    if (std::fabs(d.x()) + std::fabs(d.y()) >= kSkipPixels || leaves ||
                        n + 1 == graph.points.size() || graph.points[n + 1].isBreak) {
                        run_.push_back(b);
                    }
                    if (leaves) {
                        flush();
                    }
                }
            } else {
                flush();
            }
            previous = here;
        }
        flush();
        if (graph.arrow) {
            drawArrow(target, graph, pixels, std::max(1.0, pixels.pixelRatio));
        }
        target.restore();
    };
    graphPainter.draw(painter, kNoCurves, view, extras);
}

}  // namespace curvemill
