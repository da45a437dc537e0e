#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "cli/GraphArguments.h"
#include "cli/GraphDocuments.h"
#include "cli/ImageSetup.h"
#include "cli/KindImages.h"
#include "document/DocumentState.h"
#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/GraphView.h"
#include "graph2d/GridSteps.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"
#include "parametric/CurveCsv.h"
#include "parametric/CurveEntries.h"
#include "parametric/CurveGraph.h"

#include "parametric/ui/CurvePainter.h"

namespace curvemill::cli {
namespace {

CommandSyntax curveSyntax(CurveForm form) {
    const bool polar = form == CurveForm::Polar;
    CommandSyntax syntax{
        polar ? "polar" : "parametric",
        polar ? "Samples the polar curve r = FR (in t) over [A, B], drawn at x = r cos t,\n"
                "y = r sin t, as the Polar Curve window does, and draws it into an image, prints\n"
                "its records as CSV (t,x,y,isBreak) or prints a summary."
              : "Samples the curve x = FX, y = FY (both in t) over [A, B] as the Parametric Curve\n"
                "window does, and draws it into an image, prints its records as CSV\n"
                "(t,x,y,isBreak) or prints a summary.",
        polar ? "FR" : "FX FY",
        polar ? 1U : 2U,
        64,
        {{"t-begin", "A", "T Begin, read like the window's box (e.g. -pi)"},
         {"t-end", "B", "T End, read like the window's box (e.g. 2*pi)"},
         {"points", "N",
          "starting values of t: a multiple of 10000 from 10000 to 400000\n"
          "(default 100000); steps where the curve bends are halved until\n"
          "it is straight"},
         {"csv", "", "print the records instead of drawing"},
         {"summary", "", "print 'pointCount N', 'box XMIN XMAX YMIN YMAX' and 'breaks N'"},
         {"no-arrow", "", "leave out the arrow at the start"},
         imageSizeOption(),
         {"depth", "24|8", "bits per pixel of a .bmp file (default 24)"},
         {"output", "FILE",
          "the image file to write (also -o FILE; - is stdout, as PNG);\n"
          ".png, .bmp, .svg or .pdf"},
         saveGraphOption()},
        "One of -o FILE, --csv and --summary is required, or --save-graph alone. A file is\n"
        "replaced atomically.\n"
        "Exit status: 0 done, 1 an entry refused (the window's message is printed) or the file\n"
        "could not be written, 2 wrong command line.\n",
        true};
    return syntax;
}

std::string number(double v) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", v);
    return buffer;
}

void printCurveSummary(const CurveGraph& graph, std::ostream& out) {
    const CurveBox box = viewBox(graph.points);
    int breaks = 0;
    for (const CurvePoint& p : graph.points) {
        breaks += p.isBreak;
    }
    out << "pointCount " << graph.points.size() << '\n'
        << "box " << number(box.xMin) << ' ' << number(box.xMax) << ' ' << number(box.yMin) << ' '
        << number(box.yMax) << '\n'
        << "breaks " << breaks << '\n';
    if (graph.budgetMet) {
        out << "budgetMet\n";
    }
}

int runCurve(CurveForm form, const ParsedArguments& arguments, std::ostream& out,
             UsageErrors& usage) {
    if (!requireOptions(arguments, {"t-begin", "t-end"}, usage)) {
        return kExitUsage;
    }
    const auto output = arguments.value("output");
    const auto saveTo = arguments.value("save-graph");
    const int wanted =
        (output ? 1 : 0) + (arguments.flag("csv") ? 1 : 0) + (arguments.flag("summary") ? 1 : 0);
    if (wanted > 1 || (wanted == 0 && !saveTo)) {
        usage.report() << "give one of -o FILE, --csv and --summary, or --save-graph alone\n";
        return kExitUsage;
    }
    const auto first = formulaArgument(arguments.positionals[0], usage);
    const auto second = form == CurveForm::Parametric
                            ? formulaArgument(arguments.positionals[1], usage)
                            : std::optional<std::string>(std::string());
    const auto begin = entryArgument(*arguments.value("t-begin"), "--t-begin", usage);
    const auto end = entryArgument(*arguments.value("t-end"), "--t-end", usage);
    const auto points = pointsArgument(arguments.value("points"), usage);
    bool ok = true;
    const auto target = imageTarget(arguments, usage, ok);
    if (!first || !second || !begin || !end || !points || !ok) {
        return kExitUsage;
    }

    Formula formula;
    NumberBox beginBox(kTBeginBoxName), endBox(kTEndBoxName);
    beginBox.setText(*begin);
    endBox.setText(*end);
    const CurveEntries entries =
        checkCurveEntries(formula, form, beginBox, endBox, *first, *second);
    if (entries.refusal) {
        out << entries.refusal->message << '\n';
        return kExitRefused;
    }
    CurveGraph graph;
    graph.form = form;
    graph.firstText = *first;
    graph.secondText = *second;
    graph.tBegin = entries.tBegin;
    graph.tEnd = entries.tEnd;
    graph.startPoints = *points;
    graph.arrow = !arguments.flag("no-arrow");
    curvemill::runCurve(formula, graph, {});
    GraphView view;
    const ImageTarget size = target.value_or(ImageTarget());
    setViewSize(view, size.width, size.height);
    fitViewToCurve(view, graph);
    // The grid steps of the picture's own size, as the screen's view has them: an SVG or PDF page
    // is the same picture at more pixels, and a saved document opens with these steps.
    ensureGridSteps(view);
    std::optional<GraphDocument> document;
    if (saveTo) {
        GraphDocument& made = document.emplace();
        made.kind = DocumentKind::kCurve;
        made.curve = captureCurve(graph, view, StretchStack(), TwoDSettings());
        made.curve.t = {*begin, *end};
        if (!acceptSavedGraph(made, usage)) {
            return kExitUsage;
        }
    }
    const int saved = document ? saveGraph(*saveTo, *document, out) : kExitOk;
    if (arguments.flag("csv")) {
        writeCurveCsv(graph.points, out);
    } else if (arguments.flag("summary")) {
        printCurveSummary(graph, out);
    } else if (target) {
        if (graph.points.empty()) {
            tellNothingDrawn(usage, "t", *begin, *end);
        }
        return std::max(writeCurveImage(*target, graph, view, CurveLook(), out), saved);
    }
    return saved;
}

}  // namespace

Command parametricCommand() {
    return {curveSyntax(CurveForm::Parametric),
            [](const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
                return runCurve(CurveForm::Parametric, arguments, out, usage);
            }};
}

Command polarCommand() {
    return {curveSyntax(CurveForm::Polar),
            [](const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
                return runCurve(CurveForm::Polar, arguments, out, usage);
            }};
}

}  // namespace curvemill::cli
