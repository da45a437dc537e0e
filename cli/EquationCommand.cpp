#include <algorithm>
#include <cstdio>
#include <string>

// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "cli/GraphArguments.h"
#include "cli/GraphDocuments.h"
#include "cli/ImageSetup.h"
#include "cli/KindImages.h"
#include "cli/MathCommands.h"
#include "cli/Printable.h"
#include "cli/TwoVariableEntries.h"
#include "document/DocumentState.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "engine/Preparation.h"
#include "equation/EquationSolver.h"
#include "equation/EquationView.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"
#include "twovar/TwoVariableSettings.h"

#include "equation/ui/EquationPainter.h"

namespace curvemill::cli {
namespace {

// The window offers 100 to 2000 points per axis; scripts may ask for any count up to ten times
// that.
constexpr int kMostSteps = 20000;
// Caps the view's height at this many times its width, as the program does by default.
constexpr int kMaxYRatio = 10;

CommandSyntax equationSyntax() {
    return {
        "equation",
        "Solves EQUATION = 0 (in x and y) over the grid [A, B] x [C, D] as the Equation\n"
        "window does, and draws its solution points into an image as the program draws them\n"
        "(.png, .bmp, .svg or .pdf, by the file's extension), or prints them, or prints their\n"
        "count and Y range.",
        "EQUATION",
        1,
        64,
        {{"x-begin", "A", "X Begin, read like the Equation window's box"},
         {"x-end", "B", "X End"},
         {"y-begin", "C", "Y Begin"},
         {"y-end", "D", "Y End"},
         {"nx", "N", "grid steps along x, 1 to 20000 (default 500)"},
         {"ny", "N", "grid steps along y, 1 to 20000 (default 500)"},
         {"precision", "P", "the tolerance is 1e-P, P from 1 to 15 (default 5)"},
         {"output", "FILE", "the image file to draw (also -o FILE; - is stdout, as PNG)"},
         {"depth", "24|8", "bits per pixel of a .bmp file (default 24)"},
         imageSizeOption(),
         {"grid", "", "draw the grid lines"},
         {"squares", "", "draw small squares around the points"},
         {"points", "", "print the solutions as x,y lines, sorted by x"},
         {"summary", "", "print count N, yMin V and yMax V"},
         saveGraphOption()},
        "Give exactly one of -o FILE, --points and --summary, or --save-graph alone. Options may\n"
        "come before or after EQUATION. Numbers are printed with 17 significant digits; without\n"
        "solutions yMin and yMax keep their start values 1e+100 and -1e+100.\n"
        "A run keeps at most " +
            std::to_string(kMostSolutions) +
            " solution points and says so on stderr when it stops there.\n"
            "Exit status: 0 solved (no solution included), 1 an entry refused (the window's\n"
            "message is printed) or the file could not be written, 2 wrong command line.\n",
        true};
}

// Reads the four range boxes and the formula in the window's order into the grid's domain.
std::optional<std::string> readEntries(Formula& formula, const ParsedArguments& arguments,
                                       const std::string& typed, EquationGrid& grid) {
    TwoVariableRange range;
    if (auto refusal = readTwoVariableEntries(formula, arguments, typed, range)) {
        return refusal;
    }
    grid.xBegin = range.xBegin;
    grid.xEnd = range.xEnd;
    grid.yBegin = range.yBegin;
    grid.yEnd = range.yEnd;
    return std::nullopt;
}

std::string number(double value) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", value);
    return buffer;
}

// The equation's view as the window lays it out for a new curve, fitted to the picture's height.
GraphView equationView(const ParsedArguments& arguments, const EquationCurve& curve,
                       const ImageTarget& size) {
    GraphView view;
    view.gridOn = arguments.flag("grid");
    setViewSize(view, size.width, size.height);
    resetEquationView(view, curve, kMaxYRatio);
    fitGraphHeight(view);
    return view;
}

// The document of the equation the command solved: its entries as typed and its view.
GraphDocument equationDocument(const ParsedArguments& arguments, const EquationGrid& grid,
                               const std::string& typed, const GraphView& view) {
    TwoVariableSettings entries =
        typedTwoVariableEntry(arguments, typed, TwoVariableMode::kEquation);
    entries.equationXPoints = grid.xSteps;
    entries.equationYPoints = grid.ySteps;
    entries.precisionDigits = grid.precisionDigits;
    TwoDSettings settings;
    settings.maxYRatio = kMaxYRatio;
    GraphDocument document;
    document.kind = DocumentKind::kEquation;
    document.equation = captureEquation(entries, view, StretchStack(), settings);
    return document;
}

// What the command prints or draws of the solved equation.
int writeEquationOutput(const ParsedArguments& arguments, const EquationCurve& curve,
                        const GraphView& view, const std::optional<ImageTarget>& target,
                        std::ostream& out) {
    if (arguments.flag("summary")) {
        out << "count " << curve.count() << "\nyMin " << number(curve.yMin) << "\nyMax "
            << number(curve.yMax) << '\n';
        return kExitOk;
    }
    if (arguments.flag("points")) {
        std::string text;
        text.reserve(curve.solutions.size() * 40);
        for (const SolutionPoint& p : curve.solutions) {
            text += number(p.x);
            text += ',';
            text += number(p.y);
            text += '\n';
        }
        out << text;
        return kExitOk;
    }
    if (!target) {
        return kExitOk;
    }
    EquationLook look;
    look.squares = arguments.flag("squares");
    return writeEquationImage(*target, curve, view, look, out);
}

int runEquation(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto typed = formulaArgument(arguments.positionals[0], usage);
    const auto nx = wholeArgument(arguments.value("nx"), "nx", 1, kMostSteps, 500, usage);
    const auto ny = wholeArgument(arguments.value("ny"), "ny", 1, kMostSteps, 500, usage);
    const auto precision =
        wholeArgument(arguments.value("precision"), "precision", 1, 15, 5, usage);
    if (!requireOptions(arguments, {"x-begin", "x-end", "y-begin", "y-end"}, usage)) {
        return kExitUsage;
    }
    const auto output = arguments.value("output");
    const auto saveTo = arguments.value("save-graph");
    const int outputs =
        (output ? 1 : 0) + (arguments.flag("points") ? 1 : 0) + (arguments.flag("summary") ? 1 : 0);
    if (outputs > 1 || (outputs == 0 && !saveTo)) {
        usage.report() << "give exactly one of -o FILE, --points and --summary\n";
        return kExitUsage;
    }
    bool ok = true;
    const auto target = imageTarget(arguments, usage, ok);
    if (!typed || !nx || !ny || !precision || !ok) {
        return kExitUsage;
    }
    Formula formula;
    EquationGrid grid;
    if (const auto refusal = readEntries(formula, arguments, *typed, grid)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    grid.xSteps = *nx;
    grid.ySteps = *ny;
    grid.precisionDigits = *precision;
    EquationCurve curve;
    if (!solveEquationGrid(formula, grid, *typed, curve)) {
        usage.report() << solutionLimitText() << '\n';
    }
    const GraphView view = equationView(arguments, curve, target.value_or(ImageTarget()));
    std::optional<GraphDocument> document;
    if (saveTo) {
        document = equationDocument(arguments, grid, *typed, view);
        if (!acceptSavedGraph(*document, usage)) {
            return kExitUsage;
        }
    }
    const int written = writeEquationOutput(arguments, curve, view, target, out);
    const int saved = document ? saveGraph(*saveTo, *document, out) : kExitOk;
    return std::max(written, saved);
}

}  // namespace

Command equationCommand() {
    return {equationSyntax(), runEquation};
}

}  // namespace curvemill::cli
