#include <tuple>

#include <gtest/gtest.h>

#include "GeometryFixture.h"
#include "graph2d/CurveHit.h"
#include "graph2d/ScrollBars.h"
#include "graph2d/ViewZoom.h"

namespace curvemill {
namespace {

double visibleCentreX(const GraphView& view) {
    return view.graphX(view.left + view.visibleWidth() / 2);
}

TEST(ViewZoom, InAndOutAgainReturnsToTheSameViewAndStopsAtTheLimits) {
    GraphView view = testView();
    const double centre = visibleCentreX(view);
    ASSERT_TRUE(zoomIn(view, ZoomAxis::kX) && zoomIn(view, ZoomAxis::kX));
    EXPECT_EQ(view.xZoom, 4.0);
    EXPECT_EQ(view.contentWidth, 1600.0);
    EXPECT_DOUBLE_EQ(visibleCentreX(view), centre);
    ASSERT_TRUE(zoomOut(view, ZoomAxis::kX) && zoomOut(view, ZoomAxis::kX));
    EXPECT_EQ(view.xZoom, 1.0);
    EXPECT_EQ(view.scrollX, 0.0);
    EXPECT_DOUBLE_EQ(visibleCentreX(view), centre);
    EXPECT_EQ(view.yZoom, 1.0);

    for (int steps = 0; steps < 100 && zoomIn(view, ZoomAxis::kBoth); ++steps) {
    }
    EXPECT_EQ(view.xZoom, 65536.0);
    EXPECT_EQ(view.yZoom, 65536.0);
    EXPECT_FALSE(canZoomIn(view, ZoomAxis::kX));
    restoreZoom(view);
    EXPECT_EQ(view.xZoom, 1.0);
    EXPECT_EQ(view.contentHeight, view.contentHeightAtZoom1);
    for (int steps = 0; steps < 100 && zoomOut(view, ZoomAxis::kY); ++steps) {
    }
    EXPECT_EQ(view.yZoom, 0.00390625);
    EXPECT_EQ(view.xZoom, 1.0);
}

TEST(ViewZoom, StretchesStackFiveDeepAndUndoExactly) {
    GraphView view = testView();
    StretchStack stack;
    ASSERT_TRUE(stack.stretch(view, 165, 90, 265, 165));  // x 2.5 .. 5, a quarter of the width
    EXPECT_EQ(view.xZoom, 4.0);
    EXPECT_EQ(view.yZoom, 4.0);
    EXPECT_DOUBLE_EQ(view.visibleXBegin(), 2.5);
    for (int i = 1; i < StretchStack::kLevels; ++i) {
        ASSERT_TRUE(stack.stretch(view, 100, 100, 400, 300));
    }
    EXPECT_FALSE(stack.stretch(view, 100, 100, 400, 300));
    EXPECT_FALSE(StretchStack().stretch(view, 100, 100, 100, 300));
    for (int undone = 0; undone < 10 && stack.undo(view); ++undone) {
    }
    EXPECT_DOUBLE_EQ(view.xZoom, 1.0);
    EXPECT_DOUBLE_EQ(view.yZoom, 1.0);
    EXPECT_EQ(view.scrollX, 0.0);
}

TEST(ScrollBars, OffsetsStayWithinTheEnlargedGraph) {
    GraphView view = testView();
    EXPECT_FALSE(horizontalScrollBar(view, true).enabled);
    zoomIn(view, ZoomAxis::kX);  // 800 wide in a 400-pixel area, scrolled to the middle
    const ScrollBarState bar = horizontalScrollBar(view, true);
    EXPECT_TRUE(bar.enabled);
    EXPECT_FALSE(horizontalScrollBar(view, false).enabled);
    EXPECT_EQ(bar.maximum, 800);
    EXPECT_EQ(bar.page, 400);
    EXPECT_EQ(bar.position, 200);
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
    CurveHit hit = curveUnderMouse(graph, view, 148, 154);
    EXPECT_EQ(hit.name, "FUNCTION");
    EXPECT_EQ(curveTooltip(hit), "FUNCTION x=2.000000 y=1.000000");
    EXPECT_EQ(curveUnderMouse(graph, view, 146, 112).name, "DERIVATIVE");
    // Equally near both: the main curve is searched first and keeps the hit.
    EXPECT_EQ(curveUnderMouse(graph, view, 105, 190).name, "FUNCTION");
    EXPECT_EQ(curveUnderMouse(graph, view, 145, 130).name, "");
}

}  // namespace
}  // namespace curvemill
