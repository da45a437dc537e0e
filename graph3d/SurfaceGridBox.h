// The box around a surface: its twelve edges, grid lines at tidy values on the faces turned away
// from the eye, and the x, y and z values along three of its edges. Everything is laid out in
// the surface's space and goes through projectPoint, so it turns and zooms with the figure.
#pragma once

#include <string>
#include <vector>

#include "graph3d/SurfaceView.h"

namespace curvemill {

struct BoxLine {
    Vec3 from;
    Vec3 to;
    // A box edge (drawn darker) rather than a grid line on a back face.
    bool edge = false;
    // An edge on no back face: it meets the corner nearest the eye, and the figure lies behind it.
    bool front = false;
};

struct BoxLabel {
    // On the edge the value belongs to.
    Vec3 anchor;
    // Away from the box, in the surface's space: the text goes on the far side of the anchor
    // from the box's middle.
    Vec3 outward;
    char axis = 'x';
    std::string text;
    // The axis's own name ("x", "y", "z") beside its row of values, rather than a value.
    bool axisName = false;
};

struct GridBox {
    std::vector<BoxLine> lines;
    std::vector<BoxLabel> labels;
};

// The tidy values of [begin, end] for about five grid lines (the 2D grid's 1-2-5 step rule);
// `decimals` gets the digits after the point the step needs.
std::vector<double> boxValues(double begin, double end, int& decimals);

// Which faces are back faces is decided in the unrotated space from the eye (rotation undone):
// the face x = X_BEG is a back face when the eye is on its inner side, and so on.
GridBox layoutGridBox(const SurfaceView& view, const SurfaceGrid& grid);

struct ProjectedLine {
    PlanePoint from;
    PlanePoint to;
    bool edge = false;
    bool front = false;
};
struct ProjectedLabel {
    PlanePoint anchor;
    // Unit direction on the target in which the text is moved off the anchor.
    PlanePoint outward;
    char axis = 'x';
    std::string text;
    bool axisName = false;
};
struct ProjectedGridBox {
    std::vector<ProjectedLine> lines;
    std::vector<ProjectedLabel> labels;
};

ProjectedGridBox projectGridBox(const SurfaceView& view, const SurfaceGrid& grid,
                                const Placement& placement);

}  // namespace curvemill
