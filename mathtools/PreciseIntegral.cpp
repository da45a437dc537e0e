#include "mathtools/PreciseIntegral.h"

#include <cmath>

#include "engine/Formula.h"
#include "graph2d/SampledFunction.h"
#include "mathtools/CurveRecords.h"
#include "mathtools/MathTexts.h"
#include "mathtools/RefinementPool.h"

namespace curvemill {

namespace {

// Refines one interval at a time into a chain of pool nodes, adding the trapezoids of each
// finished left part at once so that the chain stays as short as the recursion is deep.
class Refinement {
  public:
    Refinement(Formula& formula, const SamplingControl& control, double& sum)
        : formula_(formula), control_(control), f_(formula, kFunctionSlot), sum_(sum) {}

    // Adds the integral over [x0, x1] to the sum; false when stopped.
    bool refineInterval(double x0, double y0, double x1, double y1) {
        pool_[RefinementPool::kLeftEnd] = {x0, y0, true, RefinementPool::kRightEnd};
        pool_[RefinementPool::kRightEnd] = {x1, y1, true, -1};
        head_ = RefinementPool::kLeftEnd;
        if (!refinePair(RefinementPool::kLeftEnd, RefinementPool::kRightEnd)) {
            return false;
        }
        consumeUpTo(RefinementPool::kRightEnd);
        return true;
    }

    void reset() { pool_.reset(); }
    bool cut() const { return evaluations_ >= kMostRefinementEvaluations; }

  private:
    bool refinePair(int left, int right) {
        const RefinementNode l = pool_[left];
        const RefinementNode r = pool_[right];
        if (cut()) {
            return true;
        }
        ++evaluations_;
        const double xm = (l.x + r.x) / 2;
        const FunctionValue m = f_(xm);
        if (stopRequested(control_, formula_)) {
            return false;
        }
        // A midpoint without a value cannot refine anything: the chord of the pair stands.
        if (m.indefinite || std::fabs(m.value - (l.y + r.y) / 2) < kChordTolerance || xm == l.x ||
            xm == r.x) {
            return true;
        }
        const int node = pool_.take();
        if (node < 0) {
            return true;
        }
        pool_[node] = {xm, m.value, true, right};
        pool_[left].next = node;
        if (!refinePair(left, node)) {
            return false;
        }
        consumeUpTo(node);
        return refinePair(node, right);
    }

    // Adds the trapezoids of the chain from its head to `node` and frees the nodes passed.
    void consumeUpTo(int node) {
        int k = head_;
        while (k != node && k >= 0) {
            const RefinementNode& a = pool_[k];
            const RefinementNode& b = pool_[a.next];
            sum_ += 0.5 * (b.x - a.x) * (b.y + a.y);
            const int next = a.next;
            pool_.release(k);
            k = next;
        }
        head_ = node;
    }

    Formula& formula_;
    const SamplingControl& control_;
    CurveFunction f_;
    double& sum_;
    RefinementPool pool_;
    int head_ = RefinementPool::kLeftEnd;
    long evaluations_ = 0;
};

}  // namespace

bool integratePrecise(const Curve& curve, Formula& formula, IntegralState& state,
                      const SamplingControl& control) {
    const PlotPoint* p = curve.points.data();
    const CurveFunction f(formula, kFunctionSlot);
    const double a = state.begin;
    const double b = state.end;
    const double fa = f(a).value;
    const double fb = f(b).value;
    const int first = state.firstIndex;
    const int last = state.lastIndex;
    state.value = 0.0;
    state.resultText.clear();
    state.refinementCut = false;
    ProgressTracker progress(control, a, b);
    Refinement refinement(formula, control, state.value);
    refinement.reset();

    // Each finished interval moves the progress on; a stopped one does not.
    const auto refine = [&](double x0, double y0, double x1, double y1) {
        if (!refinement.refineInterval(x0, y0, x1, y1)) {
            return false;
        }
        progress.report(x1);
        return true;
    };
    bool completed = true;
    if (!state.hasSamplesInside(recordCount(curve))) {
        // No sample inside [a, b]: the interval is refined as one.
        completed = refine(a, fa, b, fb);
    } else {
        completed = refine(a, fa, p[first].x, p[first].y);
        for (int i = first + 1; completed && i <= last; ++i) {
            completed = refine(p[i - 1].x, p[i - 1].y, p[i].x, p[i].y);
        }
        completed = completed && refine(p[last].x, p[last].y, b, fb);
    }
    if (!completed) {
        state.value = 0.0;
        return false;
    }
    state.refinementCut = refinement.cut();
    state.resultText = integralText(a, b, state.value);
    return true;
}

}  // namespace curvemill
