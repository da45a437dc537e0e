#include "graph3d/SurfaceCompute.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/Formula.h"

namespace curvemill {

namespace {

double evaluateAt(Formula& formula, double x, double y, bool& indefinite) {
    const double z = formula.evaluate(x, kTwoVariableSlot, y);
    // A value that is not a finite number cannot be placed on the screen: it counts as missing.
    indefinite = formula.indefinite || !std::isfinite(z);
    return z;
}

// Moves vertex m to the highest (peak) or lowest (valley) of ten samples between its lower
// neighbour and its upper one. Only y and z change. The neighbours' flags are not consulted.
void refine(Formula& formula, SurfaceVertex& below, SurfaceVertex& m, const SurfaceVertex& above) {
    const bool peak = m.z > below.z && m.z > above.z;
    const bool valley = !peak && m.z < below.z && m.z < above.z;
    if (!peak && !valley) {
        return;
    }
    for (int k = 0; k < 10; ++k) {
        // Multiplied before the division, as written: dividing first moves the sample by an ulp.
        const double y = below.y + k * (above.y - below.y) / 10;
        bool indefinite = false;
        const double z = evaluateAt(formula, m.x, y, indefinite);
        if (indefinite) {
            continue;
        }
        if (peak ? z > m.z : z < m.z) {
            m.z = z;
            m.y = y;
        }
    }
}

double medianHeight(const SurfaceGrid& grid) {
    std::vector<double> heights;
    heights.reserve(static_cast<std::size_t>(grid.nx + 1) * static_cast<std::size_t>(grid.ny + 1));
    for (int i = 0; i <= grid.nx; ++i) {
        for (int j = 0; j <= grid.ny; ++j) {
            if (grid.vertex(i, j).indefinite == 0) {
                heights.push_back(grid.vertex(i, j).z);
            }
        }
    }
    if (heights.empty()) {
        return 0;
    }
    const auto middle = heights.begin() + static_cast<std::ptrdiff_t>(heights.size() / 2);
    std::nth_element(heights.begin(), middle, heights.end());
    return *middle;
}

}  // namespace

SurfaceOutcome computeSurface(Formula& formula, SurfaceGrid& grid,
                              const std::function<void(int percent)>& progress,
                              const std::atomic<bool>& keepComputing) {
    grid.limits.step = 5;
    grid.evaluatedCount = 0;
    if (!grid.allocate(grid.requestedNx, grid.requestedNy)) {
        return SurfaceOutcome::NoMemory;
    }
    const double dx = (grid.xEnd - grid.xBegin) / grid.nx;
    const double dy = (grid.yEnd - grid.yBegin) / grid.ny;
    grid.zLow = 1e100;
    grid.zHigh = -1e100;

    // x and y grow by repeated addition, so the last vertex may miss the end in its last bits.
    double x = grid.xBegin;
    for (int i = 0; i <= grid.nx; ++i) {
        if (progress) {
            progress(static_cast<int>(100 * (x - grid.xBegin) / (grid.xEnd - grid.xBegin)));
        }
        double y = grid.yBegin;
        for (int j = 0; j <= grid.ny; ++j) {
            if (!keepComputing.load(std::memory_order_relaxed)) {
                return SurfaceOutcome::Stopped;
            }
            SurfaceVertex& v = grid.vertex(i, j);
            bool indefinite = false;
            v.x = x;
            v.y = y;
            v.z = evaluateAt(formula, x, y, indefinite);
            v.zShown = 0;
            v.indefinite = indefinite ? 1 : 0;
            if (!indefinite && j > 1) {
                refine(formula, grid.vertex(i, j - 2), grid.vertex(i, j - 1), v);
            }
            ++grid.evaluatedCount;
            y += dy;
        }
        x += dx;
    }
    // The evaluator returns indefinite at once after a Stop; a computation stopped inside the
    // last vertex must not pass as done.
    if (!keepComputing.load(std::memory_order_relaxed)) {
        return SurfaceOutcome::Stopped;
    }
    // Square root of the sum of squares, not std::hypot, which rounds differently in the last bit.
    const double dxAll = grid.xBegin - grid.xEnd;
    const double dyAll = grid.yBegin - grid.yEnd;
    grid.diagonal = std::sqrt(dxAll * dxAll + dyAll * dyAll);
    applyZLimits(grid, LimitStep::kWidest);
    grid.xc = (grid.xEnd + grid.xBegin) * 0.5;
    grid.yc = (grid.yEnd + grid.yBegin) * 0.5;
    grid.zc = (grid.zLow + grid.zHigh) * 0.5;
    return SurfaceOutcome::Done;
}

void applyZLimits(SurfaceGrid& grid, LimitStep step) {
    ZLimits& limits = grid.limits;
    double zMax = -1e100;
    double zMin = 1e100;
    for (int i = 0; i <= grid.nx && grid.allocated(); ++i) {
        for (int j = 0; j <= grid.ny; ++j) {
            const SurfaceVertex& v = grid.vertex(i, j);
            if (v.indefinite == 0) {
                zMax = v.z > zMax ? v.z : zMax;
                zMin = v.z < zMin ? v.z : zMin;
            }
        }
    }
    limits.zMin = zMin;
    limits.zMax = zMax;
    const double D = grid.diagonal;
    // Clamped as a double first: an empty grid gives a huge negative quotient, an overflowing
    // range an infinite one, and neither fits an integer.
    double steps = std::trunc((zMax - zMin) / (2 * D));
    steps = std::clamp(std::isnan(steps) ? 0.0 : steps, -1.0, 10000.0);
    limits.availableSteps = std::min(static_cast<std::int32_t>(steps), limits.upperBound);
    limits.active = limits.availableSteps >= limits.lowerBound;
    if (step == LimitStep::kWidest) {
        limits.step = std::min(limits.upperBound, limits.availableSteps);
    }
    double mid = (zMin + zMax) / 2;
    if (!std::isfinite(mid)) {
        mid = zMin / 2 + zMax / 2;
    }
    // A pole sampled a hair from its singularity (1/(x*y) at an x built by addition, 2e-16 from
    // 0) can put the middle of the range so high that mid +- step * D rounds to mid itself: the
    // band would have no height and the figure would collapse onto one plane, the very
    // flattening the limits are there to prevent. Only then the band is centred on the median of
    // the defined values, where the bulk of the surface lies.
    if (limits.active && limits.step > 0 && mid + limits.step * D == mid - limits.step * D) {
        mid = medianHeight(grid);
    }
    const double top = mid + limits.step * D;
    const double bottom = mid - limits.step * D;
    const bool active = limits.active;
    for (int i = 0; i <= grid.nx && grid.allocated(); ++i) {
        for (int j = 0; j <= grid.ny; ++j) {
            SurfaceVertex& v = grid.vertex(i, j);
            if (v.indefinite != 0) {
                continue;
            }
            v.zShown = !active ? v.z : v.z >= top ? top : v.z < bottom ? bottom : v.z;
        }
    }
    if (active) {
        grid.zLow = bottom;
        grid.zHigh = top;
        limits.step = std::min(limits.step, limits.availableSteps);
    } else {
        grid.zLow = zMin;
        grid.zHigh = zMax;
    }
}

}  // namespace curvemill
