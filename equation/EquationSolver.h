// Solving F(x, y) = 0 over a grid: exact grid points, then sign changes along y and along x,
// refined by bisection.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

#include "equation/EquationCurve.h"

namespace curvemill {

class Formula;

// A bisection gives up, without a solution, once either half is narrower than this.
inline constexpr double kEquationBisectionWidth = 1e-12;

// The most solution points a run keeps, 16 bytes each (16 MB). An equation that holds on a whole
// region (x-x, or sin(x*y*1000) on a fine grid) has a solution at nearly every grid point, and a
// 20000 x 20000 grid would otherwise store 400 million of them. A real curve on the finest grid
// has a few hundred thousand. The run ends where the bound is reached, with what it has
// (curve.truncated set and said: solutionLimitText).
inline constexpr std::int32_t kMostSolutions = 1'000'000;

// Said on the status line and by the command line when a run stopped at kMostSolutions.
std::string solutionLimitText();

// Solves the prepared two-variable slot of `formula` over `grid`. `keepRunning` is tested before
// every evaluation; when it is cleared the run returns false and `curve` is untouched. A completed
// run replaces curve's solutions (sorted by x, at most kMostSolutions), Y range and grid and
// returns true; `progress`
// (may be empty) hears the percentage of rows done.
bool solveEquation(Formula& formula, const EquationGrid& grid, const std::atomic<bool>& keepRunning,
                   EquationWork& work, EquationCurve& curve,
                   const std::function<void(int percent)>& progress = {});

}  // namespace curvemill
