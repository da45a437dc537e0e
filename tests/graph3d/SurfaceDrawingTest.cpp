// Cell drawing: holes and triangles, skipped lines, pixel squares and the clip, the passes and
// their far-to-near order; the box around the surface.
#include <algorithm>
#include <cmath>
#include <tuple>

#include <gtest/gtest.h>

#include "SurfaceFixture.h"
#include "graph3d/SurfaceCsv.h"
#include "graph3d/SurfaceGridBox.h"

namespace curvemill {
namespace {

ScreenPoint at(int i, int j) {
    return {10 * i, 10 * j};
}

// On a flat 4 x 4 grid whose vertex (i, j) sits at pixel (10 i, 10 j): an indefinite vertex
// leaves a hole and triangles, and lines and pixels leave it out; pixels are dots or squares
// inside the clip, and an unknown mode draws nothing.
TEST(SurfaceDrawing, IndefiniteVerticesLeaveHolesAndPixelsStayInsideTheClip) {
    SurfaceScene scene;
    ScreenPoints points;
    scene.grid.allocate(4, 4);
    points.fit(scene.grid);
    for (int i = 0; i <= 4; ++i) {
        for (int j = 0; j <= 4; ++j) {
            scene.grid.vertex(i, j) = {double(i), double(j), 0, 0, 0};
            points.at(i, j) = at(i, j);
        }
    }
    scene.grid.vertex(2, 2).indefinite = 1;
    RecordingSink polygons;
    for (const auto& [i, j] : {std::pair{1, 1}, {2, 2}, {3, 2}, {2, 3}, {3, 3}}) {
        drawCellPolygon(scene, points, i, j, 7, polygons);
    }
    ASSERT_EQ(polygons.items.size(), 4u);
    EXPECT_EQ(polygons.items[0].points, (std::vector{at(1, 1), at(0, 1), at(0, 0), at(1, 0)}));
    EXPECT_EQ(polygons.items[1].points, (std::vector{at(3, 2), at(2, 1), at(3, 1)}));
    EXPECT_EQ(polygons.items[2].points, (std::vector{at(2, 3), at(1, 3), at(1, 2)}));
    EXPECT_EQ(polygons.items[3].points, (std::vector{at(3, 3), at(2, 3), at(3, 2)}));

    scene.grid.vertex(1, 3).indefinite = 1;
    RecordingSink lines;
    drawCellLines(scene, points, 2, 2, 1, lines);  // the vertex itself
    drawCellLines(scene, points, 2, 3, 1, lines);  // both back neighbours
    EXPECT_TRUE(lines.items.empty());
    drawCellLines(scene, points, 3, 2, 1, lines);
    ASSERT_EQ(lines.items.size(), 1u);
    EXPECT_EQ(lines.items[0].points, (std::vector{at(3, 2), at(3, 1)}));
    drawCellLines(scene, points, 1, 1, 1, lines);
    EXPECT_EQ(lines.items.size(), 3u);

    scene.grid.vertex(1, 3).indefinite = 0;  // below the clip: refused by the clip alone
    scene.grid.vertex(1, 2).indefinite = 1;
    const ClipRect clip{0, 0, 30, 20};
    RecordingSink sink;
    scene.drawing.pixelWidth = 1;
    drawCellPixel(scene, points, 3, 2, clip, 5, sink);  // on the clip's corner: drawn
    drawCellPixel(scene, points, 1, 2, clip, 5, sink);  // indefinite
    drawCellPixel(scene, points, 4, 1, clip, 5, sink);  // right of the clip
    drawCellPixel(scene, points, 1, 3, clip, 5, sink);  // below it
    ASSERT_EQ(sink.items.size(), 1u);
    EXPECT_EQ(sink.items[0].kind, '.');
    EXPECT_EQ(sink.items[0].points[0], at(3, 2));
    scene.drawing.pixelWidth = 4;
    drawCellPixel(scene, points, 2, 1, clip, 5, sink);
    ASSERT_EQ(sink.items.size(), 2u);
    EXPECT_EQ(sink.items[1].kind, 'S');
    EXPECT_EQ(sink.items[1].points, (std::vector<ScreenPoint>{{18, 8}, {22, 12}}));
}

// Each pass over a 10 x 10 grid: how many lines, which come first and last. The first corner of
// each cell drawn is its own vertex (i, j); rows are lines of one j, columns of one i.
// Lines, first line, last line.
const std::tuple<int, int, int> kPasses[] = {{9, 9, 1}, {9, 1, 9}, {8, 9, 2}, {9, 1, 9}};

// Whatever way the figure is then turned, the line drawn first lies further from the eye than
// the line drawn last, and the inner walk runs far to near where the eye's quadrant allows.
// The export takes the vertices where the screen shows them: a part keeps those inside it, edges
// included, and the holes of undefined values stay out.
TEST(SurfaceCsv, APartKeepsTheVerticesTheScreenShowsInIt) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "ln(x-0.01)+y", -1, 1, -1, 1, nullptr, 100), SurfaceOutcome::Done);
    const auto rows = [&](const std::optional<PixelRect>& part) {
        const std::string csv = surfaceVerticesCsv(scene, 400, 300, part);
        return std::count(csv.begin(), csv.end(), '\n') - 1;
    };
    const auto all = rows(std::nullopt);
    EXPECT_EQ(all, 50 * 101);  // x > 0.01 only
    const auto left = rows(PixelRect{0, 0, 200, 300});
    EXPECT_GT(left, 0);
    EXPECT_LT(left, all);
    EXPECT_EQ(left + rows(PixelRect{200.5, 0, 400, 300}), all);
}

TEST(SurfaceDrawing, PassesWalkTheirLinesFarToNearForEveryRotation) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -2, 2, nullptr, 10), SurfaceOutcome::Done);
    for (int pass = 1; pass <= 4; ++pass) {
        SCOPED_TRACE(pass);
        DrawingPlan plan = prepareDrawing(scene, 400, 300);
        plan.pass = pass;
        const auto& [lines, firstLine, lastLine] = kPasses[pass - 1];
        EXPECT_EQ(lineCount(scene, pass), lines);
        RecordingSink sink;
        drawLines(scene, plan, 0, lineCount(scene, pass), sink);
        ASSERT_EQ(sink.items.size(), std::size_t(lines * 9));
        const auto lineOf = [&](const RecordingSink::Item& r) {
            for (int i = 0; i <= 10; ++i) {
                for (int j = 0; j <= 10; ++j) {
                    if (plan.points.at(i, j) == r.points[0]) {
                        return pass <= 2 ? j : i;
                    }
                }
            }
            return -1;
        };
        EXPECT_EQ(lineOf(sink.items.front()), firstLine);
        EXPECT_EQ(lineOf(sink.items.back()), lastLine);
    }
    const SurfaceGrid& g = scene.grid;
    using enum RotationMode;
    for (const RotationMode mode : {kNone, kAboutZ, kAboutX, kAboutY}) {
        for (int angle = 0; angle < 360; angle += 30) {
            SCOPED_TRACE(testing::Message() << static_cast<int>(mode) << ' ' << angle);
            scene.view.mode = mode;
            setAxisAngle(scene.view, angle);
            const int pass = choosePass(scene.view, g);
            const Vec3 eye = eyeInGridSpace(scene.view, g);
            const bool rows = pass <= 2;
            const auto at = [&](int line) {
                return rows ? g.vertex(0, line).y : g.vertex(line, 0).x;
            };
            const double e = rows ? eye.y : eye.x;
            const auto& [lines, firstLine, lastLine] = kPasses[pass - 1];
            EXPECT_GT(std::fabs(e - at(firstLine)), std::fabs(e - at(lastLine))) << "pass " << pass;
            const double across = rows ? eye.x - g.xc : eye.y - g.yc;
            const double along = rows ? eye.y - g.yc : eye.x - g.xc;
            if (across < 0 && std::fabs(along) > 1e-9) {
                // Only where no pass could do better: the eye beyond both low sides.
                EXPECT_LT(along, 0) << "pass " << pass;
            }
        }
    }
}

// The box around a surface: tidy values, back faces chosen from the eye, and the projection of
// its corners and labels by the same route as the surface's vertices.
TEST(SurfaceGridBox, ValuesAtTidySteps) {
    const std::tuple<double, double, std::vector<double>, int> cases[] = {
        {-1, 1, {-1, -0.5, 0, 0.5, 1}, 1},
        {0, 100, {0, 20, 40, 60, 80, 100}, 0},
        {-3, 3, {-3, -2, -1, 0, 1, 2, 3}, 0},
        {0.13, 0.21, {0.14, 0.16, 0.18, 0.20}, 2},
        {1, 1, {}, 0},
        {2, 1, {}, 0},
    };
    for (const auto& [begin, end, wanted, wantedDecimals] : cases) {
        SCOPED_TRACE(::testing::Message() << begin << " .. " << end);
        int decimals = -1;
        const std::vector<double> values = boxValues(begin, end, decimals);
        ASSERT_EQ(values.size(), wanted.size());
        for (std::size_t k = 0; k < values.size(); ++k) {
            EXPECT_NEAR(values[k], wanted[k], 1e-12);
        }
        EXPECT_EQ(decimals, wantedDecimals);
    }
}

TEST(SurfaceGridBox, LinesOnTheBackFacesLabelsNamingTheAxesAllProjectedLikeTheSurface) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -2, 2, nullptr, 10), SurfaceOutcome::Done);
    const SurfaceGrid& g = scene.grid;
    const auto onFace = [](const BoxLine& l, char axis, double v) {
        const auto c = [axis](Vec3 p) { return axis == 'x' ? p.x : axis == 'y' ? p.y : p.z; };
        return c(l.from) == v && c(l.to) == v;
    };
    for (int turn = 0; turn < 2; ++turn) {
        SCOPED_TRACE(turn);
        if (turn == 1) {
            scene.view.mode = RotationMode::kAboutZ;
            setAxisAngle(scene.view, 180);
        }
        const double backX = turn == 0 ? g.xBegin : g.xEnd;
        const double backY = turn == 0 ? g.yBegin : g.yEnd;
        const GridBox box = layoutGridBox(scene.view, g);
        int edges = 0;
        int gridLines = 0;
        for (const BoxLine& line : box.lines) {
            edges += line.edge;
            gridLines += !line.edge;
            EXPECT_TRUE(line.edge || onFace(line, 'x', backX) || onFace(line, 'y', backY) ||
                        onFace(line, 'z', g.zLow));
        }
        // Seen from above, the values lie on the floor. Each axis is named once, and the corner
        // the x and y rows share carries both values.
        std::string names;
        int yValues = 0;
        for (const BoxLabel& label : box.labels) {
            EXPECT_TRUE(label.axis == 'z' || label.anchor.z == g.zLow) << label.text;
            names += label.axisName ? label.text : "";
            yValues += label.axis == 'y' && !label.axisName;
        }
        // x: 5 values on two faces, y: 5 on two, z: 5 on two: 30 grid lines.
        EXPECT_EQ(std::tuple(names, yValues, edges, gridLines), std::tuple("xyz", 5, 12, 30));
    }
    // Turned by the matrix, the box's corners and labels land where the surface's points would.
    setRotationMatrix(scene.view, 20, -35, 60);
    const Placement placement = fitFigure(scene.view, g, 640, 480);
    const GridBox box = layoutGridBox(scene.view, g);
    const ProjectedGridBox projected = projectGridBox(scene.view, g, placement);
    ASSERT_EQ(projected.lines.size(), box.lines.size());
    ASSERT_EQ(projected.labels.size(), box.labels.size());
    for (std::size_t k = 0; k < box.lines.size(); ++k) {
        const PlanePoint a = projectPoint(scene.view, g, box.lines[k].from, placement);
        EXPECT_DOUBLE_EQ(projected.lines[k].from.x, a.x);
        EXPECT_DOUBLE_EQ(projected.lines[k].from.y, a.y);
    }
    const PlanePoint middle = projectPoint(scene.view, g, {g.xc, g.yc, g.zc}, placement);
    int xLabels = 0;
    for (std::size_t k = 0; k < box.labels.size(); ++k) {
        const BoxLabel& label = box.labels[k];
        const PlanePoint at = projectPoint(scene.view, g, label.anchor, placement);
        EXPECT_DOUBLE_EQ(projected.labels[k].anchor.x, at.x);
        EXPECT_DOUBLE_EQ(projected.labels[k].anchor.y, at.y);
        // The text moves away from the figure, never across it.
        const PlanePoint out = projected.labels[k].outward;
        EXPECT_GT(out.x * (at.x - middle.x) + out.y * (at.y - middle.y), 0) << label.text;
        xLabels += label.axis == 'x' && !label.axisName;
        // Turned this way the figure is seen from below: the values go along the lid.
        if (label.axis == 'x') {
            EXPECT_EQ(label.anchor.z, g.zHigh);
        }
    }
    EXPECT_EQ(xLabels, 5);
    EXPECT_EQ(box.labels.front().text, "-1.0");
}

}  // namespace
}  // namespace curvemill
