// Surfaces for the tests: computed from a formula, or laid out by hand.
#pragma once

#include <atomic>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"
#include "graph3d/SurfaceCompute.h"
#include "graph3d/SurfaceDrawing.h"
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
                                 int n = 100, const std::function<void(int)>& progress = {}) {
    Formula formula;
    if (!prepareFormula(formula, text, FormulaMode::TwoVariables)) {
        return SurfaceOutcome::NoMemory;
    }
    setDomain(scene.grid, x0, x1, y0, y1);
    scene.grid.requestedNx = scene.grid.requestedNy = n;
    std::atomic<bool> always{true};
    const SurfaceOutcome outcome =
        computeSurface(formula, scene.grid, progress, keep != nullptr ? *keep : always);
    if (outcome == SurfaceOutcome::Done) {
        startNewFigure(scene);
        scene.complete = true;
    }
    return outcome;
}

// The grid of the box -1..1 on every axis, centred on the origin, with no vertices.
inline SurfaceGrid cubeGrid() {
    SurfaceGrid grid;
    grid.xBegin = grid.yBegin = grid.zLow = -1;
    grid.xEnd = grid.yEnd = grid.zHigh = 1;
    grid.xc = grid.yc = grid.zc = 0;
    return grid;
}

inline double distance(Vec3 a, Vec3 b) {
    return std::sqrt(dot(a - b, a - b));
}

// Keeps what a drawing hands over, in order.
struct RecordingSink : SurfaceSink {
    struct Item {
        char kind;  // 'P' polygon, 'L' line, '.' pixel, 'S' square
        std::vector<ScreenPoint> points;
        std::uint32_t colour;
    };
    std::vector<Item> items;
    void polygon(const ScreenPoint* c, int n, std::uint32_t colour) override {
        items.push_back({'P', std::vector<ScreenPoint>(c, c + n), colour});
    }
    void line(ScreenPoint a, ScreenPoint b, std::uint32_t colour) override {
        items.push_back({'L', {a, b}, colour});
    }
    void pixel(ScreenPoint p, std::uint32_t colour) override {
        items.push_back({'.', {p}, colour});
    }
    void square(int l, int t, int r, int b, std::uint32_t colour) override {
        items.push_back({'S', {{l, t}, {r, b}}, colour});
    }
};

}  // namespace curvemill
