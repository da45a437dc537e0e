#include "graph3d/ui/ThreeDColorsPage.h"

#include <cmath>

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "graph3d/ui/ColourWheel.h"
#include "graph3d/ui/SchemeSample.h"
#include "graph3d/ui/ThreeDCustomizationControls.h"

namespace curvemill {

namespace ids = custom3d_ids;

namespace {

constexpr int kSampleSide = 22;

struct SchemeEntry {
    int id;
    ColourScheme scheme;
    const char* text;
};

// Left column top to bottom, then the right column.
constexpr std::array<SchemeEntry, 8> kSchemes{
    {{ids::kSchemeRed, ColourScheme::kRed, "&Red"},
     {ids::kSchemeGreen, ColourScheme::kGreen, "&Green"},
     {ids::kSchemeBlue, ColourScheme::kBlue, "&Blue"},
     {ids::kSchemeCyan, ColourScheme::kCyan, "&Cyan"},
     {ids::kSchemeMagenta, ColourScheme::kMagenta, "&Magenta"},
     {ids::kSchemeYellow, ColourScheme::kYellow, "&Yellow"},
     {ids::kSchemeGrey, ColourScheme::kGrey, "Gr&ey"},
     {ids::kSchemeOwn, ColourScheme::kOwn, "&Own Color"}}};

}  // namespace

ThreeDColorsPage::ThreeDColorsPage(SurfaceScene& scene, std::function<void()> changed)
    : scene_(scene), changed_(std::move(changed)) {
    auto* group = new QGroupBox(QStringLiteral("Colors"), this);
    auto* grid = new QGridLayout(group);
    for (std::size_t k = 0; k < kSchemes.size(); ++k) {
        const SchemeEntry& entry = kSchemes[k];
        auto* button = new QRadioButton(QString::fromLatin1(entry.text), group);
        button->setObjectName(custom3dName(entry.id));
        button->setChecked(scene_.light.scheme == entry.scheme);
        auto* sample = new QLabel(group);
        sample->setFixedSize(kSampleSide, kSampleSide);
        const int row = static_cast<int>(k % 4);
        const int column = static_cast<int>(k / 4) * 2;
        grid->addWidget(sample, row, column);
        grid->addWidget(button, row, column + 1);
        schemes_[k] = {entry.scheme, button, sample};
        const ColourScheme scheme = entry.scheme;
        connect(button, &QRadioButton::toggled, this, [this, scheme](bool on) {
            if (on) {
                pickScheme(scheme);
            }
        });
    }
    wheel_ = new ColourWheel(group);
    wheel_->setObjectName(custom3dName(ids::kColourWheel));
    grid->addWidget(wheel_, 4, 0, 1, 4, Qt::AlignHCenter);
    connect(wheel_, &ColourWheel::colourPicked, this, &ThreeDColorsPage::pickOwnColour);
    refreshSamples();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);
    layout->addStretch();
}

void ThreeDColorsPage::pickScheme(ColourScheme scheme) {
    scene_.light.scheme = scheme;
    changed_();
}

void ThreeDColorsPage::pickOwnColour(const QColor& colour) {
    SurfaceLight& light = scene_.light;
    light.ownRed = colour.red();
    light.ownGreen = colour.green();
    light.ownBlue = colour.blue();
    light.scheme = ColourScheme::kOwn;
    for (SchemeButton& entry : schemes_) {
        if (entry.scheme == ColourScheme::kOwn) {
            const QSignalBlocker quiet(entry.button);
            entry.button->setChecked(true);
        }
    }
    refreshSamples();
    changed_();
}

void ThreeDColorsPage::refreshSamples() {
    for (SchemeButton& entry : schemes_) {
        const int side = static_cast<int>(std::ceil(kSampleSide * devicePixelRatioF()));
        QImage image = schemeSample(scene_.light, entry.scheme, side);
        image.setDevicePixelRatio(devicePixelRatioF());
        entry.sample->setPixmap(QPixmap::fromImage(image));
    }
}

}  // namespace curvemill
