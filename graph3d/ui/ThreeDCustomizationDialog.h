// The "ThreeD Customization" dialog: colours, light and fog, viewer location, drawing mode and
// Z limits of the surface on screen.
#pragma once

#include <functional>

#include <QDialog>

#include "failure/ProcedureNames.h"
#include "graph3d/SurfaceScene.h"
#include "graph3d/ui/ThreeDCustomizationControls.h"

class QTabWidget;

namespace curvemill {

class ThreeDOtherPage;

// Works on the live scene: each change is stored and `redraw` is called at once, so the figure
// behind the dialog follows every slider (nothing is computed again). There is therefore nothing
// to take back, and the dialog has a single "Close" button.
class ThreeDCustomizationDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    ThreeDCustomizationDialog(SurfaceScene& scene, bool toolbarShown, std::function<void()> redraw,
                              QWidget* parent = nullptr);

    // The page on show names the failures: each page is its own procedure.
    ProcedureName procedureName() const override;
    bool toolbarShown() const;

  Q_SIGNALS:
    void toolbarToggled(bool shown);

  private:
    std::function<void()> redraw_;
    QTabWidget* tabs_ = nullptr;
    ThreeDOtherPage* other_ = nullptr;
};

}  // namespace curvemill
