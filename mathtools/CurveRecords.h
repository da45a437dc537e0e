// How many records of a curve may be read: its count, but never beyond the records it holds.
#pragma once

#include <cstddef>

#include "graph2d/Curve.h"

namespace curvemill {

inline int recordCount(const Curve& curve) {
    return curve.points.size() < static_cast<std::size_t>(curve.pointCount)
               ? static_cast<int>(curve.points.size())
               : curve.pointCount;
}

}  // namespace curvemill
