// The surface's points as the export writes them: the vertices a part of the screen shows.
#pragma once

#include <optional>
#include <string>

#include "graph2d/PixelRect.h"

namespace curvemill {

struct SurfaceScene;

// The defined vertices (i, j, x, y, z) whose points on a screen of `width` x `height` pixels lie
// inside `part` (edges included), or every defined vertex without a part. Rewrites the scene's
// screen points for that target, as any drawing does.
std::string surfaceVerticesCsv(SurfaceScene& scene, int width, int height,
                               const std::optional<PixelRect>& part);

}  // namespace curvemill
