// The Save To File choices: lists per source, scales, picture sizes, size text; the points as CSV.
#include <cstdlib>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "output/ExportOptions.h"
#include "output/PointsCsv.h"

namespace curvemill {
namespace {

TEST(ExportChoices, ScalesAndSizesOfEveryChoice) {
    const PixelSize screen{1000, 600};
    const std::tuple<SizeChoice, ExportSource, int, PixelSize, double, PixelSize> cases[] = {
        {SizeChoice::AsIs, ExportSource::Screen, 0, screen, 1.0, {1000, 600}},
        {SizeChoice::FitToScreen, ExportSource::Screen, 0, screen, 1.0, {1000, 600}},
        // A document twice as wide as the screen shrinks to its width.
        {SizeChoice::FitToScreen, ExportSource::Document, 0, {2000, 900}, 0.5, {1000, 450}},
        // A small selection grows until one side meets the screen's...
        {SizeChoice::FitToScreen, ExportSource::Selection, 0, {300, 200}, 3.0, {900, 600}},
        // ...but never beyond the largest offered scale.
        {SizeChoice::FitToScreen, ExportSource::Selection, 0, {10, 10}, 4.0, {40, 40}},
        {SizeChoice::Other, ExportSource::Document, 2, {2000, 901}, 0.75, {1500, 675}},
        {SizeChoice::Other, ExportSource::Screen, 1, screen, 2.0, {2000, 1200}},
        {SizeChoice::Other, ExportSource::Selection, 2, {333, 3}, 4.0, {1332, 12}},
    };
    for (const auto& [choice, source, other, sourceSize, wantScale, want] : cases) {
        SCOPED_TRACE(std::to_string(sourceSize.width) + " scale " + std::to_string(wantScale));
        const double scale = choiceScale(choice, source, other, sourceSize, screen);
        EXPECT_DOUBLE_EQ(scale, wantScale);
        const PixelSize size = scaledSize(sourceSize, scale);
        EXPECT_EQ(std::pair(size.width, size.height), std::pair(want.width, want.height));
    }
}

TEST(ExportChoices, PictureSizesStayWithinLimits) {
    // Truncated, never 0, never beyond the limits, proportions kept.
    EXPECT_EQ(scaledSize({3, 3}, 0.25).width, 1);
    EXPECT_EQ(scaledSize({7, 7}, 0.5).width, 3);
    const PixelSize wide = scaledSize({20000, 100}, 4.0);
    EXPECT_EQ(wide.width, kLargestExportSide);
    EXPECT_EQ(wide.height, 81);
    const PixelSize big = scaledSize({8000, 8000}, 1.0);
    EXPECT_LE(static_cast<double>(big.width) * big.height, kLargestExportPixels);
    EXPECT_EQ(big.width, big.height);
    EXPECT_EQ(bytesText(2359350), "2359350 Bytes");
}

TEST(PointsCsv, HeaderQuotingAndExactNumbers) {
    const std::string csv = pointsCsv({{"y = sin(x)", {{0.1, 1.0 / 3.0}, {-2, 0}}},
                                       {"y = max(x,\"a\")", {{1e-300, -7.5}}},
                                       {"empty", {}}});
    EXPECT_EQ(csv.substr(0, 11), "curve,x,y\r\n");
    EXPECT_NE(csv.find("\"y = max(x,\"\"a\"\")\",1e-300,-7.5\r\n"), std::string::npos) << csv;
    const std::size_t third = csv.find("0.33333");
    ASSERT_NE(third, std::string::npos);
    EXPECT_EQ(std::strtod(csv.c_str() + third, nullptr), 1.0 / 3.0);
    EXPECT_EQ(csv.find("empty"), std::string::npos);
    EXPECT_NE(csv.find("y = sin(x),-2,0\r\n"), std::string::npos);
}

}  // namespace
}  // namespace curvemill
