// Graph documents: opening a 400,000-point function graph's document and drawing it, beside
// drawing the same graph from the Function dialog's entries; and saving a document of each kind.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "document/DocumentState.h"
#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/GraphEntries.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "document/ui/GraphDocumentFile.h"
#include "graph2d/ui/GraphPainter.h"

namespace curvemill {
namespace {

constexpr int kWidth = 1024;
constexpr int kHeight = 768;

std::filesystem::path benchFile(const char* name) {
    return std::filesystem::temp_directory_path() / name;
}

GraphDocument functionDocument() {
    GraphDocument document;
    document.kind = DocumentKind::kFunction;
    document.function.formula = "sin(x)/x*80";
    document.function.x = {"-10", "10"};
    document.function.points = kMostPointsPerRun;
    return document;
}

// The Function dialog's route: its entries checked, the curve sampled, the view laid out as new.
void BM_DrawFromDialog(benchmark::State& state) {
    const FunctionSection section = functionDocument().function;
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    GraphPainter painter;
    for (auto _ : state) {
        const auto formula = std::make_unique<Formula>();
        NumberBox begin(kXBeginBoxName);
        NumberBox end(kXEndBoxName);
        begin.setText(section.x.begin);
        end.setText(section.x.end);
        const GraphEntries entries = checkGraphEntries(*formula, begin, end, section.formula);
        TwoDGraph graph;
        graph.xBegin = entries.xBegin;
        graph.xEnd = entries.xEnd;
        graph.pointsPerRun = section.points;
        graph.mainFormulaText = section.formula;
        sampleCurve(graph, *formula, {});
        GraphView view;
        setViewSize(view, kWidth, kHeight);
        resetView(view, graph);
        QPainter target(&image);
        painter.draw(target, graph, view);
    }
}

// Opening the document of the same graph: read and checked, applied, sampled, laid out again.
void BM_DrawFromDocument(benchmark::State& state) {
    const std::filesystem::path path = benchFile("curvemill-bench-open.curvemill");
    if (saveGraphDocument(path, functionDocument())) {
        state.SkipWithError("cannot save the document");
        return;
    }
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    GraphPainter painter;
    for (auto _ : state) {
        const DocumentReading reading = readGraphDocument(path);
        const auto formula = std::make_unique<Formula>();
        const PreparedDocument prepared = prepareDocumentFormulas(*formula, *reading.document);
        const FunctionSection& section = reading.document->function;
        TwoDGraph graph;
        applyFunctionEntries(section, prepared.values, graph);
        sampleCurve(graph, *formula, {});
        GraphView view;
        TwoDSettings settings;
        StretchStack stretches;
        setViewSize(view, kWidth, kHeight);
        applyFlatLook(section.look, settings, graph, view);
        resetView(view, graph);
        applyFlatView(section.view, view, stretches);
        QPainter target(&image);
        painter.draw(target, graph, view);
    }
    std::filesystem::remove(path);
}

GraphDocument documentOfKind(int kind) {
    GraphDocument document = functionDocument();
    document.kind = static_cast<DocumentKind>(kind);
    document.function.secondFormula = "x^2";
    document.function.derivative = true;
    document.function.view.stretches = {{2.0, 4.0, 10.5, 20.25}, {1.5, 1.25, 3.0, 7.0}};
    document.equation.formula = "x^2+y^2-1";
    document.equation.x = document.equation.y = {"-2", "2"};
    document.surface.formula = "sin(x)*cos(y)";
    document.surface.x = document.surface.y = {"-3", "3"};
    document.surface.angles = {10.0, 20.0, 45.5};
    document.curve.first = "sin(3*t)";
    document.curve.second = "sin(2*t)";
    document.curve.t = {"0", "2*pi"};
    return document;
}

constexpr const char* kKindNames[] = {"function", "equation", "surface", "curve"};

// Saving writes through the safe writer: the bytes, a flush to the disk and a rename.
void BM_SaveDocument(benchmark::State& state) {
    const GraphDocument document = documentOfKind(static_cast<int>(state.range(0)));
    const std::filesystem::path path = benchFile("curvemill-bench-save.curvemill");
    for (auto _ : state) {
        if (saveGraphDocument(path, document)) {
            state.SkipWithError("cannot save the document");
            break;
        }
    }
    std::filesystem::remove(path);
    state.SetLabel(kKindNames[state.range(0)]);
}

// What the disk alone asks of any crash-safe save of the same bytes: write a temporary file, flush
// it to the disk, rename it over the old one and flush the folder; no JSON, no checks.
void BM_BareFlush(benchmark::State& state) {
    const std::string bytes = graphDocumentJson(documentOfKind(0));
    const std::filesystem::path path = benchFile("curvemill-bench-bare.curvemill");
    const std::filesystem::path temporary = benchFile("curvemill-bench-bare.tmp");
    for (auto _ : state) {
        const int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const bool written =
            fd >= 0 &&
            write(fd, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
            fsync(fd) == 0;
        if (fd >= 0) {
            close(fd);
        }
        if (!written || rename(temporary.c_str(), path.c_str()) != 0) {
            state.SkipWithError("cannot write the file");
            break;
        }
        const int folder = open(path.parent_path().c_str(), O_RDONLY);
        fsync(folder);
        close(folder);
    }
    std::filesystem::remove(path);
}

// The JSON text alone, without the disk.
void BM_DocumentJson(benchmark::State& state) {
    const GraphDocument document = documentOfKind(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(graphDocumentJson(document));
    }
    state.SetLabel(kKindNames[state.range(0)]);
}

BENCHMARK(BM_DrawFromDialog)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DrawFromDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveDocument)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BareFlush)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DocumentJson)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace curvemill

int main(int argc, char** argv) {
    // Fonts need an application object; benchmarks run without a display.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
