// The commands that change how the surface on screen looks: the 3D customization dialog and the
// grid box.
#pragma once

#include <QPointer>

class QWidget;

namespace curvemill {

class CommandActions;
class GraphArea;
class ViewCommands;
struct SurfaceScene;
class ThreeDCustomizationDialog;

class SurfaceCommands {
  public:
    SurfaceCommands(QWidget& window, GraphArea& area, SurfaceScene& scene, ViewCommands& view)
        : window_(window), area_(area), scene_(scene), view_(view) {}

    // Binds the group's rows of the command table.
    void bindCommands(CommandActions& actions);
    // Modeless, so the figure can be turned while it is tuned; every change shows on it at once.
    // A second call brings the open dialog forward.
    void openCustomization();
    void toggleGridBox();
    bool gridBoxShown() const;

  private:
    QWidget& window_;
    GraphArea& area_;
    SurfaceScene& scene_;
    ViewCommands& view_;
    QPointer<ThreeDCustomizationDialog> customization_;
};

}  // namespace curvemill
