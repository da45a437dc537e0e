// Samples a range too narrow for the regular step evenly, one distinct x after another.
#pragma once

#include "graph2d/PointStore.h"
#include "graph2d/SampledFunction.h"

namespace curvemill {

// Fills `store` with up to `regularCount` + 1 evenly spaced samples from xBegin to exactly xEnd,
// leaving out x values that round to the one before. Jumps of more than 5000 and values beyond
// 1e100 mark both neighbours as breaks. Returns false when stopped.
bool sampleEvenly(const CurveFunction& f, double xBegin, double xEnd, int regularCount,
                  PointStore& store, YExtent& extent, ProgressTracker& progress,
                  const SamplingControl& control, const Formula& formula);

}  // namespace curvemill
