// Paints the box around a surface: lines before the surface (so the surface hides what lies
// behind it), values after it (so they stay readable).
#pragma once

#include <QSize>

#include "graph3d/SurfaceScene.h"

class QPainter;

namespace curvemill {

// Both draw in device pixels of a target of `devicePixels` with the placement the surface is
// drawn with; nothing while the scene's box is off or it holds no completed surface. The
// painter's state is restored.
void paintGridBoxLines(QPainter& painter, const SurfaceScene& scene, const Placement& placement,
                       QSize devicePixels);
void paintGridBoxLabels(QPainter& painter, const SurfaceScene& scene, const Placement& placement,
                        QSize devicePixels);

}  // namespace curvemill
