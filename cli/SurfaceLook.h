// The options of `surface` that set the look the 3D customization dialog sets: the grid box,
// the light vector, fog, ambient light and shine.
#pragma once

#include <ostream>
#include <vector>

#include "cli/Arguments.h"
#include "graph3d/SurfaceScene.h"

namespace curvemill::cli {

std::vector<OptionSpec> surfaceLookOptions();

// Applies the options to a scene whose new figure has been set up; false (with the reason on
// `usage`) for a value out of range.
bool applySurfaceLook(const ParsedArguments& arguments, SurfaceScene& scene, UsageErrors& usage);

}  // namespace curvemill::cli
