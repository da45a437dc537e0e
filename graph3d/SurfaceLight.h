// Lighting, shine, fog and colour schemes: the colour of one cell of the surface.
#pragma once

#include <cstdint>

#include "graph3d/SurfaceGrid.h"
#include "graph3d/SurfaceStyle.h"
#include "graph3d/SurfaceView.h"
#include "graph3d/Vec3.h"

namespace curvemill {

struct SurfaceLight {
    Vec3 vector{-1, -1, 0};
    double lengthSquared = 2;
    double inverseLength = 0.7071067811865476;
    double depthConstant = 0;
    double depthRange = 1;
    bool shiny = false;
    ColourScheme scheme = ColourScheme::kRed;
    double ownRed = 191.0;
    double ownGreen = 65.0;
    double ownBlue = 41.0;
    std::int32_t ambient = 50;
    std::int32_t fogIntensity = 5;
    float specularShare = 0.5f;
    std::int32_t stepI = 1;
    std::int32_t stepJ = 1;
};

// The weights of one redraw, derived from the light's settings.
struct LightWeights {
    std::int32_t fog = 75;
    std::int32_t diffuse = 130;
    std::int32_t specular = 65;
    std::int32_t plain = 65;
};

// The light of a new surface: from the far side of the domain's diagonal, level.
void setDefaultLight(SurfaceLight& light, const SurfaceGrid& grid);
// Lengths and the depth plane before a redraw; under the rotation matrix the depth plane stays as
// it was.
void prepareLight(SurfaceLight& light, const SurfaceGrid& grid, RotationMode rotationMode);
LightWeights lightWeights(const SurfaceLight& light);

// Brightness 0..255 of the cell whose corner is vertex (i, j) and whose other corners lie one
// step back in i and in j.
int cellBrightness(const SurfaceLight& light, const LightWeights& weights, const SurfaceView& view,
                   const SurfaceGrid& grid, int i, int j);
// Colour (red in the low byte, then green, then blue) of that cell.
std::uint32_t cellColour(const SurfaceLight& light, const LightWeights& weights,
                         const SurfaceView& view, const SurfaceGrid& grid, int i, int j);
std::uint32_t schemeColour(const SurfaceLight& light, int brightness);
std::uint32_t blendOwnColour(double r, double g, double b, int brightness);

inline std::uint32_t packColour(int r, int g, int b) {
    return std::uint32_t(r & 0xff) | std::uint32_t(g & 0xff) << 8 | std::uint32_t(b & 0xff) << 16;
}
inline int redOf(std::uint32_t c) {
    return int(c & 0xff);
}
inline int greenOf(std::uint32_t c) {
    return int(c >> 8 & 0xff);
}
inline int blueOf(std::uint32_t c) {
    return int(c >> 16 & 0xff);
}

}  // namespace curvemill
