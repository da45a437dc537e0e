// Speed of the equation solver on the input window's default grid, and of drawing its dots.
#include <benchmark/benchmark.h>

#include <atomic>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "equation/EquationSolver.h"
#include "equation/EquationView.h"

namespace curvemill {
namespace {

struct Case {
    const char* equation;
    double half;
};

constexpr Case kCases[] = {
    {"x^2+y^2-1", 2.0},
    {"sin(x)*cos(y)-0.2", 2.0},
    {"sin(x)*cos(y)-0.2", 10.0},
};

void BM_Solve(benchmark::State& bench) {
    const Case& c = kCases[bench.range(0)];
    Formula formula;
    prepareFormula(formula, c.equation, FormulaMode::TwoVariables);
    const EquationGrid grid{-c.half, c.half, -c.half, c.half, 500, 500, 5};
    const std::atomic<bool> running{true};
    EquationWork work;
    EquationCurve curve;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(solveEquation(formula, grid, running, work, curve));
    }
    bench.counters["solutions"] = curve.count();
    bench.counters["grid points/s"] =
        benchmark::Counter(501.0 * 501.0, benchmark::Counter::kIsIterationInvariantRate);
    bench.SetLabel(std::string(c.equation) + " on [-" + std::to_string(int(c.half)) + ", " +
                   std::to_string(int(c.half)) + "]^2");
}
BENCHMARK(BM_Solve)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

// The dots of the densest case as pixels of a full-screen view: what every repaint computes.
void BM_SolutionPixels(benchmark::State& bench) {
    Formula formula;
    prepareFormula(formula, "sin(x)*cos(y)-0.2", FormulaMode::TwoVariables);
    const std::atomic<bool> running{true};
    EquationWork work;
    EquationCurve curve;
    solveEquation(formula, {-10, 10, -10, 10, 500, 500, 5}, running, work, curve);
    GraphView view;
    setViewSize(view, 1920, 1080);
    resetEquationView(view, curve, 10);
    std::vector<PixelPoint> pixels;
    for (auto _ : bench) {
        solutionPixels(curve.solutions, view, pixels);
        benchmark::DoNotOptimize(pixels.data());
    }
    bench.counters["dots"] = static_cast<double>(pixels.size());
}
BENCHMARK(BM_SolutionPixels)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace curvemill

BENCHMARK_MAIN();
