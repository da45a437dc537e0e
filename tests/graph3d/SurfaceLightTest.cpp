// Brightness with the depth cue, the light's angle and the clamp; schemes; own colours.
#include <gtest/gtest.h>

#include "SurfaceFixture.h"

namespace curvemill {
namespace {

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
    EXPECT_EQ(least, 50);
    EXPECT_EQ(most, 125);
    // Full fog (F = 1) where the depth plane passes through the (X_END, Y_END) corner.
    EXPECT_EQ(cellBrightness(scene.light, weights, scene.view, scene.grid, 100, 100), 125);
    EXPECT_LT(cellBrightness(scene.light, weights, scene.view, scene.grid, 2, 2), 55);
}

// A cell facing the light (its normal along L) with the depth cue at 0: the whole diffuse weight.
TEST(SurfaceLight, CellFacingTheLightAndTheClamp) {
    SurfaceScene scene;
    SurfaceGrid& grid = scene.grid;
    ASSERT_TRUE(grid.allocate(1, 1));
    grid.xBegin = grid.yBegin = 0;
    grid.xEnd = grid.yEnd = 1;
    grid.zLow = -1;
    grid.zHigh = 1;
    grid.vertex(1, 1) = {0, 0, 0, 0, 0};
    grid.vertex(0, 1) = {-1, 1, 0, 0, 0};
    grid.vertex(1, 0) = {0, 0, -1, -1, 0};
    scene.light.ambient = 0;
    scene.light.fogIntensity = 10;
    prepareLight(scene.light, grid, 'a');
    LightWeights weights = lightWeights(scene.light);
    EXPECT_EQ(cellBrightness(scene.light, weights, scene.view, grid, 1, 1), 105);

    // Lit from behind: the same, both sides are lit alike.
    scene.light.vector = {1, 1, 0};
    prepareLight(scene.light, grid, 'a');
    EXPECT_EQ(cellBrightness(scene.light, weights, scene.view, grid, 1, 1), 105);

    // With the defaults and the cell at the (X_END, Y_END) corner (F = 1): 130 + 75 + 50.
    scene.light = SurfaceLight{};
    grid.xBegin = grid.yBegin = -1;
    grid.xEnd = grid.yEnd = 0;
    prepareLight(scene.light, grid, 'a');
    weights = lightWeights(scene.light);
    EXPECT_EQ(cellBrightness(scene.light, weights, scene.view, grid, 1, 1), 255);
    scene.light.shiny = true;
    scene.view.eye = {5, 0, 3};  // the half vector is 43 degrees off the normal: cosH^10 = 0.04
    const int shiny = cellBrightness(scene.light, weights, scene.view, grid, 1, 1);
    EXPECT_EQ(shiny, 192);  // 65 * 0.0428 + plain 65 + fog 75 + ambient 50
}

TEST(SurfaceLight, RotationModePKeepsTheDepthPlane) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -1, 1), SurfaceOutcome::Done);
    prepareLight(scene.light, scene.grid, 'a');
    const double range = scene.light.depthRange;
    scene.light.vector = {0, -1, -1};
    prepareLight(scene.light, scene.grid, 'P');
    EXPECT_EQ(scene.light.depthRange, range);
    EXPECT_DOUBLE_EQ(scene.light.lengthSquared, 2);
    prepareLight(scene.light, scene.grid, 'X');
    EXPECT_NE(scene.light.depthRange, range);
}

TEST(SurfaceLight, SchemesTurnBrightnessIntoColour) {
    const struct {
        char scheme;
        int at0[3];
        int at200[3];
    } cases[] = {
        {'1', {0, 0, 0}, {200, 200, 200}},   {'r', {255, 0, 0}, {255, 160, 160}},
        {'g', {0, 255, 0}, {160, 255, 160}}, {'b', {0, 0, 255}, {160, 160, 255}},
        {'c', {0, 0, 0}, {120, 200, 200}},   {'m', {0, 0, 0}, {200, 120, 200}},
        {'y', {0, 0, 0}, {200, 200, 120}},   {'o', {191, 65, 41}, {237, 210, 204}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scheme);
        SurfaceLight light;
        light.scheme = c.scheme;
        const std::uint32_t dark = schemeColour(light, 0);
        const std::uint32_t lit = schemeColour(light, 200);
        EXPECT_EQ(dark, packColour(c.at0[0], c.at0[1], c.at0[2]));
        EXPECT_EQ(lit, packColour(c.at200[0], c.at200[1], c.at200[2]));
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
