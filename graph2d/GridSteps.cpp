#include "graph2d/GridSteps.h"

#include <algorithm>
#include <cmath>

#include "engine/DisplayFormat.h"

namespace curvemill {

namespace {

constexpr int kNearestPixels = 60;
constexpr int kFarthestPixels = 200;

// The chain compares each candidate with the one before it, not with the best so far, and a tie
// keeps the earlier one. The result is not always the nearest candidate; that is intended.
double chain(double raw, double c0, double c1, double c2, double c3) {
    double step = c0;
    if (std::fabs(raw - c1) < std::fabs(raw - c0)) {
        step = c1;
    }
    if (std::fabs(raw - c2) < std::fabs(raw - c1)) {
        step = c2;
    }
    if (std::fabs(raw - c3) < std::fabs(raw - c2)) {
        step = c3;
    }
    return step;
}

void addStepsForSpan(std::vector<double>& list, double span, double unit, bool downward) {
    if (!(span > 0.0) || !std::isfinite(span)) {
        return;
    }
    for (int i = 0; i < kFarthestPixels - kNearestPixels; ++i) {
        const int k = downward ? kFarthestPixels - i : kNearestPixels + i;
        const double step = tidyStep(k / span, unit);
        if (!(step > 0.0) || !std::isfinite(step)) {
            continue;
        }
        if (std::find(list.begin(), list.end(), step) == list.end()) {
            list.push_back(step);
        }
    }
}

double firstOr(const std::vector<double>& list, double fallback) {
    return list.empty() ? fallback : list.front();
}

}  // namespace

double tidyStep(double raw, double unit) {
    if (raw == unit) {
        return raw;
    }
    double p = unit;
    if (raw < unit) {
        while (raw < p && p > 0.0) {
            p /= 10;
        }
        p *= 10;
        return chain(raw, p, p / 2, p / 5, p / 10);
    }
    while (p < raw && std::isfinite(p)) {
        p *= 10;
    }
    p /= 10;
    return chain(raw, p, 2 * p, 5 * p, 10 * p);
}

void chooseGridSteps(GraphView& view) {
    for (auto& list : view.stepCandidates) {
        list.clear();
    }
    const double base = view.baseScale();
    const struct {
        StepKey key;
        double span;
    } keys[] = {
        {kStepX, base},
        {kStepY, base},
        {kStepZ, base},
        {kStepZoomedX, base * view.xZoom},
        {kStepZoomedY, base * view.yZoom},
    };
    for (const auto& [key, span] : keys) {
        addStepsForSpan(view.stepCandidates[key], span, 1.0, view.threeDShown);
        addStepsForSpan(view.stepCandidates[key + 1], span, kPi, view.threeDShown);
    }
    view.gridStepX = firstOr(view.stepCandidates[kStepZoomedX + (view.piUnitsX ? 1 : 0)], -1.0);
    view.gridStepY = firstOr(view.stepCandidates[kStepZoomedY + (view.piUnitsY ? 1 : 0)], -1.0);
    view.gridStepZ = firstOr(view.stepCandidates[kStepZ + (view.piUnitsZ ? 1 : 0)], -1.0);
}

void resetGridSteps(GraphView& view) {
    view.gridStepX = -1.0;
    view.gridStepY = -1.0;
    chooseGridSteps(view);
}

void ensureGridSteps(GraphView& view) {
    if (view.gridStepX == -1.0 || view.gridStepY == -1.0) {
        chooseGridSteps(view);
    }
}

}  // namespace curvemill
