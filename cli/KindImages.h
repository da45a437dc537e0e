// The picture of each graph kind written to the file a command names, drawn by the painter the
// program's window draws that kind with. The commands that compute a graph and `render`, which
// draws a saved one, write their pictures through these, so the two can never drift apart.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/Arguments.h"
#include "output/ui/ImageFiles.h"

namespace curvemill {
struct CurveGraph;
struct CurveLook;
struct EquationCurve;
struct EquationLook;
struct GraphView;
struct SurfaceScene;
struct TwoDGraph;
}  // namespace curvemill

namespace curvemill::cli {

// Where a picture goes and how big it is.
struct ImageTarget {
    std::string path;
    ImageFormat format = ImageFormat::Png;
    int depth = 24;
    int width = 1024;
    int height = 768;
};

// -o FILE, --depth and --size as every drawing command reads them, when -o was given; nothing
// after telling `usage` for a bad value. `ok` turns false on a usage error.
std::optional<ImageTarget> imageTarget(const ParsedArguments& arguments, UsageErrors& usage,
                                       bool& ok);

// Each returns kExitOk, or kExitRefused after telling on `out` why the file was not written.
// The view is laid out for target.width x target.height; SVG and PDF pages, which ask for more
// pixels than that, get it laid out again at theirs.
int writeTwoDImage(const ImageTarget& target, const TwoDGraph& graph, const GraphView& view,
                   std::ostream& out);
int writeEquationImage(const ImageTarget& target, const EquationCurve& curve, const GraphView& view,
                       const EquationLook& look, std::ostream& out);
int writeCurveImage(const ImageTarget& target, const CurveGraph& graph, const GraphView& view,
                    const CurveLook& look, std::ostream& out);
// The figure is fitted to the target, as the window fits it.
int writeSurfaceImage(const ImageTarget& target, SurfaceScene& scene, std::ostream& out);

// A picture of the axes alone is still written, since the script asked for a file, but not in
// silence: says on standard error that `variable` from `begin` to `end` gave no value at all.
void tellNothingDrawn(UsageErrors& usage, std::string_view variable, const std::string& begin,
                      const std::string& end);

}  // namespace curvemill::cli
