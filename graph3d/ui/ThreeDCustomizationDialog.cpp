#include "graph3d/ui/ThreeDCustomizationDialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "graph3d/ui/ThreeDColorsPage.h"
#include "graph3d/ui/ThreeDEffectsPage.h"
#include "graph3d/ui/ThreeDOtherPage.h"

namespace curvemill {

ThreeDCustomizationDialog::ThreeDCustomizationDialog(SurfaceScene& scene, bool toolbarShown,
                                                     std::function<void()> redraw, QWidget* parent)
    : QDialog(parent), redraw_(std::move(redraw)) {
    setObjectName(QStringLiteral("ThreeDCustomizationDialog"));
    setWindowTitle(QStringLiteral("ThreeD Customization"));

    const auto changed = [this] {
        if (redraw_) {
            redraw_();
        }
    };
    auto* colors = new ThreeDColorsPage(scene, changed);
    auto* effects = new ThreeDEffectsPage(scene, changed, [colors] { colors->refreshSamples(); });
    other_ = new ThreeDOtherPage(scene, toolbarShown, changed,
                                 [this](bool shown) { Q_EMIT toolbarToggled(shown); });

    tabs_ = new QTabWidget(this);
    // The dialog grows to show all three tabs rather than scroll them.
    tabs_->setUsesScrollButtons(false);
    tabs_->addTab(colors, QStringLiteral("&Colors"));
    tabs_->addTab(effects, QStringLiteral("&Visual Effects"));
    tabs_->addTab(other_, QStringLiteral("&Other Features"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* close = buttons->button(QDialogButtonBox::Close);
    close->setObjectName(custom3dName(2));
    // Every letter of Close is taken on some page; S is free on the first one.
    close->setText(QStringLiteral("Clo&se"));
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(buttons);
}

ProcedureName ThreeDCustomizationDialog::procedureName() const {
    switch (tabs_ == nullptr ? -1 : tabs_->currentIndex()) {
        case 0:
            return kProcThreeDColorsDialog;
        case 1:
            return kProcThreeDVisualEffectsDialog;
        case 2:
            return kProcThreeDCustomizationDialog;
        default:
            return kProcThreeDCustomizationMain;
    }
}

bool ThreeDCustomizationDialog::toolbarShown() const {
    return other_->toolbarShown();
}

}  // namespace curvemill
