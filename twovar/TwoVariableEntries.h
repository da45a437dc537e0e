// The Equation / ThreeD window's checks of its boxes, in the window's order; the command line
// checks the same way.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace curvemill {

class Formula;

enum class TwoVariableBox { kXBegin, kXEnd, kYBegin, kYEnd, kFormula };

struct TwoVariableTexts {
    std::string xBegin;
    std::string xEnd;
    std::string yBegin;
    std::string yEnd;
    std::string formula;
};

struct TwoVariableRefusal {
    std::string message;
    TwoVariableBox box = TwoVariableBox::kXBegin;
    // The ordering refusals have no Help button explaining them.
    bool explained = true;
};

struct TwoVariableEntries {
    double xBegin = 0.0;
    double xEnd = 0.0;
    double yBegin = 0.0;
    double yEnd = 0.0;
    std::optional<TwoVariableRefusal> refusal;
};

// Reads the four range boxes, checking each pair's order once both are read, then prepares the
// formula in x and y. `askLogBase` runs before the formula check when the formula holds "log".
TwoVariableEntries checkTwoVariableEntries(Formula& formula, const TwoVariableTexts& texts,
                                           const std::function<void()>& askLogBase = {});

}  // namespace curvemill
