// Graph documents on the command line: --save-graph writes the document of what a command drew,
// `render` draws a saved one again. Both go through the document's own checks, reader and writer.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "cli/Arguments.h"
#include "document/GraphDocument.h"

namespace curvemill {
class Formula;
struct EquationCurve;
struct EquationGrid;
struct SurfaceScene;
}  // namespace curvemill

namespace curvemill::cli {

struct ImageTarget;

// --save-graph DOC, for plot, equation, surface, parametric and polar.
OptionSpec saveGraphOption();

// Whether `document` is one the program could open: a command line may ask for more than a window
// offers (an equation's grid of 37 points), which no document may hold. Refused on `usage`, before
// anything is written.
bool acceptSavedGraph(const GraphDocument& document, UsageErrors& usage);

// Writes the document to `path` through the one safe writer ("-" is `out` itself); kExitOk, or
// kExitRefused after "CANNOT WRITE 'path': why" on `out`.
int saveGraph(const std::string& path, const GraphDocument& document, std::ostream& out);

// Reads the document at `path`, computes its graph as the window does on opening and draws it to
// `target`; kExitRefused with the reader's message (or the computation's) on `out`.
int renderDocument(const std::string& path, const ImageTarget& target, std::ostream& out);

// The computations the surface and equation commands run, shared with `render`. The surface: the
// grid computed and a new figure set up, or kNoMemoryMessage.
std::optional<std::string> computeSurfaceFigure(Formula& formula, SurfaceScene& scene);
// The equation's solutions on `grid`, titled `typed`; false when the solutions' limit cut it.
bool solveEquationGrid(Formula& formula, const EquationGrid& grid, const std::string& typed,
                       EquationCurve& curve);

}  // namespace curvemill::cli
