#include "graph2d/DrawStep.h"

namespace curvemill {

void applyOptimizeDrawing(Curve& curve, bool on) {
    const int count = curve.pointCount;
    PlotPoint* p = curve.points.data();
    if (count <= 0 || curve.points.size() < static_cast<std::size_t>(count)) {
        return;
    }
    if (!on) {
        for (int i = 0; i < count; ++i) {
            p[i].isVertex = 1;
        }
        return;
    }
    p[0].isVertex = 1;
    p[count - 1].isVertex = 1;
    for (int i = 1; i < count - 1; ++i) {
        const PlotPoint& before = p[i - 1];
        const PlotPoint& after = p[i + 1];
        const double y = p[i].y;
        const bool keep = i % 10 == 0 || p[i].isBreak || before.isIndefinite ||
                          after.isIndefinite || (y >= before.y && y >= after.y) ||
                          (y < before.y && y < after.y);
        p[i].isVertex = keep ? 1 : 0;
    }
}

}  // namespace curvemill
