// What the Math tools of a shown curve check and write: the t interval of the length and area, the
// t of the Information read-out, and their results as lines of text.
#pragma once

#include <optional>
#include <string>

#include "parametric/CurveGraph.h"
#include "parametric/CurveMeasures.h"

namespace curvemill {

class Formula;
class NumberBox;

namespace curve_messages {
inline constexpr const char* kTBeginOutside = "T_BEGIN IS OUTSIDE THE RANGE OF CURVE";
inline constexpr const char* kTEndOutside = "T_END IS OUTSIDE THE RANGE OF CURVE";
inline constexpr const char* kTEndNotGreater = "T_END MUST BE GREATER THAN T_BEGIN";
inline constexpr const char* kTOutside = "T IS OUTSIDE THE RANGE OF CURVE";
inline constexpr const char* kCannotMeasure =
    "LENGTH AND AREA CANNOT BE CALCULATED, \nSINCE THIS INTERVAL CONTAINS\nINDEFINITE AND/OR "
    "INFINITE NUMBERS";
inline constexpr const char* kBoxT = "T";
}  // namespace curve_messages

struct CurveInterval {
    double begin = 0.0;
    double end = 0.0;
    std::optional<std::string> refusal;
};

// Reads T Begin and T End as the integral's boxes are read, in their order: each box, its place
// inside the curve's range of t, then their order.
CurveInterval readCurveInterval(Formula& formula, const CurveGraph& graph, NumberBox& beginBox,
                                NumberBox& endBox);

// The t of the Information read-out, inside the curve's range.
CurveInterval readCurveT(Formula& formula, const CurveGraph& graph, NumberBox& tBox);

// "x=...", "y=...", "dx/dt=...", "dy/dt=..." and "dy/dx=..." (INDEFINITE where there is none),
// one a line.
std::string localText(const CurveLocal& local);

// "length=..." and, for a closed curve, "area=..." (and a polar curve's "swept area=...").
std::string measuresText(const CurveMeasures& measures, std::optional<double> sweptArea);

}  // namespace curvemill
