// Curves on the plotting area: pen runs, area polygons and the stretches without a value.
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "GeometryFixture.h"
#include "graph2d/AreaPolygons.h"
#include "graph2d/CurveRuns.h"
#include "graph2d/IndefiniteStretches.h"

namespace curvemill {
namespace {

std::vector<std::vector<PixelPoint>> runsOf(const GraphView& view,
                                            const std::vector<PlotPoint>& points) {
    const CurveRuns runs = buildCurveRuns(view, points.data(), static_cast<int>(points.size()));
    std::vector<std::vector<PixelPoint>> out;
    for (std::size_t i = 0; i < runs.runCount(); ++i) {
        const auto [p, n] = runs.run(i);
        out.emplace_back(p, p + n);
    }
    return out;
}

TEST(CurveRuns, MapsPointsBreaksWhereTheCurveMustNotBeJoinedAndClampsFarValues) {
    // x = 0 is column 65; y runs from row 40 (3.75) to row 340 (-3.75).
    const GraphView view = testView();

    const std::tuple<const char*, std::vector<PlotPoint>, std::vector<std::vector<PixelPoint>>>
        cases[] = {
            {"plain records are joined",
             {point(1, 0), point(2, 1), point(3, -1), point(4, 0)},
             {{{105, 190}, {145, 150}, {185, 230}, {225, 190}}}},
            {"a break pair lifts the pen",
             {point(1, 0), point(2, 1, true), point(3, -1, true), point(4, 0)},
             {{{105, 190}, {145, 150}}, {{185, 230}, {225, 190}}}},
            {"an indefinite record lifts the pen",
             {point(1, 0), point(2, 1), point(3, 0, false, true), point(4, 0), point(5, 1)},
             {{{105, 190}, {145, 150}}, {{225, 190}, {265, 150}}}},
            {"a curve wholly above the view draws nothing",
             {point(1, 5), point(2, 9), point(3, 4)},
             {}},
            {"a steep segment is cut exactly at the top row",
             {point(1, 0), point(2, 100)},
             // The line from (105, 190) to (145, -3810) meets row 40 at column 106.5.
             {{{105, 190}, {106, 40}}}},
            {"a segment through the whole band is cut at both rows",
             {point(1, -100), point(2, 100)},
             {{{124, 340}, {125, 40}}}},
        };
    for (const auto& [name, points, runs] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(runsOf(view, points), runs);
    }
    // Far values are clamped and never overflow.
    const auto runs = runsOf(view, {point(1, 0), point(2, 1e300), point(3, -INFINITY),
                                    point(4, NAN), point(5, 0), point(6, 1)});
    for (const auto& run : runs) {
        for (const PixelPoint& p : run) {
            EXPECT_TRUE(p.y >= 40 && p.y <= 340 && p.x >= 64 && p.x <= 466) << p.x << "," << p.y;
        }
    }
    EXPECT_FALSE(runs.empty());
}

TEST(CurveRuns, LongCurvesComeInBlocksAndCloseNeighboursMerge) {
    const GraphView view = testView();
    const auto blocks = runsOf(view, line(3000, 0, 10, [](int i) { return i % 2 ? 1 : -1; }));
    ASSERT_EQ(blocks.size(), 3u);
    std::size_t total = 0;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        EXPECT_LE(blocks[i].size(), static_cast<std::size_t>(kMaxRunPoints));
        total += blocks[i].size();
        if (i > 0) {
            EXPECT_EQ(blocks[i].front(), blocks[i - 1].back());
        }
    }
    EXPECT_EQ(total, 3000u + blocks.size() - 1);

    const auto merged = runsOf(view, line(3000, 0, 10, [](int) { return 1; }));
    ASSERT_EQ(merged.size(), 1u);
    EXPECT_LT(merged[0].size(), 420u);
    // A run starts with both ends of its first segment; after that no two points share a pixel.
    for (std::size_t i = 2; i < merged[0].size(); ++i) {
        EXPECT_GE(merged[0][i].x - merged[0][i - 1].x, 1);
    }
}

TEST(CurveRuns, VisibleStretchReachesOneRecordBeyondEachEdge) {
    GraphView view = testView();
    const auto points = line(11, 0, 10, [](int) { return 0; });
    // Zoomed in twice and scrolled so that x 2.5 .. 7.5 is shown.
    view.xZoom = 2.0;
    view.scrollX = 200.0;
    EXPECT_EQ(visibleStretch(view, points.data(), 11), std::make_pair(2, 8));
    EXPECT_EQ(visibleStretch(view, points.data(), 0).second, -1);
}

TEST(AreaPolygons, SplitAtTheAxisBoundedByThePlottingRowsAndRestartedWhenLong) {
    const GraphView view = testView();
    const auto rising = line(10, 0.5, 9.5, [](int i) { return i - 4.5; });
    const auto polygons = buildAreaPolygons(view, rising.data(), 10, 0, 9);
    ASSERT_EQ(polygons.size(), 2u);
    const PixelPoint crossing{265, 190};  // x = 5 on the axis row
    EXPECT_EQ(std::pair(polygons[0].aboveAxis, polygons[1].aboveAxis), std::pair(false, true));
    EXPECT_EQ(polygons[0].points.back(), crossing);
    EXPECT_EQ(polygons[1].points.front(), crossing);
    EXPECT_EQ(polygons[0].points.front(), (PixelPoint{85, 190}));
    EXPECT_EQ(polygons[1].points.back(), (PixelPoint{445, 190}));

    std::vector<PlotPoint> tall{point(1, 1), point(2, 50), point(3, 1)};
    const auto bounded = buildAreaPolygons(view, tall.data(), 3, 0, 2);
    ASSERT_EQ(bounded.size(), 1u);
    EXPECT_EQ(bounded[0].points[2], (PixelPoint{145, 40}));

    // Long areas restart, and columns outside the plotting area are left out.
    const auto wave = line(2001, -2, 12, [](int) { return 2; });
    const auto pieces = buildAreaPolygons(view, wave.data(), 2001, 0, 2000);
    ASSERT_GT(pieces.size(), 1u);
    for (const AreaPolygon& polygon : pieces) {
        EXPECT_LE(polygon.points.size(), static_cast<std::size_t>(kMaxAreaPolygonPoints));
        EXPECT_TRUE(polygon.aboveAxis);
        for (const PixelPoint& p : polygon.points) {
            EXPECT_TRUE(p.x >= 65 && p.x <= 465) << p.x;
        }
    }
    EXPECT_EQ(pieces.front().points.front().x, 65);
    EXPECT_GE(pieces.back().points.back().x, 464);
}

// One record per character at x = its position: '.' defined, 'I' indefinite.
Curve patternCurve(const std::string& pattern) {
    std::vector<PlotPoint> points;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        points.push_back(point(static_cast<double>(i), 0, false, pattern[i] == 'I'));
    }
    return curveOf(points);
}

TEST(IndefiniteStretches, ReachFromEdgeToEdgeOrToTheRangesEnds) {
    const std::tuple<std::string, std::vector<std::pair<double, double>>> cases[] = {
        {"....", {}},       {"II..", {{-1, 2}}},
        {"..II", {{1, 9}}}, {".I..III.", {{0, 2}, {3, 7}}},
        {"III", {{-1, 9}}}, {"", {}},
    };
    for (const auto& [pattern, stretches] : cases) {
        SCOPED_TRACE(pattern);
        std::vector<std::pair<double, double>> found;
        for (const XStretch& s : indefiniteStretches(patternCurve(pattern), -1, 9)) {
            found.emplace_back(s.begin, s.end);
        }
        EXPECT_EQ(found, stretches);
    }
    // A count beyond the records is not read.
    Curve curve = patternCurve(".I");
    curve.pointCount = 50;
    const std::vector<XStretch> found = indefiniteStretches(curve, 0, 9);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].end, 9.0);
}

}  // namespace
}  // namespace curvemill
