// What the Math tools tell of a plane curve: its point and derivatives at one t, the length of an
// arc and the area a closed curve encloses.
#pragma once

#include <vector>

#include "graph2d/SamplingControl.h"
#include "parametric/PlaneCurve.h"

namespace curvemill {

struct CurveLocal {
    bool defined = false;  // the curve has a point and both derivatives at t
    CurveXY point;
    double dxdt = 0.0;
    double dydt = 0.0;
    // dy/dx; none where the curve runs straight up or down (dx/dt is 0).
    bool hasSlope = false;
    double slope = 0.0;
};

// x, y and their derivatives at t, by central differences.
CurveLocal curveLocalAt(const CurveAt& curve, double t);

struct CurveMeasures {
    // False when the curve has no point somewhere in [t0, t1] or jumps there; nothing else is set.
    bool defined = false;
    bool stopped = false;
    double length = 0.0;
    // The curve comes back to where it began, to a millionth of its size.
    bool closed = false;
    // By the shoelace over the refined points, positive when the curve runs anticlockwise.
    double area = 0.0;
};

// Refines [t0, t1] until each chord is within `tolerance` of the curve (in the curve's units)
// and measures the polyline.
CurveMeasures measureCurve(const CurveAt& curve, double t0, double t1, double tolerance,
                           const SamplingControl& control);

// Half the integral of r(t)^2 over [t0, t1] (the area a polar curve sweeps), by adaptive
// Simpson to `tolerance`. False where r has no value somewhere.
bool sweptArea(const CurveAt& polar, double t0, double t1, double tolerance, double& area);

}  // namespace curvemill
