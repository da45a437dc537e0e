// A 400 x 300 plotting area showing x in [0, 10] and y in [-3.75, 3.75] at 40 pixels per unit.
#pragma once

#include "graph2d/GraphView.h"
#include "tests/support/CurveBuilders.h"

namespace curvemill {

inline GraphView testView() {
    GraphView view;
    setViewSize(view, 400 + 2 * view.marginX, 300 + 2 * view.marginY);
    setViewRanges(view, 0.0, 10.0, -3.75, 3.75);
    return view;
}

}  // namespace curvemill
