// Nanoseconds per evaluation of typical formulas: our evaluator, native C++ and muparser.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "engine/Arithmetic.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"

#ifdef CURVEMILL_BENCH_MUPARSER
#include <muParser.h>
#endif

namespace {

using curvemill::Formula;

// std::pow as a C++ programmer writes it: with a constant whole exponent the compiler turns
// pow(x, 2) into x * x.
struct FoldedPow {
    static double pow(double base, double exponent) { return std::pow(base, exponent); }
};

// A genuine libm call for every '^', which is what an evaluator must do to give pow()'s bits
// (glibc's pow(x, 2) differs from x * x in the last bit for about 1 x in 1200).
struct LibmPow {
    static double pow(double base, double exponent) {
        volatile double hidden = exponent;
        return std::pow(base, hidden);
    }
};

// The evaluator's own power arithmetic: a square is one multiplication, any other exponent a
// genuine pow call (the exponent is hidden, as the evaluator reads it from memory).
struct SamePow {
    static double pow(double base, double exponent) {
        volatile double hidden = exponent;
        return curvemill::raisePower(base, hidden);
    }
};

template <class P>
double sinc(double x, double) {
    return std::sin(x) / x * 80;
}
template <class P>
double quadratic(double x, double) {
    return P::pow(x, 2) + 3 * x - 5;
}
template <class P>
double sqrtLnCos(double x, double) {
    return std::sqrt(x) * std::log(x) + std::cos(x);
}
template <class P>
double rational(double x, double) {
    return (P::pow(x, 3) - 2 * P::pow(x, 2) + x - 1) / (P::pow(x, 2) + 1) * std::sin(3 * x) -
           std::atan(x / 2);
}
template <class P>
double circle(double x, double y) {
    return P::pow(x, 2) + P::pow(y, 2) - 16;
}
template <class P>
double saddle(double x, double y) {
    return std::sin(x) * std::cos(y);
}

using NativeFunction = double (*)(double x, double y);

struct BenchFormula {
    const char* label;
    const char* typed;     // as a user types it
    const char* muparser;  // the same in muparser's spelling
    bool twoVariables;
    NativeFunction native;
    NativeFunction nativeLibmPow;  // null when the formula has no '^'
    NativeFunction nativeSamePow;  // null when the formula has no '^'
    double from;                   // x and y are swept over [from, to)
    double to;
};

const std::array<BenchFormula, 6> kFormulas{{
    {"sinc", "sin(x)/x*80", "sin(x)/x*80", false, sinc<FoldedPow>, nullptr, nullptr, -10, 10},
    {"quadratic", "x^2+3*x-5", "x^2+3*x-5", false, quadratic<FoldedPow>, quadratic<LibmPow>,
     quadratic<SamePow>, -10, 10},
    {"sqrt_ln_cos", "Sqr(x)*ln(x)+cos(x)", "sqrt(x)*ln(x)+cos(x)", false, sqrtLnCos<FoldedPow>,
     nullptr, nullptr, 0.01, 20},
    {"rational", "(x^3-2*x^2+x-1)/(x^2+1)*sin(3*x)-atan(x/2)",
     "(x^3-2*x^2+x-1)/(x^2+1)*sin(3*x)-atan(x/2)", false, rational<FoldedPow>, rational<LibmPow>,
     rational<SamePow>, -10, 10},
    {"circle", "x^2+y^2-16", "x^2+y^2-16", true, circle<FoldedPow>, circle<LibmPow>,
     circle<SamePow>, -5, 5},
    {"saddle", "sin(x)*cos(y)", "sin(x)*cos(y)", true, saddle<FoldedPow>, nullptr, nullptr, -5, 5},
}};

// 1000 x values; y runs through 37 values so that (x, y) pairs vary over a whole grid.
struct Sweep {
    explicit Sweep(const BenchFormula& f) {
        for (int i = 0; i < 1000; ++i) {
            xs.push_back(f.from + (f.to - f.from) * i / 1000.0);
        }
        for (int i = 0; i < 37; ++i) {
            ys.push_back(f.from + (f.to - f.from) * i / 37.0);
        }
    }
    std::vector<double> xs;
    std::vector<double> ys;
};

void benchOurs(benchmark::State& state, const BenchFormula& f) {
    Formula formula;
    const curvemill::FormulaMode mode =
        f.twoVariables ? curvemill::FormulaMode::TwoVariables : curvemill::FormulaMode::Function;
    if (!curvemill::prepareFormula(formula, f.typed, mode)) {
        state.SkipWithError(formula.errorText.c_str());
        return;
    }
    const int slot = curvemill::slotForMode(mode);
    const Sweep sweep(f);
    std::size_t i = 0;
    for (auto _ : state) {
        const double x = sweep.xs[i % sweep.xs.size()];
        const double y = sweep.ys[i % sweep.ys.size()];
        benchmark::DoNotOptimize(formula.evaluate(x, slot, y));
        benchmark::DoNotOptimize(formula.indefinite);
        ++i;
    }
}

void benchNative(benchmark::State& state, const BenchFormula& f, NativeFunction native) {
    // Read through a volatile so the call stays an indirect call, as a plotter's would be.
    // (DoNotOptimize on the pointer itself is miscompiled by GCC 12 with benchmark 1.7.)
    volatile NativeFunction hidden = native;
    const NativeFunction function = hidden;
    const Sweep sweep(f);
    std::size_t i = 0;
    for (auto _ : state) {
        const double x = sweep.xs[i % sweep.xs.size()];
        const double y = sweep.ys[i % sweep.ys.size()];
        benchmark::DoNotOptimize(function(x, y));
        ++i;
    }
}

#ifdef CURVEMILL_BENCH_MUPARSER
void benchMuparser(benchmark::State& state, const BenchFormula& f) {
    double x = 0;
    double y = 0;
    mu::Parser parser;
    parser.DefineVar("x", &x);
    parser.DefineVar("y", &y);
    parser.SetExpr(f.muparser);
    const Sweep sweep(f);
    std::size_t i = 0;
    try {
        for (auto _ : state) {
            x = sweep.xs[i % sweep.xs.size()];
            y = sweep.ys[i % sweep.ys.size()];
            benchmark::DoNotOptimize(parser.Eval());
            ++i;
        }
    } catch (const mu::Parser::exception_type& e) {
        state.SkipWithError(e.GetMsg().c_str());
    }
}
#endif

}  // namespace

int main(int argc, char** argv) {
    for (const BenchFormula& f : kFormulas) {
        const std::string name = std::string("evaluate/") + f.label;
        benchmark::RegisterBenchmark((name + "/ours").c_str(), benchOurs, f);
        benchmark::RegisterBenchmark((name + "/native").c_str(), benchNative, f, f.native);
        if (f.nativeLibmPow != nullptr) {
            benchmark::RegisterBenchmark((name + "/native_libm_pow").c_str(), benchNative, f,
                                         f.nativeLibmPow);
            benchmark::RegisterBenchmark((name + "/native_same_pow").c_str(), benchNative, f,
                                         f.nativeSamePow);
        }
#ifdef CURVEMILL_BENCH_MUPARSER
        benchmark::RegisterBenchmark((name + "/muparser").c_str(), benchMuparser, f);
#endif
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
