#include "graph3d/SurfaceDrawing.h"

#include <cmath>

namespace curvemill {

namespace {

bool defined(const SurfaceGrid& grid, int i, int j) {
    return grid.vertex(i, j).indefinite == 0;
}

// The outer line of a pass at position `index` of its walk; passes 1 and 3 count down.
int outerLine(const SurfaceScene& scene, int pass, int index) {
    const int stepI = scene.light.stepI;
    const int stepJ = scene.light.stepJ;
    switch (pass) {
        case 1:
            return scene.grid.ny - stepJ - index * stepJ;
        case 2:
            return stepJ + index * stepJ;
        case 3:
            return scene.grid.nx - stepI - index * stepI;
        default:
            return stepI + index * stepI;
    }
}

bool outerLineInRange(const SurfaceScene& scene, int pass, int k) {
    switch (pass) {
        case 1:
            return k >= scene.light.stepJ;
        case 2:
            return k < scene.grid.ny;
        case 3:
            // Stops before i = stepI: that column of cells is never drawn by this pass.
            return k > scene.light.stepI;
        default:
            return k < scene.grid.nx;
    }
}

// Whether `pass` draws the cell whose own vertex is (i, j): the walks above stop short of the
// last row and column, and pass 3 of the column i = stepI as well.
bool cellDrawn(const SurfaceScene& scene, int pass, int i, int j) {
    const int si = scene.light.stepI;
    const int sj = scene.light.stepJ;
    return i >= si && i < scene.grid.nx && j >= sj && j < scene.grid.ny && (pass != 3 || i > si);
}

// Twice the signed area of the projected cell, by its diagonals; 0 where a corner is missing.
std::int64_t facing(const SurfaceScene& scene, const ScreenPoints& points, int i, int j) {
    const int si = scene.light.stepI;
    const int sj = scene.light.stepJ;
    const SurfaceGrid& grid = scene.grid;
    if (!defined(grid, i, j) || !defined(grid, i - si, j) || !defined(grid, i - si, j - sj) ||
        !defined(grid, i, j - sj)) {
        return 0;
    }
    const ScreenPoint a = points.at(i, j);
    const ScreenPoint b = points.at(i - si, j);
    const ScreenPoint c = points.at(i - si, j - sj);
    const ScreenPoint d = points.at(i, j - sj);
    return std::int64_t(c.x - a.x) * (d.y - b.y) - std::int64_t(c.y - a.y) * (d.x - b.x);
}

// The edges of a whole cell behind which no neighbour of the same facing is drawn. Between two
// neighbours that face the same way the fills meet exactly, so blending there would only cost
// time; everywhere else the edge is where the figure's outline runs.
unsigned openEdges(const SurfaceScene& scene, const ScreenPoints& points, int i, int j, int pass) {
    const std::int64_t own = facing(scene, points, i, j);
    if (own == 0) {
        return 0xfu;
    }
    const int si = scene.light.stepI;
    const int sj = scene.light.stepJ;
    // Across the edge from corner k to corner k + 1 of {(i,j), (i-si,j), (i-si,j-sj), (i,j-sj)}.
    const int across[4][2] = {{i, j + sj}, {i - si, j}, {i, j - sj}, {i + si, j}};
    unsigned open = 0;
    for (int k = 0; k < 4; ++k) {
        const int ni = across[k][0];
        const int nj = across[k][1];
        const std::int64_t other =
            cellDrawn(scene, pass, ni, nj) ? facing(scene, points, ni, nj) : 0;
        if ((other > 0) != (own > 0) || other == 0) {
            open |= 1u << k;
        }
    }
    return open;
}

}  // namespace

// Cells are drawn row by row: every cell of one outer line before the next line, each line's
// cells in ascending order. The outer walk goes from the lines far from the eye to the near
// ones, judged by where the eye stands in the grid's own (unrotated) space relative to the
// centre. A pass is wholly right when the ascending inner order also runs far to near, so:
//   eye beyond the high-x and high-y sides: pass 2 (j up) or 4 (i up), whichever axis the eye
//     lies further along;
//   eye on the low-x, high-y side: pass 3 (i down; inner j up runs far to near);
//   eye on the high-x, low-y side: pass 1 (j down; inner i up runs far to near);
//   eye beyond both low sides: no pass is wholly right; the outer walk follows the axis the eye
//     lies further along (1 or 3), where a wrong inner order shows least.
int choosePass(const SurfaceView& view, const SurfaceGrid& grid) {
    const Vec3 eye = eyeInGridSpace(view, grid);
    const double ex = eye.x - grid.xc;
    const double ey = eye.y - grid.yc;
    const bool yDominates = std::fabs(ey) >= std::fabs(ex);
    if (ex >= 0 && ey >= 0) {
        return yDominates ? 2 : 4;
    }
    if (ex < 0 && ey >= 0) {
        return 3;
    }
    if (ex >= 0 && ey < 0) {
        return 1;
    }
    return yDominates ? 1 : 3;
}

void colourRow(SurfaceScene& scene, const LightWeights& weights, bool alongX, int k) {
    std::vector<RowCell>& line = scene.grid.scratchLine();
    const int count = alongX ? scene.grid.nx : scene.grid.ny;
    for (int n = 1; n < count; ++n) {
        line[n].index = n;
        line[n].colour = alongX ? cellColour(scene.light, weights, scene.view, scene.grid, n, k)
                                : cellColour(scene.light, weights, scene.view, scene.grid, k, n);
    }
}

void drawCellPixel(const SurfaceScene& scene, const ScreenPoints& points, int i, int j,
                   const ClipRect& clip, std::uint32_t colour, SurfaceSink& sink) {
    const SurfaceGrid& grid = scene.grid;
    if (!defined(grid, i, j)) {
        return;
    }
    const ScreenPoint p = points.at(i, j);
    if (p.x < clip.left || p.x > clip.right || p.y < clip.top || p.y > clip.bottom) {
        return;
    }
    const int w = scene.drawing.pixelWidth;
    if (w > 1) {
        sink.square(p.x - w / 2, p.y - w / 2, p.x + w / 2, p.y + w / 2, colour);
    } else {
        sink.pixel(p, colour);
    }
}

void drawCellLines(const SurfaceScene& scene, const ScreenPoints& points, int i, int j,
                   std::uint32_t colour, SurfaceSink& sink) {
    const SurfaceGrid& grid = scene.grid;
    if (!defined(grid, i, j)) {
        return;
    }
    const bool left = defined(grid, i - 1, j);
    const bool back = defined(grid, i, j - 1);
    if (left) {
        sink.line(points.at(i, j), points.at(i - 1, j), colour);
    }
    if (back) {
        sink.line(points.at(i, j), points.at(i, j - 1), colour);
    }
}

void drawCellPolygon(const SurfaceScene& scene, const ScreenPoints& points, int i, int j,
                     std::uint32_t colour, SurfaceSink& sink, int pass) {
    const SurfaceGrid& grid = scene.grid;
    if (!defined(grid, i, j)) {
        return;
    }
    const int si = scene.light.stepI;
    const int sj = scene.light.stepJ;
    const int corners[4][2] = {{i, j}, {i - si, j}, {i - si, j - sj}, {i, j - sj}};
    ScreenPoint shape[4];
    int count = 0;
    for (const auto& c : corners) {
        if (defined(grid, c[0], c[1])) {
            shape[count++] = points.at(c[0], c[1]);
        }
    }
    sink.cell(shape, count, colour, count == 4 ? openEdges(scene, points, i, j, pass) : 0xfu);
    if (scene.drawing.shading && count >= 3) {
        // The facets' edges a quarter darker: the mesh shows the run of the surface where a
        // smooth, evenly lit slope would otherwise read as one flat patch.
        const std::uint32_t edge =
            packColour(redOf(colour) * 3 / 4, greenOf(colour) * 3 / 4, blueOf(colour) * 3 / 4);
        for (int k = 0; k < count; ++k) {
            sink.line(shape[k], shape[(k + 1) % count], edge);
        }
    }
}

void drawCell(const SurfaceScene& scene, const ScreenPoints& points, int i, int j,
              const ClipRect& clip, std::uint32_t colour, SurfaceSink& sink, int pass) {
    switch (scene.drawing.mode) {
        case DrawingMode::kPolygons:
            drawCellPolygon(scene, points, i, j, colour, sink, pass);
            break;
        case DrawingMode::kLines:
            drawCellLines(scene, points, i, j, colour, sink);
            break;
        case DrawingMode::kPixels:
            drawCellPixel(scene, points, i, j, clip, colour, sink);
            break;
    }
}

DrawingPlan prepareDrawing(SurfaceScene& scene, int width, int height) {
    DrawingPlan plan;
    SurfaceGrid& grid = scene.grid;
    plan.placement = fitFigure(scene.view, grid, width, height);
    plan.clip = {0, 0, width - 1, height - 1};
    prepareLight(scene.light, grid, scene.view.mode);
    plan.weights = lightWeights(scene.light);
    if (!plan.points.fit(grid)) {
        return plan;
    }
    for (int i = 0; i <= grid.nx; ++i) {
        for (int j = 0; j <= grid.ny; ++j) {
            const SurfaceVertex& v = grid.vertex(i, j);
            plan.points.at(i, j) =
                projectToPixel(scene.view, grid, {v.x, v.y, v.zShown}, plan.placement);
        }
    }
    plan.pass = choosePass(scene.view, grid);
    return plan;
}

int lineCount(const SurfaceScene& scene, int pass) {
    int count = 0;
    while (outerLineInRange(scene, pass, outerLine(scene, pass, count))) {
        ++count;
    }
    return count;
}

void drawLines(SurfaceScene& scene, const DrawingPlan& plan, int from, int to, SurfaceSink& sink) {
    const bool rows = plan.pass <= 2;
    const int step = rows ? scene.light.stepI : scene.light.stepJ;
    const int count = rows ? scene.grid.nx : scene.grid.ny;
    const std::vector<RowCell>& line = scene.grid.scratchLine();
    if (!plan.points.fits(scene.grid)) {
        return;
    }
    for (int n = from; n < to; ++n) {
        const int k = outerLine(scene, plan.pass, n);
        if (!outerLineInRange(scene, plan.pass, k)) {
            return;
        }
        colourRow(scene, plan.weights, rows, k);
        for (int m = step; m < count; m += step) {
            const RowCell& cell = line[m];
            if (rows) {
                drawCell(scene, plan.points, cell.index, k, plan.clip, cell.colour, sink,
                         plan.pass);
            } else {
                drawCell(scene, plan.points, k, cell.index, plan.clip, cell.colour, sink,
                         plan.pass);
            }
        }
        sink.lineDone();
    }
}

Placement drawSurface(SurfaceScene& scene, int width, int height, SurfaceSink& sink) {
    if (!scene.complete || !scene.grid.allocated() || !scene.grid.hasDefinedVertex()) {
        return {};
    }
    const DrawingPlan plan = prepareDrawing(scene, width, height);
    drawLines(scene, plan, 0, lineCount(scene, plan.pass), sink);
    return plan.placement;
}

}  // namespace curvemill
