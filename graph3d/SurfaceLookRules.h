// How the settings of a surface's look map to the positions of the customization dialog's
// sliders and back, and the changes that must move other state with them.
#pragma once

#include "graph3d/SurfaceScene.h"

namespace curvemill {

// Every slider of the "Visual Effects" page runs 0..10.
inline constexpr int kLookSliderMax = 10;

// The viewer location's bounds. Any horizontal location of at least 1 keeps the eye beyond the
// domain's far corner, outside the box, so every point has a projection; 15 still leaves the
// figure a quarter of the default size. A negative vertical location looks from below.
inline constexpr int kHorizontalLocationLow = 1;
inline constexpr int kHorizontalLocationHigh = 15;
inline constexpr int kVerticalLocationLow = -10;
inline constexpr int kVerticalLocationHigh = 10;

int ambientPosition(int ambient);
int ambientFromPosition(int position);
// The magnitude of a light component, truncated, held to the slider's range.
int lightPosition(double component);
// A slider sets the magnitude only: the component keeps the sign it had (a zero component turns
// positive), so the light keeps coming from the same side of the figure.
double lightFromPosition(int position, double previous);
int specularPosition(float share);
float specularFromPosition(int position);

// The light, shine, fog and ambient of a new surface ("Default Settings" of "Visual Effects").
void restoreDefaultLook(SurfaceScene& scene);
// Stores the viewer location (held to its bounds) and sets the eye and plane up again.
void setViewerLocation(SurfaceScene& scene, int horizontal, int vertical);
// Stores a new Z-limit step (held to 1 .. the available steps), limits the shown heights again
// and sets the centre and the view up for the new z range. False when the limits are inactive.
bool setZLimitStep(SurfaceScene& scene, int step);

}  // namespace curvemill
