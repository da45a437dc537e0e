#include "equation/EquationSolver.h"

#include <algorithm>
#include <cmath>

#include "engine/Formula.h"

namespace curvemill {

void EquationCurve::clear() {
    solutions.clear();
    truncated = false;
    yMin = kNoLowestY;
    yMax = kNoHighestY;
    formulaText.clear();
    shown = false;
}

std::string solutionLimitText() {
    return "the search stopped at " + std::to_string(kMostSolutions) +
           " solution points, the most it keeps: the equation holds on much of the grid";
}

namespace {

class GridWalk {
  public:
    GridWalk(Formula& formula, const EquationGrid& grid, const std::atomic<bool>& keepRunning,
             EquationWork& work)
        : formula_(formula),
          keepRunning_(keepRunning),
          work_(work),
          tolerance_(1.0 / std::pow(10.0, grid.precisionDigits)) {}

    // Whether to go on: not stopped, and room for another solution.
    bool running() const { return keepRunning_.load(std::memory_order_relaxed) && !full(); }
    bool stopped() const { return !keepRunning_.load(std::memory_order_relaxed); }
    bool full() const { return work_.found.size() >= static_cast<std::size_t>(kMostSolutions); }

    // F at (x, y), or nothing usable.
    bool value(double x, double y, double& f) {
        f = formula_.evaluate(x, kTwoVariableSlot, y);
        return !formula_.indefinite && !std::isnan(f);
    }

    bool isSolution(bool defined, double f) const { return defined && std::fabs(f) < tolerance_; }

    // A usable end of a bisection with `f` on its other end: the two have different signs.
    bool signChange(double previous, double f) const {
        return std::fabs(previous) >= tolerance_ && ((previous >= 0) != (f >= 0));
    }

    void record(double x, double y) {
        work_.found.push_back({x, y});
        work_.yMin = std::min(work_.yMin, y);
        work_.yMax = std::max(work_.yMax, y);
    }

    // Halves [lo, hi] along y (alongY) or along x, the other coordinate fixed at `fixed`, where
    // F(lo) is `fLo` and F(hi) has the other sign. A midpoint where F is indefinite cannot be an
    // end, so the search gives up there. Ends at once when stopped or full.
    void bisect(bool alongY, double fixed, double lo, double hi, double fLo) {
        for (;;) {
            if (!running()) {
                return;
            }
            const double mid = (lo + hi) / 2;
            if (mid - lo < kEquationBisectionWidth || hi - mid < kEquationBisectionWidth) {
                return;
            }
            double f = 0.0;
            const bool defined = alongY ? value(fixed, mid, f) : value(mid, fixed, f);
            if (!defined) {
                return;
            }
            if (std::fabs(f) < tolerance_) {
                if (alongY) {
                    record(fixed, mid);
                } else {
                    record(mid, fixed);
                }
                return;
            }
            if ((f >= 0) == (fLo >= 0)) {
                lo = mid;
                fLo = f;
            } else {
                hi = mid;
            }
        }
    }

  private:
    Formula& formula_;
    const std::atomic<bool>& keepRunning_;
    EquationWork& work_;
    double tolerance_;
};

}  // namespace

bool solveEquation(Formula& formula, const EquationGrid& grid, const std::atomic<bool>& keepRunning,
                   EquationWork& work, EquationCurve& curve,
                   const std::function<void(int percent)>& progress) {
    const double dy = (grid.yEnd - grid.yBegin) / grid.ySteps;
    const double dx = (grid.xEnd - grid.xBegin) / grid.xSteps;
    work.found.clear();
    work.yMin = kNoLowestY;
    work.yMax = kNoHighestY;
    const std::size_t columns = static_cast<std::size_t>(std::max(grid.xSteps, 0)) + 3;
    work.previousRow.assign(columns, 0.0);
    double* const previous = work.previousRow.data();

    GridWalk walk(formula, grid, keepRunning, work);
    const double rows = std::max(1.0, static_cast<double>(grid.ySteps) + 1.0);
    int row = 0;
    // Steps are accumulated, as the ranges are walked; a step too small to move the coordinate on
    // ends the walk instead of going round for ever.
    for (double y = grid.yBegin; y <= grid.yEnd; ++row) {
        if (progress) {
            progress(static_cast<int>(row * 100.0 / rows));
        }
        std::size_t column = 0;
        for (double x = grid.xBegin; x <= grid.xEnd && column < columns; ++column) {
            if (!walk.running()) {
                break;
            }
            double f = 0.0;
            const bool defined = walk.value(x, y, f);
            if (walk.isSolution(defined, f)) {
                walk.record(x, y);
            } else if (defined && row != 0 && walk.signChange(previous[column], f)) {
                walk.bisect(true, x, y - dy, y, previous[column]);
            } else if (defined && column != 0 && walk.signChange(previous[column - 1], f)) {
                walk.bisect(false, y, x - dx, x, previous[column - 1]);
            }
            // The value at (x, y - dy) for the next row, and at (x - dx, y) for the next column.
            // A solution's value is below the tolerance, so it can never be a bisection end
            // either way.
            previous[column] = defined ? f : 0.0;
            const double next = x + dx;
            if (!(next > x)) {
                break;
            }
            x = next;
        }
        const double next = y + dy;
        if (!walk.running() || !(next > y)) {
            break;
        }
        y = next;
    }

    if (walk.stopped()) {
        return false;
    }
    curve.truncated = walk.full();
    std::sort(work.found.begin(), work.found.end(),
              [](const SolutionPoint& a, const SolutionPoint& b) { return a.x < b.x; });
    curve.solutions.swap(work.found);
    curve.yMin = work.yMin;
    curve.yMax = work.yMax;
    curve.grid = grid;
    if (progress) {
        progress(100);
    }
    return true;
}

}  // namespace curvemill
