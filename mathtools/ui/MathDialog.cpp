#include "mathtools/ui/MathDialog.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "mathtools/DerivativeCurve.h"
#include "mathtools/Integral.h"
#include "mathtools/IntegralCurve.h"
#include "mathtools/MathTexts.h"
#include "mathtools/PreciseIntegral.h"
#include "mathtools/ui/ExtremeValuesGroup.h"
#include "mathtools/ui/MathControlIds.h"
#include "worker/ui/Worker.h"

namespace curvemill {

namespace {

constexpr std::size_t kBoxLength = 70;

QString idName(int id) {
    return QString::number(id);
}

// The defined stretch's ends in the display format, each kept inside the stretch.
QString spanText(double v, const DefinedSpan& span) {
    return QString::fromStdString(boxTextWithin(v, span.begin, span.end));
}

}  // namespace

MathDialog::MathDialog(Formula& formula, TwoDGraph& graph, GraphView& view, Worker& worker,
                       QWidget* parent)
    : QDialog(parent),
      formula_(formula),
      graph_(graph),
      view_(view),
      job_(
          worker, this,
          [this](int percent) {
              if (isRunning()) {
                  progress_->setValue(percent);
              }
          },
          [this](bool completed) {
              if (isRunning()) {
                  finishRun(completed);
              }
          }) {
    setWindowTitle(QStringLiteral("Math"));
    buildControls();
    setRunning(false);
}

void MathDialog::buildControls() {
    auto makeEdit = [this](int id) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(idName(id));
        edit->setMaxLength(static_cast<int>(kBoxLength));
        return edit;
    };
    xBeginEdit_ = makeEdit(math_ids::kXBegin);
    xEndEdit_ = makeEdit(math_ids::kXEnd);
    precise_ = new QCheckBox(QStringLiteral("Calculate &Precisely"), this);
    precise_->setObjectName(idName(math_ids::kPrecise));
    progress_ = new QProgressBar(this);
    progress_->setObjectName(idName(math_ids::kProgress));
    progress_->setRange(0, 100);

    auto makeButton = [this](int id, const QString& text) {
        auto* button = new QPushButton(text, this);
        button->setObjectName(idName(id));
        button->setAutoDefault(false);
        return button;
    };
    okButton_ = makeButton(math_ids::kOk, QStringLiteral("O&K"));
    okButton_->setDefault(true);
    stopButton_ = makeButton(math_ids::kStop, QStringLiteral("&Stop"));
    cancelButton_ = makeButton(math_ids::kCancel, QStringLiteral("Cance&l"));
    informationButton_ = makeButton(math_ids::kInformation, QStringLiteral("I&nformation..."));
    derivativeButton_ = makeButton(math_ids::kDrawDerivative, QStringLiteral("Draw &Derivative"));
    integralCurveButton_ =
        makeButton(math_ids::kDisplayIntegral, QStringLiteral("Display Integral &Curve"));
    markButton_ = makeButton(math_ids::kMarkIndefinite, QStringLiteral("&Mark Indefinite Areas"));

    auto* integralGroup = new QGroupBox(QStringLiteral("Integral"), this);
    auto* xBeginLabel = new QLabel(QStringLiteral("X_&BEG"), integralGroup);
    xBeginLabel->setBuddy(xBeginEdit_);
    auto* xEndLabel = new QLabel(QStringLiteral("X_&END"), integralGroup);
    xEndLabel->setBuddy(xEndEdit_);
    auto* integralLayout = new QGridLayout(integralGroup);
    integralLayout->addWidget(xBeginLabel, 0, 0);
    integralLayout->addWidget(xBeginEdit_, 0, 1);
    integralLayout->addWidget(xEndLabel, 0, 2);
    integralLayout->addWidget(xEndEdit_, 0, 3);
    integralLayout->addWidget(precise_, 1, 0, 1, 4);
    integralLayout->addWidget(progress_, 2, 0, 1, 4);

    extremes_ = new ExtremeValuesGroup(graph_.main, this);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(informationButton_);
    buttons->addWidget(derivativeButton_);
    buttons->addWidget(integralCurveButton_);
    buttons->addWidget(markButton_);
    buttons->addStretch(1);
    buttons->addWidget(okButton_);
    buttons->addWidget(stopButton_);
    buttons->addWidget(cancelButton_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(integralGroup);
    layout->addWidget(extremes_, 1);
    layout->addLayout(buttons);

    connect(okButton_, &QPushButton::clicked, this, &MathDialog::accept);
    connect(stopButton_, &QPushButton::clicked, this, &MathDialog::stop);
    connect(cancelButton_, &QPushButton::clicked, this, &MathDialog::reject);
    connect(informationButton_, &QPushButton::clicked, this, &MathDialog::informationRequested);
    connect(derivativeButton_, &QPushButton::clicked, this, &MathDialog::drawDerivative);
    connect(integralCurveButton_, &QPushButton::clicked, this, &MathDialog::displayIntegralCurve);
    connect(markButton_, &QPushButton::clicked, this, [this] {
        view_.indefiniteMarked = true;
        Q_EMIT graphChanged();
    });
    connect(xBeginEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { xBeginBox_.setText(text.toStdString()); });
    connect(xEndEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { xEndBox_.setText(text.toStdString()); });
}

void MathDialog::showEvent(QShowEvent* event) {
    takeGraph();
    QDialog::showEvent(event);
}

void MathDialog::takeGraph() {
    if (graph_.mainFormulaText == seenFormula_ && graph_.main.pointCount == seenCount_ &&
        graph_.xBegin == seenXBegin_ && graph_.xEnd == seenXEnd_) {
        return;
    }
    seenFormula_ = graph_.mainFormulaText;
    seenCount_ = graph_.main.pointCount;
    seenXBegin_ = graph_.xBegin;
    seenXEnd_ = graph_.xEnd;
    xBeginEdit_->setText(spanText(graph_.definedSpan.begin, graph_.definedSpan));
    xEndEdit_->setText(spanText(graph_.definedSpan.end, graph_.definedSpan));
    extremes_->forget();
}

void MathDialog::setRunning(bool running) {
    for (QWidget* input : std::initializer_list<QWidget*>{
             xBeginEdit_, xEndEdit_, precise_, okButton_, cancelButton_, informationButton_,
             derivativeButton_, integralCurveButton_, markButton_, extremes_}) {
        input->setEnabled(!running);
    }
    stopButton_->setEnabled(running);
    progress_->setVisible(running);
    if (running) {
        progress_->setValue(0);
        stopButton_->setFocus();
    }
}

void MathDialog::refuse(const std::string& message) {
    QMessageBox::critical(this, QString::fromLatin1(kBoxCaption), QString::fromStdString(message));
    // The box the message is about takes the focus, so the user can retype it at once.
    const bool aboutEnd = message == math_messages::kXEndOutside ||
                          message.find(math_messages::kBoxXEnd) != std::string::npos;
    QLineEdit* box = aboutEnd ? xEndEdit_ : xBeginEdit_;
    box->setFocus();
    box->selectAll();
}

bool MathDialog::refuseWhileBusy() {
    if (isRunning()) {
        return true;
    }
    // The tools read the curve and the formula engine a computation there would be using.
    return job_.refuseWhileBusy(kBoxCaption);
}

void MathDialog::accept() {
    if (refuseWhileBusy()) {
        return;
    }
    IntegralState candidate;
    if (const auto refusal =
            acceptIntegralInterval(formula_, graph_, xBeginBox_, xEndBox_, candidate)) {
        refuse(*refusal);
        return;
    }
    state_ = candidate;
    if (precise_->isChecked()) {
        startRun(Run::kIntegral);
        return;
    }
    const bool preciseEnough = integrateQuick(graph_.main, formula_, state_);
    if (const auto refusal = integralValueRefusal(state_)) {
        refuse(*refusal);
        return;
    }
    if (!preciseEnough) {
        const auto answer =
            QMessageBox::warning(this, QString::fromLatin1(math_messages::kWarningTitle),
                                 QString::fromStdString(preciseQuestionText(state_.value)),
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
        if (answer == QMessageBox::Yes) {
            precise_->setChecked(true);
            startRun(Run::kIntegral);
            return;
        }
    }
    showIntegralArea(graph_, view_, state_);
    Q_EMIT graphChanged();
    QDialog::accept();
}

void MathDialog::drawDerivative() {
    startCurveRun(Run::kDerivative);
}

void MathDialog::displayIntegralCurve() {
    startCurveRun(Run::kIntegralCurve);
}

void MathDialog::startCurveRun(Run run) {
    if (refuseWhileBusy() || !graph_.main.exists()) {
        return;
    }
    curveRun_.main = graph_.main;
    curveRun_.xBegin = graph_.xBegin;
    curveRun_.xEnd = graph_.xEnd;
    startRun(run);
}

void MathDialog::startRun(Run run) {
    if (run == Run::kIntegral) {
        // The area is painted while it is computed; its value follows when the run ends.
        IntegralState shown = state_;
        shown.resultText.clear();
        showIntegralArea(graph_, view_, shown);
        Q_EMIT graphChanged();
    }
    run_ = run;
    setRunning(true);
    const bool started =
        job_.start(kProcMathDialog, formula_.keepComputing, [this](const JobContext& context) {
            control_.progress = context.progress;
            if (run_ == Run::kDerivative) {
                return buildDerivativeCurve(curveRun_, formula_, control_);
            }
            if (run_ == Run::kIntegralCurve) {
                return buildIntegralCurve(curveRun_, formula_, control_);
            }
            return integratePrecise(graph_.main, formula_, state_, control_);
        });
    if (!started) {
        // refuseWhileBusy() checked the worker just before; nothing else can start it in between.
        finishRun(false);
    }
}

void MathDialog::finishRun(bool completed) {
    const Run run = run_;
    run_ = Run::kNone;
    setRunning(false);
    bool refused = false;
    if (run == Run::kDerivative || run == Run::kIntegralCurve) {
        finishCurve(run, completed);
    } else {
        refused = !finishPrecise(completed);
    }
    Q_EMIT runFinished(completed);
    // A refused sum leaves the dialog open for another interval, as a refused entry does.
    if (!refused) {
        done(completed ? QDialog::Accepted : QDialog::Rejected);
    }
}

bool MathDialog::finishPrecise(bool completed) {
    const auto refusal = completed ? integralValueRefusal(state_) : std::nullopt;
    if (!completed || refusal) {
        state_.value = 0.0;
        state_.resultText.clear();
    }
    finishPreciseIntegral(graph_, view_, state_, completed && !refusal);
    Q_EMIT graphChanged();
    if (refusal) {
        QMessageBox::critical(this, QString(), QString::fromStdString(*refusal));
    } else if (completed && state_.refinementCut) {
        QMessageBox::warning(this, QString::fromLatin1(math_messages::kWarningTitle),
                             QString::fromStdString(refinementCutText()));
    }
    return !refusal;
}

void MathDialog::finishCurve(Run run, bool completed) {
    if (completed) {
        if (run == Run::kDerivative) {
            graph_.derivative = std::move(curveRun_.derivative);
        } else {
            graph_.integral = std::move(curveRun_.integral);
        }
    }
    curveRun_.main.release();
    curveRun_.derivative.release();
    curveRun_.integral.release();
    if (completed) {
        Q_EMIT curveAdded();
    }
}

void MathDialog::stop() {
    if (isRunning()) {
        job_.stop();
    }
}

void MathDialog::reject() {
    if (isRunning()) {
        stop();
        return;
    }
    QDialog::reject();
}

}  // namespace curvemill
