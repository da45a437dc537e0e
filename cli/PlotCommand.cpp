#include <cstdio>
#include <cstdlib>
#include <memory>
#include <regex>
#include <string>

// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "cli/GraphArguments.h"
#include "graph2d/GraphView.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>

#include "graph2d/ui/GraphPainter.h"

namespace curvemill::cli {
namespace {

constexpr int kSmallestSide = 200;
constexpr int kLargestSide = 16384;

CommandSyntax plotSyntax() {
    CommandSyntax syntax{
        "plot",
        "Samples FORMULA over [A, B] as the Function dialog does and draws the graph into a PNG\n"
        "image, as the program draws it, with the whole Y range fitted to the image height.",
        "FORMULA",
        1,
        64,
        graphOptions(),
        "Options may come before or after FORMULA. The image is replaced atomically.\n"
        "Exit status: 0 written, 1 an entry refused (the dialog's message is printed) or the\n"
        "file could not be written, 2 wrong command line.\n"};
    syntax.options.push_back({"second", "F", "a second function drawn beside the first"});
    syntax.options.push_back({"derivative", "", "also draw the derivative curve"});
    syntax.options.push_back({"grid", "", "draw the grid lines"});
    syntax.options.push_back({"no-smooth", "", "draw the curves without antialiasing"});
    syntax.options.push_back({"size", "WxH", "image size in pixels (default 1024x768)"});
    syntax.options.push_back({"output", "FILE", "the PNG file to write (also -o FILE)"});
    return syntax;
}

bool readSize(const std::optional<std::string>& value, int& width, int& height, std::ostream& err) {
    if (!value) {
        return true;
    }
    static const std::regex pattern("([0-9]{1,5})x([0-9]{1,5})");
    std::smatch match;
    if (std::regex_match(*value, match, pattern)) {
        width = std::stoi(match[1]);
        height = std::stoi(match[2]);
        if (width >= kSmallestSide && height >= kSmallestSide && width <= kLargestSide &&
            height <= kLargestSide) {
            return true;
        }
    }
    err << "curvemill-cli plot: --size must be WIDTHxHEIGHT with each side from " << kSmallestSide
        << " to " << kLargestSide << ", not '" << *value << "'\n";
    return false;
}

// Fonts need an application object; a script has no display, so the offscreen platform serves.
std::unique_ptr<QGuiApplication> ensureGuiApplication() {
    if (QGuiApplication::instance() != nullptr) {
        return nullptr;
    }
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    }
    static int argc = 1;
    static char name[] = "curvemill-cli";
    static char* argv[] = {name, nullptr};
    return std::make_unique<QGuiApplication>(argc, argv);
}

int runPlot(const ParsedArguments& parsed, std::ostream& out, std::ostream& err) {
    ParsedArguments arguments = parsed;
    const CommandSyntax syntax = plotSyntax();
    if (!parseTrailingOptions(syntax, arguments, err)) {
        return kExitUsage;
    }
    const auto typed = formulaArgument(arguments.positionals[0], "plot", err);
    const auto points = pointsArgument(arguments.value("points"), "plot", err);
    const auto begin = arguments.value("x-begin");
    const auto end = arguments.value("x-end");
    const auto output = arguments.value("output");
    int width = 1024;
    int height = 768;
    if (!begin || !end || !output) {
        err << "curvemill-cli plot: --x-begin, --x-end and -o FILE are required\n";
        return kExitUsage;
    }
    if (!typed || !points || !readSize(arguments.value("size"), width, height, err)) {
        return kExitUsage;
    }
    GraphRequest request;
    request.formula = *typed;
    request.secondFormula = arguments.value("second");
    request.xBegin = *begin;
    request.xEnd = *end;
    request.points = *points;
    request.derivative = arguments.flag("derivative");
    Formula formula;
    TwoDGraph graph;
    if (const auto refusal = computeGraph(request, formula, graph)) {
        out << *refusal << '\n';
        return kExitRefused;
    }

    const auto app = ensureGuiApplication();
    GraphView view;
    view.gridOn = arguments.flag("grid");
    view.smoothLines = !arguments.flag("no-smooth");
    setViewSize(view, width, height);
    resetView(view, graph);
    fitGraphHeight(view);
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        drawGraph(painter, graph, view);
    }
    QSaveFile file(QString::fromStdString(*output));
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit()) {
        out << "CANNOT WRITE " << *output << '\n';
        return kExitRefused;
    }
    return kExitOk;
}

}  // namespace

Command plotCommand() {
    return {plotSyntax(), runPlot};
}

}  // namespace curvemill::cli
