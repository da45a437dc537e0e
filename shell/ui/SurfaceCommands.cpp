#include "shell/ui/SurfaceCommands.h"

#include "graph3d/SurfaceScene.h"
#include "graph3d/ui/ThreeDCustomizationDialog.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/ViewCommands.h"

namespace curvemill {

void SurfaceCommands::bindCommands(CommandActions& actions) {
    actions.bind(Command::ThreeDCustomization, [this] { openCustomization(); });
}

void SurfaceCommands::openCustomization() {
    if (customization_ == nullptr) {
        GraphCanvas* canvas = area_.canvas();
        customization_ = new ThreeDCustomizationDialog(
            scene_, view_.settings().toolbar, [canvas] { canvas->invalidate(); }, &window_);
        customization_->setAttribute(Qt::WA_DeleteOnClose);
        customization_->setModal(false);
        QObject::connect(customization_, &ThreeDCustomizationDialog::toolbarToggled, customization_,
                         [this](bool on) { view_.showToolbar(on); });
    }
    customization_->show();
    customization_->raise();
    customization_->activateWindow();
}

void SurfaceCommands::toggleGridBox() {
    scene_.drawing.gridBox = !scene_.drawing.gridBox;
    area_.canvas()->invalidate();
}

bool SurfaceCommands::gridBoxShown() const {
    return scene_.drawing.gridBox;
}

}  // namespace curvemill
