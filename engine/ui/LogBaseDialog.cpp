#include "engine/ui/LogBaseDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/LogBase.h"

namespace curvemill {

LogBaseDialog::LogBaseDialog(Formula& formula, QWidget* parent)
    : QDialog(parent),
      formula_(formula),
      baseTen_(new QRadioButton(QStringLiteral("&Base 10 (common logarithm)"), this)),
      otherBase_(new QRadioButton(QStringLiteral("&Another base:"), this)),
      baseEdit_(new QLineEdit(this)) {
    setWindowTitle(QStringLiteral("Log Base"));
    setModal(true);
    baseTen_->setObjectName(QString::number(kLogBaseTenRadio));
    otherBase_->setObjectName(QString::number(kLogBaseOtherRadio));
    baseEdit_->setObjectName(QString::number(kLogBaseEdit));
    baseEdit_->setMaxLength(70);
    baseEdit_->setPlaceholderText(QStringLiteral("for example 2"));

    auto* explanation =
        new QLabel(QStringLiteral("Your formula uses log(. Choose the base of that logarithm;\n"
                                  "ln( always uses the base e."),
                   this);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("1"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("2"));
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("&Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &LogBaseDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &LogBaseDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(baseTen_);
    auto* other = new QHBoxLayout;
    other->addWidget(otherBase_);
    other->addWidget(baseEdit_, 1);
    layout->addLayout(other);
    layout->addWidget(buttons);

    connect(baseTen_, &QRadioButton::toggled, this, &LogBaseDialog::followChoice);
    connect(otherBase_, &QRadioButton::clicked, this, [this] {
        followChoice();
        baseEdit_->setFocus();
    });
}

void LogBaseDialog::showEvent(QShowEvent* event) {
    // Each opening shows the base in force, not what was typed and cancelled last time.
    if (formula_.logBase == 10.0) {
        baseTen_->setChecked(true);
    } else {
        otherBase_->setChecked(true);
        baseEdit_->setText(QString::fromStdString(formatLogBase(formula_.logBase)));
    }
    followChoice();
    QDialog::showEvent(event);
}

void LogBaseDialog::followChoice() {
    baseEdit_->setEnabled(otherBase_->isChecked());
}

void LogBaseDialog::accept() {
    const LogBaseResult result =
        applyLogBase(formula_, otherBase_->isChecked(), baseEdit_->text().toStdString());
    if (!result.accepted) {
        QMessageBox::critical(this, windowTitle(), QString::fromStdString(result.message));
        baseEdit_->setFocus();
        baseEdit_->selectAll();
        return;
    }
    QDialog::accept();
}

namespace {
// Input windows run on the GUI thread only, so a plain count serves.
int heldQuestions = 0;
}  // namespace

LogBaseQuestionHold::LogBaseQuestionHold() {
    ++heldQuestions;
}
LogBaseQuestionHold::~LogBaseQuestionHold() {
    --heldQuestions;
}

void askLogBase(Formula& formula, QWidget* parent) {
    if (heldQuestions == 0) {
        LogBaseDialog(formula, parent).exec();
    }
}

}  // namespace curvemill
