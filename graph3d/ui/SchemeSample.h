// The little picture beside each colour scheme's radio button: a lit ball in that scheme.
#pragma once

#include <QImage>

#include "graph3d/SurfaceLight.h"

namespace curvemill {

// A ball lit from the upper left, each pixel's brightness turned into a colour by `scheme` with
// the own colour of `light` (the rule the surface's cells are coloured by); transparent outside.
QImage schemeSample(const SurfaceLight& light, ColourScheme scheme, int side);

}  // namespace curvemill
