// The records of a curve keep x ascending, refined turning points included: the drawing, the
// integral's index search and the CSV export rely on it.
#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/SampledGraph.h"

namespace curvemill {
namespace {

// Curves flat up to rounding turn at almost every sample, and the two searches of a turn may
// settle on different rounding bumps instead of closing in on one turning point.
TEST(SamplerOrder, FlatNoisyCurvesKeepXAscending) {
    for (const char* text : {"sin(x)^2+cos(x)^2", "tan(x)*cos(x)/sin(x)", "(x/3)*3-x"}) {
        SCOPED_TRACE(text);
        SampledGraph s(text, -5.0, 5.0, 100000);
        ASSERT_TRUE(s.completed);
        const Curve& m = s.graph.main;
        const auto byX = [](const PlotPoint& p, const PlotPoint& q) { return p.x < q.x; };
        // The first record that steps back, or the count when none does.
        EXPECT_EQ(std::is_sorted_until(m.begin(), m.end(), byX) - m.begin(), m.pointCount);
    }
}

}  // namespace
}  // namespace curvemill
