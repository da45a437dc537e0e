// The surface command's --rotate and --view: the figure turned and the eye placed as the
// ThreeD Rotation dialog and the viewer location settings do.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "cli/Arguments.h"
#include "graph3d/SurfaceRotation.h"

namespace curvemill::cli {

// Whole viewer locations for which the eye stands outside the figure's box (a horizontal
// location of 0 would put it on the box's edge) and the figure is still more than a dot.
inline constexpr int kLeastHorizontalLocation = 1;
inline constexpr int kMostHorizontalLocation = 20;
inline constexpr int kMostVerticalLocation = 20;

// "A,B,C": degrees about x, y and z, any finite numbers. No value gives no rotation.
std::optional<RotationAngles> readRotation(const std::optional<std::string>& value,
                                           UsageErrors& usage);

// "H,V": whole horizontal and vertical locations. No value keeps the view's own.
bool readViewerLocation(const std::optional<std::string>& value, SurfaceView& view,
                        UsageErrors& usage);

}  // namespace curvemill::cli
