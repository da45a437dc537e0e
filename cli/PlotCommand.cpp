#include <algorithm>
#include <string>

#include "cli/Command.h"
#include "cli/GraphArguments.h"
#include "cli/GraphDocuments.h"
#include "cli/ImageSetup.h"
#include "cli/KindImages.h"
#include "cli/PlotView.h"
#include "document/DocumentState.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"

namespace curvemill::cli {
namespace {

CommandSyntax plotSyntax() {
    CommandSyntax syntax{
        "plot",
        "Samples FORMULA over [A, B] as the Function dialog does and draws the graph into an\n"
        "image, as the program draws it, with the whole Y range fitted to the image height;\n"
        "with --zoom-x, --zoom-y, --scroll or --fit the view is laid out as on the screen.\n"
        "The file's extension chooses the format: .png, .bmp, .svg (vector, text as text) or\n"
        ".pdf (vector, one page); a name without an extension gets PNG.",
        "FORMULA",
        1,
        64,
        graphOptions(),
        "Options may come before or after FORMULA. A file is replaced atomically; a device or\n"
        "FIFO is written straight through.\n"
        "Exit status: 0 written, 1 an entry refused (the dialog's message is printed) or the\n"
        "file could not be written, 2 wrong command line (an unknown extension too).\n",
        true};
    syntax.options.push_back({"second", "F", "a second function drawn beside the first"});
    syntax.options.push_back({"derivative", "", "also draw the derivative curve"});
    syntax.options.push_back({"integral-curve", "", "also draw the integral curve"});
    syntax.options.push_back({"grid", "", "draw the grid lines"});
    syntax.options.push_back({"no-smooth", "", "draw the curves without antialiasing"});
    syntax.options.push_back(imageSizeOption());
    syntax.options.push_back({"depth", "24|8", "bits per pixel of a .bmp file (default 24)"});
    syntax.options.push_back(
        {"output", "FILE", "the image file to write (also -o FILE; - is stdout, as PNG)"});
    addPlotViewOptions(syntax.options);
    syntax.options.push_back(saveGraphOption());
    return syntax;
}

// The document of the graph plot drew: its entries as typed, its settings, its view.
GraphDocument plotDocument(const GraphRequest& request, const TwoDGraph& graph,
                           const GraphView& view) {
    TwoDSettings settings;
    settings.maxYRatio = graph.maxYRatio;
    settings.optimizeDrawing = graph.drawStep != 1;
    settings.displayOrder = view.displayOrder;
    GraphDocument document;
    document.kind = DocumentKind::kFunction;
    document.function = captureFunction(graph, view, StretchStack(), settings);
    document.function.x = {request.xBegin, request.xEnd};
    return document;
}

int runPlot(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto saveTo = arguments.value("save-graph");
    if (!arguments.value("output") && !saveTo) {
        usage.report() << "-o FILE is required\n";
        return kExitUsage;
    }
    bool ok = true;
    const auto request = graphRequest(arguments, usage);
    const auto viewOptions = plotViewOptions(arguments, usage);
    const auto target = imageTarget(arguments, usage, ok);
    if (!request || !viewOptions || !ok) {
        return kExitUsage;
    }
    Formula formula;
    TwoDGraph graph;
    if (const auto refusal = computeGraph(*request, formula, graph)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    applyGraphOptions(*viewOptions, graph);

    GraphView view;
    view.gridOn = arguments.flag("grid");
    view.smoothLines = !arguments.flag("no-smooth");
    const ImageTarget size = target.value_or(ImageTarget());
    setViewSize(view, size.width, size.height);
    resetView(view, graph);
    applyViewOptions(*viewOptions, view);
    std::optional<GraphDocument> document;
    if (saveTo) {
        document = plotDocument(*request, graph, view);
        if (!acceptSavedGraph(*document, usage)) {
            return kExitUsage;
        }
    }
    if (target && std::all_of(graph.main.begin(), graph.main.end(),
                              [](const PlotPoint& p) { return p.isIndefinite != 0; })) {
        tellNothingDrawn(usage, "x", request->xBegin, request->xEnd);
    }
    const int drawn = target ? writeTwoDImage(*target, graph, view, out) : kExitOk;
    const int saved = document ? saveGraph(*saveTo, *document, out) : kExitOk;
    return std::max(drawn, saved);
}

}  // namespace

Command plotCommand() {
    return {plotSyntax(), runPlot};
}

}  // namespace curvemill::cli
