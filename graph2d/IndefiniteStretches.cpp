#include "graph2d/IndefiniteStretches.h"

#include <algorithm>

namespace curvemill {

std::vector<XStretch> indefiniteStretches(const Curve& curve, double xBegin, double xEnd) {
    std::vector<XStretch> stretches;
    const int count = std::min<int>(curve.pointCount, static_cast<int>(curve.points.size()));
    const PlotPoint* p = curve.points.data();
    int i = 0;
    while (i < count) {
        if (!p[i].isIndefinite) {
            ++i;
            continue;
        }
        int j = i;
        while (j + 1 < count && p[j + 1].isIndefinite) {
            ++j;
        }
        const double begin = i > 0 ? p[i - 1].x : xBegin;
        const double end = j + 1 < count ? p[j + 1].x : xEnd;
        stretches.push_back({begin, end});
        i = j + 1;
    }
    return stretches;
}

}  // namespace curvemill
