// Arbitrary text through the whole formula pipeline in every mode, with the fast evaluator
// checked against the literal one wherever the text is well-formed.
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "LiteralEvaluator.h"
#include "engine/Bracketing.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/LogBase.h"
#include "engine/NumberEntry.h"

namespace {

using curvemill::ExpressionSlot;
using curvemill::Formula;
using curvemill::FormulaMode;

constexpr std::array<std::array<double, 2>, 4> kPoints{{{0, 0}, {1, -1}, {-2.5, 3}, {1e300, 0}}};

// Bit for bit, except that any two NaNs agree: which NaN an operation hands on is the compiler's
// choice of operand order and carries no meaning (the cross-check test uses the same rule).
bool sameBits(double a, double b) {
    if (std::isnan(a) && std::isnan(b)) {
        return true;
    }
    return std::memcmp(&a, &b, sizeof a) == 0;
}

[[noreturn]] void mismatch(const std::string& typed, FormulaMode mode, double x, double y,
                           double fast, bool fastIndefinite, double literal,
                           bool literalIndefinite) {
    std::fprintf(stderr,
                 "evaluators (or their values tables) differ for \"%s\" (mode %d) at x=%.17g "
                 "y=%.17g: %.17g%s vs %.17g%s\n",
                 typed.c_str(), static_cast<int>(mode), x, y, fast,
                 fastIndefinite ? " indefinite" : "", literal,
                 literalIndefinite ? " indefinite" : "");
    std::abort();
}

void runMode(const std::string& typed, FormulaMode mode, bool lenient) {
    Formula formula;
    std::string text = typed;
    curvemill::removeBlanks(text);
    if (!curvemill::checkFormula(formula, text, mode, lenient)) {
        return;
    }
    const int slotIndex = curvemill::slotForMode(mode);
    ExpressionSlot& slot = formula.slots[slotIndex];
    curvemill::bracketFormula(slot);
    curvemill::encodeNumbers(slot);
    // A lenient check leaves brackets unpaired, a text the literal algorithm was never meant
    // for; there the evaluator only has to survive.
    ExpressionSlot literalSlot = slot;
    for (const auto& [x, y] : kPoints) {
        const double fast = formula.evaluate(x, slotIndex, y);
        if (lenient) {
            continue;
        }
        const bool fastIndefinite = formula.indefinite;
        const auto literal =
            curvemill::reference::evaluateLiterally(literalSlot, formula.logFactor, x, y);
        bool same = fastIndefinite == literal.indefinite &&
                    (literal.indefinite || sameBits(fast, literal.value));
        for (int i = 0; same && !literal.indefinite && i < slot.length; ++i) {
            same = sameBits(slot.values[i], literalSlot.values[i]);
        }
        if (!same) {
            mismatch(typed, mode, x, y, fast, fastIndefinite, literal.value, literal.indefinite);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Edit boxes hold at most 99 characters.
    if (size > 99) {
        return 0;
    }
    const std::string typed(reinterpret_cast<const char*>(data), size);
    if (typed.find('\0') != std::string::npos) {
        return 0;  // an edit box cannot hold a NUL
    }
    for (FormulaMode mode : {FormulaMode::Function, FormulaMode::SecondFunction,
                             FormulaMode::Number, FormulaMode::TwoVariables}) {
        runMode(typed, mode, false);
        runMode(typed, mode, true);
    }

    // The same text typed into a number box and into the Log Base box.
    Formula formula;
    curvemill::readNumberEntry(formula, typed, "X");
    curvemill::applyLogBase(formula, true, typed);
    return 0;
}
