// The checks of the parametric and polar curve window's boxes, in the window's order; the command
// line checks the same way.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "parametric/PlaneCurve.h"

namespace curvemill {

class Formula;
class NumberBox;

// The boxes' names in their refusals ("ERROR IN X(T) EDIT BOX: ...").
inline constexpr const char* kTBeginBoxName = "T_BEG";
inline constexpr const char* kTEndBoxName = "T_END";
inline constexpr const char* kXOfTBoxName = "X(T)";
inline constexpr const char* kYOfTBoxName = "Y(T)";
inline constexpr const char* kROfTBoxName = "R(T)";
inline constexpr const char* kMsgTBeginAfterTEnd = "T_BEG MUST BE LESS THAN T_END";

enum class CurveEntryBox { kTBegin, kTEnd, kFirstFormula, kSecondFormula };

struct CurveEntryRefusal {
    std::string message;
    CurveEntryBox box = CurveEntryBox::kTBegin;
    // The ordering refusal has no Help button explaining it.
    bool explained = true;
};

struct CurveEntries {
    double tBegin = 0.0;
    double tEnd = 0.0;
    std::optional<CurveEntryRefusal> refusal;
};

// Checks T Begin, T End, their order, then prepares the first formula (x(t) or r(t)) into the
// function's slot and, for a parametric curve, the second (y(t)) into the second function's.
// `askLogBase` runs once before the formula checks when either formula holds "log".
CurveEntries checkCurveEntries(Formula& formula, CurveForm form, NumberBox& tBegin, NumberBox& tEnd,
                               const std::string& first, const std::string& second = {},
                               const std::function<void()>& askLogBase = {});

}  // namespace curvemill
