#include "graph3d/SurfaceView.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace curvemill {

namespace {

using Matrix = std::array<std::array<double, 3>, 3>;

Vec3 centreOf(const SurfaceGrid& grid) {
    return {grid.xc, grid.yc, grid.zc};
}

// The rotation of the current mode as a matrix about the centre.
Matrix rotationMatrix(const SurfaceView& view) {
    const double s = view.sinTheta;
    const double c = view.cosTheta;
    switch (view.mode) {
        case RotationMode::kNone:
            break;
        case RotationMode::kMatrix:
            return view.matrix;
        case RotationMode::kAboutX:
            return {{{1, 0, 0}, {0, c, -s}, {0, s, c}}};
        case RotationMode::kAboutY:
            return {{{c, 0, -s}, {0, 1, 0}, {s, 0, c}}};
        case RotationMode::kAboutZ:
            return {{{c, s, 0}, {-s, c, 0}, {0, 0, 1}}};
    }
    return {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
}

// Keeps a coordinate that a point close to the eye's plane sent far away (or made NaN) inside
// what a 32-bit pixel and the painters can take.
std::int32_t toPixel(double v) {
    constexpr double kFar = 16777216.0;
    if (std::isnan(v)) {
        return 0;
    }
    return static_cast<std::int32_t>(std::clamp(v, -kFar, kFar));
}

}  // namespace

void resetView(SurfaceView& view, const SurfaceGrid& grid) {
    view.mode = RotationMode::kNone;
    view.zoom = 1.0;
    setUpView(view, grid);
}

void setUpView(SurfaceView& view, const SurfaceGrid& grid) {
    const double dX = grid.xEnd - grid.xBegin;
    const double dY = grid.yEnd - grid.yBegin;
    const double dZ = grid.zHigh - grid.zLow;
    const double R = std::sqrt(dX * dX + dY * dY + dZ * dZ);
    const double D = std::sqrt(dX * dX + dY * dY);
    view.eye.x = view.horizontalLocation * R * dX / (D * 3.0) + grid.xEnd;
    view.eye.y = view.horizontalLocation * R * dY / (D * 3.0) + grid.yEnd;
    view.eye.z = view.verticalLocation * R / 3.0 + grid.zHigh;
    view.normal = {dX, dY, 0};
    view.aimX = (grid.xEnd + view.eye.x) / 2.0;
    view.aimY = (grid.yEnd + view.eye.y) / 2.0;
    view.planeConstant = -dot(view.normal, {view.aimX, view.aimY, 0});
    view.numerator = -(dot(view.normal, view.eye) + view.planeConstant);
    view.u = dY / D;
    view.w = dX / D;
    view.sqrtOneMinusU2 = std::sqrt(1 - view.u * view.u);
    view.hOffset = 0;
    view.vOffset = 0;
}

Vec3 rotatePoint(const SurfaceView& view, const SurfaceGrid& grid, Vec3 p) {
    const double X = p.x - grid.xc;
    const double Y = p.y - grid.yc;
    const double Z = p.z - grid.zc;
    const double s = view.sinTheta;
    const double c = view.cosTheta;
    switch (view.mode) {
        case RotationMode::kNone:
            break;
        case RotationMode::kMatrix: {
            const Matrix& M = view.matrix;
            return {M[0][0] * X + M[0][1] * Y + M[0][2] * Z + grid.xc,
                    M[1][0] * X + M[1][1] * Y + M[1][2] * Z + grid.yc,
                    M[2][0] * X + M[2][1] * Y + M[2][2] * Z + grid.zc};
        }
        case RotationMode::kAboutX:
            return {p.x, Y * c - Z * s + grid.yc, Y * s + Z * c + grid.zc};
        case RotationMode::kAboutY:
            return {X * c - Z * s + grid.xc, p.y, X * s + Z * c + grid.zc};
        case RotationMode::kAboutZ:
            return {Y * s + X * c + grid.xc, Y * c - X * s + grid.yc, p.z};
    }
    return p;
}

void setRotationMatrix(SurfaceView& view, double a, double b, double c) {
    constexpr double kRadians = std::numbers::pi / 180;
    const double sa = std::sin(a * kRadians), ca = std::cos(a * kRadians);
    const double sb = std::sin(b * kRadians), cb = std::cos(b * kRadians);
    const double sc = std::sin(c * kRadians), cc = std::cos(c * kRadians);
    view.matrix = {{{cc * ca + sb * sc * sa, ca * sb * sc - sa * cc, -sc * cb},
                    {sa * cb, ca * cb, sb},
                    {sc * ca - sa * sb * cc, -ca * cc * sb - sa * sc, cc * cb}}};
    view.mode = RotationMode::kMatrix;
}

void setAxisAngle(SurfaceView& view, double thetaDegrees) {
    const double theta = thetaDegrees * std::numbers::pi / 180;
    view.sinTheta = std::sin(theta);
    view.cosTheta = std::cos(theta);
}

PlanePoint projectPoint(const SurfaceView& view, const SurfaceGrid& grid, Vec3 p,
                        const Placement& placement) {
    if (view.mode != RotationMode::kNone) {
        p = rotatePoint(view, grid, p);
    }
    const Vec3 ray = p - view.eye;
    const double t = view.numerator / dot(view.normal, ray);
    const Vec3 q = view.eye + t * ray;
    const double v = q.z - grid.zLow - view.vOffset;
    const double h = (grid.yEnd - q.y) * view.w + (q.x - grid.xBegin) * view.u - view.hOffset;
    const double k = placement.scale * view.zoom;
    return {h * k + placement.left, placement.top - v * k};
}

ScreenPoint projectToPixel(const SurfaceView& view, const SurfaceGrid& grid, Vec3 p,
                           const Placement& placement) {
    const PlanePoint s = projectPoint(view, grid, p, placement);
    return {toPixel(s.x), toPixel(s.y)};
}

bool zoomFigure(SurfaceView& view, double factor) {
    const double zoom = view.zoom * factor;
    if (!(zoom >= 1.0 / 1024 && zoom <= 1024)) {
        return false;
    }
    view.zoom = zoom;
    return true;
}

// The scale comes from the unrotated figure and the centring from the figure as it is turned
// now: the figure keeps its size while it rotates (no pumping during an animation) and stays in
// the middle of the target. The default view fills nine tenths of the tighter side.
Placement fitFigure(const SurfaceView& view, const SurfaceGrid& grid, int width, int height) {
    constexpr double kFill = 0.9;
    const auto bounds = [&grid](const SurfaceView& v, double box[4]) {
        box[0] = box[2] = HUGE_VAL;
        box[1] = box[3] = -HUGE_VAL;
        for (int corner = 0; corner < 8; ++corner) {
            const Vec3 p{corner & 1 ? grid.xEnd : grid.xBegin, corner & 2 ? grid.yEnd : grid.yBegin,
                         corner & 4 ? grid.zHigh : grid.zLow};
            const PlanePoint s = projectPoint(v, grid, p, Placement{1, 0, 0});
            // With scale 1, zoom 1 and no placement, s is (h, -v).
            box[0] = std::min(box[0], s.x);
            box[1] = std::max(box[1], s.x);
            box[2] = std::min(box[2], -s.y);
            box[3] = std::max(box[3], -s.y);
        }
    };
    SurfaceView plain = view;
    plain.mode = RotationMode::kNone;
    plain.zoom = 1;
    double still[4];
    bounds(plain, still);
    double scale =
        std::min(kFill * width / (still[1] - still[0]), kFill * height / (still[3] - still[2]));
    if (!std::isfinite(scale) || scale <= 0) {
        scale = 1;
    }
    SurfaceView turned = view;
    turned.zoom = 1;
    double now[4];
    bounds(turned, now);
    double hMid = (now[0] + now[1]) / 2;
    double vMid = (now[2] + now[3]) / 2;
    if (!std::isfinite(hMid) || !std::isfinite(vMid)) {
        hMid = vMid = 0;
    }
    const double k = scale * view.zoom;
    return {scale, width / 2.0 - hMid * k, height / 2.0 + vMid * k};
}

Vec3 eyeInGridSpace(const SurfaceView& view, const SurfaceGrid& grid) {
    const Matrix R = rotationMatrix(view);
    const Vec3 e = view.eye - centreOf(grid);
    // The rotations are orthonormal: the transpose undoes them.
    return Vec3{R[0][0] * e.x + R[1][0] * e.y + R[2][0] * e.z,
                R[0][1] * e.x + R[1][1] * e.y + R[2][1] * e.z,
                R[0][2] * e.x + R[1][2] * e.y + R[2][2] * e.z} +
           centreOf(grid);
}

}  // namespace curvemill
