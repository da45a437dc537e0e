#include "graph2d/CurveSampler.h"

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "engine/Formula.h"
#include "graph2d/EdgeSearch.h"
#include "graph2d/EvenSampler.h"
#include "graph2d/PointStore.h"
#include "graph2d/SampledFunction.h"
#include "graph2d/TurningPointRefiner.h"

namespace curvemill {

namespace {

constexpr double kJump = 5000.0;
constexpr double kHuge = 1e100;
constexpr double kPeakMargin = 1e-8;

// One sampling run over [xBegin, xEnd]; it writes into the graph's sampling records, not the
// curve's, so that a stopped run leaves the curve on screen untouched. It owns nothing (see
// PointStore).
class SamplingRun {
  public:
    SamplingRun(TwoDGraph& graph, Formula& formula, const SamplingControl& control)
        : formula_(formula),
          control_(control),
          f_(formula, graph.computingSecond ? kSecondFunctionSlot : kFunctionSlot),
          xBegin_(graph.xBegin),
          xEnd_(graph.xEnd),
          n_(graph.pointsPerRun > 0 ? graph.pointsPerRun : 1),
          drawStep_(graph.drawStep > 0 ? graph.drawStep : 1),
          yLimit_((graph.xEnd - graph.xBegin) * graph.maxYRatio),
          // Each pass stores at most two records (a refined pair, or an edge and a point); the
          // loop may make a pass or two more than N, and the final record comes after it.
          store_(graph.samplingRecords, 2 * static_cast<std::size_t>(n_) + 8),
          progress_(control, graph.xBegin, graph.xEnd) {}

    bool run();
    PointStore& store() { return store_; }
    const YExtent& extent() const { return extent_; }

  private:
    void sampleIndefinite(double x);
    void storeEdgeBefore(double x, double y);
    void refineTurn(double x, double dx, bool risingNow);
    void storeRegular(double x, double y, long pass);
    PeakKind peakKindOf(double y);

    Formula& formula_;
    const SamplingControl& control_;
    CurveFunction f_;
    double xBegin_;
    double xEnd_;
    int n_;
    int drawStep_;
    // Edge searches stop once the curve is this far from the axis: it leaves the view anyway.
    double yLimit_;
    PointStore store_;
    ProgressTracker progress_;
    YExtent extent_;
    // Index of the first record of the last refined pair: peakKindOf looks back no further.
    int lastPair_ = 0;
};

bool SamplingRun::run() {
    const double dx = static_cast<double>((static_cast<long double>(xEnd_) - xBegin_) /
                                          static_cast<long double>(n_));
    // A range that is not a pair of ordinary numbers would never end the stepping loop.
    const bool ordinary = std::isfinite(xBegin_) && std::isfinite(xEnd_) && xBegin_ < xEnd_;
    if (!ordinary || !(xEnd_ - dx < xEnd_)) {
        return sampleEvenly(f_, xBegin_, xEnd_, n_, store_, extent_, progress_, control_, formula_);
    }
    double previousY = -1e10;
    bool rising = true;
    int turns = 0;
    long pass = 0;
    // Rounding in x += dx may add a pass; the bound only guards the room of the store.
    const long lastPass = static_cast<long>(n_) + 2;
    for (double x = xBegin_; x <= xEnd_ && pass <= lastPass; x += dx, ++pass) {
        progress_.report(x);
        if (stopRequested(control_, formula_)) {
            return false;
        }
        const FunctionValue v = f_(x);
        if (v.indefinite) {
            sampleIndefinite(x);
            continue;
        }
        const double y = v.value;
        if (!store_.empty() && store_.back().isIndefinite) {
            storeEdgeBefore(x, y);
        }
        const bool risingNow = y == previousY ? rising : y >= previousY;
        previousY = y;
        extent_.take(y);

        const PlotPoint* twoBack = store_.fromEnd(2);
        if (risingNow == rising || x - 2 * dx < xBegin_ || !twoBack || twoBack->isIndefinite) {
            turns = 0;
            storeRegular(x, y, pass);
        } else if (++turns != 2) {
            refineTurn(x, dx, risingNow);
        }
        rising = risingNow;
    }
    const FunctionValue last = f_(xEnd_);
    store_.push(xEnd_, last.value, last.indefinite);
    // The final record is drawn like any other, so it counts for the Y range too.
    extent_.take(last);
    return true;
}

void SamplingRun::sampleIndefinite(double x) {
    if (!store_.empty() && !store_.back().isIndefinite) {
        const PlotPoint& lastDefined = store_.back();
        const EdgePoint edge = findEdge(f_, {lastDefined.x, lastDefined.y}, x, yLimit_, extent_);
        // When the search found nothing beyond the defined sample, storing it again would give
        // two records at one x, which the drawing and the math tools take as a zero-width step.
        if (edge.x != lastDefined.x) {
            store_.push(edge.x, edge.y, false);
        }
        // The curve is drawn through vertices only: the last defined record before the gap is
        // one, so that the line reaches the edge.
        store_.back().isVertex = 1;
    }
    store_.push(x, 0.0, true);
}

void SamplingRun::storeEdgeBefore(double x, double y) {
    const double indefiniteX = store_.back().x;
    const EdgePoint edge = findEdge(f_, {x, y}, indefiniteX, yLimit_, extent_);
    // No second record at x itself when nothing lies between it and the indefinite sample.
    if (edge.x != x) {
        store_.push(edge.x, edge.y, false);
    }
}

void SamplingRun::refineTurn(double x, double dx, bool risingNow) {
    const double a = store_.count() >= 3 ? store_.fromEnd(2)->x : x - 2 * dx;
    const double b = x;
    // Falling after rising means a maximum lies behind x.
    const Extreme kind = risingNow ? Extreme::kMinimum : Extreme::kMaximum;
    const auto [x1, x2] = refineTurningPair(f_, a, b, kind, extent_);
    const FunctionValue v1 = f_(x1);
    const FunctionValue v2 = f_(x2);
    // yMin/yMax cover every record stored, the refined pair and the third record included: the
    // view's Y range is taken from them, and a refined top left out would be cut off the view.
    extent_.take(v1);
    extent_.take(v2);

    const bool threeBackIndefinite = store_.fromEnd(3) && store_.fromEnd(3)->isIndefinite;
    const PeakKind peak = v1.indefinite ? kOrdinaryPoint : peakKindOf(v1.value);

    PlotPoint& first = store_.back();
    first = PlotPoint{};
    first.x = x1;
    first.y = v1.value;
    first.isIndefinite = v1.indefinite ? 1 : 0;
    PlotPoint* second = store_.push(x2, v2.value, v2.indefinite);
    if (second && !v1.indefinite && !v2.indefinite) {
        // Signed on purpose: a pair far below the axis (-1e200 (x^2 + 1)) is still a turning
        // point; only a pair that has run off upwards is taken for a pole.
        const bool bothHuge = v1.value > kHuge && v2.value > kHuge;
        if (std::fabs(v2.value - v1.value) <= kJump && !bothHuge) {
            first.peakKind = peak;
            second->peakKind = peak;
        } else if (!threeBackIndefinite) {
            first.isBreak = 1;
            second->isBreak = 1;
            first.isVertex = 1;
        }
    }
    lastPair_ = store_.count() - 2;
    const double x3 = x2 + (x1 - a);
    const FunctionValue v3 = f_(x3);
    store_.push(x3, v3.value, v3.indefinite);
    extent_.take(v3);
}

// Whether a refined turning point at height y is a maximum or a minimum, from the records before
// it (the last one stored is the turning point's own, about to be overwritten). The record just
// before may lie within 1e-8 of the turning point when the samples are dense (sin at 100,000
// points: 2e-4 apart, 2e-8 below its top), so the nearest earlier record that differs by more
// than 1e-8 decides. The search stops at an indefinite record and at the previous refined pair
// (whose own records still count): a smooth curve is monotonic between two turning points, so
// the answer lies there if anywhere, a stretch that is flat to 1e-8 since the last turn stays
// unmarked, and the look-back costs no more than the records between turns.
PeakKind SamplingRun::peakKindOf(double y) {
    for (int i = store_.count() - 2; i >= 0 && i >= lastPair_; --i) {
        const PlotPoint& p = store_[i];
        if (p.isIndefinite) {
            break;
        }
        if (y > p.y + kPeakMargin) {
            return kRefinedMaximum;
        }
        if (y < p.y - kPeakMargin) {
            return kRefinedMinimum;
        }
    }
    return kOrdinaryPoint;
}

void SamplingRun::storeRegular(double x, double y, long pass) {
    if (!store_.empty() && x < store_.back().x && !store_.back().isIndefinite) {
        return;
    }
    // The first record after a gap stays a vertex (the edge search may have found nothing closer
    // to the gap than this sample), so that the line starts at the edge.
    const bool afterGap = !store_.empty() && store_.back().isIndefinite;
    PlotPoint* p = store_.push(x, y, false);
    if (p && pass % drawStep_ != 0 && !afterGap) {
        p->isVertex = 0;
    }
}

}  // namespace

DefinedSpan findDefinedSpan(const Curve& curve, double xBegin, double xEnd) {
    const PlotPoint* p = curve.points.data();
    const int count = curve.points.empty() ? 0 : curve.pointCount;
    const auto flagged = [p](int i) { return p[i].isIndefinite || p[i].isBreak; };
    int i = 0;
    while (i < count && !flagged(i)) {
        ++i;
    }
    if (i == count) {
        return {xBegin, xEnd};
    }
    if (i > 0) {
        return {xBegin, p[i - 1].x};
    }
    int j = 0;
    while (j < count && flagged(j)) {
        ++j;
    }
    if (j == count) {
        return {xEnd, xEnd};
    }
    int k = j;
    while (k < count && !flagged(k)) {
        ++k;
    }
    return {p[j].x, k < count ? p[k - 1].x : xEnd};
}

// A fault on the worker leaves the run by a jump that runs no destructor; a run with nothing to
// destroy loses nothing that way.
static_assert(std::is_trivially_destructible_v<SamplingRun>);

bool sampleCurve(TwoDGraph& graph, Formula& formula, const SamplingControl& control) {
    SamplingRun run(graph, formula, control);
    Curve& curve = graph.computingSecond ? graph.second : graph.main;
    if (!run.run()) {
        if (graph.computingSecond) {
            graph.second.release();
        }
        return false;
    }
    curve.pointCount = run.store().count();
    curve.points.swap(graph.samplingRecords);
    curve.yMin = run.extent().yMin;
    curve.yMax = run.extent().yMax;
    graph.definedSpan = findDefinedSpan(curve, graph.xBegin, graph.xEnd);
    graph.dependentName.assign(1, 'y');
    return true;
}

}  // namespace curvemill
