// Solving F(x, y) = 0 over a grid: exact grid points, then sign changes along y and along x,
// refined by bisection.
#pragma once

#include <atomic>
#include <functional>

#include "equation/EquationCurve.h"

namespace curvemill {

class Formula;

// A bisection gives up, without a solution, once either half is narrower than this.
inline constexpr double kEquationBisectionWidth = 1e-12;

// Solves the prepared two-variable slot of `formula` over `grid`. `keepRunning` is tested before
// every evaluation; when it is cleared the run returns false and `curve` is untouched. A completed
// run replaces curve's solutions (sorted by x), Y range and grid and returns true; `progress`
// (may be empty) hears the percentage of rows done.
bool solveEquation(Formula& formula, const EquationGrid& grid, const std::atomic<bool>& keepRunning,
                   EquationWork& work, EquationCurve& curve,
                   const std::function<void(int percent)>& progress = {});

}  // namespace curvemill
