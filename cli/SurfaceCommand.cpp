#include <algorithm>
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
#include "cli/SurfaceLook.h"
#include "cli/TwoVariableEntries.h"
#include "cli/ViewArguments.h"
#include "document/DocumentState.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "engine/Preparation.h"
#include "graph3d/SurfaceCompute.h"
#include "graph3d/SurfaceScene.h"
#include "twovar/TwoVariableSettings.h"

namespace curvemill::cli {
namespace {

CommandSyntax coreSurfaceSyntax() {
    return {
        "surface",
        "Computes the surface z = FORMULA (in x and y) over [A, B] x [C, D] as the ThreeD\n"
        "window does and draws it into an image as the program draws it, or prints what was\n"
        "computed. The file's extension chooses the format: .png, .bmp, .svg or .pdf.",
        "FORMULA",
        1,
        64,
        {{"x-begin", "A", "X Begin, read like the ThreeD window's box"},
         {"x-end", "B", "X End"},
         {"y-begin", "C", "Y Begin"},
         {"y-end", "D", "Y End"},
         {"nx", "N", "intervals along x, 100 to 500 (default 100)"},
         {"ny", "N", "intervals along y, 100 to 500 (default 100)"},
         {"mode", "M", "polygons, lines or pixels (default polygons)"},
         {"scheme", "S", "colour scheme r, g, b, c, m, y, 1 (grey) or o (own colour)"},
         {"rotate", "A,B,C", "turn the figure by A, B and C degrees about x, y and z"},
         {"view", "H,V",
          "viewer location: horizontal 1 to 20 (default 5),\n"
          "vertical -20 to 20 (default 3)"},
         imageSizeOption(),
         {"depth", "24|8", "bits per pixel of a .bmp file (default 24)"},
         {"output", "FILE", "the image file to write (also -o FILE; - is stdout, as PNG)"},
         {"summary", "",
          "print zMin, zMax, zLow, zHigh, zLimits, zLimitStep, steps and\n"
          "indefinite, one per line"},
         {"vertices", "", "print every vertex as CSV i,j,x,y,z,zShown,indefinite"},
         saveGraphOption()},
        "Give exactly one of -o FILE, --summary and --vertices, or --save-graph alone. Numbers\n"
        "are printed with 17 significant digits. Options may come before or after FORMULA.\n"
        "Exit status: 0 done, 1 an entry refused (the window's message is printed) or the\n"
        "file could not be written, 2 wrong command line (an unknown extension too).\n",
        true};
}

// The options of the figure's look follow those of the computation and the output.
CommandSyntax surfaceSyntax() {
    CommandSyntax syntax = coreSurfaceSyntax();
    for (OptionSpec& option : surfaceLookOptions()) {
        syntax.options.push_back(std::move(option));
    }
    return syntax;
}

// Reads the four range boxes and the formula in the window's order into the grid's domain.
std::optional<std::string> readSurface(Formula& formula, const ParsedArguments& arguments,
                                       const std::string& typed, SurfaceGrid& grid) {
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

template <typename Choice>
std::optional<Choice> choiceArgument(
    const std::optional<std::string>& value, std::string_view name,
    std::initializer_list<std::pair<std::string_view, Choice>> choices, Choice fallback,
    UsageErrors& usage) {
    if (!value) {
        return fallback;
    }
    for (const auto& [word, choice] : choices) {
        if (*value == word) {
            return choice;
        }
    }
    std::ostream& err = usage.report() << "--" << name << " must be one of";
    for (const auto& choice : choices) {
        err << ' ' << choice.first;
    }
    err << ", not " << quoted(*value) << "\n";
    return std::nullopt;
}

void printSummary(const SurfaceGrid& grid, std::ostream& out) {
    out << "zMin " << fullPrecision(grid.limits.zMin) << '\n'
        << "zMax " << fullPrecision(grid.limits.zMax) << '\n'
        << "zLow " << fullPrecision(grid.zLow) << '\n'
        << "zHigh " << fullPrecision(grid.zHigh) << '\n'
        << "zLimits " << (grid.limits.active ? 'y' : 'n') << '\n'
        << "zLimitStep " << grid.limits.step << '\n'
        << "steps " << grid.limits.availableSteps << '\n'
        << "indefinite " << grid.indefiniteCount() << '\n';
}

void printVertices(const SurfaceGrid& grid, std::ostream& out) {
    std::string text = "i,j,x,y,z,zShown,indefinite\n";
    for (int i = 0; i <= grid.nx; ++i) {
        for (int j = 0; j <= grid.ny; ++j) {
            const SurfaceVertex& v = grid.vertex(i, j);
            text += std::to_string(i) + ',' + std::to_string(j) + ',' + fullPrecision(v.x) + ',' +
                    fullPrecision(v.y) + ',' + fullPrecision(v.z) + ',' + fullPrecision(v.zShown) +
                    ',' + char('0' + v.indefinite) + '\n';
        }
        if (text.size() > (1u << 20)) {
            out << text;
            text.clear();
        }
    }
    out << text;
}

// The document of the surface the command drew: its entries as typed, its look and angles.
GraphDocument surfaceDocument(const ParsedArguments& arguments, const std::string& typed,
                              const SurfaceScene& scene, const RotationAngles& angles) {
    TwoVariableSettings entries =
        typedTwoVariableEntry(arguments, typed, TwoVariableMode::kSurface);
    entries.surfaceXPoints = scene.grid.requestedNx;
    entries.surfaceYPoints = scene.grid.requestedNy;
    GraphDocument document;
    document.kind = DocumentKind::kSurface;
    document.surface = captureSurface(entries, scene, angles);
    return document;
}

int runSurface(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto typed = formulaArgument(arguments.positionals[0], usage);
    const auto nx = wholeArgument(arguments.value("nx"), "nx", 100, 500, 100, usage);
    const auto ny = wholeArgument(arguments.value("ny"), "ny", 100, 500, 100, usage);
    const auto mode = choiceArgument(arguments.value("mode"), "mode",
                                     {{kDrawingModeNames[0], DrawingMode::kPolygons},
                                      {kDrawingModeNames[1], DrawingMode::kLines},
                                      {kDrawingModeNames[2], DrawingMode::kPixels}},
                                     DrawingMode::kPolygons, usage);
    const auto scheme = choiceArgument(arguments.value("scheme"), "scheme",
                                       {{"r", ColourScheme::kRed},
                                        {"g", ColourScheme::kGreen},
                                        {"b", ColourScheme::kBlue},
                                        {"c", ColourScheme::kCyan},
                                        {"m", ColourScheme::kMagenta},
                                        {"y", ColourScheme::kYellow},
                                        {"1", ColourScheme::kGrey},
                                        {"o", ColourScheme::kOwn}},
                                       ColourScheme::kRed, usage);
    const auto rotation = readRotation(arguments.value("rotate"), usage);
    SurfaceView placedEye;
    bool ok = true;
    const auto target = imageTarget(arguments, usage, ok);
    if (!typed || !nx || !ny || !mode || !scheme || !rotation || !ok ||
        !readViewerLocation(arguments.value("view"), placedEye, usage) ||
        !requireOptions(arguments, {"x-begin", "x-end", "y-begin", "y-end"}, usage)) {
        return kExitUsage;
    }
    const auto output = arguments.value("output");
    const auto saveTo = arguments.value("save-graph");
    const bool summary = arguments.flag("summary");
    const bool vertices = arguments.flag("vertices");
    const int outputs = int(output.has_value()) + int(summary) + int(vertices);
    if (outputs > 1 || (outputs == 0 && !saveTo)) {
        usage.report() << "give exactly one of -o FILE, --summary and --vertices\n";
        return kExitUsage;
    }

    Formula formula;
    SurfaceScene scene;
    scene.grid.requestedNx = *nx;
    scene.grid.requestedNy = *ny;
    if (const auto refusal = readSurface(formula, arguments, *typed, scene.grid)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    if (const auto refusal = computeSurfaceFigure(formula, scene)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    scene.view.horizontalLocation = placedEye.horizontalLocation;
    scene.view.verticalLocation = placedEye.verticalLocation;
    setUpView(scene.view, scene.grid);
    applyRotation(scene.view, *rotation);
    scene.drawing.mode = *mode;
    scene.light.scheme = *scheme;
    if (!applySurfaceLook(arguments, scene, usage)) {
        return kExitUsage;
    }
    std::optional<GraphDocument> document;
    if (saveTo) {
        document = surfaceDocument(arguments, *typed, scene, *rotation);
        if (!acceptSavedGraph(*document, usage)) {
            return kExitUsage;
        }
    }
    const int saved = document ? saveGraph(*saveTo, *document, out) : kExitOk;
    if (summary) {
        printSummary(scene.grid, out);
    } else if (vertices) {
        printVertices(scene.grid, out);
    } else if (target) {
        return std::max(writeSurfaceImage(*target, scene, out), saved);
    }
    return saved;
}

}  // namespace

Command surfaceCommand() {
    return {surfaceSyntax(), runSurface};
}

}  // namespace curvemill::cli
