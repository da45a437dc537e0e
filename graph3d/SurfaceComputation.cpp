#include "graph3d/SurfaceComputation.h"

#include <algorithm>

#include "engine/Formula.h"
#include "twovar/TwoVariableSettings.h"

namespace curvemill {

SurfaceComputation::SurfaceComputation(Formula& formula, SurfaceScene& scene,
                                       SurfaceDisplay display)
    : formula_(formula), scene_(scene), display_(std::move(display)) {}

void SurfaceComputation::discardPrevious() {
    scene_.complete = false;
    scene_.grid.release();
    if (display_.clear) {
        display_.clear();
    }
}

Job SurfaceComputation::makeJob(const TwoVariableRequest& request) {
    SurfaceGrid& grid = scene_.grid;
    grid.xBegin = request.xBegin;
    grid.xEnd = request.xEnd;
    grid.yBegin = request.yBegin;
    grid.yEnd = request.yEnd;
    grid.requestedNx = std::clamp(request.xPoints, kGridPointsUnit, kMostSurfacePoints);
    grid.requestedNy = std::clamp(request.yPoints, kGridPointsUnit, kMostSurfacePoints);
    outcome_ = SurfaceOutcome::Stopped;
    // Everything the job fills lives in the scene and in this object, not in its frames.
    return [this](const JobContext& context) {
        outcome_ = computeSurface(formula_, scene_.grid, context.progress, context.keepComputing);
        return outcome_ == SurfaceOutcome::Done;
    };
}

void SurfaceComputation::show() {
    startNewFigure(scene_);
    scene_.complete = true;
    if (display_.show) {
        display_.show();
    }
}

void SurfaceComputation::abandoned() {
    scene_.complete = false;
    if (outcome_ == SurfaceOutcome::NoMemory) {
        scene_.grid.release();
        if (display_.tell) {
            display_.tell(kNoMemoryMessage);
        }
    }
    if (display_.clear) {
        display_.clear();
    }
}

}  // namespace curvemill
