// The commands that change how the surface on screen looks: the 3D customization dialog and the
// grid box.
#pragma once

class QWidget;

namespace curvemill {

class GraphArea;
class ViewCommands;
struct SurfaceScene;

class SurfaceCommands {
  public:
    SurfaceCommands(QWidget& window, GraphArea& area, SurfaceScene& scene, ViewCommands& view)
        : window_(window), area_(area), scene_(scene), view_(view) {}

    // Modal; every change shows on the figure behind it at once.
    void openCustomization();
    void toggleGridBox();
    bool gridBoxShown() const;

  private:
    QWidget& window_;
    GraphArea& area_;
    SurfaceScene& scene_;
    ViewCommands& view_;
};

}  // namespace curvemill
