// The box around a surface: tidy values, back faces chosen from the eye, and the projection of
// its corners and labels by the same route as the surface's vertices.
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "SurfaceFixture.h"
#include "graph3d/SurfaceGridBox.h"

namespace curvemill {
namespace {

TEST(SurfaceGridBox, ValuesAtTidySteps) {
    const struct {
        double begin, end;
        std::vector<double> values;
        int decimals;
    } cases[] = {
        {-1, 1, {-1, -0.5, 0, 0.5, 1}, 1},
        {0, 100, {0, 20, 40, 60, 80, 100}, 0},
        {-3, 3, {-3, -2, -1, 0, 1, 2, 3}, 0},
        {0.13, 0.21, {0.14, 0.16, 0.18, 0.20}, 2},
        {1, 1, {}, 0},
        {2, 1, {}, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.begin << " .. " << c.end);
        int decimals = -1;
        const std::vector<double> values = boxValues(c.begin, c.end, decimals);
        ASSERT_EQ(values.size(), c.values.size());
        for (std::size_t k = 0; k < values.size(); ++k) {
            EXPECT_NEAR(values[k], c.values[k], 1e-12);
        }
        EXPECT_EQ(decimals, c.decimals);
    }
}

class GridBoxLayout : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -2, 2, nullptr, 10), SurfaceOutcome::Done);
    }
    SurfaceScene scene;
};

// Seen from beyond (X_END, Y_END) and above, the faces at X_BEG, Y_BEG and the bottom are the
// back faces; turned half round about z, the faces at X_END and Y_END are. Either way the labels
// name every axis and keep the values of the shared corner.
TEST_F(GridBoxLayout, GridLinesLieOnTheBackFacesAndTheAxesAreNamed) {
    const SurfaceGrid& g = scene.grid;
    const auto onFace = [](const BoxLine& l, char axis, double v) {
        const auto c = [axis](Vec3 p) { return axis == 'x' ? p.x : axis == 'y' ? p.y : p.z; };
        return c(l.from) == v && c(l.to) == v;
    };
    for (int turn = 0; turn < 2; ++turn) {
        SCOPED_TRACE(turn);
        if (turn == 1) {
            scene.view.mode = 'Q';
            setAxisAngle(scene.view, 180);
        }
        const double backX = turn == 0 ? g.xBegin : g.xEnd;
        const double backY = turn == 0 ? g.yBegin : g.yEnd;
        const GridBox box = layoutGridBox(scene.view, g);
        int edges = 0;
        int gridLines = 0;
        for (const BoxLine& line : box.lines) {
            if (line.edge) {
                ++edges;
                continue;
            }
            ++gridLines;
            EXPECT_TRUE(onFace(line, 'x', backX) || onFace(line, 'y', backY) ||
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
        EXPECT_EQ(names, "xyz");
        EXPECT_EQ(yValues, 5);
        EXPECT_EQ(edges, 12);
        // x: 5 values on two faces, y: 5 on two, z: 5 on two.
        EXPECT_EQ(gridLines, 30);
    }
}

TEST_F(GridBoxLayout, CornersAndLabelsProjectLikeTheSurface) {
    const SurfaceGrid& g = scene.grid;
    scene.view.mode = 'P';
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
