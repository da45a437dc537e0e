// A sampled curve as CSV, for the clipboard and the command line.
#pragma once

#include <ostream>
#include <vector>

#include "parametric/PlaneCurve.h"

namespace curvemill {

// The header "t,x,y,isBreak", then one record per point, numbers with 17 significant digits so
// that they read back bit for bit.
void writeCurveCsv(const std::vector<CurvePoint>& points, std::ostream& out);

}  // namespace curvemill
