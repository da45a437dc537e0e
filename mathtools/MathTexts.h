// How the math tools write their numbers: the integral on the graph, the question, the slope,
// the root list.
#pragma once

#include <string>

namespace curvemill {

// "S(%g, %g) = %18.15f": the integral as the graph's title shows it.
std::string integralText(double begin, double end, double value);
// "Integral Is %18.15g. \n  Do You Want To Calculate It More Precisely?"
std::string preciseQuestionText(double value);
// The warning after a precise run that reached its bound of evaluations.
std::string refinementCutText();
// "y=%f" of a defined value. The value box's own format; the slope's is "y'=%f".
std::string yText(double y);
// "y'=%f".
std::string slopeText(double slope);
// A found root: "%.15f", or "pi*%g" of root / pi in pi units.
std::string solutionText(double root, bool piUnits);
// A coordinate of the extreme list: "%.15f", or "pi*%.15f" of v / pi in pi units.
std::string extremeText(double v, bool piUnits);

}  // namespace curvemill
