// The "Optimize Drawing" rule: which records of a curve are visited as vertices when drawn.
#pragma once

#include "graph2d/Curve.h"

namespace curvemill {

// On: first and last records, every tenth, breaks, neighbours of indefinite records and local
// extremes stay vertices; the rest are skipped by the drawing. Off: every record is a vertex.
void applyOptimizeDrawing(Curve& curve, bool on);

}  // namespace curvemill
