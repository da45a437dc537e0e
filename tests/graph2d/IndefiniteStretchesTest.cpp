// The stretches without a value that the marks cover.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "graph2d/IndefiniteStretches.h"

namespace curvemill {
namespace {

// One record per character at x = its position: '.' defined, 'I' indefinite.
Curve curveOf(const std::string& pattern) {
    Curve curve;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        PlotPoint p{};
        p.x = static_cast<double>(i);
        p.isIndefinite = pattern[i] == 'I';
        curve.points.push_back(p);
    }
    curve.pointCount = static_cast<int>(pattern.size());
    return curve;
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
