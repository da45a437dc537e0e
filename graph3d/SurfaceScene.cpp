#include "graph3d/SurfaceScene.h"

namespace curvemill {

void startNewFigure(SurfaceScene& scene) {
    setDefaultLight(scene.light, scene.grid);
    resetView(scene.view, scene.grid);
}

}  // namespace curvemill
