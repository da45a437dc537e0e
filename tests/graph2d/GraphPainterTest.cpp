#include <QFontInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <functional>
#include <tuple>

#include <gtest/gtest.h>

#include "GeometryFixture.h"
#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "graph2d/ui/GraphPainter.h"
#include "graph2d/ui/GraphPens.h"
#include "mathtools/DerivativeCurve.h"

namespace curvemill {
namespace {

// Fonts need an application object; the offscreen platform is set by the test registration.
class GraphPainterTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        static int argc = 1;
        static char name[] = "graph2d_painter_test";
        static char* argv[] = {name, nullptr};
        static QGuiApplication app(argc, argv);
    }

    // Draws `graph` unsmoothed and without a grid, unless `adjust` says otherwise, into a 530 x
    // 380 image (times `ratio` device pixels) whose plotting area shows x 0..10, y -3.75..3.75.
    QImage render(TwoDGraph& graph, double ratio = 1.0,
                  const std::function<void(GraphView&)>& adjust = {}) {
        view_ = testView();
        view_.gridOn = false;
        view_.smoothLines = false;
        if (adjust) {
            adjust(view_);
        }
        QImage image(530 * ratio, 380 * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::black);
        QPainter painter(&image);
        drawGraph(painter, graph, view_);
        return image;
    }

    static int count(const QImage& image, QRect area, const std::function<bool(QColor)>& test) {
        int n = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                n += test(image.pixelColor(x, y));
            }
        }
        return n;
    }
    static int countColour(const QImage& image, QColor colour, QRect area) {
        return count(image, area, [colour](QColor c) { return c == colour; });
    }

    GraphView view_;
};

// The area's value stays in the top margin, clear of the plotting area and of the picture's right
// edge, at any pixel ratio.
TEST_F(GraphPainterTest, AreaValueStaysInTheTopMargin) {
    // The title's dark blue, smoothed into the white at its glyphs' edges, stays bluish.
    const auto titleInk = [](const QImage& image, QRect area) {
        return count(image, area, [](QColor c) { return c.blue() > c.red() + 20; });
    };
    const auto painted = [](GraphView& view) { view.areaPainted = true; };
    for (const char* formula : {"x", "sin(x)/x*80+cos(x)/x*12-tan(x/3)"}) {
        for (double ratio : {1.0, 2.0}) {
            SCOPED_TRACE(std::string(formula) + " at ratio " + std::to_string(ratio));
            TwoDGraph graph;
            setCurve(graph.main, {point(0, 100), point(10, 100)});  // above the view
            graph.mainFormulaText = formula;
            const std::string value = "S(0, 10) =  33.333333333333336";
            const auto r = [ratio](double v) { return static_cast<int>(v * ratio); };
            const QRect plotTop(r(68), r(43), r(394), r(40));
            const QRect rightMargin(r(466), 0, r(64) - 1, r(40) - 1);
            const QRect titleRows(r(65), 0, r(400), r(40) - 1);
            // Blanks take the value's place in the fixed-pitch font: the same layout, no glyphs.
            graph.areaText = std::string(value.size(), ' ');
            const QImage bare = render(graph, ratio, painted);
            graph.areaText = value;
            const QImage withArea = render(graph, ratio, painted);
            EXPECT_EQ(titleInk(withArea, plotTop), 0);
            EXPECT_EQ(titleInk(withArea, rightMargin), 0);
            // Ten pixels and more per character of the value, not a clipped sliver of it.
            EXPECT_GT(titleInk(withArea, titleRows), titleInk(bare, titleRows) + r(r(300)))
                << titleInk(withArea, titleRows) << " " << titleInk(bare, titleRows);
        }
    }
}

TEST_F(GraphPainterTest, NoVerticalLineAcrossAJump) {
    TwoDGraph graph;
    // The records on both sides of the jump at x = 5 carry the break.
    setCurve(graph.main, {point(0, -1), point(4.9, 3, true), point(5.1, -3, true), point(10, 1)});
    const QImage image = render(graph);
    const QRect jump(view_.toPixelX(4.95), 45, 6, 290);
    EXPECT_EQ(countColour(image, graph_colors::kMainFunction, jump), 0);
    EXPECT_GT(countColour(image, graph_colors::kMainFunction, QRect(65, 40, 190, 300)), 100);
}

TEST_F(GraphPainterTest, AreaAcrossTheAxisIsPaintedInBothColours) {
    TwoDGraph graph;
    setCurve(graph.main, line(101, 0, 10, [](int i) { return i / 10.0 - 5; }));
    graph.areaFirst = 0;
    graph.areaLast = 100;
    graph.areaText = std::string("S(0, 10) = 0");
    const QImage image = render(graph, 1.0, [](GraphView& view) { view.areaPainted = true; });
    // Left of x = 5 the area lies below the axis (row 190), right of it above.
    const auto at = [&](double x, int row) { return image.pixelColor(view_.toPixelX(x), row); };
    const QColor white(Qt::white);
    EXPECT_EQ(std::tuple(at(3, 200), at(7, 180), at(3, 180), at(7, 200)),
              std::tuple(graph_colors::kAreaBelow, graph_colors::kAreaAbove, white, white));
    const int crossing = static_cast<int>(view_.toPixelX(5));
    EXPECT_EQ(countColour(image, graph_colors::kAreaBelow, QRect(crossing + 2, 40, 200, 300)), 0);
    EXPECT_EQ(countColour(image, graph_colors::kAreaAbove, QRect(65, 40, crossing - 67, 300)), 0);
}

TEST_F(GraphPainterTest, IndefiniteStretchIsHatchedOnlyWhenMarked) {
    TwoDGraph graph;
    setCurve(graph.main, {point(0, 1), point(3, 1), point(4, 0, false, true),
                          point(5, 0, false, true), point(6, 1), point(10, 1)});
    const auto columns = [this](double from, double to) {
        const int left = static_cast<int>(view_.toPixelX(from));
        return QRect(left, 45, static_cast<int>(view_.toPixelX(to)) - left, 290);
    };
    const QColor hatch = graph_colors::kIndefiniteHatch;
    QImage image = render(graph, 1.0, [](GraphView& view) { view.indefiniteMarked = true; });
    EXPECT_GT(countColour(image, hatch, columns(3.1, 5.9)), 200);
    EXPECT_EQ(countColour(image, hatch, columns(0.2, 2.9)), 0);
    EXPECT_EQ(countColour(image, hatch, columns(6.1, 9.8)), 0);
    // The curve beside the stretch stays in its own colour.
    EXPECT_EQ(image.pixelColor(view_.toPixelX(1.5), view_.toPixelY(1)),
              graph_colors::kMainFunction);
    image = render(graph);
    EXPECT_EQ(countColour(image, hatch, columns(3.1, 5.9)), 0);
}

TEST_F(GraphPainterTest, DenseTargetsAreDrawnInTheirOwnPixels) {
    // Level lines at layout rows 150 and 150.5: device rows 300 and 301 at a ratio of 2. Truncated
    // in layout pixels and then enlarged, both would land on the same device rows.
    const auto topRow = [this](double y) {
        TwoDGraph graph;
        setCurve(graph.main, {point(0, y), point(10, y)});
        const QImage image = render(graph, 2.0);
        for (int row = 0; row < image.height(); ++row) {
            if (image.pixelColor(600, row) == graph_colors::kMainFunction) {
                return row;
            }
        }
        return -1;
    };
    const int upper = topRow(1.0);
    ASSERT_GT(upper, 250);
    EXPECT_EQ(topRow(1.0 - 0.5 / 40), upper + 1);
}

// Labels keep their size relative to the picture (twice as many device pixels at a ratio of 2)
// and the widths of Courier New.
TEST_F(GraphPainterTest, LabelFontsScaleWithThePictureAndHaveCourierWidths) {
    const TwoDGraph graph;
    GraphPainter once, twice;
    for (auto [painter, ratio] : {std::pair{&once, 1.0}, std::pair{&twice, 2.0}}) {
        QImage image(530 * ratio, 380 * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        GraphView view = testView();
        QPainter p(&image);
        painter->draw(p, graph, view);
    }
    EXPECT_NEAR(twice.labelFont().pixelSize(), 2 * once.labelFont().pixelSize(), 1);
    EXPECT_NEAR(twice.titleFont().pixelSize(), 2 * once.titleFont().pixelSize(), 1);
    const QFontInfo info(once.labelFont());
    EXPECT_TRUE(info.family() == "Courier New" || info.family() == "Liberation Mono")
        << info.family().toStdString();
}

// A curve that leaves its edge straight up the y axis (Sqr(x) at 0) is drawn over the axis line.
TEST_F(GraphPainterTest, CurveAlongAnAxisStaysInSight) {
    TwoDGraph graph;
    setCurve(graph.main, {point(0, 0), point(1e-9, 2)});
    const QImage image = render(graph);
    EXPECT_GT(countColour(image, graph_colors::kMainFunction, QRect(65, 115, 1, 70)), 60);
}

// Every curve in its colour on white, drawn over the grid, and the title in its colour above it;
// the derivative has one record fewer than the main curve and ends at its last record but one.
// Where curves overlap, the last letter of the display order is on top.
TEST_F(GraphPainterTest, EveryCurveInItsColourOverTheGridInTheDisplayOrder) {
    TwoDGraph graph;
    std::tie(graph.xBegin, graph.xEnd) = std::pair(0.0, 10.0);
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "x^2/20", FormulaMode::Function));
    setCurve(graph.main, line(11, 0, 10, [](int i) { return i * i / 20.0; }));
    ASSERT_TRUE(buildDerivativeCurve(graph, formula, {}));  // y = x/10 at x = 0 .. 9
    setCurve(graph.integral, line(11, 0, 10, [](int) { return -2.0; }));
    setCurve(graph.second, line(11, 0, 10, [](int) { return -1.0; }));
    graph.mainFormulaText = "x^2/20";
    const QImage image = render(graph, 1.0, [](GraphView& view) {
        view.gridOn = true;
        view.gridStepX = view.gridStepY = 1.0;
    });
    const auto near = [&](QColor colour, double x, double y) {
        const QPoint p(view_.toPixelX(x), view_.toPixelY(y));
        return countColour(image, colour, QRect(p - QPoint(1, 2), QSize(3, 5))) > 0;
    };
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(view_.toPixelX(3.5), view_.toPixelY(2.5)), QColor(Qt::white));
    EXPECT_GT(countColour(image, graph_colors::kTitle, QRect(65, 0, 300, 39)), 10);
    EXPECT_TRUE(near(graph_colors::kGrid, 3, 2.5));
    EXPECT_TRUE(near(graph_colors::kMainFunction, 3, 0.45));
    EXPECT_TRUE(near(graph_colors::kDerivative, 8.7, 0.87));
    EXPECT_EQ(
        countColour(image, graph_colors::kDerivative, QRect(view_.toPixelX(9.2), 40, 60, 300)), 0);
    // On the grid lines at x = 3, y = -2 and y = -1.
    EXPECT_EQ(image.pixelColor(view_.toPixelX(3), view_.toPixelY(-2)), graph_colors::kIntegral);
    EXPECT_EQ(image.pixelColor(view_.toPixelX(3), view_.toPixelY(-1)),
              graph_colors::kSecondFunction);

    for (Curve* curve : {&graph.main, &graph.derivative, &graph.integral}) {
        *curve = graph.second;
    }
    for (const auto& [order, top] : {std::pair("fdiF", graph_colors::kSecondFunction),
                                     std::pair("Fidf", graph_colors::kMainFunction),
                                     std::pair("fFdi", graph_colors::kIntegral),
                                     std::pair("Fifd", graph_colors::kDerivative)}) {
        const QImage drawn = render(graph, 1.0, [&](GraphView& view) {
            view.displayOrder = *DisplayOrder::ofLetters(order);
        });
        EXPECT_EQ(drawn.pixelColor(view_.toPixelX(5), view_.toPixelY(-1)), top) << order;
    }
}

}  // namespace
}  // namespace curvemill
