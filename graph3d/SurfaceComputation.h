// The surface behind the ThreeD input window: computed on the worker, then shown.
#pragma once

#include <functional>
#include <string>

#include "graph3d/SurfaceCompute.h"
#include "graph3d/SurfaceScene.h"
#include "twovar/TwoVariableComputation.h"

namespace curvemill {

class Formula;

// What the computation asks of the window that shows the surface.
struct SurfaceDisplay {
    // A completed surface is ready in the scene: show it (graph kind Surface3D).
    std::function<void()> show;
    // The previous picture is gone, or a computation ended without a surface: repaint.
    std::function<void()> clear;
    // Something the user must be told (the grid could not be had).
    std::function<void(const std::string& message)> tell;
};

class SurfaceComputation : public TwoVariableComputation {
  public:
    SurfaceComputation(Formula& formula, SurfaceScene& scene, SurfaceDisplay display);

    void discardPrevious() override;
    // Evaluates the formula's two-variable slot over the request's domain with its counts
    // (100..500 points along each axis).
    Job makeJob(const TwoVariableRequest& request) override;
    void show() override;
    void abandoned() override;

  private:
    Formula& formula_;
    SurfaceScene& scene_;
    SurfaceDisplay display_;
    // Written by the job on the worker, read after its end.
    SurfaceOutcome outcome_ = SurfaceOutcome::Stopped;
};

}  // namespace curvemill
