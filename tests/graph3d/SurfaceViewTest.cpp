// The eye, the rotations, the projection and the fit to a target; the angle conventions of both
// rotation routes, drags and the animation.
#include <cmath>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "SurfaceFixture.h"
#include "graph3d/SurfaceRotation.h"

namespace curvemill {
namespace {

// The eye stands beyond the far corner above the figure, and the aim point lies on the picture
// plane; a point on the eye's plane still lands on a finite pixel. Turned, the eye in grid space
// undoes the rotation.
TEST(SurfaceView, EyeStandsBeyondTheFarCornerAboveTheFigure) {
    const SurfaceGrid grid = cubeGrid();
    SurfaceView view;
    setUpView(view, grid);
    EXPECT_LT(distance(view.eye, {5.0825, 5.0825, 4.4641}), 1e-4);
    EXPECT_NEAR(view.normal.x * view.aimX + view.normal.y * view.aimY + view.planeConstant, 0,
                1e-12);
    const ScreenPoint s = projectToPixel(view, grid, {view.eye.x - 1, view.eye.y + 1, 0}, {});
    EXPECT_TRUE(std::abs(s.x) <= 1 << 24 && std::abs(s.y) <= 1 << 24) << s.x << ',' << s.y;
    setAxisAngle(view, 180);
    view.mode = RotationMode::kAboutZ;
    EXPECT_LT(distance(eyeInGridSpace(view, grid), {-view.eye.x, -view.eye.y, view.eye.z}), 1e-9);
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

TEST(SurfaceRotation, QuarterTurnsAreRightHandedByBothRoutesAboutTheCentre) {
    const SurfaceGrid centred = cubeGrid();
    // A negligible second angle sends the same turn through the matrix instead of the axis mode.
    constexpr double kNudge = 1e-300;
    using enum RotationMode;
    const std::tuple<RotationAngles, RotationMode, Vec3, Vec3> cases[] = {
        {{90, 0, 0}, kAboutX, {0, 1, 0}, {0, 0, 1}},
        {{0, 90, 0}, kAboutY, {0, 0, 1}, {1, 0, 0}},
        {{0, 0, 90}, kAboutZ, {1, 0, 0}, {0, 1, 0}},
        {{-90, 0, 0}, kAboutX, {0, 0, 1}, {0, 1, 0}},
        {{0, 0, -90}, kAboutZ, {0, 1, 0}, {1, 0, 0}},
        {{90, 0, kNudge}, kMatrix, {0, 1, 0}, {0, 0, 1}},
        {{kNudge, 90, 0}, kMatrix, {0, 0, 1}, {1, 0, 0}},
        {{kNudge, 0, 90}, kMatrix, {1, 0, 0}, {0, 1, 0}},
        {{0, 0, 0}, kNone, {1, 2, 3}, {1, 2, 3}},
    };
    for (const auto& [angles, mode, from, to] : cases) {
        SCOPED_TRACE(testing::Message() << angles.x << "," << angles.y << "," << angles.z);
        SurfaceView view;
        applyRotation(view, angles);
        EXPECT_EQ(view.mode, mode);
        EXPECT_LT(distance(rotatePoint(view, centred, from), to), 1e-12);
    }
    // Each axis mode turns about the figure's centre, wherever it lies.
    SurfaceGrid grid = centred;
    grid.xc = 1;
    grid.yc = 2;
    grid.zc = 3;
    const std::tuple<RotationMode, Vec3, Vec3> modes[] = {
        {kNone, {4, 5, 6}, {4, 5, 6}},   {kAboutX, {1, 3, 3}, {1, 2, 4}},
        {kAboutX, {1, 2, 4}, {1, 1, 3}}, {kAboutY, {2, 2, 3}, {1, 2, 4}},
        {kAboutY, {1, 2, 4}, {0, 2, 3}}, {kAboutZ, {2, 2, 3}, {1, 1, 3}},
        {kAboutZ, {1, 3, 3}, {2, 2, 3}},
    };
    for (const auto& [mode, from, to] : modes) {
        SCOPED_TRACE(static_cast<int>(mode));
        SurfaceView view;
        setAxisAngle(view, 90);
        view.mode = mode;
        EXPECT_LT(distance(rotatePoint(view, grid, from), to), 1e-12);
    }
    SurfaceView matrix;
    setRotationMatrix(matrix, 90, 0, 0);
    EXPECT_EQ(matrix.mode, kMatrix);
    EXPECT_LT(distance(rotatePoint(matrix, grid, {2, 2, 3}), {1, 3, 3}), 1e-12);
}

TEST(SurfaceRotation, AnglesWrapIntoOneTurn) {
    const std::tuple<double, double> cases[] = {{0, 0},      {180, 180},   {-180, 180}, {190, -170},
                                                {-190, 170}, {720, 0},     {-540, 180}, {359, -1},
                                                {NAN, 0},    {INFINITY, 0}};
    for (const auto& [in, out] : cases) {
        SCOPED_TRACE(in);
        EXPECT_NEAR(wrapDegrees(in), out, 1e-12);
    }
    const RotationAngles a = turnedAbout({170, 0, -170}, RotationAxis::kX, 20);
    EXPECT_NEAR(a.x, -170, 1e-12);
    EXPECT_NEAR(turnedAbout(a, RotationAxis::kZ, -20).z, 170, 1e-12);
}

TEST(SurfaceRotation, DragOfKnownLengthGivesItsAnglesAndCarriesTheNearSideAlong) {
    const std::tuple<RotationAngles, double, double, RotationAngles> cases[] = {
        {{0, 0, 0}, 90, 0, {0, 0, -45}},
        {{0, 0, 0}, 0, 60, {30, 0, 0}},
        {{10, 20, 30}, -40, -20, {0, 20, 50}},
        {{0, 0, -170}, 40, 0, {0, 0, 170}},
    };
    for (const auto& [atPress, dx, dy, expected] : cases) {
        SCOPED_TRACE(testing::Message() << dx << "," << dy);
        const RotationAngles a = draggedAngles(atPress, dx, dy);
        EXPECT_LT(distance({a.x, a.y, a.z}, {expected.x, expected.y, expected.z}), 1e-12);
    }
    // The corner nearest the eye moves the way the mouse went.
    const SurfaceGrid grid = cubeGrid();
    SurfaceView view;
    setUpView(view, grid);
    const Vec3 nearCorner{1, 1, 1};
    const double before = projectPoint(view, grid, nearCorner, {}).x;
    applyRotation(view, draggedAngles({}, 10, 0));
    EXPECT_GT(projectPoint(view, grid, nearCorner, {}).x, before + 1e-3);
    applyRotation(view, draggedAngles({}, -10, 0));
    EXPECT_LT(projectPoint(view, grid, nearCorner, {}).x, before - 1e-3);
}

TEST(SurfaceRotation, AFullTurnOfTheAnimationReturnsToItsStartAtABoundedSpeed) {
    const SurfaceGrid grid = cubeGrid();
    const Placement placement{200, 400, 300};
    const std::tuple<RotationAxis, double, RotationAngles> cases[] = {
        {RotationAxis::kZ, 30, {}},
        {RotationAxis::kX, -45, {10, 0, 5}},
        {RotationAxis::kY, 7, {0, 40, 0}},
        {RotationAxis::kZ, 720, {20, -30, 100}},
    };
    for (const auto& [axis, speed, from] : cases) {
        SCOPED_TRACE(speed);
        RotationAnimation animation;
        animation.start(from, axis, speed);
        // The corners' projections at a time of the turn, laid end to end.
        const auto projected = [&](double seconds) {
            SurfaceView view;
            setUpView(view, grid);
            applyRotation(view, animation.anglesAt(seconds));
            std::vector<double> points;
            for (const Vec3 corner : {Vec3{-1, -1, -1}, {1, -1, 1}, {1, 1, -1}, {0.3, -0.7, 0.2}}) {
                const PlanePoint p = projectPoint(view, grid, corner, placement);
                points.insert(points.end(), {p.x, p.y});
            }
            return points;
        };
        const double turn = 360.0 / std::abs(speed);
        const std::vector<double> start = projected(0);
        const std::vector<double> half = projected(turn / 2);
        const std::vector<double> end = projected(turn);
        // The figure really went round, then came back to the pixel it started from.
        double moved = 0;
        for (std::size_t k = 0; k < start.size(); ++k) {
            EXPECT_NEAR(end[k], start[k], 1e-9);
            moved += std::abs(half[k] - start[k]);
        }
        EXPECT_GT(moved, 50);
    }
    // The speed is held within bounds, and hours later the angle still lands where speed times
    // time puts it.
    RotationAnimation animation;
    animation.start({}, RotationAxis::kY, 1e9);
    EXPECT_EQ(animation.degreesPerSecond(), RotationAnimation::kMaxDegreesPerSecond);
    animation.start({}, RotationAxis::kY, NAN);
    EXPECT_EQ(animation.degreesPerSecond(), 0);
    EXPECT_NEAR(animation.anglesAt(1e12).y, 0, 1e-12);
    animation.start({0, 5, 0}, RotationAxis::kY, 10);
    EXPECT_NEAR(animation.anglesAt(3600 * 5 + 1.5).y, 20, 1e-6);
}

}  // namespace
}  // namespace curvemill
