#include "mathtools/ExtremeList.h"

#include <cmath>

#include "mathtools/CurveRecords.h"
#include "mathtools/MathTexts.h"

namespace curvemill {

namespace {

bool matches(std::uint8_t peakKind, ExtremeFilter filter) {
    switch (filter) {
        case ExtremeFilter::kMaxima:
            return peakKind == kRefinedMaximum;
        case ExtremeFilter::kMinima:
            return peakKind == kRefinedMinimum;
        case ExtremeFilter::kBoth:
            return peakKind == kRefinedMaximum || peakKind == kRefinedMinimum;
    }
    return false;
}

}  // namespace

std::vector<ExtremeRow> fillExtremeList(Curve& curve, bool xInPi, bool yInPi,
                                        ExtremeFilter filter) {
    std::vector<ExtremeRow> rows;
    const int count = recordCount(curve);
    PlotPoint* p = curve.points.data();
    for (int i = 0; i + 1 < count; ++i) {
        if (!matches(p[i].peakKind, filter)) {
            continue;
        }
        int shown = i;
        if (i != 0 && p[i + 1].peakKind != kOrdinaryPoint) {
            if (std::fabs(p[i + 1].y - p[i - 1].y) >= std::fabs(p[i].y - p[i - 1].y)) {
                shown = i + 1;
                p[i].peakKind = kOrdinaryPoint;
            } else {
                p[i + 1].peakKind = kOrdinaryPoint;
            }
            // The pair is done: its second record must not be listed again on its own.
            ++i;
        }
        const PlotPoint& point = p[shown];
        rows.push_back(
            {point.x, point.y, extremeText(point.x, xInPi), extremeText(point.y, yInPi)});
    }
    return rows;
}

}  // namespace curvemill
