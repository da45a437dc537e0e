#include "graph2d/ui/GraphPainter.h"

#include <algorithm>
#include <cmath>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPolygon>

#include "graph2d/AreaPolygons.h"
#include "graph2d/CurveRuns.h"
#include "graph2d/GridLayout.h"
#include "graph2d/GridSteps.h"
#include "graph2d/ui/GraphPens.h"

namespace curvemill {

namespace {

// Length and half width of the arrow heads at the positive ends of the axes.
constexpr double kArrowLength = 9.0;
constexpr double kArrowHalfWidth = 4.0;
// Half length of the marks where grid lines meet the axes.
constexpr int kMarkHalf = 3;

QString monospaceFamily() {
    static const QString family = [] {
        const QString wanted = QStringLiteral("Courier New");
        if (QFontDatabase::families().contains(wanted)) {
            return wanted;
        }
        return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    }();
    return family;
}

QFont makeFont(int pixelSize) {
    QFont font(monospaceFamily());
    font.setPixelSize(std::max(1, pixelSize));
    font.setWeight(QFont::Medium);
    font.setFixedPitch(true);
    font.setStyleHint(QFont::TypeWriter, QFont::PreferQuality);
    return font;
}

QRectF plottingRect(const GraphView& view) {
    return QRectF(view.left, view.top, view.visibleWidth(), view.visibleHeight());
}

void drawGridLines(QPainter& painter, const GraphView& view, const GridLayout& grid) {
    painter.setPen(QPen(graph_colors::kGrid, 1));
    const int top = static_cast<int>(view.top);
    const int bottom = static_cast<int>(view.plotBottom());
    const int left = static_cast<int>(view.left);
    const int right = static_cast<int>(view.plotRight());
    for (int column : grid.columns) {
        painter.drawLine(column, top, column, bottom);
    }
    for (int row : grid.rows) {
        painter.drawLine(left, row, right, row);
    }
}

void drawRuns(QPainter& painter, const CurveRuns& runs) {
    QPolygon polyline;
    for (std::size_t i = 0; i < runs.runCount(); ++i) {
        const auto [points, count] = runs.run(i);
        polyline.resize(count);
        for (int k = 0; k < count; ++k) {
            polyline[k] = QPoint(points[k].x, points[k].y);
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
        painter.setPen(QPen(color, 1));
        painter.setBrush(color);
        shape.resize(static_cast<int>(area.points.size()));
        for (int k = 0; k < shape.size(); ++k) {
            shape[k] = QPoint(area.points[k].x, area.points[k].y);
        }
        painter.drawPolygon(shape);
    }
    painter.setBrush(Qt::NoBrush);
}

const Curve* curveOf(const TwoDGraph& graph, char letter, QColor& color, bool& widePen) {
    switch (letter) {
        case 'f':
            color = graph_colors::kMainFunction;
            widePen = true;
            return &graph.main;
        case 'd':
            color = graph_colors::kDerivative;
            widePen = true;
            return &graph.derivative;
        case 'i':
            color = graph_colors::kIntegral;
            widePen = true;
            return &graph.integral;
        case 'F':
            color = graph_colors::kSecondFunction;
            widePen = false;
            return &graph.second;
        default:
            return nullptr;
    }
}

void drawCurves(QPainter& painter, const TwoDGraph& graph, const GraphView& view, bool widePens) {
    for (char letter : view.displayOrder) {
        QColor color;
        bool widePen = false;
        const Curve* curve = curveOf(graph, letter, color, widePen);
        if (curve == nullptr || !curve->exists()) {
            continue;
        }
        const int count = std::min<int>(curve->pointCount, static_cast<int>(curve->points.size()));
        if (letter == 'f' && view.areaPainted && !graph.hasIntegral()) {
            paintArea(painter, graph, view);
        }
        painter.setPen(QPen(color, widePens && widePen ? 2 : 1, Qt::SolidLine));
        drawRuns(painter, buildCurveRuns(view, curve->points.data(), count));
    }
}

void drawArrow(QPainter& painter, QPointF tip, QPointF direction) {
    const QPointF normal(-direction.y(), direction.x());
    const QPointF back = tip - direction * kArrowLength;
    const QPointF head[] = {tip, back + normal * kArrowHalfWidth, back - normal * kArrowHalfWidth};
    painter.drawPolygon(head, 3);
}

// The axes through the origin, with arrows at their positive ends and a mark at every grid line.
void drawAxes(QPainter& painter, const GraphView& view, const GridLayout& grid) {
    painter.setPen(QPen(graph_colors::kAxis, 1));
    painter.setBrush(graph_colors::kAxis);
    const double left = view.left;
    const double right = view.plotRight();
    const double top = view.top;
    const double bottom = view.plotBottom();
    const double axisRow = view.toPixelY(0.0);
    const double axisColumn = view.toPixelX(0.0);
    if (axisRow >= top && axisRow <= bottom) {
        const int row = static_cast<int>(axisRow);
        painter.drawLine(static_cast<int>(left), row, static_cast<int>(right), row);
        for (int column : grid.columns) {
            painter.drawLine(column, row - kMarkHalf, column, row + kMarkHalf);
        }
        drawArrow(painter, QPointF(right, row), QPointF(1, 0));
    }
    if (axisColumn >= left && axisColumn <= right) {
        const int column = static_cast<int>(axisColumn);
        painter.drawLine(column, static_cast<int>(top), column, static_cast<int>(bottom));
        for (int row : grid.rows) {
            painter.drawLine(column - kMarkHalf, row, column + kMarkHalf, row);
        }
        drawArrow(painter, QPointF(column, top), QPointF(0, -1));
    }
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
    painter.setFont(font);
    painter.setPen(graph_colors::kTitle);
    const QFontMetricsF metrics(font);
    const double d = std::trunc(2 * view.marginY / view.titleScale);
    const double x = view.left + d;
    const double y = (view.top - view.marginY + d) * view.ySign;
    painter.drawText(QPointF(x, y + metrics.ascent()), QString::fromStdString(title.firstLine));
    if (!title.secondLine.empty()) {
        const double second = y + 2 * d + metrics.height();
        painter.drawText(QPointF(x, second + metrics.ascent()),
                         QString::fromStdString(title.secondLine));
    }
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
    updateFonts(view);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, true);

    painter.fillRect(QRectF(0, 0, view.width, view.height), Qt::white);
    const QRectF plot = plottingRect(view);
    painter.fillRect(plot, Qt::white);
    painter.setPen(QPen(graph_colors::kFrame, 1));
    painter.drawRect(plot.adjusted(-1, -1, 0, 0));

    const GridLayout grid = layoutGrid(view, graph.dependentName);
    if (view.gridOn) {
        drawGridLines(painter, view, grid);
    }
    painter.setClipRect(plot.adjusted(0, 0, 1, 1));
    if (extras.afterGrid) {
        extras.afterGrid(painter, view);
    }
    drawCurves(painter, graph, view, extras.widePens);
    if (extras.afterCurves) {
        extras.afterCurves(painter, view);
    }
    drawAxes(painter, view, grid);
    painter.setClipping(false);
    drawLabels(painter, labelFont_, grid);
    drawTitle(painter, titleFont_, graph, view, extras);
    painter.restore();
}

void drawGraph(QPainter& painter, const TwoDGraph& graph, GraphView& view,
               const GraphExtras& extras) {
    GraphPainter painterState;
    painterState.draw(painter, graph, view, extras);
}

}  // namespace curvemill
