#include "graph3d/ui/ThreeDCustomizationDialog.h"

#include <cmath>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "graph3d/SurfaceLookRules.h"
#include "graph3d/ui/ColourWheel.h"
#include "graph3d/ui/SchemeSample.h"

namespace curvemill {

namespace ids = custom3d_ids;

namespace {

QString idName(int id) {
    return QString::number(id);
}

constexpr int kSampleSide = 22;

struct SchemeEntry {
    int id;
    char letter;
    const char* text;
};

// Left column top to bottom, then the right column.
constexpr std::array<SchemeEntry, 8> kSchemes{{{ids::kSchemeRed, 'r', "&Red"},
                                               {ids::kSchemeGreen, 'g', "&Green"},
                                               {ids::kSchemeBlue, 'b', "&Blue"},
                                               {ids::kSchemeCyan, 'c', "&Cyan"},
                                               {ids::kSchemeMagenta, 'm', "&Magenta"},
                                               {ids::kSchemeYellow, 'y', "&Yellow"},
                                               {ids::kSchemeGrey, '1', "Gr&ey"},
                                               {ids::kSchemeOwn, 'o', "&Own Color"}}};

QString zLabel(const char* format, double value) {
    return QString::asprintf(format, value);
}

}  // namespace

ThreeDCustomizationDialog::ThreeDCustomizationDialog(SurfaceScene& scene, bool toolbarShown,
                                                     std::function<void()> redraw, QWidget* parent)
    : QDialog(parent), scene_(scene), redraw_(std::move(redraw)) {
    setObjectName(QStringLiteral("ThreeDCustomizationDialog"));
    setWindowTitle(QStringLiteral("ThreeD Customization"));

    tabs_ = new QTabWidget(this);
    // The dialog grows to show all three tabs rather than scroll them.
    tabs_->setUsesScrollButtons(false);
    tabs_->addTab(buildColorsPage(), QStringLiteral("&Colors"));
    tabs_->addTab(buildEffectsPage(), QStringLiteral("&Visual Effects"));
    tabs_->addTab(buildOtherPage(), QStringLiteral("&Other Features"));
    toolbar_->setChecked(toolbarShown);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* close = buttons->button(QDialogButtonBox::Close);
    close->setObjectName(idName(2));
    // Every letter of Close is taken on some page; S is free on the first one.
    close->setText(QStringLiteral("Clo&se"));
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(buttons);
    showEffects();
    showZRange();
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
    return toolbar_->isChecked();
}

QWidget* ThreeDCustomizationDialog::buildColorsPage() {
    auto* page = new QWidget;
    auto* group = new QGroupBox(QStringLiteral("Colors"), page);
    auto* grid = new QGridLayout(group);
    for (std::size_t k = 0; k < kSchemes.size(); ++k) {
        const SchemeEntry& entry = kSchemes[k];
        auto* button = new QRadioButton(QString::fromLatin1(entry.text), group);
        button->setObjectName(idName(entry.id));
        button->setChecked(scene_.light.scheme == entry.letter);
        auto* sample = new QLabel(group);
        sample->setFixedSize(kSampleSide, kSampleSide);
        const int row = static_cast<int>(k % 4);
        const int column = static_cast<int>(k / 4) * 2;
        grid->addWidget(sample, row, column);
        grid->addWidget(button, row, column + 1);
        schemes_[k] = {entry.letter, button, sample};
        const char letter = entry.letter;
        connect(button, &QRadioButton::toggled, this, [this, letter](bool on) {
            if (on && !showing_) {
                pickScheme(letter);
            }
        });
    }
    wheel_ = new ColourWheel(group);
    wheel_->setObjectName(idName(ids::kColourWheel));
    grid->addWidget(wheel_, 4, 0, 1, 4, Qt::AlignHCenter);
    connect(wheel_, &ColourWheel::colourPicked, this, &ThreeDCustomizationDialog::pickOwnColour);
    refreshSamples();

    auto* layout = new QVBoxLayout(page);
    layout->addWidget(group);
    layout->addStretch();
    return page;
}

QSlider* ThreeDCustomizationDialog::addSlider(int id, int low, int high, int position) {
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(idName(id));
    slider->setRange(low, high);
    slider->setPageStep(1);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setTickInterval(1);
    slider->setValue(position);
    return slider;
}

QWidget* ThreeDCustomizationDialog::buildEffectsPage() {
    auto* page = new QWidget;
    const SurfaceLight& light = scene_.light;
    fog_ = addSlider(ids::kFog, 0, kLookSliderMax, light.fogIntensity);
    ambient_ = addSlider(ids::kAmbient, 0, kLookSliderMax, ambientPosition(light.ambient));
    light_[0] = addSlider(ids::kLightX, 0, kLookSliderMax, lightPosition(light.vector.x));
    light_[1] = addSlider(ids::kLightY, 0, kLookSliderMax, lightPosition(light.vector.y));
    light_[2] = addSlider(ids::kLightZ, 0, kLookSliderMax, lightPosition(light.vector.z));
    specular_ = addSlider(ids::kSpecular, 0, kLookSliderMax, specularPosition(light.specularShare));
    shiny_ = new QCheckBox(QStringLiteral("S&hiny Surface"));
    shiny_->setObjectName(idName(ids::kShiny));
    shading_ = new QCheckBox(QStringLiteral("Sh&ading"));
    shading_->setObjectName(idName(ids::kShading));
    auto* defaults = new QPushButton(QStringLiteral("&Default Settings"));
    defaults->setObjectName(idName(ids::kDefaults));
    defaults->setAutoDefault(false);

    auto* grid = new QGridLayout(page);
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
        if (!showing_) {
            scene_.light.fogIntensity = position;
            changed();
        }
    });
    connect(ambient_, &QSlider::valueChanged, this, [this](int position) {
        if (!showing_) {
            scene_.light.ambient = ambientFromPosition(position);
            changed();
        }
    });
    for (int axis = 0; axis < 3; ++axis) {
        connect(light_[axis], &QSlider::valueChanged, this,
                [this, axis](int position) { changeLight(axis, position); });
    }
    connect(shiny_, &QCheckBox::toggled, this, [this](bool on) {
        specular_->setEnabled(on);
        if (!showing_) {
            scene_.light.shiny = on;
            changed();
        }
    });
    connect(specular_, &QSlider::valueChanged, this, [this](int position) {
        if (!showing_) {
            scene_.light.specularShare = specularFromPosition(position);
            changed();
        }
    });
    connect(shading_, &QCheckBox::toggled, this, [this](bool on) {
        if (!showing_) {
            scene_.drawing.shading = on;
            changed();
        }
    });
    connect(defaults, &QPushButton::clicked, this, &ThreeDCustomizationDialog::restoreDefaults);
    return page;
}

QWidget* ThreeDCustomizationDialog::buildOtherPage() {
    auto* page = new QWidget;
    const SurfaceView& view = scene_.view;

    auto* location = new QGroupBox(QStringLiteral("Viewer Location"));
    vertical_ = addSlider(ids::kVertical, 0, kVerticalLocationHigh - kVerticalLocationLow,
                          view.verticalLocation - kVerticalLocationLow);
    horizontal_ = addSlider(ids::kHorizontal, 0, kHorizontalLocationHigh - kHorizontalLocationLow,
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
    connect(vertical_, &QSlider::valueChanged, this, &ThreeDCustomizationDialog::changeLocation);
    connect(horizontal_, &QSlider::valueChanged, this, &ThreeDCustomizationDialog::changeLocation);

    auto* mode = new QGroupBox(QStringLiteral("Drawing Mode"));
    polygons_ = new QRadioButton(QStringLiteral("&Polygons"), mode);
    polygons_->setObjectName(idName(ids::kPolygons));
    lines_ = new QRadioButton(QStringLiteral("&Lines"), mode);
    lines_->setObjectName(idName(ids::kLines));
    pixels_ = new QRadioButton(QStringLiteral("Pi&xels"), mode);
    pixels_->setObjectName(idName(ids::kPixels));
    polygons_->setChecked(scene_.drawing.mode == 'a');
    lines_->setChecked(scene_.drawing.mode == 'l');
    pixels_->setChecked(scene_.drawing.mode == 'p');
    auto* modeLayout = new QVBoxLayout(mode);
    const std::array<std::pair<QRadioButton*, char>, 3> modes{
        {{polygons_, 'a'}, {lines_, 'l'}, {pixels_, 'p'}}};
    for (const auto& [button, letter] : modes) {
        modeLayout->addWidget(button);
        const char chosen = letter;
        connect(button, &QRadioButton::toggled, this, [this, chosen](bool on) {
            if (on && !showing_) {
                scene_.drawing.mode = chosen;
                changed();
            }
        });
    }

    auto* limits = new QGroupBox(QStringLiteral("Z limits"));
    zLimit_ = new QSpinBox(limits);
    zLimit_->setObjectName(idName(ids::kZLimitSpin));
    if (auto* edit = zLimit_->findChild<QLineEdit*>()) {
        edit->setObjectName(idName(ids::kZLimitEdit));
    }
    auto* limitCaption = new QLabel(QStringLiteral("&Step"), limits);
    limitCaption->setBuddy(zLimit_);
    zMin_ = new QLabel(limits);
    zMin_->setObjectName(idName(ids::kZMinLabel));
    zMax_ = new QLabel(limits);
    zMax_->setObjectName(idName(ids::kZMaxLabel));
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
    connect(zLimit_, &QSpinBox::valueChanged, this, &ThreeDCustomizationDialog::changeZLimit);

    toolbar_ = new QCheckBox(QStringLiteral("Display &Toolbar"));
    toolbar_->setObjectName(idName(ids::kDisplayToolbar));
    connect(toolbar_, &QCheckBox::toggled, this, [this](bool on) {
        if (!showing_) {
            Q_EMIT toolbarToggled(on);
        }
    });

    auto* layout = new QGridLayout(page);
    layout->addWidget(location, 0, 0, 1, 2);
    layout->addWidget(mode, 1, 0);
    layout->addWidget(limits, 1, 1);
    layout->addWidget(toolbar_, 2, 0, 1, 2);
    layout->setRowStretch(3, 1);
    return page;
}

void ThreeDCustomizationDialog::pickScheme(char letter) {
    scene_.light.scheme = letter;
    changed();
}

void ThreeDCustomizationDialog::pickOwnColour(const QColor& colour) {
    SurfaceLight& light = scene_.light;
    light.ownRed = colour.red();
    light.ownGreen = colour.green();
    light.ownBlue = colour.blue();
    light.scheme = 'o';
    showing_ = true;
    for (SchemeButton& entry : schemes_) {
        if (entry.letter == 'o') {
            entry.button->setChecked(true);
        }
    }
    showing_ = false;
    refreshSamples();
    changed();
}

void ThreeDCustomizationDialog::refreshSamples() {
    for (SchemeButton& entry : schemes_) {
        const int side = static_cast<int>(std::ceil(kSampleSide * devicePixelRatioF()));
        QImage image = schemeSample(scene_.light, entry.letter, side);
        image.setDevicePixelRatio(devicePixelRatioF());
        entry.sample->setPixmap(QPixmap::fromImage(image));
    }
}

// Moves the "Visual Effects" controls to the settings without storing anything back.
void ThreeDCustomizationDialog::showEffects() {
    const SurfaceLight& light = scene_.light;
    showing_ = true;
    fog_->setValue(light.fogIntensity);
    ambient_->setValue(ambientPosition(light.ambient));
    light_[0]->setValue(lightPosition(light.vector.x));
    light_[1]->setValue(lightPosition(light.vector.y));
    light_[2]->setValue(lightPosition(light.vector.z));
    shiny_->setChecked(light.shiny);
    specular_->setValue(specularPosition(light.specularShare));
    specular_->setEnabled(light.shiny);
    shading_->setChecked(scene_.drawing.shading);
    showing_ = false;
}

void ThreeDCustomizationDialog::changeLight(int axis, int position) {
    if (showing_) {
        return;
    }
    Vec3 vector = scene_.light.vector;
    double& component = axis == 0 ? vector.x : axis == 1 ? vector.y : vector.z;
    component = lightFromPosition(position, component);
    // A light of no length has no direction: the last slider to reach 0 stays at its step.
    if (vector.x == 0 && vector.y == 0 && vector.z == 0) {
        showing_ = true;
        light_[axis]->setValue(1);
        showing_ = false;
        component = lightFromPosition(1, component);
    }
    scene_.light.vector = vector;
    changed();
}

void ThreeDCustomizationDialog::restoreDefaults() {
    restoreDefaultLook(scene_);
    showEffects();
    refreshSamples();
    changed();
}

void ThreeDCustomizationDialog::changeLocation() {
    if (showing_) {
        return;
    }
    setViewerLocation(scene_, kHorizontalLocationLow + horizontal_->value(),
                      kVerticalLocationLow + vertical_->value());
    changed();
}

void ThreeDCustomizationDialog::changeZLimit(int step) {
    if (showing_) {
        return;
    }
    if (setZLimitStep(scene_, step)) {
        showZRange();
        changed();
    }
}

void ThreeDCustomizationDialog::showZRange() {
    const SurfaceGrid& grid = scene_.grid;
    const bool active = scene_.complete && grid.limits.active == 'y';
    showing_ = true;
    zLimit_->setRange(1, std::max(1, grid.limits.availableSteps));
    zLimit_->setValue(grid.limits.step);
    zLimit_->setEnabled(active);
    showing_ = false;
    zMin_->setText(zLabel("Z min=%f", grid.zLow));
    zMax_->setText(zLabel("Z max=%f", grid.zHigh));
    zMin_->setToolTip(zMin_->text());
    zMax_->setToolTip(zMax_->text());
}

void ThreeDCustomizationDialog::changed() {
    if (redraw_) {
        redraw_();
    }
}

}  // namespace curvemill
