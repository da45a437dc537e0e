#include "graph2d/SegmentClip.h"

#include <algorithm>

namespace curvemill {

bool clipSegment(Segment& s, double left, double top, double right, double bottom) {
    const double dx = s.x1 - s.x0, dy = s.y1 - s.y0;
    double t0 = 0, t1 = 1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {s.x0 - left, right - s.x0, s.y0 - top, bottom - s.y0};
    for (int k = 0; k < 4; ++k) {
        if (p[k] == 0) {
            if (q[k] < 0) {
                return false;
            }
            continue;
        }
        const double r = q[k] / p[k];
        if (p[k] < 0) {
            t0 = std::max(t0, r);
        } else {
            t1 = std::min(t1, r);
        }
    }
    if (t0 > t1) {
        return false;
    }
    s = {s.x0 + t0 * dx, s.y0 + t0 * dy, s.x0 + t1 * dx, s.y0 + t1 * dy};
    return true;
}

}  // namespace curvemill
