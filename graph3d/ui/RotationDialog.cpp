#include "graph3d/ui/RotationDialog.h"

#include <cmath>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

#include "graph3d/ui/SurfaceRotator.h"

namespace curvemill {

namespace {

// Sliders move in tenths of a degree, as finely as the spin boxes show.
constexpr int kSliderUnits = 10;

QComboBox* axisCombo(const QString& name, RotationAxis chosen) {
    auto* combo = new QComboBox;
    combo->setObjectName(name);
    combo->addItem(QStringLiteral("x axis"), int(RotationAxis::kX));
    combo->addItem(QStringLiteral("y axis"), int(RotationAxis::kY));
    combo->addItem(QStringLiteral("z axis (vertical)"), int(RotationAxis::kZ));
    combo->setCurrentIndex(combo->findData(int(chosen)));
    return combo;
}

RotationAxis chosenAxis(const QComboBox* combo) {
    return static_cast<RotationAxis>(combo->currentData().toInt());
}

}  // namespace

RotationDialog::RotationDialog(SurfaceRotator& rotator, QWidget* parent)
    : QDialog(parent), rotator_(rotator) {
    setWindowTitle(QStringLiteral("ThreeD Rotation"));
    setObjectName(QStringLiteral("rotationDialog"));

    auto* anglesBox = new QGroupBox(QStringLiteral("Angles (degrees)"));
    auto* anglesGrid = new QGridLayout(anglesBox);
    const char* names[3] = {"X", "Y", "Z"};
    const char* captions[3] = {"About &x:", "About &y:", "About &z:"};
    for (int k = 0; k < 3; ++k) {
        AxisControls& c = axes_[k];
        c.slider = new QSlider(Qt::Horizontal);
        c.slider->setObjectName(QStringLiteral("angle%1Slider").arg(names[k]));
        c.slider->setRange(-180 * kSliderUnits, 180 * kSliderUnits);
        c.slider->setPageStep(15 * kSliderUnits);
        c.slider->setMinimumWidth(220);
        c.spin = new QDoubleSpinBox;
        c.spin->setObjectName(QStringLiteral("angle%1Spin").arg(names[k]));
        c.spin->setRange(-180, 180);
        c.spin->setDecimals(1);
        c.spin->setWrapping(true);
        c.spin->setSuffix(QStringLiteral("\u00B0"));
        auto* label = new QLabel(QString::fromLatin1(captions[k]));
        label->setBuddy(c.spin);
        anglesGrid->addWidget(label, k, 0);
        anglesGrid->addWidget(c.slider, k, 1);
        anglesGrid->addWidget(c.spin, k, 2);
        connect(c.slider, &QSlider::valueChanged, this, [this, k](int value) {
            const QSignalBlocker block(axes_[k].spin);
            axes_[k].spin->setValue(value / double(kSliderUnits));
            takeAngles();
        });
        connect(c.spin, &QDoubleSpinBox::valueChanged, this, [this] { takeAngles(); });
    }

    auto* stepBox = new QGroupBox(QStringLiteral("Step"));
    auto* stepRow = new QHBoxLayout(stepBox);
    stepAxis_ = axisCombo(QStringLiteral("stepAxisCombo"), RotationAxis::kZ);
    stepSize_ = new QDoubleSpinBox;
    stepSize_->setObjectName(QStringLiteral("stepSpin"));
    stepSize_->setRange(0.5, 180);
    stepSize_->setDecimals(1);
    stepSize_->setValue(kRotationStepDegrees);
    stepSize_->setSuffix(QStringLiteral("\u00B0"));
    auto* forward = new QPushButton(QStringLiteral("Turn &+"));
    forward->setObjectName(QStringLiteral("stepForwardButton"));
    auto* back = new QPushButton(QStringLiteral("Turn &\u2212"));
    back->setObjectName(QStringLiteral("stepBackButton"));
    stepRow->addWidget(stepAxis_);
    stepRow->addWidget(stepSize_);
    stepRow->addWidget(forward);
    stepRow->addWidget(back);
    connect(forward, &QPushButton::clicked, this, [this] { step(1); });
    connect(back, &QPushButton::clicked, this, [this] { step(-1); });

    auto* animationBox = new QGroupBox(QStringLiteral("Animation"));
    auto* animationForm = new QFormLayout(animationBox);
    animationAxis_ = axisCombo(QStringLiteral("animationAxisCombo"), RotationAxis::kZ);
    speed_ = new QDoubleSpinBox;
    speed_->setObjectName(QStringLiteral("speedSpin"));
    speed_->setRange(-RotationAnimation::kMaxDegreesPerSecond,
                     RotationAnimation::kMaxDegreesPerSecond);
    speed_->setDecimals(0);
    speed_->setValue(30);
    speed_->setSuffix(QStringLiteral("\u00B0/s"));
    start_ = new QPushButton(QStringLiteral("&Start"));
    start_->setObjectName(QStringLiteral("startButton"));
    stop_ = new QPushButton(QStringLiteral("S&top"));
    stop_->setObjectName(QStringLiteral("stopButton"));
    auto* startStop = new QHBoxLayout;
    startStop->addWidget(start_);
    startStop->addWidget(stop_);
    animationForm->addRow(QStringLiteral("&Axis:"), animationAxis_);
    animationForm->addRow(QStringLiteral("S&peed:"), speed_);
    animationForm->addRow(startStop);
    connect(start_, &QPushButton::clicked, this,
            [this] { rotator_.startAnimation(chosenAxis(animationAxis_), speed_->value()); });
    connect(stop_, &QPushButton::clicked, this, [this] { rotator_.stopAnimation(); });

    auto* buttons = new QDialogButtonBox;
    auto* reset = buttons->addButton(QStringLiteral("&Reset"), QDialogButtonBox::ResetRole);
    reset->setObjectName(QStringLiteral("resetButton"));
    auto* close = buttons->addButton(QStringLiteral("&Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("closeButton"));
    close->setDefault(true);
    connect(reset, &QPushButton::clicked, this, [this] { rotator_.reset(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(anglesBox);
    layout->addWidget(stepBox);
    layout->addWidget(animationBox);
    layout->addWidget(buttons);

    connect(&rotator_, &SurfaceRotator::rotated, this, &RotationDialog::showAngles);
    connect(&rotator_, &SurfaceRotator::animationChanged, this,
            &RotationDialog::showAnimationState);
    showAngles();
    showAnimationState(rotator_.animating());
}

void RotationDialog::showAngles() {
    const RotationAngles& a = rotator_.angles();
    const double values[3] = {a.x, a.y, a.z};
    for (int k = 0; k < 3; ++k) {
        const QSignalBlocker blockSpin(axes_[k].spin);
        const QSignalBlocker blockSlider(axes_[k].slider);
        axes_[k].spin->setValue(values[k]);
        axes_[k].slider->setValue(int(std::lround(values[k] * kSliderUnits)));
    }
}

void RotationDialog::showAnimationState(bool running) {
    start_->setEnabled(!running);
    stop_->setEnabled(running);
}

void RotationDialog::takeAngles() {
    rotator_.setAngles({axes_[0].spin->value(), axes_[1].spin->value(), axes_[2].spin->value()});
}

void RotationDialog::step(double sign) {
    rotator_.turn(chosenAxis(stepAxis_), sign * stepSize_->value());
}

void RotationDialog::reject() {
    rotator_.stopAnimation();
    QDialog::reject();
}

}  // namespace curvemill
