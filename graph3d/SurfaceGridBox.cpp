#include "graph3d/SurfaceGridBox.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "graph2d/GridSteps.h"

namespace curvemill {

namespace {

// More values than any tidy step of a fifth of the span gives; guards a degenerate span.
constexpr int kMostValues = 40;

std::string valueText(double v, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, v == 0 ? 0.0 : v);
    return text;
}

}  // namespace

std::vector<double> boxValues(double begin, double end, int& decimals) {
    std::vector<double> values;
    decimals = 0;
    const double span = end - begin;
    if (!(span > 0) || !std::isfinite(span)) {
        return values;
    }
    const double step = tidyStep(span / 5, 1.0);
    if (!(step > 0) || !std::isfinite(step)) {
        return values;
    }
    decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 12);
    const double slack = step * 1e-9;
    const double first = std::ceil((begin - slack) / step);
    for (int k = 0; k < kMostValues; ++k) {
        const double v = (first + k) * step;
        if (v > end + slack) {
            break;
        }
        values.push_back(std::clamp(v, begin, end));
    }
    return values;
}

GridBox layoutGridBox(const SurfaceView& view, const SurfaceGrid& grid) {
    GridBox box;
    const double lo[3] = {grid.xBegin, grid.yBegin, grid.zLow};
    const double hi[3] = {grid.xEnd, grid.yEnd, grid.zHigh};
    const Vec3 eye = eyeInGridSpace(view, grid);
    const double e[3] = {eye.x, eye.y, eye.z};
    // For each axis, the side of the box away from the eye: its face is the back face.
    double back[3];
    double front[3];
    for (int a = 0; a < 3; ++a) {
        const bool nearLow = e[a] < (lo[a] + hi[a]) / 2;
        back[a] = nearLow ? hi[a] : lo[a];
        front[a] = nearLow ? lo[a] : hi[a];
    }
    const auto point = [](int a, double va, int b, double vb, int c, double vc) {
        double p[3];
        p[a] = va;
        p[b] = vb;
        p[c] = vc;
        return Vec3{p[0], p[1], p[2]};
    };
    // The twelve edges: four along each axis.
    for (int a = 0; a < 3; ++a) {
        const int b = (a + 1) % 3;
        const int c = (a + 2) % 3;
        for (double vb : {lo[b], hi[b]}) {
            for (double vc : {lo[c], hi[c]}) {
                box.lines.push_back({point(a, lo[a], b, vb, c, vc), point(a, hi[a], b, vb, c, vc),
                                     true, vb == front[b] && vc == front[c]});
            }
        }
    }
    // Grid lines: the value v of axis a runs across the two back faces that do not lie across a.
    int decimals[3] = {0, 0, 0};
    std::vector<double> values[3];
    for (int a = 0; a < 3; ++a) {
        values[a] = boxValues(lo[a], hi[a], decimals[a]);
    }
    for (int a = 0; a < 3; ++a) {
        for (int face = 0; face < 3; ++face) {
            if (face == a) {
                continue;
            }
            const int other = 3 - a - face;
            for (double v : values[a]) {
                box.lines.push_back({point(a, v, face, back[face], other, lo[other]),
                                     point(a, v, face, back[face], other, hi[other]), false,
                                     false});
            }
        }
    }
    // The x and y values along the edges nearest the eye of the horizontal back face (the floor
    // seen from above, the lid seen from below), the z values up the vertical edge at the end of
    // the x values' row, where the surface hides them least. Each row is named by its axis at
    // its middle; values that would overlap are thinned when they are painted.
    const Vec3 middle{(lo[0] + hi[0]) / 2, (lo[1] + hi[1]) / 2, (lo[2] + hi[2]) / 2};
    for (int a = 0; a < 2; ++a) {
        const int b = 1 - a;
        for (double v : values[a]) {
            const Vec3 anchor = point(a, v, b, front[b], 2, back[2]);
            Vec3 out = anchor - middle;
            (a == 0 ? out.x : out.y) = 0;
            box.labels.push_back({anchor, out, a == 0 ? 'x' : 'y', valueText(v, decimals[a])});
        }
    }
    for (double v : values[2]) {
        const Vec3 anchor{back[0], front[1], v};
        Vec3 out = anchor - middle;
        out.z = 0;
        box.labels.push_back({anchor, out, 'z', valueText(v, decimals[2])});
    }
    for (int a = 0; a < 3; ++a) {
        const Vec3 anchor = a == 2 ? Vec3{back[0], front[1], middle.z}
                                   : point(a, (lo[a] + hi[a]) / 2, 1 - a, front[1 - a], 2, back[2]);
        Vec3 out = anchor - middle;
        (a == 0 ? out.x : a == 1 ? out.y : out.z) = 0;
        box.labels.push_back({anchor, out, "xyz"[a], std::string(1, "xyz"[a]), true});
    }
    return box;
}

ProjectedGridBox projectGridBox(const SurfaceView& view, const SurfaceGrid& grid,
                                const Placement& placement) {
    ProjectedGridBox projected;
    const GridBox box = layoutGridBox(view, grid);
    for (const BoxLine& line : box.lines) {
        projected.lines.push_back({projectPoint(view, grid, line.from, placement),
                                   projectPoint(view, grid, line.to, placement), line.edge,
                                   line.front});
    }
    for (const BoxLabel& label : box.labels) {
        const PlanePoint at = projectPoint(view, grid, label.anchor, placement);
        const PlanePoint off = projectPoint(view, grid, label.anchor + label.outward, placement);
        double dx = off.x - at.x;
        double dy = off.y - at.y;
        const double length = std::hypot(dx, dy);
        if (length > 0 && std::isfinite(length)) {
            dx /= length;
            dy /= length;
        } else {
            dx = 0;
            dy = 1;
        }
        projected.labels.push_back({at, {dx, dy}, label.axis, label.text, label.axisName});
    }
    return projected;
}

}  // namespace curvemill
