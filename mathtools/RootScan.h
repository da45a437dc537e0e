// The root scan of the equation slot: every x of the range where F(x, y) = 0 for a fixed y, or
// every y for a fixed x.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "graph2d/SamplingControl.h"

namespace curvemill {

class Formula;

enum class RootKind {
    kX,  // scan x over [xBegin, xEnd] with y fixed, in xSteps steps
    kY,  // scan y over [yBegin, yEnd] with x fixed, in ySteps steps
};

// How finely the scan looks: grid steps along each axis and the tolerance 10^-precisionExponent.
struct RootScanSettings {
    int xSteps = 500;
    int ySteps = 500;
    int precisionExponent = 5;
};

// The visible range of the graph the scan covers.
struct RootRange {
    double xBegin = -10.0;
    double xEnd = 10.0;
    double yBegin = -10.0;
    double yEnd = 10.0;
};

// Bisection gives up, without a solution, once either half is narrower than this.
inline constexpr double kBisectionWidth = 1e-12;

struct RootScanResult {
    // In the order found. A root caught by the tolerance at a grid point and again by the
    // bisection after it is listed twice, deliberately.
    std::vector<double> solutions;
    // False when stopped; the solutions found so far are kept.
    bool completed = true;
};

// Scans slot 4 as `settings` say. Reports progress in whole percent of the scanned range and
// polls the stop (control.stopRequested or formula.keepComputing) at every grid point and
// bisection step.
RootScanResult findRoots(Formula& formula, RootKind kind, double fixedValue, const RootRange& range,
                         const SamplingControl& control, const RootScanSettings& settings = {});

// The Information dialog's test of the typed fixed value: a y outside [yBegin, yEnd] gives
// "Y IS OUTSIDE THE CURRENTLY SELECTED RANGE:\n" with the range, an x outside [xBegin, xEnd]
// "X IS OUTSIDE THE RANGE OF FUNCTION".
std::optional<std::string> rootValueRefusal(RootKind kind, double fixedValue,
                                            const RootRange& range);

// The list's lines: "%.15f" each, or "pi*%g" of the value / pi in pi units.
std::vector<std::string> solutionTexts(const std::vector<double>& solutions, bool piUnits);

}  // namespace curvemill
