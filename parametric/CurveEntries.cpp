#include "parametric/CurveEntries.h"

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "parametric/ParameterFormula.h"

namespace curvemill {

CurveEntries checkCurveEntries(Formula& formula, CurveForm form, NumberBox& tBegin, NumberBox& tEnd,
                               const std::string& first, const std::string& second,
                               const std::function<void()>& askLogBase) {
    CurveEntries entries;
    const auto refuse = [&entries](std::string message, CurveEntryBox box, bool explained) {
        entries.refusal = CurveEntryRefusal{std::move(message), box, explained};
        return entries;
    };
    const NumberReading begin = tBegin.read(formula);
    if (!begin.ok) {
        return refuse(begin.message, CurveEntryBox::kTBegin, true);
    }
    const NumberReading end = tEnd.read(formula);
    if (!end.ok) {
        return refuse(end.message, CurveEntryBox::kTEnd, true);
    }
    if (!(begin.value < end.value)) {
        return refuse(kMsgTBeginAfterTEnd, CurveEntryBox::kTBegin, false);
    }
    const bool parametric = form == CurveForm::Parametric;
    if (askLogBase && (first.find("log") != std::string::npos ||
                       (parametric && second.find("log") != std::string::npos))) {
        askLogBase();
    }
    formula.errorText.clear();
    if (!prepareParameterFormula(formula, first, FormulaMode::Function)) {
        return refuse(composeBoxError(parametric ? kXOfTBoxName : kROfTBoxName, formula.errorText),
                      CurveEntryBox::kFirstFormula, true);
    }
    if (parametric && !prepareParameterFormula(formula, second, FormulaMode::SecondFunction)) {
        return refuse(composeBoxError(kYOfTBoxName, formula.errorText),
                      CurveEntryBox::kSecondFormula, true);
    }
    entries.tBegin = begin.value;
    entries.tEnd = end.value;
    return entries;
}

}  // namespace curvemill
