// Evaluating the grid: accumulated steps, refinement along y, Z limits, Stop.
#include <cmath>

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
            ASSERT_EQ(v.x, x);
            // A bowl has no interior peak or valley along y: no vertex moved.
            ASSERT_EQ(v.y, y);
            ASSERT_EQ(v.z, x * x + y * y);
            ASSERT_EQ(v.indefinite, 0);
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
    EXPECT_EQ(g.limits.availableSteps, 10);
    EXPECT_EQ(g.limits.active, 'y');
    EXPECT_EQ(g.limits.step, 10);
    const double mid = (g.limits.zMin + g.limits.zMax) / 2;
    EXPECT_NEAR(g.zLow, mid - 10 * D, 1e-9);
    EXPECT_NEAR(g.zHigh, mid + 10 * D, 1e-9);
    EXPECT_EQ(g.vertex(0, 5).zShown, g.zLow);
    EXPECT_EQ(g.vertex(100, 5).zShown, g.zHigh);
    EXPECT_EQ(g.vertex(50, 5).zShown, g.vertex(50, 5).z);

    // The user's step: 'n' keeps it and narrows the band.
    steep.grid.limits.step = 3;
    applyZLimits(steep.grid, 'n');
    EXPECT_NEAR(g.zHigh - g.zLow, 6 * D, 1e-9);
    applyZLimits(steep.grid, 'y');
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
    EXPECT_EQ(plain.grid.limits.active, 'n');
    EXPECT_EQ(plain.grid.limits.availableSteps, 0);
    EXPECT_EQ(plain.grid.zLow, plain.grid.limits.zMin);
    EXPECT_EQ(plain.grid.zHigh, plain.grid.limits.zMax);
    EXPECT_EQ(plain.grid.vertex(100, 100).zShown, plain.grid.vertex(100, 100).z);
}

TEST(SurfaceCompute, IndefiniteVerticesAreMarkedAndLeftOutOfTheRange) {
    SurfaceScene disc;
    ASSERT_EQ(computeFor(disc, "Sqr(1-x^2-y^2)", -1, 1, -1, 1), SurfaceOutcome::Done);
    EXPECT_EQ(disc.grid.vertex(0, 0).indefinite, 1);
    EXPECT_EQ(disc.grid.vertex(50, 50).indefinite, 0);
    EXPECT_GT(disc.grid.indefiniteCount(), 1000);
    EXPECT_LE(disc.grid.limits.zMax, 1.0);
    EXPECT_GE(disc.grid.limits.zMin, 0.0);

    SurfaceScene nothing;
    ASSERT_EQ(computeFor(nothing, "Sqr(0-1-x^2)", -1, 1, -1, 1), SurfaceOutcome::Done);
    EXPECT_EQ(nothing.grid.limits.zMin, 1e100);
    EXPECT_EQ(nothing.grid.limits.zMax, -1e100);
    EXPECT_EQ(nothing.grid.limits.active, 'n');
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
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "x*y", kModeTwoVariables));
    setDomain(scene.grid, -1, 1, -1, 1);
    EXPECT_EQ(computeSurface(formula, scene.grid, stopAtHalf, keep), SurfaceOutcome::Stopped);
    EXPECT_EQ(scene.grid.evaluatedCount, 50 * 101);
    EXPECT_EQ(calls, 51);
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

}  // namespace
}  // namespace curvemill
