// Surfaces for the tests: computed from a formula, or laid out by hand.
#pragma once

#include <atomic>
#include <string>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"
#include "graph3d/SurfaceCompute.h"
#include "graph3d/SurfaceScene.h"

namespace curvemill {

inline void setDomain(SurfaceGrid& grid, double x0, double x1, double y0, double y1) {
    grid.xBegin = x0;
    grid.xEnd = x1;
    grid.yBegin = y0;
    grid.yEnd = y1;
}

// Computes `text` over the domain with n x n intervals and, when done, readies the figure.
inline SurfaceOutcome computeFor(SurfaceScene& scene, const std::string& text, double x0, double x1,
                                 double y0, double y1, std::atomic<bool>* keep = nullptr,
                                 int n = 100) {
    Formula formula;
    if (!prepareFormula(formula, text, kModeTwoVariables)) {
        return SurfaceOutcome::NoMemory;
    }
    setDomain(scene.grid, x0, x1, y0, y1);
    scene.grid.requestedNx = scene.grid.requestedNy = n;
    std::atomic<bool> always{true};
    const SurfaceOutcome outcome =
        computeSurface(formula, scene.grid, {}, keep != nullptr ? *keep : always);
    if (outcome == SurfaceOutcome::Done) {
        startNewFigure(scene);
        scene.complete = true;
    }
    return outcome;
}

}  // namespace curvemill
