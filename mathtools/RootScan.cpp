#include "mathtools/RootScan.h"

#include <charconv>
#include <cmath>

#include "engine/Formula.h"
#include "graph2d/SampledFunction.h"
#include "mathtools/MathMessages.h"
#include "mathtools/MathTexts.h"

namespace curvemill {

namespace {

// F along the scanned axis, the other variable fixed.
class ScanLine {
  public:
    ScanLine(Formula& formula, RootKind kind, double fixedValue)
        : formula_(formula), kind_(kind), fixed_(fixedValue) {}
    FunctionValue operator()(double t) const {
        const double v = kind_ == RootKind::kX ? formula_.evaluate(t, kTwoVariableSlot, fixed_)
                                               : formula_.evaluate(fixed_, kTwoVariableSlot, t);
        return {v, formula_.indefinite || std::isnan(v)};
    }

  private:
    Formula& formula_;
    RootKind kind_;
    double fixed_;
};

class Scan {
  public:
    Scan(Formula& formula, const ScanLine& line, double tolerance, const SamplingControl& control,
         RootScanResult& result)
        : formula_(formula),
          line_(line),
          tolerance_(tolerance),
          control_(control),
          result_(result) {}

    bool stopped() const { return stopRequested(control_, formula_); }

    bool isSolution(const FunctionValue& v) const {
        return !v.indefinite && std::fabs(v.value) < tolerance_;
    }

    // Halves [lo, hi], whose ends have values of opposite strict signs, until a midpoint is
    // within the tolerance or the halves get too narrow. False when stopped.
    bool bisect(double lo, double loValue, double hi) {
        const bool loPositive = loValue > 0;
        for (;;) {
            const double m = (lo + hi) / 2;
            if (m - lo < kBisectionWidth || hi - m < kBisectionWidth) {
                return true;
            }
            const FunctionValue v = line_(m);
            if (stopped()) {
                return false;
            }
            if (isSolution(v)) {
                result_.solutions.push_back(m);
                return true;
            }
            // A positive value replaces the end that had the positive value; anything else
            // (a value of no use included) the other end.
            if ((v.value > 0) == loPositive) {
                lo = m;
            } else {
                hi = m;
            }
        }
    }

  private:
    Formula& formula_;
    const ScanLine& line_;
    double tolerance_;
    const SamplingControl& control_;
    RootScanResult& result_;
};

std::string general(double v) {
    char buffer[32];
    const auto r = std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::general, 6);
    return std::string(buffer, r.ptr);
}

}  // namespace

RootScanResult findRoots(Formula& formula, RootKind kind, double fixedValue, const RootRange& range,
                         const SamplingControl& control, const RootScanSettings& settings) {
    RootScanResult result;
    const bool scanX = kind == RootKind::kX;
    const double begin = scanX ? range.xBegin : range.yBegin;
    const double end = scanX ? range.xEnd : range.yEnd;
    const int steps = std::max(1, scanX ? settings.xSteps : settings.ySteps);
    const double tolerance = 1.0 / std::pow(10.0, settings.precisionExponent);
    const double step = (end - begin) / steps;
    const ScanLine line(formula, kind, fixedValue);
    Scan scan(formula, line, tolerance, control, result);
    ProgressTracker progress(control, begin, end);

    double previousT = begin;
    FunctionValue previous;
    // Grid points are begin + i * step rather than a running sum, so rounding cannot drift the
    // last one past the end and drop it.
    for (int i = 0; i <= steps; ++i) {
        const double t = i == steps ? end : begin + i * step;
        const FunctionValue v = line(t);
        progress.report(t);
        if (scan.stopped()) {
            result.completed = false;
            return result;
        }
        if (scan.isSolution(v)) {
            result.solutions.push_back(t);
        }
        // Indefinite values take part in the sign test with whatever value they carry.
        const bool signChange =
            (v.value < 0 && previous.value > 0) || (v.value > 0 && previous.value < 0);
        if (i > 0 && signChange && !scan.bisect(previousT, previous.value, t)) {
            result.completed = false;
            return result;
        }
        previousT = t;
        previous = v;
    }
    return result;
}

std::optional<std::string> rootValueRefusal(RootKind kind, double fixedValue,
                                            const RootRange& range) {
    if (kind == RootKind::kX) {
        if (fixedValue >= range.yBegin && fixedValue <= range.yEnd) {
            return std::nullopt;
        }
        return math_messages::kYOutsideSelectedRange + general(range.yBegin) + " TO " +
               general(range.yEnd);
    }
    if (fixedValue >= range.xBegin && fixedValue <= range.xEnd) {
        return std::nullopt;
    }
    return std::string(math_messages::kXOutsideFunction);
}

std::vector<std::string> solutionTexts(const std::vector<double>& solutions, bool piUnits) {
    std::vector<std::string> texts;
    texts.reserve(solutions.size());
    for (double root : solutions) {
        texts.push_back(solutionText(root, piUnits));
    }
    return texts;
}

}  // namespace curvemill
