// The eye, the rotations, the projection and the fit to a target.
#include <cmath>

#include <gtest/gtest.h>

#include "SurfaceFixture.h"

namespace curvemill {
namespace {

TEST(SurfaceView, EyeStandsBeyondTheFarCornerAboveTheFigure) {
    const SurfaceGrid grid = cubeGrid();
    SurfaceView view;
    setUpView(view, grid);
    EXPECT_LT(distance(view.eye, {5.0825, 5.0825, 4.4641}), 1e-4);
    EXPECT_NEAR(view.u, std::sqrt(0.5), 1e-15);
    EXPECT_NEAR(view.w, std::sqrt(0.5), 1e-15);
    // The aim point lies on the picture plane.
    EXPECT_NEAR(view.normal.x * view.aimX + view.normal.y * view.aimY + view.planeConstant, 0,
                1e-12);
}

TEST(SurfaceView, RotationsTurnAboutTheCentre) {
    SurfaceGrid grid = cubeGrid();
    grid.xc = 1;
    grid.yc = 2;
    grid.zc = 3;
    const struct {
        char mode;
        Vec3 from;
        Vec3 to;
    } cases[] = {
        {'a', {4, 5, 6}, {4, 5, 6}}, {'X', {1, 3, 3}, {1, 2, 4}}, {'x', {1, 2, 4}, {1, 1, 3}},
        {'Y', {2, 2, 3}, {1, 2, 4}}, {'y', {1, 2, 4}, {0, 2, 3}}, {'Q', {2, 2, 3}, {1, 1, 3}},
        {'R', {1, 3, 3}, {2, 2, 3}}, {'q', {2, 2, 3}, {1, 1, 3}}, {'r', {1, 3, 3}, {2, 2, 3}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mode);
        SurfaceView view;
        setAxisAngle(view, 90);
        view.mode = c.mode;
        EXPECT_LT(distance(rotatePoint(view, grid, c.from), c.to), 1e-12);
    }
    SurfaceView matrix;
    setRotationMatrix(matrix, 90, 0, 0);
    EXPECT_EQ(matrix.mode, 'P');
    EXPECT_LT(distance(rotatePoint(matrix, grid, {2, 2, 3}), {1, 3, 3}), 1e-12);
}

TEST(SurfaceView, EyeInGridSpaceUndoesTheRotation) {
    const SurfaceGrid grid = cubeGrid();
    SurfaceView view;
    setUpView(view, grid);
    setAxisAngle(view, 180);
    view.mode = 'Q';
    EXPECT_LT(distance(eyeInGridSpace(view, grid), {-view.eye.x, -view.eye.y, view.eye.z}), 1e-9);
    // Turning the figure and then the eye back gives the eye again.
    setRotationMatrix(view, 30, 20, 10);
    EXPECT_LT(distance(rotatePoint(view, grid, eyeInGridSpace(view, grid)), view.eye), 1e-9);
}

// The figure's box fills nine tenths of the tighter side of any target, centred; zoom scales it
// about the middle of the target.
TEST(SurfaceView, FitCentresTheBoxOnEveryTargetAndZoomScalesIt) {
    SurfaceGrid grid = cubeGrid();
    grid.xEnd = 3;  // not square
    grid.xc = 1;
    for (const auto& [width, height] : {std::pair{1920, 1080}, {300, 900}, {4961, 7016}}) {
        SCOPED_TRACE(testing::Message() << width << 'x' << height);
        for (double zoom : {1.0, 2.0}) {
            SurfaceView view;
            resetView(view, grid);
            view.zoom = zoom;
            const Placement placement = fitFigure(view, grid, width, height);
            double box[4] = {1e300, -1e300, 1e300, -1e300};
            for (int corner = 0; corner < 8; ++corner) {
                const PlanePoint s = projectPoint(
                    view, grid,
                    {corner & 1 ? grid.xEnd : grid.xBegin, corner & 2 ? grid.yEnd : grid.yBegin,
                     corner & 4 ? grid.zHigh : grid.zLow},
                    placement);
                box[0] = std::min(box[0], s.x);
                box[1] = std::max(box[1], s.x);
                box[2] = std::min(box[2], s.y);
                box[3] = std::max(box[3], s.y);
            }
            EXPECT_NEAR((box[0] + box[1]) / 2, width / 2.0, 1e-6);
            EXPECT_NEAR((box[2] + box[3]) / 2, height / 2.0, 1e-6);
            const double fill = std::max((box[1] - box[0]) / width, (box[3] - box[2]) / height);
            EXPECT_NEAR(fill, 0.9 * zoom, 1e-9);
        }
    }
}

TEST(SurfaceView, PixelsStayFiniteForPointsOnTheEyesPlane) {
    const SurfaceGrid grid = cubeGrid();
    SurfaceView view;
    resetView(view, grid);
    const ScreenPoint s = projectToPixel(view, grid, {view.eye.x - 1, view.eye.y + 1, 0}, {});
    EXPECT_LE(std::abs(s.x), 1 << 24);
    EXPECT_LE(std::abs(s.y), 1 << 24);
}

}  // namespace
}  // namespace curvemill
