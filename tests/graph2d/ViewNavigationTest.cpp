// The 2D view: its layout, zoom, stretch, scroll, resize and the mouse.
#include <cmath>
#include <string>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "GeometryFixture.h"
#include "engine/DisplayFormat.h"
#include "graph2d/CoordinateText.h"
#include "graph2d/CurveHit.h"
#include "graph2d/MouseDrag.h"
#include "graph2d/PartialGraph.h"
#include "graph2d/ScrollBars.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewResize.h"
#include "graph2d/ViewYRange.h"
#include "graph2d/ViewZoom.h"

namespace curvemill {
namespace {

// The sinc-like graph of a tall curve: x -20..20, y -17.4..80 on a 1000 x 700 surface.
GraphView tallView() {
    GraphView view;
    setViewSize(view, 1000, 700);
    setViewRanges(view, -20.0, 20.0, -17.4, 80.0);
    return view;
}

// The menu zooms keep the visible centre, the wheel the point under the mouse; both stop at the
// same limits.
TEST(ViewZoom, KeepsTheCentreOrThePointUnderTheMouseAndStopsAtTheLimits) {
    GraphView view = testView();
    const auto centreX = [&view] { return view.graphX(view.left + view.visibleWidth() / 2); };
    const double centre = centreX();
    ASSERT_TRUE(zoomIn(view, ZoomAxis::kX) && zoomIn(view, ZoomAxis::kX));
    EXPECT_EQ(view.contentWidth, 1600.0);
    EXPECT_DOUBLE_EQ(centreX(), centre);
    ASSERT_TRUE(zoomOut(view, ZoomAxis::kX) && zoomOut(view, ZoomAxis::kX));
    EXPECT_EQ(std::tuple(view.xZoom, view.yZoom, view.scrollX), std::tuple(1.0, 1.0, 0.0));
    EXPECT_DOUBLE_EQ(centreX(), centre);

    const std::tuple<ZoomAxis, double, double, double> cases[] = {
        {ZoomAxis::kBoth, kWheelNotchFactor, 100, 80},
        {ZoomAxis::kBoth, 1 / kWheelNotchFactor, 300, 200},
        {ZoomAxis::kX, 3.0, 420, 300},
        {ZoomAxis::kY, 2.0, 70, 330},
    };
    for (const auto& [axis, factor, column, row] : cases) {
        SCOPED_TRACE(testing::Message() << "factor " << factor << " at " << column << "," << row);
        GraphView view = testView();
        zoomIn(view, ZoomAxis::kBoth);  // room to scroll both ways
        const double x = view.graphX(column);
        const double y = view.graphY(row);
        ASSERT_TRUE(zoomAbout(view, axis, factor, column, row));
        EXPECT_NEAR(view.toPixelX(x), column, 1.0);
        EXPECT_NEAR(view.toPixelY(y), row, 1.0);
        EXPECT_DOUBLE_EQ(view.contentWidth, view.contentWidthAtZoom1 * view.xZoom);
    }

    for (int notch = 0; notch < 14; ++notch) {  // seven in, seven out
        zoomAbout(view, ZoomAxis::kX, notch < 7 ? kWheelNotchFactor : 1 / kWheelNotchFactor, 130,
                  100);
    }
    EXPECT_EQ(std::pair(view.xZoom, view.scrollX), std::pair(1.0, 0.0));
    while (zoomAbout(view, ZoomAxis::kBoth, kWheelNotchFactor, 200, 200)) {
    }
    EXPECT_EQ(std::pair(view.xZoom, view.yZoom), std::pair(65536.0, 65536.0));
    EXPECT_FALSE(zoomIn(view, ZoomAxis::kBoth) || canZoomIn(view, ZoomAxis::kX));
    restoreZoom(view);
    EXPECT_EQ(view.contentHeight, view.contentHeightAtZoom1);
    while (zoomOut(view, ZoomAxis::kY)) {
    }
    EXPECT_EQ(std::pair(view.xZoom, view.yZoom), std::pair(1.0, 0.00390625));
    EXPECT_FALSE(zoomAbout(view, ZoomAxis::kY, 0.1, 200, 200) ||
                 zoomAbout(view, ZoomAxis::kY, 0.0, 200, 200));
}

TEST(ViewResize, KeepsTheVisibleCentreThroughResizes) {
    GraphView view = tallView();
    view.scrollY = 300;
    zoomIn(view, ZoomAxis::kX);
    const auto centre = [](const GraphView& v) {
        return std::pair(v.graphX(v.left + v.visibleWidth() / 2),
                         v.graphY(v.top + v.visibleHeight() / 2));
    };
    const auto before = centre(view);
    const double yBegin = view.visibleYBegin();
    for (const auto& [w, h] : {std::pair(1000, 700), std::pair(1280, 760), std::pair(900, 650)}) {
        resizeKeepingCentre(view, w, h);
        EXPECT_NEAR(centre(view).first, before.first, 1e-9) << w;
        EXPECT_NEAR(centre(view).second, before.second, 1e-9) << w;
    }
    resizeKeepingCentre(view, 1000, 700);
    EXPECT_NEAR(view.visibleYBegin(), yBegin, 1e-9);

    GraphView fresh;  // never laid out: plain layout, nothing to keep
    resizeKeepingCentre(fresh, 530, 380);
    EXPECT_EQ(std::pair(fresh.visibleWidth(), fresh.scrollX), std::pair(400.0, 0.0));
}

TEST(Stretch, FillsTheAreaWithTheSelectionStacksFiveDeepAndUndoesExactly) {
    const PixelRect selections[] = {{100, 60, 180, 140}, {65, 40, 465, 90}, {300, 250, 460, 335}};
    for (const PixelRect& s : selections) {
        SCOPED_TRACE(testing::Message()
                     << s.left << "," << s.top << " " << s.width() << "x" << s.height());
        GraphView view = testView();
        const double x0 = view.graphX(s.left), x1 = view.graphX(s.right);
        const double y0 = view.graphY(s.top), y1 = view.graphY(s.bottom);
        StretchStack stack;
        ASSERT_TRUE(stack.stretch(view, s.left, s.top, s.right, s.bottom));
        EXPECT_NEAR(view.toPixelX(x0), view.left, 1.0);
        EXPECT_NEAR(view.toPixelX(x1), view.plotRight(), 1.0);
        EXPECT_NEAR(view.toPixelY(y0), view.top, 1.0);
        EXPECT_NEAR(view.toPixelY(y1), view.plotBottom(), 1.0);
        // A zoom in and out between the stretch and its undo changes nothing the undo needs.
        zoomIn(view, ZoomAxis::kBoth);
        zoomOut(view, ZoomAxis::kBoth);
        ASSERT_TRUE(stack.undo(view));
        EXPECT_NEAR(view.scrollX, 0.0, 1e-9);
        EXPECT_NEAR(view.scrollY, 0.0, 1e-9);
        EXPECT_DOUBLE_EQ(view.xZoom, 1.0);
        EXPECT_FALSE(stack.undo(view));
    }
    GraphView view = testView();
    StretchStack stack;
    for (int i = 0; i < StretchStack::kLevels; ++i) {
        ASSERT_TRUE(stack.stretch(view, 100, 100, 400, 300));
    }
    EXPECT_FALSE(stack.stretch(view, 100, 100, 400, 300));
    EXPECT_FALSE(StretchStack().stretch(view, 100, 100, 100, 300));  // no height
    while (stack.undo(view)) {
    }
    EXPECT_EQ(std::tuple(view.xZoom, view.yZoom, view.scrollX), std::tuple(1.0, 1.0, 0.0));
    view.xZoom = 40000;
    EXPECT_FALSE(stack.stretch(view, 100, 100, 200, 200));  // would pass 65536
    EXPECT_EQ(stack.depth(), 0);
}

TEST(MouseDrag, SelectionIsCutToThePlottingAreaAndMoveFollowsTheHand) {
    const GraphView view = testView();  // plotting area 65..465 x 40..340
    const std::tuple<double, double, double, double, PixelRect> cases[] = {
        {100, 100, 200, 150, {100, 100, 200, 150}},
        {200, 150, 100, 100, {100, 100, 200, 150}},
        {10, 5, 600, 400, {65, 40, 465, 340}},
        {100, 100, 102, 200, {}},  // a click with a tremble
        {10, 10, 50, 30, {}},      // all in the margin
    };
    for (const auto& [px, py, x, y, expected] : cases) {
        SCOPED_TRACE(testing::Message() << px << "," << py << " to " << x << "," << y);
        const PixelRect r = selectionRect(view, px, py, x, y);
        const auto edges = [](const PixelRect& q) {
            return q.empty() ? std::tuple(0.0, 0.0, 0.0, 0.0)
                             : std::tuple(q.left, q.top, q.right, q.bottom);
        };
        EXPECT_EQ(edges(r), edges(expected));
    }
    GraphView moved = testView();
    zoomIn(moved, ZoomAxis::kBoth);  // offsets 200, 150 of at most 400, 300
    dragScroll(moved, 200, 150, 30, -20);
    EXPECT_EQ(std::pair(moved.scrollX, moved.scrollY), std::pair(170.0, 170.0));
    dragScroll(moved, 200, 150, 500, -500);
    EXPECT_EQ(std::pair(moved.scrollX, moved.scrollY), std::pair(0.0, 300.0));
}

TEST(CoordinateText, PlainOrPiUnitsAsTheAxesShow) {
    GraphView view = testView();  // 40 pixels per unit: two decimals
    EXPECT_EQ(coordinateText(view, 145, 190), "x = 2.00   y = 0.00");
    view.piUnitsX = true;
    EXPECT_EQ(coordinateText(view, 65 + 40 * kPi, 150), "x = pi*1.000   y = 1.00");
    for (int i = 0; i < 3; ++i) {
        zoomIn(view, ZoomAxis::kY);  // 320 pixels per unit: a third decimal
    }
    const std::string text = coordinateText(view, 65, 190);
    EXPECT_EQ(text.size() - text.rfind('.') - 1, 3u) << text;
}

// Every tenth record, the lowest one and the last one are vertices when drawing is optimized.
TEST(TwoDSettings, OptimizeDrawingAndTheDisplayOrder) {
    TwoDGraph graph;
    setCurve(graph.main, line(25, 0, 10, [](int i) { return std::abs(i - 13); }));
    const auto vertices = [&graph] {
        std::string out;
        for (const PlotPoint& p : graph.main) {
            out += p.isVertex ? '1' : '0';
        }
        return out;
    };
    GraphView view = testView();
    TwoDSettings settings;
    settings.optimizeDrawing = false;
    settings.displayOrder = *DisplayOrder::ofLetters("Fidf");
    EXPECT_FALSE(applyGraphSettings(graph, view, settings));
    EXPECT_EQ(std::tuple(graph.drawStep, vertices(), view.displayOrder.letters()),
              std::tuple(1, std::string(25, '1'), "Fidf"));
    settings.optimizeDrawing = true;
    settings.maxYRatio = 3;
    EXPECT_TRUE(applyGraphSettings(graph, view, settings));
    EXPECT_EQ(std::pair(graph.drawStep, vertices()),
              std::pair(10, std::string("1000000000100100000010001")));

    DisplayOrderPicker picker{DisplayOrder()};
    picker.reset();
    EXPECT_EQ(picker.press(GraphCurve::kIntegral), 1);
    EXPECT_EQ(picker.press(GraphCurve::kIntegral), 0);
    EXPECT_EQ(picker.order().letters(), "ifdF");  // curves never placed follow
}

TEST(PartialGraph, CutsEveryCurveAcrossTheVisiblePart) {
    TwoDGraph graph;
    setCurve(graph.main, line(31, -10, 20, [](int) { return 1.0; }));  // x -10, -9, .. 20
    setCurve(graph.derivative, line(11, 0, 10, [](int) { return 0.0; }));
    graph.areaFirst = 0;
    graph.areaLast = 30;
    PartialGraph partial;
    partial.start(graph, testView());  // x 0..10 visible
    partial.show(0.0);
    EXPECT_EQ(partial.graph().main.pointCount, 9);
    const auto counts = [&partial] {
        const TwoDGraph& g = partial.graph();
        return std::tuple(g.main.pointCount, g.derivative.pointCount, g.areaLast);
    };
    partial.show(0.5);
    // Records 9 (x -1, the last left of the view) to 21 (x 11, the first right of it).
    EXPECT_EQ(counts(), std::tuple(9 + 6, 5, 14));
    partial.show(1.0);
    EXPECT_EQ(counts(), std::tuple(31, 11, 30));
}

// Fit to Window shows the whole Y range of a tall curve; Restore leads back to the very view a new
// graph opens with, scrolled to the x axis.
TEST(Restore, ReturnsToTheOpeningViewAfterFitToWindow) {
    GraphView opened = tallView();
    scrollToXAxis(opened);
    ASSERT_GT(opened.scrollY, 0.0);
    ASSERT_GT(opened.contentHeight, opened.visibleHeight());  // the peak is off screen
    GraphView view = opened;
    zoomIn(view, ZoomAxis::kX);
    ASSERT_TRUE(fitToWindow(view));
    EXPECT_LE(view.visibleYBegin(), -17.4 + 1e-9);
    EXPECT_GE(view.visibleYEnd(), 80.0 - 1e-9);
    EXPECT_NEAR(view.contentHeight, view.visibleHeight(), 1e-9);
    EXPECT_EQ(view.xZoom, 2.0);
    EXPECT_FALSE(fitToWindow(view));
    view.scrollY = 0.0;
    restoreZoom(view);
    EXPECT_EQ(std::tuple(view.scrollX, view.scrollY, view.contentHeight, view.yZoom),
              std::tuple(opened.scrollX, opened.scrollY, opened.contentHeight, 1.0));
}

// A printed page is laid out at its own proportions around the screen's centre, with the
// screen's text and margins enlarged by the page's pixel ratio.
TEST(PageView, FillsThePageAroundTheSameCentre) {
    GraphView view = tallView();
    view.scrollY = 300;
    const GraphView page = pageView(view, 13000, 9000, 12.5);
    EXPECT_NEAR(page.width, 13000, 13);
    EXPECT_NEAR(page.height, 9000, 13);
    EXPECT_EQ(std::pair(page.pixelRatio, page.marginY), std::pair(12.5, 500.0));
    const auto centre = [](const GraphView& v) { return v.graphY(v.top + v.visibleHeight() / 2); };
    EXPECT_NEAR(centre(page), centre(view), page.pixelRatio / page.ppu);  // a layout pixel
}

TEST(ScrollBars, OffsetsStayWithinTheEnlargedGraph) {
    GraphView view = testView();
    EXPECT_FALSE(horizontalScrollBar(view, true).enabled);
    zoomIn(view, ZoomAxis::kX);  // 800 wide in a 400-pixel area, scrolled to the middle
    const ScrollBarState bar = horizontalScrollBar(view, true);
    EXPECT_TRUE(bar.enabled && !horizontalScrollBar(view, false).enabled);
    EXPECT_EQ(std::tuple(bar.maximum, bar.page, bar.position), std::tuple(800, 400, 200));
    EXPECT_EQ(verticalScrollBar(view, true).maximum, 300);

    using enum ScrollAction;
    const std::tuple<ScrollAction, int, double> steps[] = {
        {kLineForward, 0, 202}, {kPageForward, 0, 400}, {kLineForward, 0, 400},
        {kToPosition, 7, 7},    {kPageBack, 0, 0},      {kLineBack, 0, 0}};
    for (const auto& [action, position, offset] : steps) {
        scrollHorizontally(view, action, position);
        EXPECT_EQ(view.scrollX, offset);
    }
    scrollVertically(view, ScrollAction::kLineBack);
    EXPECT_EQ(view.scrollY, 0.0);
}

TEST(CurveHit, NearestCurveWithinFivePixels) {
    const GraphView view = testView();
    TwoDGraph graph;
    setCurve(graph.main, {point(1, 0), point(2, 1)});
    setCurve(graph.derivative, {point(1, 0), point(2, 2)});
    // (2, 1) is at column 145, row 150; (2, 2) at row 110.
    EXPECT_EQ(curveTooltip(curveUnderMouse(graph, view, 148, 154)),
              "FUNCTION x=2.000000 y=1.000000");
    EXPECT_EQ(curveUnderMouse(graph, view, 146, 112).name, "DERIVATIVE");
    // Equally near both: the main curve is searched first and keeps the hit.
    EXPECT_EQ(curveUnderMouse(graph, view, 105, 190).name, "FUNCTION");
    EXPECT_EQ(curveUnderMouse(graph, view, 145, 130).name, "");
}

TEST(ViewYRange, TallRangesAreCutAroundTheAxisAndEveryCurveWidensIt) {
    // X range 20 and ratio 10: at most 200 high, h = 100.
    // Rows: stays, shoots up, shoots down / wholly high, wholly low, both ways / exactly R high,
    // high end exactly h.
    const std::pair<YRange, YRange> cases[] = {
        {{-1, 1}, {-1, 1}},       {{-10, 1e6}, {-10, 190}},     {{-1e6, 10}, {-190, 10}},
        {{150, 1e6}, {150, 350}}, {{-1e6, -150}, {-350, -150}}, {{-1e6, 1e6}, {-100, 100}},
        {{-50, 150}, {-50, 150}}, {{-1e6, 100}, {-100, 100}}};
    for (const auto& [extent, expected] : cases) {
        SCOPED_TRACE(testing::Message() << extent.begin << " .. " << extent.end);
        const YRange r = clampYRange(extent, -10.0, 10.0, 10);
        EXPECT_EQ(std::pair(r.begin, r.end), std::pair(expected.begin, expected.end));
    }
    // Every existing curve widens the range.
    TwoDGraph graph;
    graph.xBegin = 0.0;
    graph.xEnd = 10.0;
    for (auto [c, lo, hi] : {std::tuple{&graph.main, -1, 1}, std::tuple{&graph.derivative, -3, 0},
                             std::tuple{&graph.integral, 0, 4}}) {
        setCurve(*c, {point(0, lo), point(10, hi)});
        std::tie(c->yMin, c->yMax) = std::pair(lo, hi);
    }
    graph.second.yMin = -50;  // no records: the second function does not exist
    YRange r = viewYRange(graph);
    EXPECT_EQ(std::pair(r.begin, r.end), std::pair(-3.0, 4.0));
    r = viewYRange(TwoDGraph{});  // nothing defined was met: still a finite range
    EXPECT_TRUE(std::isfinite(r.begin) && std::isfinite(r.end) && r.begin < r.end);
}

TEST(GraphView, FullResetMapsTheRangeAndInvertsForTheMouse) {
    TwoDGraph graph;
    std::tie(graph.xBegin, graph.xEnd, graph.main.yMin, graph.main.yMax) =
        std::tuple(-10.0, 10.0, -20.0, 80.0);
    setCurve(graph.main, {point(-10, -20), point(10, 80)});
    GraphView view;
    setViewSize(view, 530, 380);  // 400 x 300 plotting area, 20 pixels per unit
    view.xZoom = 4.0;
    resetView(view, graph);
    // Taller than the area: it scrolls.
    EXPECT_EQ(std::tuple(view.xZoom, view.ppu, view.graphHeight), std::tuple(1.0, 20.0, 2000.0));
    EXPECT_EQ(view.toPixelY(80.0), view.top);
    EXPECT_GT(view.gridStepX, 0.0);
    for (double x : {-10.0, -3.3, 7.25}) {
        EXPECT_NEAR(view.graphX(view.toPixelX(x)), x, 1e-12);
        EXPECT_NEAR(view.graphY(view.toPixelY(x)), x, 1e-12);
    }

    std::tie(graph.main.yMin, graph.main.yMax) = std::pair(0.5, 1.5);  // centred, same scale
    resetView(view, graph);
    EXPECT_EQ(view.toPixelY(1.0), view.top + 150.0);
    EXPECT_EQ(view.visibleYEnd() - view.visibleYBegin(), 15.0);

    fitGraphHeight(view);  // already fits: unchanged
    EXPECT_EQ(view.yZoom, 1.0);
    std::tie(graph.main.yMin, graph.main.yMax) = std::pair(-20.0, 80.0);
    resetView(view, graph);
    fitGraphHeight(view);
    EXPECT_EQ(view.toPixelY(-20.0), view.plotBottom());
}

}  // namespace
}  // namespace curvemill
