// Nanoseconds per evaluation of typical formulas: our evaluator, native C++ and muparser.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"

#ifdef CURVEMILL_BENCH_MUPARSER
#include <muParser.h>
#endif

namespace {

using curvemill::Formula;

struct BenchFormula {
    const char* label;
    const char* typed;     // as a user types it
    const char* muparser;  // the same in muparser's spelling
    bool twoVariables;
    double (*native)(double x, double y);
    double from;  // x and y are swept over [from, to)
    double to;
};

const std::array<BenchFormula, 6> kFormulas{{
    {"sinc", "sin(x)/x*80", "sin(x)/x*80", false,
     [](double x, double) { return std::sin(x) / x * 80; }, -10, 10},
    {"quadratic", "x^2+3*x-5", "x^2+3*x-5", false,
     [](double x, double) { return std::pow(x, 2) + 3 * x - 5; }, -10, 10},
    {"sqrt_ln_cos", "Sqr(x)*ln(x)+cos(x)", "sqrt(x)*ln(x)+cos(x)", false,
     [](double x, double) { return std::sqrt(x) * std::log(x) + std::cos(x); }, 0.01, 20},
    {"rational", "(x^3-2*x^2+x-1)/(x^2+1)*sin(3*x)-atan(x/2)",
     "(x^3-2*x^2+x-1)/(x^2+1)*sin(3*x)-atan(x/2)", false,
     [](double x, double) {
         return (std::pow(x, 3) - 2 * std::pow(x, 2) + x - 1) / (std::pow(x, 2) + 1) *
                    std::sin(3 * x) -
                std::atan(x / 2);
     },
     -10, 10},
    {"circle", "x^2+y^2-16", "x^2+y^2-16", true,
     [](double x, double y) { return std::pow(x, 2) + std::pow(y, 2) - 16; }, -5, 5},
    {"saddle", "sin(x)*cos(y)", "sin(x)*cos(y)", true,
     [](double x, double y) { return std::sin(x) * std::cos(y); }, -5, 5},
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
    const char mode = f.twoVariables ? curvemill::kModeTwoVariables : curvemill::kModeFunction;
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

void benchNative(benchmark::State& state, const BenchFormula& f) {
    double (*function)(double, double) = f.native;
    // Hides the target so the call stays an indirect call, as a plotter's would be.
    benchmark::DoNotOptimize(function);
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
        benchmark::RegisterBenchmark((name + "/native").c_str(), benchNative, f);
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
