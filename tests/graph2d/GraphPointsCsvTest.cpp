#include <algorithm>
#include <optional>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "graph2d/GraphPointsCsv.h"
#include "graph2d/GraphView.h"
#include "tests/support/SampledGraph.h"

namespace curvemill {
namespace {

// What Copy puts on the clipboard for a selection: the defined points whose pixels lie in the
// selected part of the plotting area. The margins are not part of the picture.
TEST(GraphPointsCsv, OnlyThePointsThePartShows) {
    SampledGraph s("Sqr(x+1)", -4.0, 4.0);  // no value left of -1
    GraphView view;
    setViewSize(view, 800, 800);
    setViewRanges(view, -2.0, 2.0, -0.5, 2.5);
    const double middle = view.left + view.visibleWidth() / 2.0;
    // The part, then the least and the most x expected (none: no point at all).
    const struct {
        std::optional<PixelRect> part;
        std::optional<std::pair<double, double>> xs;
    } cases[] = {
        {std::nullopt, std::pair(-1.0, 4.0)},
        {PixelRect{0.0, 0.0, view.width, view.height}, std::pair(-1.0, 2.0)},
        {PixelRect{middle, 0.0, view.width, view.height}, std::pair(0.0, 2.0)},
        {PixelRect{0.0, 0.0, view.left, view.height}, std::nullopt},
    };
    for (const auto& [part, xs] : cases) {
        SCOPED_TRACE(part ? part->left : -1.0);
        std::istringstream csv(twoDPointsCsv(s.graph, view, part));
        std::string line;
        std::getline(csv, line);
        EXPECT_EQ(line, "curve,x,y\r");
        double least = 1e300, most = -1e300;
        while (std::getline(csv, line)) {
            const std::string head = line.substr(0, line.rfind(','));
            const double x = std::stod(head.substr(head.rfind(',') + 1));
            least = std::min(least, x);
            most = std::max(most, x);
        }
        ASSERT_EQ(least <= most, xs.has_value());
        if (xs) {
            EXPECT_NEAR(least, xs->first, 2e-3);
            EXPECT_NEAR(most, xs->second, 2e-3);
        }
    }
}

}  // namespace
}  // namespace curvemill
