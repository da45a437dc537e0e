// Everything the 3D graph on screen is made of: the grid, the view, the light and how it is drawn.
#pragma once

#include "graph3d/SurfaceGrid.h"
#include "graph3d/SurfaceLight.h"
#include "graph3d/SurfaceStyle.h"
#include "graph3d/SurfaceView.h"

namespace curvemill {

struct DrawingSettings {
    DrawingMode mode = DrawingMode::kPolygons;
    // Side of the square drawn per vertex in pixels mode, in device pixels (1..10); 1 sets one
    // pixel. Two keeps a 100 x 100 grid readable without merging its dots.
    std::int32_t pixelWidth = 2;
    // "Shading": polygons get their edges drawn a shade darker than their fill.
    bool shading = false;
    // The box with the domain's and the z range's edges, grid lines on its back faces and labels.
    bool gridBox = false;
};

struct SurfaceScene {
    SurfaceGrid grid;
    SurfaceView view;
    SurfaceLight light;
    DrawingSettings drawing;
    // A completed computation is on hand (a stopped or failed one leaves this false).
    bool complete = false;
};

// After a completed computation: the light, rotation and zoom every new surface starts from.
void startNewFigure(SurfaceScene& scene);

}  // namespace curvemill
