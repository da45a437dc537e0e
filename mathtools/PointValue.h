// y and y' of the function on screen at a typed x, as the Information dialog shows them.
#pragma once

#include <optional>
#include <string>

#include "graph2d/TwoDGraph.h"

namespace curvemill {

class Formula;
class NumberBox;

struct PointValue {
    bool yDefined = false;
    double y = 0.0;
    // Not computed when y is indefinite.
    bool slopeDefined = false;
    double slope = 0.0;
};

// Reads the X box and tests it against the sampled range [graph.xBegin, graph.xEnd]; returns the
// dialog's message on refusal, or sets `x`.
std::optional<std::string> acceptPointX(Formula& formula, const TwoDGraph& graph, NumberBox& xBox,
                                        double& x);

// y = f(x) of slot 0 and, when it is defined, the two-stage slope of graph2d's slopeAt.
PointValue valueAt(Formula& formula, double x);

// The dialog's two result boxes: "y=%f" or "y=INDEFINITE"; "y'=%f" or "y'=INDEFINITE" (empty
// while y is indefinite, since no slope is computed).
std::string yBoxText(const PointValue& value);
std::string slopeBoxText(const PointValue& value);

}  // namespace curvemill
