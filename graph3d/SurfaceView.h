// The eye, the picture plane, the rotation about the figure's centre, and the projection of a
// point of the surface's space onto a drawing target.
#pragma once

#include <array>

#include "graph3d/SurfaceGrid.h"
#include "graph3d/Vec3.h"

namespace curvemill {

// How the figure is turned about its centre: not at all, by the full matrix, or about one axis
// by theta (cheaper per point than the matrix).
enum class RotationMode { kNone, kMatrix, kAboutX, kAboutY, kAboutZ };

struct SurfaceView {
    std::int32_t horizontalLocation = 5;
    std::int32_t verticalLocation = 3;
    Vec3 eye;
    Vec3 normal;
    double planeConstant = 0;
    double aimX = 0;
    double aimY = 0;
    double numerator = 0;
    double u = 0;
    double w = 0;
    double sqrtOneMinusU2 = 0;
    double hOffset = 0;
    double vOffset = 0;
    double zoom = 1.0;
    RotationMode mode = RotationMode::kNone;
    double sinTheta = 0;
    double cosTheta = 1;
    std::array<std::array<double, 3>, 3> matrix{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
};

// How plane coordinates become pixels of one target: sx = h * scale * zoom + left,
// sy = top - v * scale * zoom.
struct Placement {
    double scale = 1;
    double left = 0;
    double top = 0;
};

struct PlanePoint {
    double x = 0;
    double y = 0;
};

// A new surface: no rotation, zoom 1, then the eye and plane for its domain.
void resetView(SurfaceView& view, const SurfaceGrid& grid);
void setUpView(SurfaceView& view, const SurfaceGrid& grid);
Vec3 rotatePoint(const SurfaceView& view, const SurfaceGrid& grid, Vec3 p);
// Angles in degrees; sets the mode to the matrix.
void setRotationMatrix(SurfaceView& view, double a, double b, double c);
void setAxisAngle(SurfaceView& view, double thetaDegrees);
// The only route from a point of the surface's space to a target's pixels (not truncated).
PlanePoint projectPoint(const SurfaceView& view, const SurfaceGrid& grid, Vec3 p,
                        const Placement& placement);
// The same, truncated toward zero; coordinates beyond any target are held at +-2^24 first.
ScreenPoint projectToPixel(const SurfaceView& view, const SurfaceGrid& grid, Vec3 p,
                           const Placement& placement);

// The zoom commands' "Both" on a surface: the figure grows (factor > 1) or shrinks about the middle
// of the target. The zoom stays within 1/1024 .. 1024, where the figure is still a dot or its
// coordinates still fit the pixel clamp; returns false when it would leave that range.
bool zoomFigure(SurfaceView& view, double factor);

// The placement that shows the whole box of the domain and the shown z range on a target of
// width x height device pixels, centred, with a margin.
Placement fitFigure(const SurfaceView& view, const SurfaceGrid& grid, int width, int height);

// The eye expressed in the unrotated space of the grid (the rotation undone), for choosing the
// order in which cells are drawn.
Vec3 eyeInGridSpace(const SurfaceView& view, const SurfaceGrid& grid);

}  // namespace curvemill
