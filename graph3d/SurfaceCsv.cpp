#include "graph3d/SurfaceCsv.h"

#include <vector>

#include "graph3d/SurfaceDrawing.h"
#include "graph3d/SurfaceScene.h"
#include "output/PointsCsv.h"

namespace curvemill {

std::string surfaceVerticesCsv(SurfaceScene& scene, int width, int height,
                               const std::optional<PixelRect>& part) {
    std::vector<CsvVertex> vertices;
    SurfaceGrid& grid = scene.grid;
    if (scene.complete && grid.allocated() && width > 0 && height > 0) {
        // Projecting every vertex for the screen's size puts each where the screen shows it.
        const DrawingPlan plan = prepareDrawing(scene, width, height);
        for (int i = 0; plan.points.fits(grid) && i <= grid.nx; ++i) {
            for (int j = 0; j <= grid.ny; ++j) {
                const SurfaceVertex& v = grid.vertex(i, j);
                const ScreenPoint at = plan.points.at(i, j);
                if (v.indefinite == 0 && (!part || part->contains(at.x, at.y))) {
                    vertices.push_back({i, j, v.x, v.y, v.z});
                }
            }
        }
    }
    return verticesCsv(vertices);
}

}  // namespace curvemill
