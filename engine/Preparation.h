// The preparation sequence every caller runs: remove blanks, check, bracket, encode.
#pragma once

#include <string>

#include "engine/FormulaCheck.h"

namespace curvemill {

class Formula;

// Runs the whole sequence on a copy of `typed` and leaves the slot of `mode` ready for evaluate.
// Returns false with formula.errorText set when the check fails.
bool prepareFormula(Formula& formula, const std::string& typed, FormulaMode mode,
                    bool lenient = false);

}  // namespace curvemill
