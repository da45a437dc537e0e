#include "graph3d/SurfaceLookRules.h"

#include <algorithm>
#include <cmath>

#include "graph3d/SurfaceCompute.h"

namespace curvemill {

int ambientPosition(int ambient) {
    return std::clamp(ambient * 10 / 100, 0, kLookSliderMax);
}

int ambientFromPosition(int position) {
    return std::clamp(position, 0, kLookSliderMax) * 10;
}

int lightPosition(double component) {
    const double magnitude = std::fabs(component) * 10;
    if (!(magnitude < kLookSliderMax)) {
        return kLookSliderMax;
    }
    return static_cast<int>(magnitude);
}

double lightFromPosition(int position, double previous) {
    const double magnitude = std::clamp(position, 0, kLookSliderMax) / 10.0;
    return previous < 0 ? -magnitude : magnitude;
}

int specularPosition(float share) {
    // Rounded: 0.7f * 10 is a hair below 7 in single precision.
    return std::clamp(static_cast<int>(std::lround(share * 10.0f)), 0, kLookSliderMax);
}

float specularFromPosition(int position) {
    return static_cast<float>(std::clamp(position, 0, kLookSliderMax)) / 10.0f;
}

void restoreDefaultLook(SurfaceScene& scene) {
    const SurfaceLight fresh;
    SurfaceLight& light = scene.light;
    light.shiny = fresh.shiny;
    light.ambient = fresh.ambient;
    light.fogIntensity = fresh.fogIntensity;
    light.specularShare = fresh.specularShare;
    const ColourScheme scheme = light.scheme;
    const double red = light.ownRed;
    const double green = light.ownGreen;
    const double blue = light.ownBlue;
    setDefaultLight(light, scene.grid);
    // The colours belong to the other page and stay.
    light.scheme = scheme;
    light.ownRed = red;
    light.ownGreen = green;
    light.ownBlue = blue;
    scene.drawing.shading = false;
}

void setViewerLocation(SurfaceScene& scene, int horizontal, int vertical) {
    scene.view.horizontalLocation =
        std::clamp(horizontal, kHorizontalLocationLow, kHorizontalLocationHigh);
    scene.view.verticalLocation = std::clamp(vertical, kVerticalLocationLow, kVerticalLocationHigh);
    if (scene.complete) {
        setUpView(scene.view, scene.grid);
    }
}

bool setZLimitStep(SurfaceScene& scene, int step) {
    SurfaceGrid& grid = scene.grid;
    if (!scene.complete || !grid.limits.active) {
        return false;
    }
    grid.limits.step = std::clamp(step, 1, std::max(1, grid.limits.availableSteps));
    applyZLimits(grid, LimitStep::kKeep);
    grid.zc = (grid.zLow + grid.zHigh) * 0.5;
    // The zoom and a rotation stay; only the eye follows the new top of the figure.
    setUpView(scene.view, grid);
    return true;
}

}  // namespace curvemill
