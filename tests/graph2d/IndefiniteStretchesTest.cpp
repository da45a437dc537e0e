// The stretches without a value that the marks cover.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graph2d/IndefiniteStretches.h"
#include "tests/support/CurveBuilders.h"

namespace curvemill {
namespace {

// One record per character at x = its position: '.' defined, 'I' indefinite.
Curve curveOf(const std::string& pattern) {
    std::vector<PlotPoint> points;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        points.push_back(point(static_cast<double>(i), 0, false, pattern[i] == 'I'));
    }
    return curveOf(points);
}

TEST(IndefiniteStretches, ReachFromEdgeToEdgeOrToTheRangesEnds) {
    const struct {
        std::string pattern;
        std::vector<std::pair<double, double>> stretches;
    } cases[] = {
        {"....", {}},       {"II..", {{-1, 2}}},
        {"..II", {{1, 9}}}, {".I..III.", {{0, 2}, {3, 7}}},
        {"III", {{-1, 9}}}, {"", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pattern);
        const std::vector<XStretch> found = indefiniteStretches(curveOf(c.pattern), -1, 9);
        ASSERT_EQ(found.size(), c.stretches.size());
        for (std::size_t i = 0; i < found.size(); ++i) {
            EXPECT_EQ(found[i].begin, c.stretches[i].first);
            EXPECT_EQ(found[i].end, c.stretches[i].second);
        }
    }
}

TEST(IndefiniteStretches, ACountBeyondTheRecordsIsNotRead) {
    Curve curve = curveOf(".I");
    curve.pointCount = 50;
    const std::vector<XStretch> found = indefiniteStretches(curve, 0, 9);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].end, 9.0);
}

}  // namespace
}  // namespace curvemill
