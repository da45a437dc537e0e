#include <cmath>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

#include "graph2d/GraphView.h"
#include "graph2d/ViewYRange.h"

namespace curvemill {
namespace {

TEST(ViewYRange, TallRangesAreCutAroundTheAxis) {
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
        EXPECT_EQ(r.begin, expected.begin);
        EXPECT_EQ(r.end, expected.end);
    }
}

TEST(ViewYRange, EveryExistingCurveWidensTheRange) {
    TwoDGraph graph;
    graph.xBegin = 0.0;
    graph.xEnd = 10.0;
    for (auto [c, lo, hi] : {std::tuple{&graph.main, -1, 1}, std::tuple{&graph.derivative, -3, 0},
                             std::tuple{&graph.integral, 0, 4}}) {
        c->points.resize(2);
        c->pointCount = 2;
        c->yMin = lo;
        c->yMax = hi;
    }
    graph.second.yMin = -50;  // no records: the second function does not exist
    YRange r = viewYRange(graph);
    EXPECT_EQ(r.begin, -3.0);
    EXPECT_EQ(r.end, 4.0);

    TwoDGraph empty;  // nothing defined was met: still a finite range
    r = viewYRange(empty);
    EXPECT_TRUE(std::isfinite(r.begin) && std::isfinite(r.end) && r.begin < r.end);
}

TEST(GraphView, FullResetMapsTheRangeAndInvertsForTheMouse) {
    TwoDGraph graph;
    graph.xBegin = -10.0;
    graph.xEnd = 10.0;
    graph.main.points.resize(2);
    graph.main.pointCount = 2;
    graph.main.yMin = -20.0;
    graph.main.yMax = 80.0;
    GraphView view;
    setViewSize(view, 530, 380);  // 400 x 300 plotting area, 20 pixels per unit
    view.xZoom = 4.0;
    resetView(view, graph);
    EXPECT_EQ(view.xZoom, 1.0);
    EXPECT_EQ(view.ppu, 20.0);
    EXPECT_EQ(view.graphHeight, 2000.0);  // taller than the area: it scrolls
    EXPECT_EQ(view.toPixelY(80.0), view.top);
    EXPECT_GT(view.gridStepX, 0.0);
    for (double x : {-10.0, -3.3, 7.25}) {
        EXPECT_NEAR(view.graphX(view.toPixelX(x)), x, 1e-12);
        EXPECT_NEAR(view.graphY(view.toPixelY(x)), x, 1e-12);
    }

    graph.main.yMin = 0.5;  // a flat graph is centred at the same scale
    graph.main.yMax = 1.5;
    resetView(view, graph);
    EXPECT_EQ(view.toPixelY(1.0), view.top + 150.0);
    EXPECT_EQ(view.visibleYEnd() - view.visibleYBegin(), 15.0);

    fitGraphHeight(view);  // already fits: unchanged
    EXPECT_EQ(view.yZoom, 1.0);
    graph.main.yMin = -20.0;
    graph.main.yMax = 80.0;
    resetView(view, graph);
    fitGraphHeight(view);
    EXPECT_EQ(view.toPixelY(-20.0), view.plotBottom());
}

}  // namespace
}  // namespace curvemill
