#include "mathtools/ui/FunctionValuePage.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QMessageBox>

#include "engine/NumberEntry.h"
#include "mathtools/MathTexts.h"
#include "mathtools/ui/MathControlIds.h"

namespace curvemill {

namespace {

QLineEdit* resultBox(int id, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(QString::number(id));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::ClickFocus);
    return box;
}

// In pi units a result is written as the root list writes it, "pi*%g" of value / pi; the plain
// form is the dialog's own "y=%f" and "y'=%f".
QString resultText(const PointValue& value, bool slope, bool piUnits) {
    const std::string plain = slope ? slopeBoxText(value) : yBoxText(value);
    const bool defined = slope ? value.yDefined && value.slopeDefined : value.yDefined;
    if (!piUnits || !defined) {
        return QString::fromStdString(plain);
    }
    const std::string prefix = slope ? "y'=" : "y=";
    return QString::fromStdString(prefix + solutionText(slope ? value.slope : value.y, true));
}

}  // namespace

FunctionValuePage::FunctionValuePage(Formula& formula, const TwoDGraph& graph, QWidget* parent)
    : InformationPage(parent), formula_(formula), graph_(graph) {
    xEdit_ = new QLineEdit(this);
    xEdit_->setObjectName(QString::number(information_ids::kX));
    xEdit_->setMaxLength(70);
    // Wide enough for a value written to 15 decimals.
    xEdit_->setMinimumWidth(xEdit_->fontMetrics().horizontalAdvance(u'0') * 28);
    yResult_ = resultBox(information_ids::kYResult, this);
    slopeResult_ = resultBox(information_ids::kSlopeResult, this);
    piUnits_ = new QCheckBox(QStringLiteral("Results In &PI Units"), this);
    piUnits_->setObjectName(QString::number(information_ids::kPiUnits));

    auto* layout = new QFormLayout(this);
    layout->addRow(QStringLiteral("&X ="), xEdit_);
    layout->addRow(QStringLiteral("&Value:"), yResult_);
    layout->addRow(QStringLiteral("&Slope:"), slopeResult_);
    layout->addRow(piUnits_);

    connect(xEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { xBox_.setText(text.toStdString()); });
    connect(piUnits_, &QCheckBox::toggled, this, &FunctionValuePage::showResult);
}

bool FunctionValuePage::calculate() {
    double x = 0.0;
    if (const auto refusal = acceptPointX(formula_, graph_, xBox_, x)) {
        shown_ = false;
        showResult();
        QMessageBox::critical(this, QString::fromLatin1(kBoxCaption),
                              QString::fromStdString(*refusal));
        xEdit_->setFocus();
        xEdit_->selectAll();
        return false;
    }
    value_ = valueAt(formula_, x);
    shown_ = true;
    showResult();
    // Ready for the next x.
    xEdit_->selectAll();
    return true;
}

void FunctionValuePage::showResult() {
    yResult_->setText(shown_ ? resultText(value_, false, piUnits_->isChecked()) : QString());
    slopeResult_->setText(shown_ ? resultText(value_, true, piUnits_->isChecked()) : QString());
}

}  // namespace curvemill
