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
    ASSERT_TRUE(zoomIn(view, ZoomAxis::kX));
    ASSERT_TRUE(zoomIn(view, ZoomAxis::kX));
    EXPECT_EQ(view.xZoom, 4.0);
    EXPECT_EQ(view.contentWidth, 1600.0);
    EXPECT_DOUBLE_EQ(visibleCentreX(view), centre);
    ASSERT_TRUE(zoomOut(view, ZoomAxis::kX));
    ASSERT_TRUE(zoomOut(view, ZoomAxis::kX));
    EXPECT_EQ(view.xZoom, 1.0);
    EXPECT_EQ(view.scrollX, 0.0);
    EXPECT_DOUBLE_EQ(visibleCentreX(view), centre);
    EXPECT_EQ(view.yZoom, 1.0);

    int steps = 0;
    while (zoomIn(view, ZoomAxis::kBoth) && steps < 100) {
        ++steps;
    }
    EXPECT_EQ(view.xZoom, 65536.0);
    EXPECT_EQ(view.yZoom, 65536.0);
    EXPECT_FALSE(canZoomIn(view, ZoomAxis::kX));
    restoreZoom(view);
    EXPECT_EQ(view.xZoom, 1.0);
    EXPECT_EQ(view.contentHeight, view.contentHeightAtZoom1);
    while (zoomOut(view, ZoomAxis::kY) && steps < 200) {
        ++steps;
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
    while (stack.undo(view)) {
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

    const struct {
        ScrollAction action;
        int position;
        double offset;
    } steps[] = {
        {ScrollAction::kLineForward, 0, 202}, {ScrollAction::kPageForward, 0, 400},
        {ScrollAction::kLineForward, 0, 400}, {ScrollAction::kToPosition, 7, 7},
        {ScrollAction::kPageBack, 0, 0},      {ScrollAction::kLineBack, 0, 0},
    };
    for (const auto& s : steps) {
        scrollHorizontally(view, s.action, s.position);
        EXPECT_EQ(view.scrollX, s.offset);
    }
    scrollVertically(view, ScrollAction::kLineBack);
    EXPECT_EQ(view.scrollY, 0.0);
}

TEST(CurveHit, NearestCurveWithinFivePixels) {
    const GraphView view = testView();
    TwoDGraph graph;
    graph.main.points = {point(1, 0), point(2, 1)};
    graph.main.pointCount = 2;
    graph.derivative.points = {point(1, 0), point(2, 2)};
    graph.derivative.pointCount = 2;
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
