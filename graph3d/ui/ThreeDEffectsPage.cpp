#include "graph3d/ui/ThreeDEffectsPage.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include "graph3d/SurfaceLookRules.h"
#include "graph3d/ui/ThreeDCustomizationControls.h"

namespace curvemill {

namespace ids = custom3d_ids;

ThreeDEffectsPage::ThreeDEffectsPage(SurfaceScene& scene, std::function<void()> changed,
                                     std::function<void()> lookReset)
    : scene_(scene), changed_(std::move(changed)), lookReset_(std::move(lookReset)) {
    const SurfaceLight& light = scene_.light;
    fog_ = custom3dSlider(ids::kFog, 0, kLookSliderMax, light.fogIntensity);
    ambient_ = custom3dSlider(ids::kAmbient, 0, kLookSliderMax, ambientPosition(light.ambient));
    light_[0] = custom3dSlider(ids::kLightX, 0, kLookSliderMax, lightPosition(light.vector.x));
    light_[1] = custom3dSlider(ids::kLightY, 0, kLookSliderMax, lightPosition(light.vector.y));
    light_[2] = custom3dSlider(ids::kLightZ, 0, kLookSliderMax, lightPosition(light.vector.z));
    specular_ =
        custom3dSlider(ids::kSpecular, 0, kLookSliderMax, specularPosition(light.specularShare));
    shiny_ = new QCheckBox(QStringLiteral("S&hiny Surface"));
    shiny_->setObjectName(custom3dName(ids::kShiny));
    shading_ = new QCheckBox(QStringLiteral("Sh&ading"));
    shading_->setObjectName(custom3dName(ids::kShading));
    auto* defaults = new QPushButton(QStringLiteral("&Default Settings"));
    defaults->setObjectName(custom3dName(ids::kDefaults));
    defaults->setAutoDefault(false);

    auto* grid = new QGridLayout(this);
    int row = 0;
    const auto addRow = [&](const QString& text, QSlider* slider) {
        auto* caption = new QLabel(text);
        caption->setBuddy(slider);
        grid->addWidget(caption, row, 0);
        grid->addWidget(slider, row, 1);
        ++row;
    };
    addRow(QStringLiteral("&Fog Intensity"), fog_);
    addRow(QStringLiteral("A&mbient Light"), ambient_);
    addRow(QStringLiteral("Light Vector &X"), light_[0]);
    addRow(QStringLiteral("Light Vector &Y"), light_[1]);
    addRow(QStringLiteral("Light Vector &Z"), light_[2]);
    grid->addWidget(shiny_, row++, 0, 1, 2);
    addRow(QStringLiteral("Shi&ne"), specular_);
    grid->addWidget(shading_, row++, 0, 1, 2);
    grid->addWidget(defaults, row++, 0, 1, 2, Qt::AlignLeft);
    grid->setRowStretch(row, 1);

    connect(fog_, &QSlider::valueChanged, this, [this](int position) {
        scene_.light.fogIntensity = position;
        changed_();
    });
    connect(ambient_, &QSlider::valueChanged, this, [this](int position) {
        scene_.light.ambient = ambientFromPosition(position);
        changed_();
    });
    for (int axis = 0; axis < 3; ++axis) {
        connect(light_[axis], &QSlider::valueChanged, this,
                [this, axis](int position) { changeLight(axis, position); });
    }
    connect(shiny_, &QCheckBox::toggled, this, [this](bool on) {
        specular_->setEnabled(on);
        scene_.light.shiny = on;
        changed_();
    });
    connect(specular_, &QSlider::valueChanged, this, [this](int position) {
        scene_.light.specularShare = specularFromPosition(position);
        changed_();
    });
    connect(shading_, &QCheckBox::toggled, this, [this](bool on) {
        scene_.drawing.shading = on;
        changed_();
    });
    connect(defaults, &QPushButton::clicked, this, &ThreeDEffectsPage::restoreDefaults);
    showSettings();
}

// Moves the controls to the settings without storing anything back.
void ThreeDEffectsPage::showSettings() {
    const SurfaceLight& light = scene_.light;
    const std::array<std::pair<QSlider*, int>, 6> positions{
        {{fog_, light.fogIntensity},
         {ambient_, ambientPosition(light.ambient)},
         {light_[0], lightPosition(light.vector.x)},
         {light_[1], lightPosition(light.vector.y)},
         {light_[2], lightPosition(light.vector.z)},
         {specular_, specularPosition(light.specularShare)}}};
    for (const auto& [slider, position] : positions) {
        const QSignalBlocker quiet(slider);
        slider->setValue(position);
    }
    {
        const QSignalBlocker quiet(shiny_);
        shiny_->setChecked(light.shiny);
    }
    specular_->setEnabled(light.shiny);
    const QSignalBlocker quiet(shading_);
    shading_->setChecked(scene_.drawing.shading);
}

void ThreeDEffectsPage::changeLight(int axis, int position) {
    Vec3 vector = scene_.light.vector;
    double& component = axis == 0 ? vector.x : axis == 1 ? vector.y : vector.z;
    component = lightFromPosition(position, component);
    // A light of no length has no direction: the last slider to reach 0 stays at its step.
    if (vector.x == 0 && vector.y == 0 && vector.z == 0) {
        const QSignalBlocker quiet(light_[axis]);
        light_[axis]->setValue(1);
        component = lightFromPosition(1, component);
    }
    scene_.light.vector = vector;
    changed_();
}

void ThreeDEffectsPage::restoreDefaults() {
    restoreDefaultLook(scene_);
    showSettings();
    lookReset_();
    changed_();
}

}  // namespace curvemill
