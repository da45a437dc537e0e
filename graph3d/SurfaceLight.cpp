#include "graph3d/SurfaceLight.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

void setDefaultLight(SurfaceLight& light, const SurfaceGrid& grid) {
    light.vector = {-1, -(grid.yEnd - grid.yBegin) / (grid.xEnd - grid.xBegin), 0};
    light.lengthSquared = dot(light.vector, light.vector);
    light.inverseLength = 1 / std::sqrt(light.lengthSquared);
}

void prepareLight(SurfaceLight& light, const SurfaceGrid& grid, RotationMode rotationMode) {
    const Vec3 L = light.vector;
    light.lengthSquared = dot(L, L);
    light.inverseLength = 1 / std::sqrt(light.lengthSquared);
    if (rotationMode != RotationMode::kMatrix) {
        light.depthConstant = -(L.x * grid.xEnd + L.y * grid.yEnd + L.z * grid.zHigh);
        light.depthRange =
            (L.x * grid.xBegin + L.y * grid.yBegin + L.z * grid.zLow + light.depthConstant) *
            light.inverseLength;
    }
}

LightWeights lightWeights(const SurfaceLight& light) {
    LightWeights weights;
    weights.fog = 15 * light.fogIntensity;
    weights.diffuse = 255 - light.ambient - weights.fog;
    weights.specular = static_cast<std::int32_t>(weights.diffuse * light.specularShare);
    weights.plain = weights.diffuse - weights.specular;
    return weights;
}

int cellBrightness(const SurfaceLight& light, const LightWeights& weights, const SurfaceView& view,
                   const SurfaceGrid& grid, int i, int j) {
    const SurfaceVertex& v0 = grid.vertex(i, j);
    const SurfaceVertex& v1 = grid.vertex(i - light.stepI, j);
    const SurfaceVertex& v2 = grid.vertex(i, j - light.stepJ);
    const Vec3 unrotated{v0.x, v0.y, v0.zShown};
    const Vec3 p0 = rotatePoint(view, grid, unrotated);
    const Vec3 p1 = rotatePoint(view, grid, {v1.x, v1.y, v1.zShown});
    const Vec3 p2 = rotatePoint(view, grid, {v2.x, v2.y, v2.zShown});
    const Vec3 L = light.vector;

    double s = (dot(L, p0) + light.depthConstant) * light.inverseLength;
    s = s < 0 ? 0 : s;
    s = s > light.depthRange ? light.depthRange : s;
    double fog = (light.depthRange - s) / light.depthRange;
    if (!std::isfinite(fog)) {  // a light along z over a flat figure has no depth to fade over
        fog = 0;
    }

    const Vec3 n = cross(p0 - p1, p0 - p2);
    const double nn = dot(n, n);
    // A cell folded flat onto a line (its corners clamped onto one edge) faces nothing.
    const double cosL = nn > 0 ? std::fabs(dot(n, L)) / std::sqrt(light.lengthSquared * nn) : 0;

    double brightness;
    if (light.shiny && cosL > 0) {
        const Vec3 h = 0.5 * ((unrotated - view.eye) + L);
        const double hh = dot(h, h);
        const double cosH = hh > 0 ? dot(h, n) / std::sqrt(hh * nn) : 0;
        brightness = std::trunc(weights.specular * cosL * std::pow(cosH, 10) +
                                weights.plain * cosL + weights.fog * fog + light.ambient);
    } else {
        brightness = std::trunc(weights.diffuse * cosL + weights.fog * fog + light.ambient);
    }
    if (std::isnan(brightness)) {
        return 0;
    }
    return static_cast<int>(std::clamp(brightness, 0.0, 255.0));
}

std::uint32_t schemeColour(const SurfaceLight& light, int I) {
    const int dim = static_cast<int>(I * 0.8);
    const int half = static_cast<int>(I * 0.6);
    switch (light.scheme) {
        case ColourScheme::kGrey:
            break;
        case ColourScheme::kRed:
            return packColour(255, dim, dim);
        case ColourScheme::kGreen:
            return packColour(dim, 255, dim);
        case ColourScheme::kBlue:
            return packColour(dim, dim, 255);
        case ColourScheme::kCyan:
            return packColour(half, I, I);
        case ColourScheme::kMagenta:
            return packColour(I, half, I);
        case ColourScheme::kYellow:
            return packColour(I, I, half);
        case ColourScheme::kOwn:
            return blendOwnColour(light.ownRed, light.ownGreen, light.ownBlue, I);
    }
    return packColour(I, I, I);
}

std::uint32_t blendOwnColour(double r, double g, double b, int I) {
    const double sum = r + g + b;
    const bool dark = 765 - sum >= sum;
    const double from[3] = {dark ? r : 50, dark ? g : 50, dark ? b : 50};
    const double to[3] = {dark ? 250 : r, dark ? 250 : g, dark ? 250 : b};
    int channel[3];
    for (int c = 0; c < 3; ++c) {
        channel[c] = static_cast<int>(std::trunc(I * (to[c] - from[c]) / 255 + from[c]));
    }
    return packColour(channel[0], channel[1], channel[2]);
}

std::uint32_t cellColour(const SurfaceLight& light, const LightWeights& weights,
                         const SurfaceView& view, const SurfaceGrid& grid, int i, int j) {
    return schemeColour(light, cellBrightness(light, weights, view, grid, i, j));
}

}  // namespace curvemill
