#include "parametric/CurveMeasures.h"

#include <algorithm>
#include <cmath>

#include "parametric/CurveRefiner.h"

namespace curvemill {

namespace {

constexpr int kStartPoints = 1000;
constexpr int kSimpsonDepth = 40;
constexpr int kSimpsonPanels = 64;
// Bounds the work on a curve that never settles (noise of rounding near a pole).
constexpr long long kSimpsonBudget = 2'000'000;

double radiusSquared(CurveXY p) {
    return p.x * p.x + p.y * p.y;
}

}  // namespace

CurveLocal curveLocalAt(const CurveAt& curve, double t) {
    CurveLocal local;
    const double h = 1e-6 * std::max(1.0, std::fabs(t));
    CurveXY before, after;
    if (!curve(t, local.point) || !curve(t - h, before) || !curve(t + h, after)) {
        return local;
    }
    local.defined = true;
    local.dxdt = (after.x - before.x) / (2 * h);
    local.dydt = (after.y - before.y) / (2 * h);
    // A dx/dt that is only the differences' rounding counts as none.
    const double rounding = 1e-9 * std::max({1.0, std::fabs(local.point.x), std::fabs(local.dydt)});
    local.hasSlope = std::fabs(local.dxdt) > rounding;
    if (local.hasSlope) {
        local.slope = local.dydt / local.dxdt;
    }
    return local;
}

CurveMeasures measureCurve(const CurveAt& curve, double t0, double t1, double tolerance,
                           const SamplingControl& control) {
    CurveMeasures measures;
    RefineSettings settings;
    settings.tBegin = t0;
    settings.tEnd = t1;
    settings.startPoints = kStartPoints;
    // The refiner's quarter pixel is the tolerance asked for.
    settings.xPerPixel = settings.yPerPixel = 4 * tolerance;
    settings.depthLimit = 30;
    const CurveSampling sampling = refineCurve(curve, settings, control);
    measures.stopped = sampling.stopped;
    const std::vector<CurvePoint>& points = sampling.points;
    const auto breakInside = std::any_of(points.begin() + (points.empty() ? 0 : 1), points.end(),
                                         [](const CurvePoint& p) { return p.isBreak != 0; });
    if (sampling.stopped || points.empty() || breakInside || points.front().t != t0 ||
        points.back().t != t1) {
        return measures;
    }
    measures.defined = true;
    double size = 0.0;
    for (std::size_t n = 1; n < points.size(); ++n) {
        const CurvePoint& a = points[n - 1];
        const CurvePoint& b = points[n];
        measures.length += std::hypot(b.x - a.x, b.y - a.y);
        measures.area += a.x * b.y - b.x * a.y;
        size = std::max({size, std::fabs(b.x), std::fabs(b.y)});
    }
    const CurvePoint& first = points.front();
    const CurvePoint& last = points.back();
    measures.closed =
        std::hypot(last.x - first.x, last.y - first.y) <= 1e-6 * std::max(size, 1e-300);
    measures.area += last.x * first.y - first.x * last.y;
    measures.area /= 2;
    return measures;
}

namespace {

struct Simpson {
    const CurveAt& polar;
    bool defined = true;
    long long evaluations = 0;

    double r2(double t) {
        ++evaluations;
        CurveXY p;
        if (!polar(t, p)) {
            defined = false;
            return 0.0;
        }
        return radiusSquared(p);
    }
    double run(double a, double b, double fa, double fm, double fb, double whole, double eps,
               int depth) {
        const double m = 0.5 * (a + b);
        const double lm = 0.5 * (a + m), rm = 0.5 * (m + b);
        const double flm = r2(lm), frm = r2(rm);
        const double left = (m - a) / 6 * (fa + 4 * flm + fm);
        const double right = (b - m) / 6 * (fm + 4 * frm + fb);
        if (!defined || depth <= 0 || evaluations > kSimpsonBudget ||
            std::fabs(left + right - whole) <= 15 * eps) {
            return left + right + (left + right - whole) / 15;
        }
        return run(a, m, fa, flm, fm, left, eps / 2, depth - 1) +
               run(m, b, fm, frm, fb, right, eps / 2, depth - 1);
    }
};

}  // namespace

bool sweptArea(const CurveAt& polar, double t0, double t1, double tolerance, double& area) {
    Simpson simpson{polar};
    // Started on many panels: on a single one a symmetric r^2 can agree with its own halves
    // by chance and stop the refinement at once.
    const double step = (t1 - t0) / kSimpsonPanels;
    double integral = 0.0;
    for (int k = 0; k < kSimpsonPanels; ++k) {
        const double a = t0 + k * step;
        const double b = k == kSimpsonPanels - 1 ? t1 : a + step;
        const double fa = simpson.r2(a), fm = simpson.r2(0.5 * (a + b)), fb = simpson.r2(b);
        const double whole = (b - a) / 6 * (fa + 4 * fm + fb);
        integral += simpson.run(a, b, fa, fm, fb, whole, tolerance / kSimpsonPanels, kSimpsonDepth);
    }
    area = integral / 2;
    return simpson.defined;
}

}  // namespace curvemill
