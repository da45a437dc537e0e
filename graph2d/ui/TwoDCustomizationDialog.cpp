#include "graph2d/ui/TwoDCustomizationDialog.h"

#include <algorithm>

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace curvemill {

namespace ids = customization_ids;

namespace {

QString idName(int id) {
    return QString::number(id);
}

}  // namespace

TwoDCustomizationDialog::TwoDCustomizationDialog(const TwoDGraph& graph, TwoDSettings current,
                                                 bool equationShown, QWidget* parent)
    : QDialog(parent),
      graph_(graph),
      settings_(std::move(current)),
      picker_(settings_.displayOrder) {
    setObjectName(QStringLiteral("TwoDCustomizationDialog"));
    setWindowTitle(QStringLiteral("Customization"));

    optimize_ = new QCheckBox(QStringLiteral("&Optimize Drawing"), this);
    optimize_->setObjectName(idName(ids::kOptimizeDrawing));
    optimize_->setChecked(settings_.optimizeDrawing);
    optimize_->setEnabled(!equationShown);
    tooltips_ = new QCheckBox(QStringLiteral("Display &Tooltips"), this);
    tooltips_->setObjectName(idName(ids::kDisplayTooltips));
    tooltips_->setChecked(settings_.tooltips);
    toolbar_ = new QCheckBox(QStringLiteral("Display Tool&bar"), this);
    toolbar_->setObjectName(idName(ids::kDisplayToolbar));
    toolbar_->setChecked(settings_.toolbar);

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(idName(ids::kOk));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(idName(ids::kCancel));
    buttons->button(QDialogButtonBox::Help)->setObjectName(idName(ids::kHelp));
    // "&Optimize Drawing" holds the O.
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("O&K"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("&Cancel"));
    buttons->button(QDialogButtonBox::Help)->setText(QStringLiteral("&Help"));
    connect(buttons, &QDialogButtonBox::helpRequested, this, [this] {
        QEvent request(QEvent::HelpRequest);
        QCoreApplication::sendEvent(this, &request);
    });
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* options = new QVBoxLayout;
    options->addWidget(optimize_);
    options->addWidget(tooltips_);
    options->addWidget(toolbar_);
    options->addStretch();

    auto* layout = new QGridLayout(this);
    layout->addWidget(buildRatioGroup(), 0, 0, 1, 2);
    layout->addWidget(buildMouseGroup(), 1, 0);
    layout->addWidget(buildOrderGroup(), 1, 1, 2, 1);
    layout->addLayout(options, 2, 0);
    layout->addWidget(buttons, 3, 0, 1, 2);
    showRanges();
    showPlaces();
}

QWidget* TwoDCustomizationDialog::buildRatioGroup() {
    auto* group = new QGroupBox(QStringLiteral("X / Y Ratio"), this);
    auto* caption = new QLabel(QStringLiteral("&Max Ratio of Y Field to X Field"), group);
    caption->setObjectName(idName(ids::kRatioCaption));
    ratio_ = new QSpinBox(group);
    ratio_->setObjectName(idName(ids::kRatioSpin));
    if (auto* edit = ratio_->findChild<QLineEdit*>()) {
        edit->setObjectName(idName(ids::kRatioEdit));
    }
    caption->setBuddy(ratio_);
    const int top = ratioSpinTop(graph_);
    settings_.maxYRatio = std::clamp(settings_.maxYRatio, 1, top);
    openingRatio_ = settings_.maxYRatio;
    ratio_->setRange(1, top);
    ratio_->setValue(settings_.maxYRatio);
    ratio_->setEnabled(top > 1);
    xRange_ = new QLabel(group);
    xRange_->setObjectName(idName(ids::kXRangeLabel));
    yRange_ = new QLabel(group);
    yRange_->setObjectName(idName(ids::kYRangeLabel));
    connect(ratio_, &QSpinBox::valueChanged, this, [this](int value) {
        settings_.maxYRatio = value;
        showRanges();
    });
    auto* layout = new QGridLayout(group);
    layout->addWidget(caption, 0, 0);
    layout->addWidget(ratio_, 0, 1);
    layout->addWidget(xRange_, 1, 0, 1, 2);
    layout->addWidget(yRange_, 2, 0, 1, 2);
    return group;
}

QWidget* TwoDCustomizationDialog::buildMouseGroup() {
    auto* group = new QGroupBox(QStringLiteral("Mouse Function"), this);
    moveScreen_ = new QRadioButton(QStringLiteral("Mo&ve Screen"), group);
    moveScreen_->setObjectName(idName(ids::kMoveScreen));
    selectArea_ = new QRadioButton(QStringLiteral("&Select Area"), group);
    selectArea_->setObjectName(idName(ids::kSelectArea));
    (settings_.selectArea ? selectArea_ : moveScreen_)->setChecked(true);
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(moveScreen_);
    layout->addWidget(selectArea_);
    return group;
}

QWidget* TwoDCustomizationDialog::buildOrderGroup() {
    auto* group = new QGroupBox(QStringLiteral("Display Order"), this);
    auto* layout = new QGridLayout(group);
    const struct {
        GraphCurve curve;
        const char* text;
        int button;
        int place;
    } rows[] = {
        {GraphCurve::kMain, "&Function", ids::kFunctionButton, ids::kFunctionPlace},
        {GraphCurve::kDerivative, "&Derivative", ids::kDerivativeButton, ids::kDerivativePlace},
        {GraphCurve::kIntegral, "&Integral", ids::kIntegralButton, ids::kIntegralPlace},
        {GraphCurve::kSecond, "2nd F&unction", ids::kSecondButton, ids::kSecondPlace}};
    for (std::size_t i = 0; i < order_.size(); ++i) {
        OrderButton& entry = order_[i];
        entry.curve = rows[i].curve;
        entry.button = new QPushButton(QString::fromLatin1(rows[i].text), group);
        entry.button->setObjectName(idName(rows[i].button));
        entry.button->setAutoDefault(false);
        entry.place = new QLabel(group);
        entry.place->setObjectName(idName(rows[i].place));
        entry.place->setMinimumWidth(entry.place->fontMetrics().horizontalAdvance(u'0') * 2);
        layout->addWidget(entry.button, static_cast<int>(i), 0);
        layout->addWidget(entry.place, static_cast<int>(i), 1);
        connect(entry.button, &QPushButton::clicked, this,
                [this, &entry] { pressOrderButton(entry); });
    }
    auto* reset = new QPushButton(QStringLiteral("&Reset"), group);
    reset->setObjectName(idName(ids::kResetOrder));
    reset->setAutoDefault(false);
    connect(reset, &QPushButton::clicked, this, [this] {
        picker_.reset();
        showPlaces();
    });
    layout->addWidget(reset, static_cast<int>(order_.size()), 0);
    return group;
}

void TwoDCustomizationDialog::showRanges() {
    const YRange y = ratioYRange(graph_, settings_.maxYRatio);
    xRange_->setText(QString::asprintf("X Range: %g to %g", graph_.xBegin, graph_.xEnd));
    yRange_->setText(QString::asprintf("Y Range: %g to %g", y.begin, y.end));
}

void TwoDCustomizationDialog::pressOrderButton(OrderButton& entry) {
    picker_.press(entry.curve);
    showPlaces();
}

void TwoDCustomizationDialog::showPlaces() {
    for (const OrderButton& entry : order_) {
        const int place = picker_.placeOf(entry.curve);
        entry.button->setEnabled(place == 0);
        entry.place->setText(place == 0 ? QString() : QString::number(place));
    }
}

TwoDSettings TwoDCustomizationDialog::settings() const {
    TwoDSettings settings = settings_;
    settings.maxYRatio = ratio_->value();
    settings.optimizeDrawing = optimize_->isChecked();
    settings.selectArea = selectArea_->isChecked();
    settings.tooltips = tooltips_->isChecked();
    settings.toolbar = toolbar_->isChecked();
    settings.displayOrder = picker_.order();
    return settings;
}

}  // namespace curvemill
