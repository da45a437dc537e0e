// How numbers are written back into boxes, lists and axis labels.
#pragma once

#include <string>

namespace curvemill {

inline constexpr double kPi = 3.141592653589793;

// Removes trailing zeros of a text with a '.', and the '.' when nothing follows it.
std::string trimZeros(std::string text);

std::string formatValue(double v);             // "%.15f"
std::string formatValueInPi(double v);         // "pi*%.15f" of v / pi
std::string formatSolutionInPi(double v);      // "pi*%g" of v / pi
std::string formatEquationSolution(double v);  // "%.10g"
std::string formatLogBase(double v);           // "%f"

// A number preset in a box: formatValue with trailing zeros cut.
std::string boxText(double v);
// boxText of a value that must read back within [lo, hi] (the end of a stretch where the function
// has values): when rounding to fifteen decimals puts it outside, as the edge 5.5e-46 of ln(x)
// would become 0, the last decimal moves one step inwards.
std::string boxTextWithin(double v, double lo, double hi);

// Axis label text in plain or pi units, at most 10 characters with its prefix.
std::string labelText(double v, bool piUnits);

// The program's whole-part rule W: 0 for |v| <= 1, else ceil(|v|) - 1 with the sign of v
// (negative when v <= 0).
double wholePart(double v);

}  // namespace curvemill
