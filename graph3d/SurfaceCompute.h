// Evaluating z = f(x, y) over the grid, sharpening peaks and valleys, and the Z limits.
#pragma once

#include <atomic>
#include <functional>

#include "graph3d/SurfaceGrid.h"

namespace curvemill {

class Formula;

enum class SurfaceOutcome { Done, Stopped, NoMemory };

// Shown when the grid cannot be had.
inline constexpr const char* kNoMemoryMessage = "NOT ENOUGH MEMORY FOR THE SURFACE";

// Evaluates the prepared two-variable slot of `formula` over the grid's domain with
// requestedNx x requestedNy intervals, then applies the Z limits (resetting the step) and sets the
// centre. `progress` gets whole percents of x; `keepComputing` is tested before every vertex. A
// stopped computation leaves the partly filled grid allocated.
SurfaceOutcome computeSurface(Formula& formula, SurfaceGrid& grid,
                              const std::function<void(int percent)>& progress,
                              const std::atomic<bool>& keepComputing);

// The Z-limit step of applyZLimits: the widest band the range allows, or the user's step.
enum class LimitStep { kWidest, kKeep };

// Finds the z range of the defined vertices and limits the shown height.
void applyZLimits(SurfaceGrid& grid, LimitStep step);

}  // namespace curvemill
