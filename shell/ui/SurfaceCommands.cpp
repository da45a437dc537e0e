#include "shell/ui/SurfaceCommands.h"

#include "graph3d/SurfaceScene.h"
#include "graph3d/ui/ThreeDCustomizationDialog.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/ViewCommands.h"

namespace curvemill {

void SurfaceCommands::openCustomization() {
    GraphCanvas* canvas = area_.canvas();
    ThreeDCustomizationDialog dialog(
        scene_, view_.settings().toolbar, [canvas] { canvas->invalidate(); }, &window_);
    QObject::connect(&dialog, &ThreeDCustomizationDialog::toolbarToggled, &dialog,
                     [this](bool on) { view_.showToolbar(on); });
    dialog.exec();
}

void SurfaceCommands::toggleGridBox() {
    scene_.drawing.gridBox = !scene_.drawing.gridBox;
    area_.canvas()->invalidate();
}

bool SurfaceCommands::gridBoxShown() const {
    return scene_.drawing.gridBox;
}

}  // namespace curvemill
