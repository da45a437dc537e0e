#include "graph2d/TurningPointRefiner.h"

#include <algorithm>
#include <array>
#include <utility>

namespace curvemill {

namespace {

constexpr int kSubSteps = 50;
constexpr int kMaxPasses = 11;

// Which end of the final bracket a refinement returns.
enum class Side { kLeft, kRight };

// One pass: false when the bracket cannot be narrowed.
bool narrow(const CurveFunction& f, double& a, double& b, Extreme kind, Side side,
            YExtent& extent) {
    const double h = (b - a) / kSubSteps;
    if (a + h == a) {
        return false;
    }
    std::array<double, kSubSteps + 1> xs{};
    std::array<double, kSubSteps + 1> ys{};
    for (int i = 0; i <= kSubSteps; ++i) {
        xs[i] = i == kSubSteps ? b : a + i * h;
        const FunctionValue v = f(xs[i]);
        if (v.indefinite) {
            return false;
        }
        ys[i] = v.value;
        extent.take(v.value);
    }
    // On a flat top the first extreme sample is taken from the left, the last from the right, so
    // that the two refinements end on either side of the turning point.
    int m = 0;
    for (int i = 1; i <= kSubSteps; ++i) {
        const bool better = kind == Extreme::kMaximum ? ys[i] > ys[m] : ys[i] < ys[m];
        const bool tie = ys[i] == ys[m] && side == Side::kRight;
        if (better || tie) {
            m = i;
        }
    }
    const double newA = xs[std::max(m - 1, 0)];
    const double newB = xs[std::min(m + 1, kSubSteps)];
    if (newA == a && newB == b) {
        return false;
    }
    a = newA;
    b = newB;
    return true;
}

double refine(const CurveFunction& f, double a, double b, Extreme kind, Side side,
              YExtent& extent) {
    for (int pass = 0; pass < kMaxPasses; ++pass) {
        if (!narrow(f, a, b, kind, side, extent)) {
            break;
        }
    }
    return side == Side::kLeft ? a : b;
}

}  // namespace

TurningPair refineTurningPair(const CurveFunction& f, double a, double b, Extreme kind,
                              YExtent& extent) {
    TurningPair pair{refine(f, a, b, kind, Side::kLeft, extent),
                     refine(f, a, b, kind, Side::kRight, extent)};
    // On a curve flat up to rounding (sin(x)^2+cos(x)^2) the extreme sample is one rounding bump
    // among many, and the two refinements may follow different bumps and cross. Both still lie in
    // [a, b]; taken in order they span what was found, and the records keep x ascending, which
    // the drawing, the integral's index search and the export rely on.
    if (pair.right < pair.left) {
        std::swap(pair.left, pair.right);
    }
    return pair;
}

}  // namespace curvemill
