// Chooses tidy grid steps (1, 2, 5 times a power of ten, or of pi) for a pixel spacing of 60..200.
#pragma once

#include "graph2d/GraphView.h"

namespace curvemill {

// The tidy step for `raw` graph units in `unit` (1.0 or pi), by the fixed candidate chain.
double tidyStep(double raw, double unit);

// Rebuilds every candidate list of the view and sets its x and y grid steps from them.
void chooseGridSteps(GraphView& view);

// Sets both steps to "automatic" and chooses them again; every zoom and "Restore" does this.
void resetGridSteps(GraphView& view);

// Chooses the steps if a zoom or a new range left them automatic.
void ensureGridSteps(GraphView& view);

}  // namespace curvemill
