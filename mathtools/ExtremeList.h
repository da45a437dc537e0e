// The rows of the Math dialog's list of extreme values, chosen from the marks the sampler left.
#pragma once

#include <string>
#include <vector>

#include "graph2d/Curve.h"

namespace curvemill {

enum class ExtremeFilter : int {
    kMaxima = 1,
    kMinima = 2,
    kBoth = 3,
};

struct ExtremeRow {
    double x = 0.0;
    double y = 0.0;
    // The list's two columns: "%.15f", or "pi*%.15f" of the value / pi in pi units.
    std::string xText;
    std::string yText;
};

// The rows in ascending x (the last record is never listed). Two adjacent marks stand for one
// extreme: the one farther in y from the record before them is listed and the other's mark is
// erased from `curve` for good, so later fillings no longer see it.
std::vector<ExtremeRow> fillExtremeList(Curve& curve, bool xInPi, bool yInPi, ExtremeFilter filter);

}  // namespace curvemill
