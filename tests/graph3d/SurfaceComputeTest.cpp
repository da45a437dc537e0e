// Evaluating the grid: accumulated steps, refinement along y, Z limits, Stop; then the light.
#include <cmath>
#include <tuple>

#include <gtest/gtest.h>

#include "SurfaceFixture.h"

namespace curvemill {
namespace {

TEST(SurfaceCompute, VerticesFollowAccumulatedStepsAndTheFormulaExactly) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x^2+y^2", -1, 1, -1, 1), SurfaceOutcome::Done);
    const SurfaceGrid& grid = scene.grid;
    ASSERT_EQ(grid.nx, 100);
    ASSERT_EQ(grid.evaluatedCount, 101 * 101);
    double x = -1;
    bool differsFromMultiplication = false;
    for (int i = 0; i <= 100; ++i) {
        double y = -1;
        for (int j = 0; j <= 100; ++j) {
            const SurfaceVertex& v = grid.vertex(i, j);
            SCOPED_TRACE(testing::Message() << "vertex " << i << ',' << j);
            // A bowl has no interior peak or valley along y: no vertex moved.
            ASSERT_EQ(std::tuple(v.x, v.y, v.z, v.indefinite), std::tuple(x, y, x * x + y * y, 0));
            y += 0.02;
        }
        differsFromMultiplication |= x != -1 + i * 0.02;
        x += 0.02;
    }
    EXPECT_TRUE(differsFromMultiplication);
}

// A crest (or trough) at y = 0.013 between grid lines 0 and 0.02 moves the vertex at 0.02 to the
// best of the ten samples 0, 0.004, ..., 0.036: 0.012. Its x stays.
TEST(SurfaceCompute, RidgeAndValleyVerticesMoveToTheBestOfTenSamples) {
    for (const char* text : {"0-(y-0.013)^2*1000", "(y-0.013)^2*1000"}) {
        SCOPED_TRACE(text);
        SurfaceScene scene;
        ASSERT_EQ(computeFor(scene, text, -1, 1, -1, 1), SurfaceOutcome::Done);
        const SurfaceGrid& grid = scene.grid;
        for (int i : {0, 37, 100}) {
            const SurfaceVertex& moved = grid.vertex(i, 51);
            EXPECT_NEAR(moved.y, 0.012, 1e-12);
            EXPECT_NEAR(std::fabs(moved.z), 0.001, 1e-9);
            EXPECT_EQ(moved.x, grid.vertex(i, 50).x);
            // Neighbours stay on the regular spacing.
            EXPECT_NEAR(grid.vertex(i, 52).y, 0.04, 1e-12);
        }
    }
}

TEST(SurfaceCompute, ZLimitsCutTallSurfacesToABandAroundTheMiddle) {
    const double D = std::sqrt(8.0);
    SurfaceScene steep;
    ASSERT_EQ(computeFor(steep, "1000*x", -1, 1, -1, 1), SurfaceOutcome::Done);
    const SurfaceGrid& g = steep.grid;
    // (2000 / (2 * D)) = 353 steps, held at the upper bound 10.
    EXPECT_EQ(std::tuple(g.limits.availableSteps, g.limits.active, g.limits.step),
              std::tuple(10, true, 10));
    const double mid = (g.limits.zMin + g.limits.zMax) / 2;
    EXPECT_NEAR(g.zLow, mid - 10 * D, 1e-9);
    EXPECT_NEAR(g.zHigh, mid + 10 * D, 1e-9);
    EXPECT_EQ(std::tuple(g.vertex(0, 5).zShown, g.vertex(100, 5).zShown, g.vertex(50, 5).zShown),
              std::tuple(g.zLow, g.zHigh, g.vertex(50, 5).z));

    // The user's step is kept and narrows the band.
    steep.grid.limits.step = 3;
    applyZLimits(steep.grid, LimitStep::kKeep);
    EXPECT_NEAR(g.zHigh - g.zLow, 6 * D, 1e-9);
    applyZLimits(steep.grid, LimitStep::kWidest);
    EXPECT_EQ(g.limits.step, 10);

    // x built by addition passes 2e-16 from the pole: zMax near 1e30, whose middle would leave a
    // band of no height. The band keeps its height, around the bulk of the surface.
    SurfaceScene pole;
    ASSERT_EQ(computeFor(pole, "1/(x*y)", -1, 1, -1, 1), SurfaceOutcome::Done);
    EXPECT_GT(pole.grid.limits.zMax, 1e20);
    EXPECT_NEAR(pole.grid.zHigh - pole.grid.zLow, 20 * D, 1e-9);
    EXPECT_LT(std::fabs(pole.grid.zc), 10);

    SurfaceScene plain;
    ASSERT_EQ(computeFor(plain, "x+y", -1, 1, -1, 1), SurfaceOutcome::Done);
    const SurfaceGrid& p = plain.grid;
    EXPECT_EQ(std::tuple(p.limits.active, p.limits.availableSteps, p.zLow, p.zHigh),
              std::tuple(false, 0, p.limits.zMin, p.limits.zMax));
    EXPECT_EQ(plain.grid.vertex(100, 100).zShown, plain.grid.vertex(100, 100).z);
}

TEST(SurfaceCompute, IndefiniteVerticesAreMarkedAndLeftOutOfTheRange) {
    SurfaceScene disc;
    ASSERT_EQ(computeFor(disc, "Sqr(1-x^2-y^2)", -1, 1, -1, 1), SurfaceOutcome::Done);
    EXPECT_EQ(std::tuple(disc.grid.vertex(0, 0).indefinite, disc.grid.vertex(50, 50).indefinite),
              std::tuple(1, 0));
    EXPECT_GT(disc.grid.indefiniteCount(), 1000);
    EXPECT_TRUE(disc.grid.limits.zMin >= 0 && disc.grid.limits.zMax <= 1);

    SurfaceScene nothing;
    ASSERT_EQ(computeFor(nothing, "Sqr(0-1-x^2)", -1, 1, -1, 1), SurfaceOutcome::Done);
    const ZLimits& none = nothing.grid.limits;
    EXPECT_EQ(std::tuple(none.zMin, none.zMax, none.active), std::tuple(1e100, -1e100, false));
    EXPECT_FALSE(nothing.grid.hasDefinedVertex());
}

TEST(SurfaceCompute, StopEndsBeforeTheNextVertexAndKeepsTheGrid) {
    SurfaceScene scene;
    std::atomic<bool> keep{false};
    EXPECT_EQ(computeFor(scene, "x*y", -1, 1, -1, 1, &keep), SurfaceOutcome::Stopped);
    EXPECT_EQ(scene.grid.evaluatedCount, 0);

    keep = true;
    int calls = 0;
    int lastPercent = -1;
    // Progress comes once per row, before its first vertex: Stop at the start of row 50.
    const auto stopAtHalf = [&](int percent) {
        lastPercent = percent;
        if (++calls == 51) {
            keep = false;
        }
    };
    EXPECT_EQ(computeFor(scene, "x*y", -1, 1, -1, 1, &keep, 100, stopAtHalf),
              SurfaceOutcome::Stopped);
    EXPECT_EQ(std::tuple(scene.grid.evaluatedCount, calls), std::tuple(50 * 101, 51));
    EXPECT_TRUE(lastPercent == 49 || lastPercent == 50) << lastPercent;
    EXPECT_TRUE(scene.grid.allocated());
}

// Samples are y0 + k * (y1 - y0) / 10 and D the root of the sum of squares, as written: dividing
// first, or std::hypot, lands an ulp away here.
TEST(SurfaceCompute, RefinementSampleAndDiagonalFollowTheWrittenArithmetic) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "0-(y+0.148)^2*1000", -0.5, 0.5, -1, 1), SurfaceOutcome::Done);
    const SurfaceGrid& g = scene.grid;
    EXPECT_EQ(g.vertex(7, 43).y,
              g.vertex(7, 42).y + 3 * (g.vertex(7, 44).y - g.vertex(7, 42).y) / 10);
    SurfaceScene narrow;
    ASSERT_EQ(computeFor(narrow, "x", -0.5, 0.5, -0.2, 0.2, nullptr, 10), SurfaceOutcome::Done);
    EXPECT_EQ(narrow.grid.diagonal, std::sqrt(1 + 0.4 * 0.4));
}

// Brightness with the depth cue, the light's angle and the clamp; schemes; own colours.
TEST(SurfaceLight, FlatSurfaceIsLitByFogAndAmbientAlone) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "0*x", -1, 1, -1, 1), SurfaceOutcome::Done);
    EXPECT_EQ(scene.light.vector.y, -1);
    prepareLight(scene.light, scene.grid, scene.view.mode);
    const LightWeights weights = lightWeights(scene.light);
    int least = 255;
    int most = 0;
    for (int i = 1; i <= 100; ++i) {
        for (int j = 1; j <= 100; ++j) {
            const int b = cellBrightness(scene.light, weights, scene.view, scene.grid, i, j);
            least = std::min(least, b);
            most = std::max(most, b);
        }
    }
    EXPECT_EQ(std::pair(least, most), std::pair(50, 125));
    // Full fog (F = 1) where the depth plane passes through the (X_END, Y_END) corner.
    EXPECT_EQ(cellBrightness(scene.light, weights, scene.view, scene.grid, 100, 100), 125);
    EXPECT_LT(cellBrightness(scene.light, weights, scene.view, scene.grid, 2, 2), 55);
}

// A cell facing the light (its normal along L) with the depth cue at 0: the whole diffuse weight.
TEST(SurfaceLight, CellFacingTheLightAndTheClamp) {
    SurfaceScene scene;
    SurfaceGrid& grid = scene.grid;
    ASSERT_TRUE(grid.allocate(1, 1));
    setDomain(grid, 0, 1, 0, 1);
    grid.zLow = -1;
    grid.zHigh = 1;
    grid.vertex(1, 1) = {0, 0, 0, 0, 0};
    grid.vertex(0, 1) = {-1, 1, 0, 0, 0};
    grid.vertex(1, 0) = {0, 0, -1, -1, 0};
    scene.light.ambient = 0;
    scene.light.fogIntensity = 10;
    prepareLight(scene.light, grid, RotationMode::kNone);
    LightWeights weights = lightWeights(scene.light);
    EXPECT_EQ(cellBrightness(scene.light, weights, scene.view, grid, 1, 1), 105);

    // Lit from behind: the same, both sides are lit alike.
    scene.light.vector = {1, 1, 0};
    prepareLight(scene.light, grid, RotationMode::kNone);
    EXPECT_EQ(cellBrightness(scene.light, weights, scene.view, grid, 1, 1), 105);

    // With the defaults and the cell at the (X_END, Y_END) corner (F = 1): 130 + 75 + 50.
    scene.light = SurfaceLight{};
    setDomain(grid, -1, 0, -1, 0);
    prepareLight(scene.light, grid, RotationMode::kNone);
    weights = lightWeights(scene.light);
    EXPECT_EQ(cellBrightness(scene.light, weights, scene.view, grid, 1, 1), 255);
    scene.light.shiny = true;
    scene.view.eye = {5, 0, 3};  // the half vector is 43 degrees off the normal: cosH^10 = 0.04
    const int shiny = cellBrightness(scene.light, weights, scene.view, grid, 1, 1);
    EXPECT_EQ(shiny, 192);  // 65 * 0.0428 + plain 65 + fog 75 + ambient 50
}

TEST(SurfaceLight, TheRotationMatrixKeepsTheDepthPlane) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -1, 1), SurfaceOutcome::Done);
    prepareLight(scene.light, scene.grid, RotationMode::kNone);
    const double range = scene.light.depthRange;
    scene.light.vector = {0, -1, -1};
    prepareLight(scene.light, scene.grid, RotationMode::kMatrix);
    EXPECT_EQ(scene.light.depthRange, range);
    EXPECT_DOUBLE_EQ(scene.light.lengthSquared, 2);
    prepareLight(scene.light, scene.grid, RotationMode::kAboutX);
    EXPECT_NE(scene.light.depthRange, range);
}

TEST(SurfaceLight, SchemesTurnBrightnessIntoColour) {
    const auto rgb = [](int r, int g, int b) { return packColour(r, g, b); };
    using enum ColourScheme;
    const std::tuple<ColourScheme, std::uint32_t, std::uint32_t> cases[] = {
        {kGrey, rgb(0, 0, 0), rgb(200, 200, 200)},    {kRed, rgb(255, 0, 0), rgb(255, 160, 160)},
        {kGreen, rgb(0, 255, 0), rgb(160, 255, 160)}, {kBlue, rgb(0, 0, 255), rgb(160, 160, 255)},
        {kCyan, rgb(0, 0, 0), rgb(120, 200, 200)},    {kMagenta, rgb(0, 0, 0), rgb(200, 120, 200)},
        {kYellow, rgb(0, 0, 0), rgb(200, 200, 120)},  {kOwn, rgb(191, 65, 41), rgb(237, 210, 204)},
    };
    for (const auto& [scheme, at0, at200] : cases) {
        SurfaceLight light;
        light.scheme = scheme;
        EXPECT_EQ(std::pair(schemeColour(light, 0), schemeColour(light, 200)),
                  std::pair(at0, at200))
            << static_cast<int>(scheme);
    }
}

TEST(SurfaceLight, OwnColourRunsFromDarkToWhiteOrFromGreyToLight) {
    EXPECT_EQ(blendOwnColour(191, 65, 41, 255), packColour(250, 250, 250));
    EXPECT_EQ(blendOwnColour(191, 65, 41, 0), packColour(191, 65, 41));
    EXPECT_EQ(blendOwnColour(200, 220, 240, 0), packColour(50, 50, 50));
    EXPECT_EQ(blendOwnColour(200, 220, 240, 255), packColour(200, 220, 240));
    // Exactly half of 765 counts as dark.
    EXPECT_EQ(blendOwnColour(255, 127.5, 0, 0), packColour(255, 127, 0));
}

}  // namespace
}  // namespace curvemill
