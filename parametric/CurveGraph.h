// A parametric or polar curve on the 2D view: what was typed, its range of t and its points.
#pragma once

#include <string>
#include <vector>

#include "graph2d/SamplingControl.h"
#include "parametric/PlaneCurve.h"

namespace curvemill {

class Formula;

struct CurveGraph {
    CurveForm form = CurveForm::Parametric;
    // As typed: x(t) or r(t), then y(t) (empty for a polar curve).
    std::string firstText;
    std::string secondText;
    double tBegin = 0.0;
    double tEnd = 1.0;
    int startPoints = 100000;
    // Drawn with a small arrow at its start that shows which way t runs (a display option).
    bool arrow = true;
    std::vector<CurvePoint> points;
    // The sampling spent its budget before every step was straight.
    bool budgetMet = false;

    bool exists() const { return !points.empty(); }
    // "x = f(t), y = g(t)" or "r = f(t)" with the formulas as typed.
    std::string title() const;
};

struct CurveBox {
    double xMin = -1.0;
    double xMax = 1.0;
    double yMin = -1.0;
    double yMax = 1.0;
};

// The box a new view shows: all of the curve, except where it runs off toward infinity (a pole):
// on each axis the values far beyond the bulk of the points (the middle 90 %) are left out. A
// curve that is a point or a straight line along an axis gets a box as wide as it is long.
CurveBox viewBox(const std::vector<CurvePoint>& points);

// The view a first sampling refines for: the curve fitted at equal scales into this many device
// pixels.
inline constexpr int kFirstViewWidth = 1920;
inline constexpr int kFirstViewHeight = 1080;

// Samples the prepared formulas over graph.tBegin..tEnd into graph.points (on the worker): once
// evenly to learn the curve's size, then refined for a view of that size. False when stopped;
// the graph's points are then left as they were.
bool runCurve(Formula& formula, CurveGraph& graph, const SamplingControl& control);

}  // namespace curvemill
