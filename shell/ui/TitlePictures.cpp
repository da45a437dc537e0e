#include "shell/ui/TitlePictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/GraphView.h"
#include "graph2d/ui/GraphPainter.h"
#include "parametric/CurveGraph.h"
#include "parametric/ParameterFormula.h"
#include "parametric/ui/CurvePainter.h"

namespace curvemill {

namespace {

QPixmap blank(QSize size, qreal pixelRatio, const QColor& fill) {
    QPixmap pixmap(size * pixelRatio);
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(fill);
    return pixmap;
}

// Samples `text` over [x0, x1] and draws it with the graph painter, as the program draws a graph.
void drawFunction(QPainter& painter, QSize size, const char* text, double x0, double x1,
                  bool grid) {
    Formula formula;
    TwoDGraph graph;
    if (!prepareFormula(formula, text, FormulaMode::Function)) {
        return;
    }
    graph.xBegin = x0;
    graph.xEnd = x1;
    graph.pointsPerRun = 10000;
    graph.mainFormulaText = text;
    if (!sampleCurve(graph, formula, SamplingControl{})) {
        return;
    }
    GraphView view;
    view.marginX = 14;
    view.marginY = 12;
    view.left = view.marginX;
    view.top = view.marginY;
    view.gridOn = grid;
    view.xBegin = x0;
    view.xEnd = x1;
    setViewSize(view, size.width(), size.height());
    resetView(view, graph);
    fitGraphHeight(view);
    GraphExtras extras;
    extras.titleGraph = TitleGraph::kNothing;
    // At this size the label font is a pixel or two high: its digits would be stray dots beside
    // the frame.
    extras.labels = false;
    drawGraph(painter, graph, view, extras);
}

// Samples the curve over one turn of t and draws it with the curve painter, as the program draws
// a curve: equal scales; the arrow at its start would be a stray dot at this size.
QPixmap curvePicture(QSize size, qreal pixelRatio, CurveForm form, const char* first,
                     const char* second) {
    QPixmap pixmap = blank(size, pixelRatio, Qt::white);
    Formula formula;
    CurveGraph graph;
    graph.form = form;
    graph.firstText = first;
    graph.secondText = second;
    graph.tBegin = 0.0;
    graph.tEnd = 2.0 * M_PI;
    // A thumbnail needs no more; the program's own 100000 would slow the start.
    graph.startPoints = 2000;
    graph.arrow = false;
    const bool prepared = prepareParameterFormula(formula, first, FormulaMode::Function) &&
                          (form == CurveForm::Polar ||
                           prepareParameterFormula(formula, second, FormulaMode::SecondFunction));
    if (!prepared || !runCurve(formula, graph, SamplingControl{})) {
        return pixmap;
    }
    GraphView view;
    view.marginX = 14;
    view.marginY = 12;
    view.left = view.marginX;
    view.top = view.marginY;
    setViewSize(view, size.width(), size.height());
    fitViewToCurve(view, graph);
    CurveLook look;
    look.labels = false;
    look.title = false;
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    GraphPainter graphPainter;
    CurvePainter().draw(graphPainter, painter, graph, view, look);
    return pixmap;
}

}  // namespace

QPixmap productPicture(QSize size, qreal pixelRatio) {
    QPixmap pixmap = blank(size, pixelRatio, Qt::white);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, QColor(24, 44, 96));
    sky.setColorAt(1, QColor(60, 110, 190));
    painter.fillRect(QRect(QPoint(0, 0), size), sky);

    // A family of damped waves, the kind of curve the program is made for.
    const double w = size.width();
    const double h = size.height();
    for (int k = 0; k < 5; ++k) {
        QPainterPath path;
        for (int i = 0; i <= 200; ++i) {
            const double x = -12.0 + 24.0 * i / 200.0;
            const double y = (x == 0.0 ? 1.0 : std::sin(x) / x) * (1.0 - 0.18 * k);
            const QPointF point(w * i / 200.0, h * 0.72 - y * h * 0.42);
            i == 0 ? path.moveTo(point) : path.lineTo(point);
        }
        painter.setPen(QPen(QColor(140 + 20 * k, 200, 255, 230 - 40 * k), 2.0 - 0.3 * k));
        painter.drawPath(path);
    }
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setPixelSize(static_cast<int>(h * 0.2));
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(0, h * 0.06, w, h * 0.26), Qt::AlignCenter,
                     QStringLiteral("CurveMill"));
    font.setBold(false);
    font.setPixelSize(static_cast<int>(h * 0.075));
    painter.setFont(font);
    painter.setPen(QColor(210, 225, 255));
    painter.drawText(QRectF(0, h * 0.84, w, h * 0.14), Qt::AlignCenter,
                     QStringLiteral("www.curvemill.org"));
    return pixmap;
}

QPixmap twoDGraphPicture(QSize size, qreal pixelRatio) {
    QPixmap pixmap = blank(size, pixelRatio, Qt::white);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    drawFunction(painter, size, "sin(x)/x*8", -15.0, 15.0, true);
    return pixmap;
}

QPixmap equationPicture(QSize size, qreal pixelRatio) {
    QPixmap pixmap = blank(size, pixelRatio, Qt::white);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const double w = size.width();
    const double h = size.height();
    const double scale = std::min(w, h) * 0.2;
    const QPointF centre(w / 2, h / 2);

    painter.setPen(QPen(QColor(215, 215, 215), 1));
    for (int i = -6; i <= 6; ++i) {
        painter.drawLine(QPointF(centre.x() + i * scale * 0.5, 0),
                         QPointF(centre.x() + i * scale * 0.5, h));
        painter.drawLine(QPointF(0, centre.y() + i * scale * 0.5),
                         QPointF(w, centre.y() + i * scale * 0.5));
    }
    painter.setPen(QPen(Qt::black, 1));
    painter.drawLine(QPointF(0, centre.y()), QPointF(w, centre.y()));
    painter.drawLine(QPointF(centre.x(), 0), QPointF(centre.x(), h));

    // (x^2 + y^2)^2 = 4 (x^2 - y^2): the lemniscate, and the circle x^2 + y^2 = 4 around it.
    QPainterPath lemniscate;
    for (int i = 0; i <= 400; ++i) {
        const double t = i * 2.0 * M_PI / 400.0;
        const double d = 1.0 + std::sin(t) * std::sin(t);
        const QPointF point(centre.x() + 2.0 * scale * std::cos(t) / d,
                            centre.y() - 2.0 * scale * std::sin(t) * std::cos(t) / d);
        i == 0 ? lemniscate.moveTo(point) : lemniscate.lineTo(point);
    }
    painter.setPen(QPen(QColor(0, 0, 255), 1.6));
    painter.drawPath(lemniscate);
    painter.setPen(QPen(QColor(128, 0, 255), 1.6));
    painter.drawEllipse(centre, 2.0 * scale, 2.0 * scale);
    return pixmap;
}

QPixmap parametricCurvePicture(QSize size, qreal pixelRatio) {
    return curvePicture(size, pixelRatio, CurveForm::Parametric, "sin(3*t)", "sin(2*t)");
}

QPixmap polarCurvePicture(QSize size, qreal pixelRatio) {
    return curvePicture(size, pixelRatio, CurveForm::Polar, "sin(4*t)", "");
}

QPixmap threeDGraphPicture(QSize size, qreal pixelRatio) {
    QPixmap pixmap = blank(size, pixelRatio, QColor(250, 250, 255));
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const double w = size.width();
    const double h = size.height();

    // z = sin(r) / r over a square grid, turned by 30 degrees and tilted, drawn back to front.
    constexpr int n = 24;
    constexpr double range = 9.0;
    const double turn = M_PI / 6;
    const double tilt = 0.55;
    const double scale = w / (range * 3.0);
    auto z = [](double x, double y) {
        const double r = std::hypot(x, y);
        return r < 1e-9 ? 1.0 : std::sin(r) / r;
    };
    auto project = [&](double x, double y, double height) {
        const double xr = x * std::cos(turn) - y * std::sin(turn);
        const double yr = x * std::sin(turn) + y * std::cos(turn);
        return QPointF(w / 2 + xr * scale, h * 0.62 - yr * scale * tilt - height * h * 0.45);
    };
    struct Quad {
        std::array<QPointF, 4> corners;
        double depth;
        double height;
    };
    std::vector<Quad> quads;
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            const double x0 = -range + 2 * range * i / n;
            const double x1 = -range + 2 * range * (i + 1) / n;
            const double y0 = -range + 2 * range * j / n;
            const double y1 = -range + 2 * range * (j + 1) / n;
            const double xm = (x0 + x1) / 2;
            const double ym = (y0 + y1) / 2;
            quads.push_back({{project(x0, y0, z(x0, y0)), project(x1, y0, z(x1, y0)),
                              project(x1, y1, z(x1, y1)), project(x0, y1, z(x0, y1))},
                             xm * std::sin(turn) + ym * std::cos(turn),
                             z(xm, ym)});
        }
    }
    std::sort(quads.begin(), quads.end(),
              [](const Quad& a, const Quad& b) { return a.depth > b.depth; });
    for (const Quad& quad : quads) {
        const double t = std::clamp((quad.height + 0.25) / 1.25, 0.0, 1.0);
        const QColor colour = QColor::fromHsvF(0.66 - 0.66 * t, 0.75, 0.55 + 0.4 * t);
        painter.setBrush(colour);
        painter.setPen(QPen(colour.darker(140), 0.6));
        painter.drawPolygon(quad.corners.data(), 4);
    }
    return pixmap;
}

}  // namespace curvemill
