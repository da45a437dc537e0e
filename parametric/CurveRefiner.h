// Samples a plane curve for the 2D view: evenly spaced t first, then each step halved while the
// curve between its ends is not straight to a quarter of a device pixel. Runs on the worker.
#pragma once

#include <vector>

#include "graph2d/SamplingControl.h"
#include "parametric/PlaneCurve.h"

namespace curvemill {

struct RefineSettings {
    double tBegin = 0.0;
    double tEnd = 1.0;
    // Evenly spaced starting values of t, both ends included; at least 2.
    int startPoints = 1000;
    // Size of one device pixel in the curve's units, across and up the view.
    double xPerPixel = 1.0;
    double yPerPixel = 1.0;
    // How often a starting step may be halved.
    int depthLimit = 18;
    // Evaluations of the curve the whole run may spend; past it, steps are drawn as they are.
    long long budget = 4'000'000;
};

struct CurveSampling {
    std::vector<CurvePoint> points;
    long long evaluations = 0;
    // The budget ran out before every step was straight.
    bool budgetMet = false;
    // Stop was pressed: the points so far are kept.
    bool stopped = false;
};

// The records are written into `storage`, emptied first: the points of an earlier pass given
// back here spare the memory of a new list, megabytes that cost a page fault every 4 KiB.
CurveSampling refineCurve(const CurveAt& curve, const RefineSettings& settings,
                          const SamplingControl& control, std::vector<CurvePoint> storage = {});

// Device pixel sizes that fit the curve's points into a view of `width` x `height` pixels at
// equal scales, for a first sampling when no view exists yet.
void fitPixelSize(const std::vector<CurvePoint>& points, int width, int height,
                  RefineSettings& settings);

}  // namespace curvemill
