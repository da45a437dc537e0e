// Cutting a line segment to a rectangle (Liang-Barsky), for every painter that must not hand a
// far-off point to its target: a view zoomed far in costs no more than what shows.
#pragma once

namespace curvemill {

struct Segment {
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};

// Cuts `s` to [left, right] x [top, bottom]; false when nothing of it is inside.
bool clipSegment(Segment& s, double left, double top, double right, double bottom);

}  // namespace curvemill
