#include "graph3d/ui/ThreeDOtherPage.h"

#include <array>

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

#include "graph3d/SurfaceLookRules.h"
#include "graph3d/ui/ThreeDCustomizationControls.h"

namespace curvemill {

namespace ids = custom3d_ids;

ThreeDOtherPage::ThreeDOtherPage(SurfaceScene& scene, bool toolbarShown,
                                 std::function<void()> changed,
                                 std::function<void(bool)> toolbarToggled)
    : scene_(scene), changed_(std::move(changed)) {
    const SurfaceView& view = scene_.view;

    auto* location = new QGroupBox(QStringLiteral("Viewer Location"));
    vertical_ = custom3dSlider(ids::kVertical, 0, kVerticalLocationHigh - kVerticalLocationLow,
                               view.verticalLocation - kVerticalLocationLow);
    horizontal_ =
        custom3dSlider(ids::kHorizontal, 0, kHorizontalLocationHigh - kHorizontalLocationLow,
                       view.horizontalLocation - kHorizontalLocationLow);
    auto* locationGrid = new QGridLayout(location);
    auto* verticalCaption = new QLabel(QStringLiteral("&Vertical Location"));
    verticalCaption->setBuddy(vertical_);
    auto* horizontalCaption = new QLabel(QStringLiteral("&Horizontal Location"));
    horizontalCaption->setBuddy(horizontal_);
    locationGrid->addWidget(verticalCaption, 0, 0);
    locationGrid->addWidget(vertical_, 0, 1);
    locationGrid->addWidget(horizontalCaption, 1, 0);
    locationGrid->addWidget(horizontal_, 1, 1);
    connect(vertical_, &QSlider::valueChanged, this, &ThreeDOtherPage::changeLocation);
    connect(horizontal_, &QSlider::valueChanged, this, &ThreeDOtherPage::changeLocation);

    auto* mode = new QGroupBox(QStringLiteral("Drawing Mode"));
    auto* modeLayout = new QVBoxLayout(mode);
    const std::array<std::tuple<int, const char*, DrawingMode>, 3> modes{
        {{ids::kPolygons, "&Polygons", DrawingMode::kPolygons},
         {ids::kLines, "&Lines", DrawingMode::kLines},
         {ids::kPixels, "Pi&xels", DrawingMode::kPixels}}};
    for (const auto& [id, text, drawing] : modes) {
        auto* button = new QRadioButton(QString::fromLatin1(text), mode);
        button->setObjectName(custom3dName(id));
        button->setChecked(scene_.drawing.mode == drawing);
        modeLayout->addWidget(button);
        const DrawingMode chosen = drawing;
        connect(button, &QRadioButton::toggled, this, [this, chosen](bool on) {
            if (on) {
                scene_.drawing.mode = chosen;
                changed_();
            }
        });
    }

    auto* limits = new QGroupBox(QStringLiteral("Z limits"));
    zLimit_ = new QSpinBox(limits);
    zLimit_->setObjectName(custom3dName(ids::kZLimitSpin));
    if (auto* edit = zLimit_->findChild<QLineEdit*>()) {
        edit->setObjectName(custom3dName(ids::kZLimitEdit));
    }
    auto* limitCaption = new QLabel(QStringLiteral("&Step"), limits);
    limitCaption->setBuddy(zLimit_);
    zMin_ = new QLabel(limits);
    zMin_->setObjectName(custom3dName(ids::kZMinLabel));
    zMax_ = new QLabel(limits);
    zMax_->setObjectName(custom3dName(ids::kZMaxLabel));
    // A surface with no value leaves the range at its 1e100 place-holders, printed in 100
    // digits: the labels must not widen the dialog past the screen.
    for (QLabel* label : {zMin_, zMax_}) {
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    auto* limitGrid = new QGridLayout(limits);
    limitGrid->addWidget(limitCaption, 0, 0);
    limitGrid->addWidget(zLimit_, 0, 1);
    limitGrid->addWidget(zMin_, 1, 0, 1, 2);
    limitGrid->addWidget(zMax_, 2, 0, 1, 2);
    connect(zLimit_, &QSpinBox::valueChanged, this, &ThreeDOtherPage::changeZLimit);

    toolbar_ = new QCheckBox(QStringLiteral("Display &Toolbar"));
    toolbar_->setObjectName(custom3dName(ids::kDisplayToolbar));
    toolbar_->setChecked(toolbarShown);
    connect(toolbar_, &QCheckBox::toggled, this, std::move(toolbarToggled));

    auto* layout = new QGridLayout(this);
    layout->addWidget(location, 0, 0, 1, 2);
    layout->addWidget(mode, 1, 0);
    layout->addWidget(limits, 1, 1);
    layout->addWidget(toolbar_, 2, 0, 1, 2);
    layout->setRowStretch(3, 1);
    showZRange();
}

bool ThreeDOtherPage::toolbarShown() const {
    return toolbar_->isChecked();
}

void ThreeDOtherPage::changeLocation() {
    setViewerLocation(scene_, kHorizontalLocationLow + horizontal_->value(),
                      kVerticalLocationLow + vertical_->value());
    changed_();
}

void ThreeDOtherPage::changeZLimit(int step) {
    if (setZLimitStep(scene_, step)) {
        showZRange();
        changed_();
    }
}

void ThreeDOtherPage::showZRange() {
    const SurfaceGrid& grid = scene_.grid;
    const bool active = scene_.complete && grid.limits.active;
    {
        const QSignalBlocker quiet(zLimit_);
        zLimit_->setRange(1, std::max(1, grid.limits.availableSteps));
        zLimit_->setValue(grid.limits.step);
    }
    zLimit_->setEnabled(active);
    zMin_->setText(QString::asprintf("Z min=%f", grid.zLow));
    zMax_->setText(QString::asprintf("Z max=%f", grid.zHigh));
    zMin_->setToolTip(zMin_->text());
    zMax_->setToolTip(zMax_->text());
}

}  // namespace curvemill
