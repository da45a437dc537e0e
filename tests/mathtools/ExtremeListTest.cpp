// The rows of the extreme list, from hand-made marks.
#include <gtest/gtest.h>

#include "mathtools/ExtremeList.h"
#include "tests/support/CurveBuilders.h"

namespace curvemill {
namespace {

// Records (x, y, peakKind) in ascending x.
Curve curveOf(std::initializer_list<std::tuple<double, double, int>> records) {
    std::vector<PlotPoint> points;
    for (const auto& [x, y, kind] : records) {
        points.push_back(point(x, y, false, false, kind));
    }
    return curveOf(points);
}

std::vector<double> xs(const std::vector<ExtremeRow>& rows) {
    std::vector<double> out;
    for (const ExtremeRow& row : rows) {
        out.push_back(row.x);
    }
    return out;
}

TEST(ExtremeList, FiltersAndTheLastRecordIsNeverListed) {
    Curve curve = curveOf({{0, 0, 0}, {1, 1, 1}, {2, 0.5, 0}, {3, -1, 2}, {4, 0, 0}, {5, 2, 1}});
    EXPECT_EQ(xs(fillExtremeList(curve, false, false, ExtremeFilter::kBoth)),
              (std::vector<double>{1, 3}));
    // Filter 1 after filter 3: the maxima of the same marks, nothing sampled again.
    EXPECT_EQ(xs(fillExtremeList(curve, false, false, ExtremeFilter::kMaxima)),
              (std::vector<double>{1}));
    EXPECT_EQ(xs(fillExtremeList(curve, false, false, ExtremeFilter::kMinima)),
              (std::vector<double>{3}));
    Curve plain = curveOf({{0, 0, 0}, {1, 1, 0}, {2, 0, 0}});
    EXPECT_TRUE(fillExtremeList(plain, false, false, ExtremeFilter::kBoth).empty());
}

TEST(ExtremeList, AdjacentMarksGiveOneRowTheFartherOneForGood) {
    const std::tuple<double, double, double> cases[] = {
        {1.0, 1.2, 1.1}, {1.2, 1.0, 1.0}, {1.0, 1.0, 1.1}};
    for (const auto& [y1, y2, shown] : cases) {
        SCOPED_TRACE(shown);
        Curve curve = curveOf({{0, 0, 0}, {1.0, y1, 1}, {1.1, y2, 1}, {2, 0, 0}});
        EXPECT_EQ(xs(fillExtremeList(curve, false, false, ExtremeFilter::kBoth)),
                  std::vector<double>{shown});
        const int erased = shown == 1.0 ? 2 : 1;
        EXPECT_EQ(curve.points[erased].peakKind, kOrdinaryPoint);
        EXPECT_EQ(xs(fillExtremeList(curve, false, false, ExtremeFilter::kMaxima)),
                  std::vector<double>{shown});
    }
}

TEST(ExtremeList, PlainAndPiUnitTexts) {
    Curve curve = curveOf({{0, 0, 0}, {1.5707963267948966, -0.5, 2}, {3, 0, 0}});
    const auto plain = fillExtremeList(curve, false, false, ExtremeFilter::kBoth);
    ASSERT_EQ(plain.size(), 1u);
    EXPECT_EQ(plain[0].xText + " " + plain[0].yText, "1.570796326794897 -0.500000000000000");
    const auto pi = fillExtremeList(curve, true, true, ExtremeFilter::kBoth);
    EXPECT_EQ(pi[0].xText + " " + pi[0].yText, "pi*0.500000000000000 pi*-0.159154943091895");
}

}  // namespace
}  // namespace curvemill
