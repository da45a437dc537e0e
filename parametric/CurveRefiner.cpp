#include "parametric/CurveRefiner.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "output/LargeMemory.h"

namespace curvemill {

namespace {

// How far from straight a step may be, in device pixels.
constexpr double kTolerance = 0.25;
// At the depth limit a step whose chord is longer than this and did not shrink with the last
// halving jumps: the curve went to infinity and came back from the other side.
constexpr double kJumpPixels = 2.0;
constexpr double kShrinkRatio = 0.7;
// Halvings of a step toward the end of a defined stretch: a double's mantissa and some.
constexpr int kEdgeHalvings = 64;

class Refiner {
  public:
    Refiner(const CurveAt& curve, const RefineSettings& settings, CurveSampling& out)
        : curve_(curve), settings_(settings), out_(out) {}

    bool at(double t, CurveXY& p) {
        ++out_.evaluations;
        return curve_(t, p);
    }

    void emit(double t, CurveXY p) {
        out_.points.push_back({t, p.x, p.y, static_cast<std::uint8_t>(breakNext_ ? 1 : 0)});
        breakNext_ = false;
    }
    void breakHere() { breakNext_ = true; }

    // The last t with a point between `t` (which has one) and `missing` (which has none).
    double edge(double t, CurveXY& p, double missing) {
        for (int n = 0; n < kEdgeHalvings; ++n) {
            const double middle = 0.5 * (t + missing);
            if (middle == t || middle == missing) {
                break;
            }
            CurveXY q;
            if (at(middle, q)) {
                t = middle;
                p = q;
            } else {
                missing = middle;
            }
        }
        return t;
    }

    // Emits the curve after (ta, a) up to and including (tb, b); both have points. The chord's
    // length is worked out only where it is used: most steps are straight at the first look.
    void refine(double ta, CurveXY a, double tb, CurveXY b, int depth, double parentChord) {
        const double tm = 0.5 * (ta + tb);
        if (out_.evaluations >= settings_.budget) {
            out_.budgetMet = true;
            emit(tb, b);
            return;
        }
        if (depth >= settings_.depthLimit || tm == ta || tm == tb) {
            // Under a starting step (no parent) nothing can have failed to shrink.
            if (std::isfinite(parentChord)) {
                const double chord = pixels(a, b);
                if (chord > kJumpPixels && chord > kShrinkRatio * parentChord) {
                    breakHere();
                }
            }
            emit(tb, b);
            return;
        }
        CurveXY m;
        if (!at(tm, m)) {
            // No value inside the step: end this stretch at its edge, begin the next at the
            // other edge.
            const double chord = pixels(a, b);
            CurveXY left = a;
            const double tl = edge(ta, left, tm);
            if (tl != ta) {
                refine(ta, a, tl, left, depth + 1, chord);
            }
            breakHere();
            CurveXY right = b;
            const double tr = edge(tb, right, tm);
            emit(tr, right);
            if (tr != tb) {
                refine(tr, right, tb, b, depth + 1, chord);
            }
            return;
        }
        if (offSegment(a, m, b) <= kTolerance) {
            emit(tb, b);
            return;
        }
        const double chord = pixels(a, b);
        refine(ta, a, tm, m, depth + 1, chord);
        refine(tm, m, tb, b, depth + 1, chord);
    }

  private:
    double pixels(CurveXY a, CurveXY b) const {
        return std::hypot((b.x - a.x) / settings_.xPerPixel, (b.y - a.y) / settings_.yPerPixel);
    }

    // Pixels from m to the segment a-b: to the segment, not its line, so that a middle beyond
    // either end (a pole between a and b) is never taken for straight.
    double offSegment(CurveXY a, CurveXY m, CurveXY b) const {
        const double bx = (b.x - a.x) / settings_.xPerPixel, by = (b.y - a.y) / settings_.yPerPixel;
        const double mx = (m.x - a.x) / settings_.xPerPixel, my = (m.y - a.y) / settings_.yPerPixel;
        const double length2 = bx * bx + by * by;
        const double s = length2 > 0 ? std::clamp((mx * bx + my * by) / length2, 0.0, 1.0) : 0.0;
        const double d = std::hypot(mx - s * bx, my - s * by);
        return std::isfinite(d) ? d : std::numeric_limits<double>::infinity();
    }

    const CurveAt& curve_;
    const RefineSettings& settings_;
    CurveSampling& out_;
    bool breakNext_ = true;
};

}  // namespace

CurveSampling refineCurve(const CurveAt& curve, const RefineSettings& settings,
                          const SamplingControl& control, std::vector<CurvePoint> storage) {
    CurveSampling out;
    out.points = std::move(storage);
    out.points.clear();
    const int count = std::max(settings.startPoints, 2);
    out.points.reserve(static_cast<std::size_t>(count));
    adviseHugePages(out.points.data(), out.points.capacity() * sizeof(CurvePoint));
    Refiner refiner(curve, settings, out);
    const double span = settings.tEnd - settings.tBegin;
    const auto startT = [&](int k) {
        return k == count - 1 ? settings.tEnd : settings.tBegin + span * k / (count - 1);
    };
    double ta = startT(0);
    CurveXY a;
    bool hasA = refiner.at(ta, a);
    if (hasA) {
        refiner.emit(ta, a);
    }
    int lastPercent = -1;
    const double inf = std::numeric_limits<double>::infinity();
    for (int k = 1; k < count; ++k) {
        if (control.stopRequested != nullptr && control.stopRequested->load()) {
            out.stopped = true;
            break;
        }
        const double tb = startT(k);
        CurveXY b;
        const bool hasB = refiner.at(tb, b);
        if (hasA && hasB) {
            refiner.refine(ta, a, tb, b, 0, inf);
        } else if (hasA) {
            CurveXY edge = a;
            const double te = refiner.edge(ta, edge, tb);
            if (te != ta) {
                refiner.refine(ta, a, te, edge, 1, inf);
            }
            refiner.breakHere();
        } else if (hasB) {
            CurveXY edge = b;
            const double te = refiner.edge(tb, edge, ta);
            refiner.breakHere();
            refiner.emit(te, edge);
            if (te != tb) {
                refiner.refine(te, edge, tb, b, 1, inf);
            }
        }
        ta = tb;
        a = b;
        hasA = hasB;
        const int percent = static_cast<int>(100LL * k / (count - 1));
        if (control.progress && percent != lastPercent) {
            lastPercent = percent;
            control.progress(percent);
        }
    }
    return out;
}

void fitPixelSize(const std::vector<CurvePoint>& points, int width, int height,
                  RefineSettings& settings) {
    const double inf = std::numeric_limits<double>::infinity();
    double xMin = inf, xMax = -inf, yMin = inf, yMax = -inf;
    for (const CurvePoint& p : points) {
        xMin = std::min(xMin, p.x);
        xMax = std::max(xMax, p.x);
        yMin = std::min(yMin, p.y);
        yMax = std::max(yMax, p.y);
    }
    double size = 1.0;
    if (xMin <= xMax) {
        size = std::max((xMax - xMin) / std::max(width, 1), (yMax - yMin) / std::max(height, 1));
    }
    if (!(size > 0.0) || !std::isfinite(size)) {
        size = 1.0;
    }
    settings.xPerPixel = size;
    settings.yPerPixel = size;
}

}  // namespace curvemill
