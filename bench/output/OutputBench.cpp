// Writing a 1920x1080 graph (sin(x)/x*80 with its grid) in every format the program saves.
#include <unistd.h>

#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/GraphView.h"
#include "output/BmpExport.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "graph2d/ui/GraphPainter.h"
#include "output/ui/ImageFiles.h"

namespace curvemill {
namespace {

constexpr QSize kSize(1920, 1080);

// The graph, sampled once, and its drawing for any target.
struct Scene {
    Formula formula;
    TwoDGraph graph;
    GraphView view;
    QImage image;

    Scene() {
        prepareFormula(formula, "sin(x)/x*80", FormulaMode::Function);
        graph.xBegin = -20.0;
        graph.xEnd = 20.0;
        graph.mainFormulaText = "sin(x)/x*80";
        sampleCurve(graph, formula, {});
        view.gridOn = true;
        setViewSize(view, kSize.width(), kSize.height());
        resetView(view, graph);
        fitGraphHeight(view);
        image = drawnImage(drawing(), kSize);
    }

    PageDrawing drawing() {
        return [this](QPainter& painter, QSize pixels) {
            GraphView target = scaledView(view, pixels.width() / view.width);
            drawGraph(painter, graph, target);
        };
    }
};

Scene& scene() {
    static Scene shared;
    return shared;
}

std::string scratchFile() {
    return "/tmp/bench_output_" + std::to_string(::getpid()) + ".bmp";
}

// The program's path: the staged writer from an image already drawn to a file on disk.
void BM_BmpFile(benchmark::State& state) {
    const int bits = static_cast<int>(state.range(0));
    const QImage& image = scene().image;
    const std::string path = scratchFile();
    BmpExportSteps steps;
    steps.makePicture = [&image] {
        return RgbPixels{image.constBits(), image.width(), image.height(), image.bytesPerLine()};
    };
    for (auto _ : state) {
        benchmark::DoNotOptimize(exportBmp(path, bits, steps));
    }
    FILE* file = std::fopen(path.c_str(), "rb");
    std::fseek(file, 0, SEEK_END);
    state.counters["bytes"] = static_cast<double>(std::ftell(file));
    std::fclose(file);
    std::remove(path.c_str());
    state.SetLabel(bits == 24 ? "24-bit BMP" : "8-bit BMP");
}

// Encoding an image already drawn, in memory.
void BM_RasterEncode(benchmark::State& state) {
    const auto format = static_cast<ImageFormat>(state.range(0));
    ImageFileOptions options;
    options.bitsPerPixel = static_cast<int>(state.range(1));
    std::size_t bytes = 0;
    for (auto _ : state) {
        bytes = encodeRasterFile(format, scene().image, options)->size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
    state.SetLabel(format == ImageFormat::Png ? "PNG"
                                              : std::to_string(options.bitsPerPixel) + "-bit BMP");
}

// Drawing and encoding together: a vector file has no image to start from.
void BM_DrawAndEncode(benchmark::State& state) {
    const auto format = static_cast<ImageFormat>(state.range(0));
    const PageDrawing draw = scene().drawing();
    std::size_t bytes = 0;
    for (auto _ : state) {
        bytes = encodeGraphFile(format, draw, kSize)->size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
    const char* names[] = {"BMP", "PNG", "SVG", "PDF"};
    state.SetLabel(names[state.range(0)]);
}

BENCHMARK(BM_BmpFile)->Arg(24)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RasterEncode)
    ->Args({static_cast<int>(ImageFormat::Bmp), 24})
    ->Args({static_cast<int>(ImageFormat::Bmp), 8})
    ->Args({static_cast<int>(ImageFormat::Png), 24})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DrawAndEncode)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace curvemill

int main(int argc, char** argv) {
    // Fonts need an application object; no window system is needed.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
