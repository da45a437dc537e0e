// The fast evaluator against the literal text-rewriting one on many generated formulas: same
// indefinite flag, same bits, same values table. The fast one is held to known answers in
// EvaluatorTest, so a fault in either shows here as a disagreement.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <sstream>
#include <string>

#include "FormulaGenerator.h"
#include "LiteralEvaluator.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/LogBase.h"
#include "engine/Preparation.h"

namespace curvemill {
namespace {

using reference::evaluateLiterally;

// Bit for bit, except that any two NaNs agree: which NaN an operation hands on (its sign) is the
// compiler's choice of operand order and carries no meaning.
bool sameBits(double a, double b) {
    if (std::isnan(a) && std::isnan(b)) {
        return true;
    }
    return std::memcmp(&a, &b, sizeof a) == 0;
}

struct Point {
    double x;
    double y;
};

// 1.0004963 is an x where glibc's pow(x, 2) and x * x differ in the last bit.
constexpr std::array<Point, 7> kPointsX{
    {{0, 0}, {1, 0}, {-1, 0}, {-2.5, 0}, {3, 0}, {0.5, 0}, {1.0004963, 0}}};
constexpr std::array<Point, 7> kPointsXY{
    {{0, 0}, {1, -1}, {-2, 0.5}, {2, 3}, {-0.5, -4}, {3, 0}, {1.0004963, -1.0004963}}};

// Compares one evaluation of both evaluators; returns a description of the first difference,
// or an empty text.
std::string compareAt(Formula& formula, int slotIndex, ExpressionSlot& literalSlot, Point p) {
    const double fast = formula.evaluate(p.x, slotIndex, p.y);
    const auto literal = evaluateLiterally(literalSlot, formula.logFactor, p.x, p.y);
    const ExpressionSlot& slot = formula.slots[slotIndex];
    std::ostringstream out;
    out.precision(17);
    if (std::strcmp(slot.text.data(), literalSlot.text.data()) != 0) {
        out << "text after evaluation \"" << slot.text.data() << "\"";
    } else if (formula.indefinite != literal.indefinite) {
        out << "indefinite " << formula.indefinite << " instead of " << literal.indefinite;
    } else if (!literal.indefinite && !sameBits(fast, literal.value)) {
        out << "value " << fast << " instead of " << literal.value;
    }
    for (int i = 0; out.tellp() == 0 && !literal.indefinite && i < slot.length; ++i) {
        if (!sameBits(slot.values[i], literalSlot.values[i])) {
            out << "values[" << i << "] " << slot.values[i] << " instead of "
                << literalSlot.values[i];
        }
    }
    if (out.tellp() == 0) {
        return {};
    }
    out << " at x=" << p.x << " y=" << p.y << " for \"" << literalSlot.text.data() << "\"";
    return out.str();
}

TEST(EvaluatorCrossCheck, AgreesWithTheLiteralEvaluatorOnGeneratedFormulas) {
    constexpr int kWanted = 100000;
    constexpr int kMaxReported = 20;
    // Base 0 is accepted by the Log Base dialog and turns log( into minus zero.
    const std::array<const char*, 5> logBases{nullptr, nullptr, "2", "0.5", "0"};

    reference::FormulaGenerator generator(20261121);
    Formula formula;
    int accepted = 0;
    int attempts = 0;
    int reported = 0;
    int defined = 0;
    int indefinite = 0;
    while (accepted < kWanted && attempts < 4 * kWanted && reported < kMaxReported) {
        ++attempts;
        const bool twoVariables = attempts % 3 == 0;
        const FormulaMode mode = twoVariables ? FormulaMode::TwoVariables : FormulaMode::Function;
        const std::string typed = generator.next(twoVariables);
        if (!prepareFormula(formula, typed, mode)) {
            continue;
        }
        ++accepted;
        const char* base = logBases[accepted % logBases.size()];
        applyLogBase(formula, base != nullptr, base != nullptr ? base : "");

        const int slotIndex = slotForMode(mode);
        ExpressionSlot literalSlot = formula.slots[slotIndex];
        const auto& points = twoVariables ? kPointsXY : kPointsX;
        for (const Point& p : points) {
            std::string difference;
            try {
                difference = compareAt(formula, slotIndex, literalSlot, p);
            } catch (const std::logic_error& e) {
                difference = std::string("literal evaluator: ") + e.what();
            }
            if (!difference.empty()) {
                ADD_FAILURE() << "typed \"" << typed << "\" (mode " << static_cast<int>(mode)
                              << ", log base " << formula.logBase << "): " << difference;
                ++reported;
                break;
            }
            (formula.indefinite ? indefinite : defined)++;
        }
    }
    EXPECT_EQ(accepted, kWanted) << "after " << attempts << " generated formulas";
    // A generator that drifted into all-indefinite (or never-indefinite) output would make the
    // comparison above say little.
    EXPECT_GT(defined, accepted * 2);
    EXPECT_GT(indefinite, accepted / 20);
}

}  // namespace
}  // namespace curvemill
