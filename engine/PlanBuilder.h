// Works out, from an encoded slot text, the steps that evaluate will run for every x and y.
#pragma once

#include "engine/ExpressionSlot.h"

namespace curvemill {

// Replays the text-rewriting evaluation once on a copy of slot.text, recording which pair is
// computed when and where each operand comes from (evaluate itself never writes the text).
void buildEvaluationPlan(ExpressionSlot& slot);

}  // namespace curvemill
