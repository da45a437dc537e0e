#include "graph2d/ui/GraphPainter.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPolygon>

#include "graph2d/AreaPolygons.h"
#include "graph2d/CurveRuns.h"
#include "graph2d/GridLayout.h"
#include "graph2d/GridSteps.h"
#include "graph2d/IndefiniteStretches.h"
#include "graph2d/TitlePlacement.h"
#include "graph2d/ui/FontSubstitutes.h"
#include "graph2d/ui/GraphPens.h"

namespace curvemill {

namespace {

// Length and half width of the arrow heads at the positive ends of the axes.
constexpr double kArrowLength = 9.0;
constexpr double kArrowHalfWidth = 4.0;
// Half length of the marks where grid lines meet the axes.
constexpr double kMarkHalf = 3.0;

QFont makeFont(int pixelSize) {
    // Once per program: "Courier New" then resolves to a font of its widths wherever it is
    // missing, whichever window draws first.
    static const bool substituted = (installFontSubstitutes(), true);
    (void)substituted;
    QFont font(QStringLiteral("Courier New"));
    font.setPixelSize(std::max(1, pixelSize));
    font.setWeight(QFont::Medium);
    font.setFixedPitch(true);
    font.setStyleHint(QFont::TypeWriter, QFont::PreferQuality);
    return font;
}

// A one-pixel line of the layout, as many whole pixels wide as the target has per layout pixel.
int lineWidth(const GraphView& view, int layoutPixels = 1) {
    return std::max(1, static_cast<int>(std::lround(layoutPixels * view.pixelRatio)));
}

QRectF plottingRect(const GraphView& view) {
    return QRectF(view.left, view.top, view.visibleWidth(), view.visibleHeight());
}

// Straight lines are filled whole-pixel rectangles starting at their truncated pixel, so that
// they stay crisp and land on the same pixels at any width.
void fillColumn(QPainter& painter, int column, int top, int bottom, int width, const QColor& c) {
    painter.fillRect(QRect(column, top, width, bottom - top + 1), c);
}

void fillRow(QPainter& painter, int row, int left, int right, int width, const QColor& c) {
    painter.fillRect(QRect(left, row, right - left + 1, width), c);
}

// The frame lies just outside the plotting area on the left and at the top; on the right and at
// the bottom it covers the area's last column and row, where a grid line may still be drawn.
void drawFrame(QPainter& painter, const GraphView& view) {
    const int w = lineWidth(view);
    const int left = static_cast<int>(view.left);
    const int top = static_cast<int>(view.top);
    const int right = static_cast<int>(view.plotRight());
    const int bottom = static_cast<int>(view.plotBottom());
    fillRow(painter, top - w, left - w, right + w - 1, w, graph_colors::kFrame);
    fillRow(painter, bottom, left - w, right + w - 1, w, graph_colors::kFrame);
    fillColumn(painter, left - w, top - w, bottom + w - 1, w, graph_colors::kFrame);
    fillColumn(painter, right, top - w, bottom + w - 1, w, graph_colors::kFrame);
}

void drawGridLines(QPainter& painter, const GraphView& view, const GridLayout& grid) {
    const int w = lineWidth(view);
    const int top = static_cast<int>(view.top);
    const int bottom = static_cast<int>(view.plotBottom());
    const int left = static_cast<int>(view.left);
    const int right = static_cast<int>(view.plotRight());
    for (int column : grid.columns) {
        fillColumn(painter, column, top, bottom, w, graph_colors::kGrid);
    }
    for (int row : grid.rows) {
        fillRow(painter, row, left, right, w, graph_colors::kGrid);
    }
}

// Smooth runs go through the centres of their pixels (for an odd pen width) so that a level
// stretch covers whole rows, as the unsmoothed line does.
void drawRuns(QPainter& painter, const CurveRuns& runs, bool smooth, int penWidth) {
    const double offset = smooth && penWidth % 2 == 1 ? 0.5 : 0.0;
    QPolygonF polyline;
    for (std::size_t i = 0; i < runs.runCount(); ++i) {
        const auto [points, count] = runs.run(i);
        polyline.resize(count);
        for (int k = 0; k < count; ++k) {
            polyline[k] = QPointF(points[k].x + offset, points[k].y + offset);
        }
        painter.drawPolyline(polyline);
    }
}

void paintArea(QPainter& painter, const TwoDGraph& graph, const GraphView& view) {
    const auto polygons = buildAreaPolygons(view, graph.main.points.data(), graph.main.pointCount,
                                            graph.areaFirst, graph.areaLast);
    QPolygon shape;
    for (const AreaPolygon& area : polygons) {
        const QColor& color = area.aboveAxis ? graph_colors::kAreaAbove : graph_colors::kAreaBelow;
        painter.setPen(QPen(color, lineWidth(view)));
        painter.setBrush(color);
        shape.resize(static_cast<int>(area.points.size()));
        for (int k = 0; k < shape.size(); ++k) {
            shape[k] = QPoint(area.points[k].x, area.points[k].y);
        }
        painter.drawPolygon(shape);
    }
    painter.setBrush(Qt::NoBrush);
}

const Curve* curveOf(const TwoDGraph& graph, GraphCurve which, QColor& color, bool& widePen) {
    switch (which) {
        case GraphCurve::kMain:
            color = graph_colors::kMainFunction;
            widePen = true;
            return &graph.main;
        case GraphCurve::kDerivative:
            color = graph_colors::kDerivative;
            widePen = true;
            return &graph.derivative;
        case GraphCurve::kIntegral:
            color = graph_colors::kIntegral;
            widePen = true;
            return &graph.integral;
        case GraphCurve::kSecond:
            color = graph_colors::kSecondFunction;
            widePen = false;
            return &graph.second;
    }
    return nullptr;
}

void drawCurves(QPainter& painter, const TwoDGraph& graph, const GraphView& view, bool widePens) {
    for (const GraphCurve which : view.displayOrder) {
        QColor color;
        bool widePen = false;
        const Curve* curve = curveOf(graph, which, color, widePen);
        if (curve == nullptr || !curve->exists()) {
            continue;
        }
        const int count = std::min<int>(curve->pointCount, static_cast<int>(curve->points.size()));
        if (which == GraphCurve::kMain && view.areaPainted && !graph.hasIntegral()) {
            paintArea(painter, graph, view);
        }
        const int width = lineWidth(view, widePens && widePen ? 2 : 1);
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setRenderHint(QPainter::Antialiasing, view.smoothLines);
        drawRuns(painter, buildCurveRuns(view, curve->points.data(), count), view.smoothLines,
                 width);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
}

// Hatched bands over the whole plotting height where the main function has no value, so an
// empty stretch of the graph reads as "no value here" rather than as a gap in the drawing.
void drawIndefiniteMarks(QPainter& painter, const TwoDGraph& graph, const GraphView& view) {
    const double left = view.left;
    const double right = view.plotRight();
    for (const XStretch& stretch : indefiniteStretches(graph.main, graph.xBegin, graph.xEnd)) {
        const double from = std::clamp(view.toPixelX(stretch.begin), left, right);
        const double to = std::clamp(view.toPixelX(stretch.end), left, right);
        if (to <= from) {
            continue;
        }
        const QRectF band(from, view.top, to - from, view.visibleHeight());
        painter.fillRect(band, graph_colors::kIndefiniteFill);
        painter.fillRect(band, QBrush(graph_colors::kIndefiniteHatch, Qt::BDiagPattern));
    }
}

void drawArrow(QPainter& painter, QPointF tip, QPointF direction, double scale) {
    const QPointF normal(-direction.y(), direction.x());
    const QPointF back = tip - direction * (kArrowLength * scale);
    const QPointF head[] = {tip, back + normal * (kArrowHalfWidth * scale),
                            back - normal * (kArrowHalfWidth * scale)};
    painter.drawPolygon(head, 3);
}

// The axes through the origin, with arrows at their positive ends and a mark at every grid line.
// The lines go under the curves, the marks and arrows over them: a curve that runs along an axis
// (Sqr(x) leaving its edge at the origin straight up the y axis) stays in sight to its end.
void drawAxes(QPainter& painter, const GraphView& view, const GridLayout& grid, bool lines) {
    const int w = lineWidth(view);
    const int mark = static_cast<int>(std::lround(kMarkHalf * view.pixelRatio));
    // The middle of a line w pixels wide that starts at a whole pixel.
    const double middle = (w - 1) / 2.0;
    painter.setPen(QPen(graph_colors::kAxis, 1));
    painter.setBrush(graph_colors::kAxis);
    painter.setRenderHint(QPainter::Antialiasing, view.smoothLines);
    const int left = static_cast<int>(view.left);
    const int right = static_cast<int>(view.plotRight());
    const int top = static_cast<int>(view.top);
    const int bottom = static_cast<int>(view.plotBottom());
    const double axisRow = std::trunc(view.toPixelY(0.0));
    const double axisColumn = std::trunc(view.toPixelX(0.0));
    if (axisRow >= top && axisRow <= bottom) {
        const int row = static_cast<int>(axisRow);
        if (lines) {
            fillRow(painter, row, left, right, w, graph_colors::kAxis);
        } else {
            for (int column : grid.columns) {
                fillColumn(painter, column, row - mark, row + mark + w - 1, w, graph_colors::kAxis);
            }
            drawArrow(painter, QPointF(right + middle, row + middle), QPointF(1, 0),
                      view.pixelRatio);
        }
    }
    if (axisColumn >= left && axisColumn <= right) {
        const int column = static_cast<int>(axisColumn);
        if (lines) {
            fillColumn(painter, column, top, bottom, w, graph_colors::kAxis);
        } else {
            for (int row : grid.rows) {
                fillRow(painter, row, column - mark, column + mark + w - 1, w, graph_colors::kAxis);
            }
            drawArrow(painter, QPointF(column + middle, top + middle), QPointF(0, -1),
                      view.pixelRatio);
        }
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
}

void drawLabels(QPainter& painter, const QFont& font, const GridLayout& grid) {
    painter.setFont(font);
    painter.setPen(graph_colors::kLabel);
    const QFontMetricsF metrics(font);
    const double middle = (metrics.ascent() - metrics.descent()) / 2;
    for (const GridLabel& label : grid.yLabels) {
        painter.drawText(QPointF(label.x, label.y + middle), QString::fromStdString(label.text));
    }
    for (const GridLabel& label : grid.xLabels) {
        const QString text = QString::fromStdString(label.text);
        const double width = metrics.horizontalAdvance(text);
        painter.drawText(QPointF(label.x - width / 2, label.y + metrics.ascent()), text);
    }
}

void drawTitle(QPainter& painter, const QFont& font, const TwoDGraph& graph, const GraphView& view,
               const GraphExtras& extras) {
    const bool function = extras.titleGraph == TitleGraph::kFunction;
    if (function && !graph.main.exists()) {
        return;
    }
    const std::string& formula = function ? graph.mainFormulaText : extras.otherTitleText;
    const TitleText title =
        makeTitle(extras.titleGraph, formula, graph.hasSecond() ? graph.secondFormulaText : "",
                  view.areaPainted, graph.areaText);
    if (title.firstLine.empty()) {
        return;
    }
    const QString first = QString::fromStdString(title.firstLine);
    const QString second = QString::fromStdString(title.secondLine);
    const QFontMetricsF full(font);
    const TitlePlacement place =
        placeTitle(view, full.horizontalAdvance(first),
                   second.isEmpty() ? 0.0 : full.horizontalAdvance(second), full.height());
    QFont shown = font;
    if (place.fontScale < 1.0) {
        shown.setPixelSize(
            std::max(1, static_cast<int>(std::floor(font.pixelSize() * place.fontScale))));
    }
    painter.setFont(shown);
    painter.setPen(graph_colors::kTitle);
    const double ascent = QFontMetricsF(shown).ascent();
    painter.drawText(QPointF(place.firstX, place.firstTop * view.ySign + ascent), first);
    if (!second.isEmpty()) {
        painter.drawText(QPointF(place.secondX, place.secondTop * view.ySign + ascent), second);
    }
}

// The device pixels per painter unit of the target, 1 where Qt does not enlarge the drawing.
double targetPixelRatio(const QPainter& painter) {
    const QPaintDevice* device = painter.device();
    const double ratio = device != nullptr ? device->devicePixelRatioF() : 1.0;
    return ratio > 0.0 ? ratio : 1.0;
}

}  // namespace

void GraphPainter::updateFonts(const GraphView& view) {
    const int marginPart = static_cast<int>((1 - 10 / view.fontScale) * view.marginX);
    const double spacing = view.gridStepX > 0 ? 0.95 * view.gridStepX * view.ppu * view.xZoom
                                              : static_cast<double>(marginPart);
    const int stepPart = static_cast<int>(std::min(spacing, 1e6));
    const int charWidth = std::max(1, std::min(marginPart, stepPart) / 10);
    const int titlePixels = std::max(8, static_cast<int>(view.marginY * 0.45));
    if (charWidth == labelCharWidth_ && titlePixels == titlePixels_) {
        return;
    }
    labelCharWidth_ = charWidth;
    titlePixels_ = titlePixels;

    // The label cell is three characters wide in height; the glyphs are narrowed to the width so
    // that ten characters fit the margin.
    const int cellHeight = 3 * charWidth;
    labelFont_ = makeFont(static_cast<int>(std::lround(cellHeight * 0.8)));
    const double natural = QFontMetricsF(labelFont_).horizontalAdvance(QLatin1Char('0'));
    if (natural > 0) {
        const int stretch = static_cast<int>(std::lround(100.0 * charWidth / natural));
        labelFont_.setStretch(std::clamp(stretch, 50, 200));
    }
    titleFont_ = makeFont(titlePixels);
}

void GraphPainter::draw(QPainter& painter, const TwoDGraph& graph, GraphView& view,
                        const GraphExtras& extras) {
    ensureGridSteps(view);
    const double ratio = targetPixelRatio(painter);
    painter.save();
    if (ratio != 1.0) {
        // Undo Qt's enlargement: everything below is laid out and truncated in device pixels.
        painter.scale(1.0 / ratio, 1.0 / ratio);
        drawInTargetPixels(painter, graph, scaledView(view, ratio), extras);
    } else {
        drawInTargetPixels(painter, graph, view, extras);
    }
    painter.restore();
}

void GraphPainter::drawInTargetPixels(QPainter& painter, const TwoDGraph& graph,
                                      const GraphView& view, const GraphExtras& extras) {
    updateFonts(view);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, true);

    painter.fillRect(QRectF(0, 0, view.width, view.height), Qt::white);
    const QRectF plot = plottingRect(view);
    // Whole-pixel rectangles come out the same either way; a print preview that shrinks the
    // page's lines below one of its pixels shows them faint instead of dropping them.
    painter.setRenderHint(QPainter::Antialiasing, true);
    drawFrame(painter, view);

    const GridLayout grid = layoutGrid(view, graph.dependentName);
    if (view.gridOn) {
        drawGridLines(painter, view, grid);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    const int w = lineWidth(view);
    painter.setClipRect(plot.adjusted(0, 0, w, w));
    if (extras.afterGrid) {
        extras.afterGrid(painter, view);
    }
    drawAxes(painter, view, grid, true);
    drawCurves(painter, graph, view, extras.widePens);
    if (view.indefiniteMarked && extras.titleGraph == TitleGraph::kFunction) {
        drawIndefiniteMarks(painter, graph, view);
    }
    if (extras.afterCurves) {
        extras.afterCurves(painter, view);
    }
    drawAxes(painter, view, grid, false);
    painter.setClipping(false);
    if (extras.labels) {
        drawLabels(painter, labelFont_, grid);
    }
    drawTitle(painter, titleFont_, graph, view, extras);
}

void drawGraph(QPainter& painter, const TwoDGraph& graph, GraphView& view,
               const GraphExtras& extras) {
    GraphPainter painterState;
    painterState.draw(painter, graph, view, extras);
}

}  // namespace curvemill
