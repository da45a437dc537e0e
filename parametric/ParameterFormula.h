// Formulas in t for the parametric and polar curves: the formula language as it is, with t where
// a function of x has its x.
#pragma once

#include <string>

#include "engine/FormulaCheck.h"

namespace curvemill {

class Formula;

// Reads `typed` as a formula in t and leaves the slot of `mode` (FormulaMode::Function or
// FormulaMode::SecondFunction) ready to evaluate at x = t. A formula that names x or y fails as any
// wrong letter does. Returns false with formula.errorText set when the check refuses it.
bool prepareParameterFormula(Formula& formula, const std::string& typed, FormulaMode mode);

}  // namespace curvemill
