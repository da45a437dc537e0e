// Plane curves in t through the formula language: points on the curve, breaks at poles and at
// the edge of a stretch without values, straightness to the tolerance, budget and Stop.
#include <cmath>
#include <numbers>
#include <sstream>

#include <gtest/gtest.h>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "parametric/CurveCsv.h"
#include "parametric/CurveMeasures.h"
#include "parametric/CurveRefiner.h"
#include "parametric/ParameterFormula.h"

namespace curvemill {
namespace {

constexpr double kPi = std::numbers::pi;

struct Curve {
    Formula formula;
    CurveAt at;
    Curve(const char* first, const char* second = nullptr) {
        EXPECT_TRUE(prepareParameterFormula(formula, first, FormulaMode::Function))
            << formula.errorText;
        if (second != nullptr) {
            EXPECT_TRUE(prepareParameterFormula(formula, second, FormulaMode::SecondFunction))
                << formula.errorText;
        }
        at = curveOf(formula, second != nullptr ? CurveForm::Parametric : CurveForm::Polar);
    }
    CurveSampling sample(double t0, double t1, int points, double pixel = 0.01) {
        RefineSettings settings;
        settings.tBegin = t0;
        settings.tEnd = t1;
        settings.startPoints = points;
        settings.xPerPixel = settings.yPerPixel = pixel;
        return refineCurve(at, settings, {});
    }
};

int breaks(const CurveSampling& s) {
    int n = 0;
    for (const CurvePoint& p : s.points) {
        n += p.isBreak;
    }
    return n;
}

TEST(ParameterFormula, TIsTheVariableAndXIsAWrongLetter) {
    Formula formula;
    ASSERT_TRUE(prepareParameterFormula(formula, "tan(t) + atan(t)*e", FormulaMode::Function));
    EXPECT_NEAR(formula.evaluate(0.3, kFunctionSlot),
                std::tan(0.3) + std::atan(0.3) * std::numbers::e, 1e-14);
    for (const char* wrong : {"x+1", "t+y", "sin(x)"}) {
        SCOPED_TRACE(wrong);
        EXPECT_FALSE(prepareParameterFormula(formula, wrong, FormulaMode::Function));
        EXPECT_EQ(formula.errorText, kMsgInvalidEntry);
    }
}

TEST(CurveRefiner, CircleAndLissajousLieOnTheirClosedForms) {
    Curve circle("cos(t)", "sin(t)");
    const CurveSampling round = circle.sample(0, 2 * kPi, 20);
    Curve lissajous("sin(3*t)", "sin(2*t)");
    const CurveSampling figure = lissajous.sample(0, 2 * kPi, 50);
    for (const CurvePoint& p : round.points) {
        EXPECT_NEAR(p.x, std::cos(p.t), 1e-12);
        EXPECT_NEAR(p.y, std::sin(p.t), 1e-12);
    }
    for (const CurvePoint& p : figure.points) {
        EXPECT_NEAR(p.x, std::sin(3 * p.t), 1e-12);
        EXPECT_NEAR(p.y, std::sin(2 * p.t), 1e-12);
    }
    EXPECT_EQ(breaks(round), 1);
    // Refined until each chord's middle is within a quarter pixel (0.01 units) of the circle.
    for (std::size_t n = 1; n < round.points.size(); ++n) {
        const CurvePoint& a = round.points[n - 1];
        const CurvePoint& b = round.points[n];
        EXPECT_LT(1 - std::hypot(a.x + b.x, a.y + b.y) / 2, 0.0025 + 1e-12);
    }
    EXPECT_GT(round.points.size(), 40U);
    double area = 0;
    for (std::size_t n = 1; n < round.points.size(); ++n) {
        area +=
            round.points[n - 1].x * round.points[n].y - round.points[n].x * round.points[n - 1].y;
    }
    // Chords cut inside the circle, each by at most the tolerance.
    EXPECT_LT(area / 2, kPi);
    EXPECT_GT(area / 2, kPi - 2.0 / 3 * 0.0025 * 2 * kPi);
}

TEST(CurveRefiner, APoleBreaksTheCurveInsteadOfJoiningItsBranches) {
    Curve secant("1/cos(t)");  // polar: the line x = 1, y = tan t
    const CurveSampling s = secant.sample(0.1, 2 * kPi - 0.1, 200);
    EXPECT_EQ(breaks(s), 3);  // the first record and one at each pole
    for (std::size_t n = 1; n < s.points.size(); ++n) {
        const CurvePoint& a = s.points[n - 1];
        const CurvePoint& b = s.points[n];
        EXPECT_NEAR(b.x, 1, 1e-6);
        if (!b.isBreak) {
            EXPECT_FALSE(a.y * b.y < 0 && std::fabs(a.y - b.y) > 10) << a.t << " to " << b.t;
        }
    }
}

TEST(CurveRefiner, AStretchWithoutValuesBeginsAtItsEdge) {
    Curve root("Sqr(t)", "t");
    const CurveSampling s = root.sample(-1, 1, 101);
    ASSERT_FALSE(s.points.empty());
    EXPECT_TRUE(s.points.front().isBreak);
    EXPECT_GT(s.points.front().t, 0);
    EXPECT_LT(s.points.front().t, 1e-12);
    EXPECT_EQ(breaks(s), 1);
    EXPECT_DOUBLE_EQ(s.points.back().t, 1);
}

TEST(CurveRefiner, TheBudgetAndStopEndTheRunWithWhatItHas) {
    Curve rose("sin(8*t)");
    RefineSettings settings;
    settings.tEnd = 2 * kPi;
    settings.startPoints = 20;
    settings.xPerPixel = settings.yPerPixel = 1e-4;
    settings.budget = 200;
    const CurveSampling spent = refineCurve(rose.at, settings, {});
    EXPECT_TRUE(spent.budgetMet);
    EXPECT_LE(spent.evaluations, 220);
    EXPECT_DOUBLE_EQ(spent.points.back().t, 2 * kPi);

    std::atomic<bool> stop{true};
    SamplingControl control;
    control.stopRequested = &stop;
    const CurveSampling stopped = refineCurve(rose.at, settings, control);
    EXPECT_TRUE(stopped.stopped);
    EXPECT_EQ(stopped.points.size(), 1U);
}

}  // namespace
}  // namespace curvemill

namespace curvemill {
namespace {

TEST(CurveMeasures, LengthAreaSlopeAndRecordsOfKnownCurves) {
    Curve circle("cos(t)", "sin(t)");
    const CurveMeasures round = measureCurve(circle.at, 0, 2 * kPi, 1e-10, {});
    ASSERT_TRUE(round.defined);
    EXPECT_TRUE(round.closed);
    EXPECT_NEAR(round.area, kPi, 1e-9);
    EXPECT_NEAR(round.length, 2 * kPi, 1e-9);
    const CurveMeasures half = measureCurve(circle.at, 0, kPi, 1e-10, {});
    EXPECT_FALSE(half.closed);
    EXPECT_NEAR(half.length, kPi, 1e-9);

    Curve cardioid("1+cos(t)");  // polar: encloses 3 pi / 2
    double swept = 0;
    ASSERT_TRUE(sweptArea(cardioid.at, 0, 2 * kPi, 1e-12, swept));
    EXPECT_NEAR(swept, 1.5 * kPi, 1e-9);
    EXPECT_NEAR(measureCurve(cardioid.at, 0, 2 * kPi, 1e-10, {}).area, 1.5 * kPi, 1e-8);

    const CurveLocal at = curveLocalAt(circle.at, kPi / 3);
    ASSERT_TRUE(at.defined && at.hasSlope);
    EXPECT_NEAR(at.dxdt, -std::sin(kPi / 3), 1e-8);
    EXPECT_NEAR(at.dydt, std::cos(kPi / 3), 1e-8);
    EXPECT_NEAR(at.slope, -1 / std::tan(kPi / 3), 1e-7);
    EXPECT_FALSE(curveLocalAt(circle.at, 0).hasSlope);  // straight up at (1, 0)

    std::ostringstream csv;
    writeCurveCsv({{0.5, 1.0 / 3, -2, 1}, {1, 0.1, 1e300, 0}}, csv);
    EXPECT_EQ(csv.str(),
              "t,x,y,isBreak\n0.5,0.33333333333333331,-2,1\n1,0.10000000000000001,1."
              "0000000000000001e+300,0\n");

    Curve secant("1/cos(t)");
    EXPECT_FALSE(measureCurve(secant.at, 1, 2, 1e-9, {}).defined);  // a pole inside
}

}  // namespace
}  // namespace curvemill
