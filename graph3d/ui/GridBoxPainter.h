// Paints the box around a surface in two passes: the back faces' lines and edges before the
// surface (so the surface hides what lies behind it), the edges nearest the eye and the values
// after it (so the figure never covers them).
#pragma once

#include <QSize>

#include "graph3d/SurfaceScene.h"

class QPainter;

namespace curvemill {

enum class BoxPass { Behind, InFront };

// Makes `painter` (saved by the caller) draw in device pixels of a target of `devicePixels`,
// whatever its device pixel ratio, combined with the caller's transform and clipped to the target.
void drawInDevicePixels(QPainter& painter, QSize devicePixels);

// Both draw in device pixels of a target of `devicePixels` with the placement the surface is
// drawn with; nothing while the scene's box is off or it holds no completed surface. The
// painter's state is restored.
void paintGridBoxLines(QPainter& painter, const SurfaceScene& scene, const Placement& placement,
                       QSize devicePixels, BoxPass pass);
void paintGridBoxLabels(QPainter& painter, const SurfaceScene& scene, const Placement& placement,
                        QSize devicePixels);

}  // namespace curvemill
