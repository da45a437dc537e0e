#include <cstdio>
#include <string>

#include "cli/Command.h"
#include "cli/GraphArguments.h"
#include "graph2d/ViewYRange.h"

namespace curvemill::cli {
namespace {

CommandSyntax sampleSyntax() {
    CommandSyntax syntax{
        "sample",
        "Samples FORMULA over [A, B] as the Function dialog does and prints the main curve's\n"
        "records as CSV (x,y,isBreak,isIndefinite,isVertex,peakKind), x and y with 17 digits.",
        "FORMULA",
        1,
        64,
        graphOptions(),
        "With --summary it prints instead the lines 'pointCount N', 'yMin V', 'yMax V',\n"
        "'definedSpan A B' and 'viewY A B' (the view's Y range after the height cap).\n"
        "With --integral-curve the records are those of the integral curve, the running\n"
        "integral of the main curve, and the summary adds 'integralY A B' (its lowest and\n"
        "highest value).\n"
        "Options may come before or after FORMULA.\n"
        "Exit status: 0 sampled, 1 an entry refused (the dialog's message is printed),\n"
        "2 wrong command line.\n",
        true};
    syntax.options.push_back({"summary", "", "print the summary lines instead of the records"});
    syntax.options.push_back(
        {"integral-curve", "", "also compute the integral curve and print its records"});
    return syntax;
}

std::string number(double v) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", v);
    return buffer;
}

void printRecords(const Curve& curve, std::ostream& out) {
    std::string text = "x,y,isBreak,isIndefinite,isVertex,peakKind\n";
    char line[120];
    for (const PlotPoint& p : curve) {
        const int n = std::snprintf(line, sizeof line, "%.17g,%.17g,%d,%d,%d,%d\n", p.x, p.y,
                                    p.isBreak, p.isIndefinite, p.isVertex, p.peakKind);
        text.append(line, static_cast<std::size_t>(n));
        if (text.size() > (1u << 20)) {
            out << text;
            text.clear();
        }
    }
    out << text;
}

int runSample(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto request = graphRequest(arguments, usage);
    if (!request) {
        return kExitUsage;
    }
    Formula formula;
    TwoDGraph graph;
    if (const auto refusal = computeGraph(*request, formula, graph)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    if (!arguments.flag("summary")) {
        printRecords(request->integralCurve ? graph.integral : graph.main, out);
        return kExitOk;
    }
    const YRange view = viewYRange(graph);
    out << "pointCount " << graph.main.pointCount << '\n'
        << "yMin " << number(graph.main.yMin) << '\n'
        << "yMax " << number(graph.main.yMax) << '\n'
        << "definedSpan " << number(graph.definedSpan.begin) << ' ' << number(graph.definedSpan.end)
        << '\n'
        << "viewY " << number(view.begin) << ' ' << number(view.end) << '\n';
    if (request->integralCurve) {
        out << "integralY " << number(graph.integral.yMin) << ' ' << number(graph.integral.yMax)
            << '\n';
    }
    return kExitOk;
}

}  // namespace

Command sampleCommand() {
    return {sampleSyntax(), runSample};
}

}  // namespace curvemill::cli
