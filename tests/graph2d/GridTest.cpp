#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "GeometryFixture.h"
#include "engine/DisplayFormat.h"
#include "graph2d/GridLayout.h"
#include "graph2d/GridSteps.h"
#include "graph2d/TitlePlacement.h"

namespace curvemill {
namespace {

TEST(GridSteps, CandidateChainKeepsTheEarlierStepOnATieAndTheZoomedListsComeFirst) {
    const std::tuple<double, double, double> cases[] = {
        {1.0, 1.0, 1.0},   {1.5, 1.0, 1.0},       {1.51, 1.0, 2.0},
        {3.5, 1.0, 2.0},   {3.6, 1.0, 5.0},       {7.5, 1.0, 5.0},
        {12.0, 1.0, 10.0}, {150.0, 1.0, 100.0},   {0.75, 1.0, 1.0},
        {0.16, 1.0, 0.2},  {0.12, 1.0, 0.1},      {0.012, 1.0, 0.01},
        {kPi, kPi, kPi},   {1.5 * kPi, kPi, kPi}, {0.3 * kPi, kPi, 0.2 * kPi},
    };
    for (const auto& [raw, unit, step] : cases) {
        SCOPED_TRACE(raw);
        EXPECT_DOUBLE_EQ(tidyStep(raw, unit), step);
    }
    // The chooser takes the first candidate of the zoomed lists.
    GraphView view = testView();  // 40 pixels per unit, so 60 pixels are 3 units at base scale 20
    view.xZoom = 2.0;             // ... and 1.5 units on the zoomed x axis: halfway between 1 and 2
    resetGridSteps(view);
    EXPECT_EQ(std::pair(view.gridStepX, view.gridStepY), std::pair(1.0, 2.0));
    EXPECT_EQ(view.stepCandidates[kStepX], (std::vector<double>{2.0, 5.0, 10.0}));
    EXPECT_EQ(view.stepCandidates[kStepZoomedX].front(), 1.0);
    EXPECT_NEAR(view.stepCandidates[kStepX + 1].front(), kPi, 1e-15);

    view.piUnitsY = true;
    chooseGridSteps(view);
    EXPECT_NEAR(view.gridStepY, kPi, 1e-15);
}

// The first line follows the whole-part rule; the walk from it ends when the step is below the
// resolution.
TEST(GridLayout, OriginAndWalk) {
    const std::pair<double, double> cases[] = {{5.5, 5.0},   {5.0, 4.0}, {-5.5, -5.0},
                                               {-5.0, -4.0}, {0.7, 0.0}, {-0.7, 0.0}};
    for (const auto& [begin, origin] : cases) {
        EXPECT_EQ(gridOrigin(begin, 1.0), origin) << begin;
    }
    EXPECT_EQ(gridOrigin(-10.0, 2.0), -8.0);
    EXPECT_EQ(gridWalk(1e20, 1.0, 1e20, 1e20 + 1e6).size(), 1u);
    EXPECT_TRUE(gridWalk(0.0, 0.0, 0.0, 1.0).empty());
    EXPECT_TRUE(gridWalk(0.0, NAN, 0.0, 1.0).empty());
    // From the origin up to one step past the last value: -4 .. 6.
    EXPECT_EQ(gridWalk(-4.0, 1.0, -5.0, 5.0).size(), 11u);
}

std::vector<std::string> texts(const std::vector<GridLabel>& labels) {
    std::vector<std::string> out;
    for (const GridLabel& l : labels) {
        out.push_back(l.text);
    }
    return out;
}

TEST(GridLayout, LabelsInPlainAndPiUnits) {
    GraphView view = testView();
    setViewRanges(view, -5.0, 5.0, -3.75, 3.75);
    view.gridStepX = 1.0;
    view.gridStepY = 0.5;
    GridLayout grid = layoutGrid(view, "y");
    // x begins exactly at -5, so the origin is -4 and no line is drawn at -5.
    EXPECT_EQ(texts(grid.xLabels),
              (std::vector<std::string>{"-4", "-3", "-2", "-1", "0", "1", "2", "3", "4", "5"}));
    EXPECT_EQ(grid.columns.front(), static_cast<int>(view.toPixelX(-4.0)));
    EXPECT_EQ(texts(grid.yLabels).front(), "-3.5");
    for (const GridLabel& label : grid.yLabels) {
        EXPECT_EQ(label.x, 5.0);  // left - marginX + trunc(5 * 65 / 65)
    }
    EXPECT_TRUE(layoutGrid(view, "n").yLabels.empty());

    setViewRanges(view, -2 * kPi - 0.1, 2 * kPi, -3.75, 3.75);
    view.piUnitsX = true;
    view.gridStepX = kPi / 2;
    grid = layoutGrid(view, "y");
    const auto xs = texts(grid.xLabels);
    EXPECT_EQ(xs.front(), "-pi*2");
    EXPECT_NE(std::find(xs.begin(), xs.end(), "pi*0.5"), xs.end());
    EXPECT_NE(std::find(xs.begin(), xs.end(), "0"), xs.end());
    EXPECT_EQ(xs.back(), "pi*2");
}

TEST(GridLayout, LinesAndLabelsSitOnTruncatedPixelsEdgesIncluded) {
    GraphView view = testView();
    // Half a pixel off the whole pixels at 40 pixels per unit: every line has a fraction.
    setViewRanges(view, -0.0125, 9.9875, 0.2625, 7.7625);
    view.gridStepX = 1.0;
    view.gridStepY = 0.25;
    const GridLayout grid = layoutGrid(view, "y");
    // x = 10 lies at column 465.5 and y = 0.25 at row 340.5: the last column and row of the area.
    ASSERT_EQ(grid.columns.size(), 11u);
    EXPECT_EQ(grid.columns.back(), 465);
    ASSERT_EQ(grid.rows.size(), 31u);
    EXPECT_EQ(grid.rows.front(), 340);
    ASSERT_EQ(grid.xLabels.size(), grid.columns.size());
    ASSERT_EQ(grid.yLabels.size(), grid.rows.size());
    for (std::size_t i = 0; i < grid.rows.size(); ++i) {
        EXPECT_EQ(grid.yLabels[i].y, grid.rows[i]) << grid.yLabels[i].text;
    }
    for (std::size_t i = 0; i < grid.columns.size(); ++i) {
        EXPECT_EQ(grid.xLabels[i].x, grid.columns[i]) << grid.xLabels[i].text;
    }
}

// The area's value has a line of its own under the title, short formula or long, and both lines
// end above the frame.
TEST(TitlePlacement, AreaValueGoesOnItsOwnLineAboveTheFrame) {
    for (const double ratio : {1.0, 2.0}) {
        GraphView view;
        setViewSize(view, 1000, 600);
        view = scaledView(view, ratio);
        const double d = titleGap(view);
        const double line = 21.0 * ratio;
        for (const double firstWidth : {50.0 * ratio, 2000.0 * ratio}) {
            const TitlePlacement place = placeTitle(view, firstWidth, 300.0 * ratio, line);
            const double height = line * place.fontScale;
            EXPECT_EQ(place.secondX, place.firstX);
            EXPECT_GE(place.secondTop, place.firstTop + height + 2 * d);
            EXPECT_LE(place.secondTop + height, view.top - ratio);
        }
    }
}

}  // namespace
}  // namespace curvemill
