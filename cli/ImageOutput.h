// Writing a drawn graph to the file named on the command line, in the format of its extension.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/Arguments.h"
#include "output/ui/ImageFiles.h"

namespace curvemill::cli {

// The format `path` asks for: its extension's (.png, .bmp, .svg, .pdf, any letter case), PNG for
// a name without one (a device or pipe such as /dev/stdout). An unknown extension is told on
// `usage` and gives nothing.
std::optional<ImageFormat> outputFormat(const std::string& path, UsageErrors& usage);

// Reads "--depth 24|8" (24 when absent); a wrong value is told on `usage`.
std::optional<int> outputDepth(const std::optional<std::string>& value, UsageErrors& usage);

// Draws the picture of `pixels` in `format` and writes it to `path` whole or not at all (see
// writeFileSafely); the path "-" means `out` itself, as for most command-line tools (every format
// is bytes, so each may go down a pipe). Returns kExitOk, or kExitRefused after
// "CANNOT WRITE 'path': why" on `out`.
// For every command that writes a graph: plot, and the equation and surface commands.
int writeGraphImage(const std::string& path, ImageFormat format, const PageDrawing& draw,
                    QSize pixels, const ImageFileOptions& options, std::ostream& out);

}  // namespace curvemill::cli
