#include "graph2d/ui/TwoDGraphDialog.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "engine/ui/EntryErrorBox.h"
#include "engine/ui/LogBaseDialog.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphPointsSpin.h"
#include "worker/ui/RunFrame.h"
#include "worker/ui/Worker.h"

namespace curvemill {

namespace {

constexpr int kEditLength = 70;

QString idName(int id) {
    return QString::number(id);
}

}  // namespace

TwoDGraphDialog::TwoDGraphDialog(TwoDGraphRole role, Formula& formula, TwoDGraph& graph,
                                 GraphView& view, Worker& worker, QWidget* parent)
    : QDialog(parent),
      formula_(formula),
      run_(role, formula, graph, &view),
      job_(
          worker, this,
          [this](int percent) {
              if (running_) {
                  progress_->setValue(percent);
              }
          },
          [this](bool completed) {
              if (running_) {
                  finishRun(completed);
              }
          }) {
    setWindowTitle(role == TwoDGraphRole::Main ? QStringLiteral("Function")
                                               : QStringLiteral("Second Function"));
    buildControls();
    setHistoryHooks({});
    setRunning(false);
}

void TwoDGraphDialog::buildControls() {
    xBeginEdit_ = makeEntryBox(this, twod_ids::kXBegin, QStringLiteral("-10"), kEditLength);
    xEndEdit_ = makeEntryBox(this, twod_ids::kXEnd, QStringLiteral("10"), kEditLength);
    formulaEdit_ = makeEntryBox(this, twod_ids::kFormula, QString(), kEditLength);
    formulaEdit_->setMinimumWidth(360);
    QFont mono(QStringLiteral("Courier New"));
    mono.setStyleHint(QFont::Monospace);
    formulaEdit_->setFont(mono);

    usePrompts_ = new QCheckBox(QStringLiteral("Use &Prompts"), this);
    usePrompts_->setObjectName(idName(twod_ids::kUsePrompts));
    pointsSpin_ = new TwoDGraphPointsSpin(this);
    pointsSpin_->setObjectName(idName(twod_ids::kPointsSpin));
    pointsSpin_->editor()->setObjectName(idName(twod_ids::kPointsEdit));
    pointsLabel_ = new QLabel(QStringLiteral("100000 Points"), this);
    pointsLabel_->setObjectName(idName(twod_ids::kPointsLabel));
    pointsLabel_->setMinimumWidth(
        pointsLabel_->fontMetrics().horizontalAdvance(QStringLiteral("400000 Points ")));
    progress_ = makeRunProgress(this, twod_ids::kProgress, false);

    okButton_ = makeWindowButton(this, twod_ids::kOk, QStringLiteral("&OK"));
    okButton_->setDefault(true);
    stopButton_ = makeWindowButton(this, twod_ids::kStop, QStringLiteral("&Stop"));
    cancelButton_ = makeWindowButton(this, twod_ids::kCancel, QStringLiteral("&Cancel"));
    historyButton_ = makeWindowButton(this, twod_ids::kHistory, QStringLiteral("&History"));
    historyListButton_ =
        makeWindowButton(this, twod_ids::kHistoryList, QStringLiteral("History 1"));
    historyListButton_->hide();

    auto* range = new QHBoxLayout;
    auto* xBeginLabel = new QLabel(QStringLiteral("&X Begin"), this);
    xBeginLabel->setObjectName(QStringLiteral("1191"));
    xBeginLabel->setBuddy(xBeginEdit_);
    auto* xEndLabel = new QLabel(QStringLiteral("X &End"), this);
    xEndLabel->setObjectName(QStringLiteral("1192"));
    xEndLabel->setBuddy(xEndEdit_);
    range->addWidget(xBeginLabel);
    range->addWidget(xBeginEdit_, 1);
    range->addSpacing(12);
    range->addWidget(xEndLabel);
    range->addWidget(xEndEdit_, 1);

    auto* formulaRow = new QHBoxLayout;
    auto* yLabel = new QLabel(QStringLiteral("&Y ="), this);
    yLabel->setBuddy(formulaEdit_);
    formulaRow->addWidget(yLabel);
    formulaRow->addWidget(formulaEdit_, 1);

    auto* pointsRow = new QHBoxLayout;
    pointsRow->addWidget(usePrompts_);
    pointsRow->addStretch(1);
    auto* pointsCaption = new QLabel(QStringLiteral("Poi&nts (x 10000)"), this);
    pointsCaption->setBuddy(pointsSpin_);
    pointsRow->addWidget(pointsCaption);
    pointsRow->addWidget(pointsSpin_);
    pointsRow->addWidget(pointsLabel_);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(historyButton_);
    buttons->addWidget(historyListButton_);
    buttons->addStretch(1);
    buttons->addWidget(okButton_);
    buttons->addWidget(stopButton_);
    buttons->addWidget(cancelButton_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(range);
    layout->addLayout(formulaRow);
    layout->addLayout(pointsRow);
    layout->addWidget(progress_);
    layout->addLayout(buttons);

    connect(okButton_, &QPushButton::clicked, this, &TwoDGraphDialog::accept);
    connect(stopButton_, &QPushButton::clicked, this, &TwoDGraphDialog::stop);
    connect(cancelButton_, &QPushButton::clicked, this, &TwoDGraphDialog::reject);
    connect(pointsSpin_, &QSpinBox::valueChanged, this, &TwoDGraphDialog::updatePointsLabel);
    connect(pointsSpin_->editor(), &QLineEdit::textChanged, this,
            &TwoDGraphDialog::updatePointsLabel);
    // The boxes' change notifications: a range is evaluated again only after an edit.
    xBeginBox_.setText(xBeginEdit_->text().toStdString());
    xEndBox_.setText(xEndEdit_->text().toStdString());
    connect(xBeginEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { xBeginBox_.setText(text.toStdString()); });
    connect(xEndEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { xEndBox_.setText(text.toStdString()); });
    connect(usePrompts_, &QCheckBox::toggled, this, &TwoDGraphDialog::applyPrompts);
    connect(historyButton_, &QPushButton::clicked, this, [this] {
        if (hooks_.showPreviousEntries) {
            hooks_.showPreviousEntries();
        }
    });
    connect(historyListButton_, &QPushButton::clicked, this, [this] {
        if (hooks_.showListOfFunctions) {
            hooks_.showListOfFunctions();
        }
    });
    // The range comes filled in; what the user opens the dialog for is the formula, as in the
    // other input windows.
    formulaEdit_->setFocus();
}

void TwoDGraphDialog::setHistoryHooks(TwoDGraphHistoryHooks hooks) {
    hooks_ = std::move(hooks);
    historyButton_->setEnabled(static_cast<bool>(hooks_.showPreviousEntries) && !isRunning());
}

void TwoDGraphDialog::setEntry(const QString& formula, const QString& xBegin, const QString& xEnd) {
    formulaEdit_->setText(formula);
    xBeginEdit_->setText(xBegin);
    xEndEdit_->setText(xEnd);
}

TwoDGraphInput TwoDGraphDialog::currentInput() const {
    return {formulaEdit_->text().toStdString(), xBeginEdit_->text().toStdString(),
            xEndEdit_->text().toStdString()};
}

void TwoDGraphDialog::copyRangeFrom(const TwoDGraphDialog& other) {
    xBeginEdit_->setText(other.xBeginEdit_->text());
    xEndEdit_->setText(other.xEndEdit_->text());
}

QString TwoDGraphDialog::formulaText() const {
    return formulaEdit_->text();
}

void TwoDGraphDialog::setFormulaText(const QString& text) {
    formulaEdit_->setText(text);
}

void TwoDGraphDialog::updatePointsLabel() {
    pointsLabel_->setText(
        QStringLiteral("%1 Points").arg(pointsSpin_->correctedValue() * kPointsPerRunUnit));
}

void TwoDGraphDialog::applyPrompts(bool on) {
    const auto prompt = [on](QLineEdit* edit, const QString& placeholder, const QString& tip) {
        edit->setPlaceholderText(on ? placeholder : QString());
        edit->setToolTip(on ? tip : QString());
    };
    const QString numberTip = QStringLiteral(
        "A number or a constant expression, for example -10, pi/2 or 2*pi.\n"
        "It may use + - * / and the functions sin( cos( tan( atan(, but not x.");
    prompt(xBeginEdit_, QStringLiteral("start of x, e.g. -10 or -2*pi"),
           QStringLiteral("Where the graph begins on the x axis.\n") + numberTip);
    prompt(xEndEdit_, QStringLiteral("end of x, e.g. 10 or 2*pi"),
           QStringLiteral("Where the graph ends on the x axis; it must be more than X Begin.\n") +
               numberTip);
    prompt(formulaEdit_, QStringLiteral("y as a function of x, e.g. sin(x)/x*80"),
           QStringLiteral(
               "Type y as a function of x, for example sin(x)/x*80 or e^(-x^2)*3.\n"
               "Use * for products (2*x, not 2x), / for division and ^ for powers (x^2).\n"
               "Functions: sin( cos( tan( asin( acos( atan( ln( log( and Sqr( for the square "
               "root (with a capital S).\n"
               "Constants: pi and e. ! after a number is its factorial."));
    pointsSpin_->setToolTip(
        on ? QStringLiteral("How many points are computed, in units of 10000 (1 to 40).\n"
                            "More points draw fine detail; fewer draw faster.")
           : QString());
}

void TwoDGraphDialog::setRunning(bool running) {
    showRunning(running,
                {xBeginEdit_, xEndEdit_, formulaEdit_, usePrompts_, pointsSpin_, okButton_,
                 cancelButton_, historyListButton_},
                stopButton_, progress_);
    historyButton_->setEnabled(!running && static_cast<bool>(hooks_.showPreviousEntries));
}

void TwoDGraphDialog::accept() {
    if (isRunning()) {
        return;
    }
    if (job_.refuseWhileBusy(kBoxCaption)) {
        return;
    }
    const std::string typed = formulaEdit_->text().toStdString();
    const GraphEntries entries =
        run_.check(xBeginBox_, xEndBox_, typed, [this] { askLogBase(formula_, this); });
    if (const auto& refusal = entries.refusal) {
        QLineEdit* box = refusal->box == GraphEntryBox::kXBegin ? xBeginEdit_
                         : refusal->box == GraphEntryBox::kXEnd ? xEndEdit_
                                                                : formulaEdit_;
        // A formula check that stopped without a message of its own only returns to the box.
        if (refusal->box == GraphEntryBox::kFormula && refusal->explained &&
            formula_.errorText.empty()) {
            box->setFocus();
            return;
        }
        showRefusal(this, QString::fromStdString(refusal->message), box, refusal->explained);
        return;
    }
    startRun(typed, entries.xBegin, entries.xEnd);
}

void TwoDGraphDialog::startRun(const std::string& typedFormula, double xBegin, double xEnd) {
    setRunning(true);
    running_ = true;
    if (hooks_.record) {
        hooks_.record(typedFormula, xBeginEdit_->text().toStdString(),
                      xEndEdit_->text().toStdString());
    }
    run_.start(xBegin, xEnd, pointsSpin_->correctedValue() * kPointsPerRunUnit, typedFormula);
    if (run_.role() == TwoDGraphRole::Main) {
        Q_EMIT curvesChanged();
    }
    const bool started =
        job_.start(kProcTwoDGraphDialog, formula_.keepComputing, [this](const JobContext& context) {
            control_.progress = context.progress;
            return run_.sample(control_);
        });
    if (!started) {
        // accept() checked the worker just before; nothing else can start it in between.
        running_ = false;
        setRunning(false);
    }
}

void TwoDGraphDialog::finishRun(bool completed) {
    running_ = false;
    setRunning(false);
    run_.finish(completed);
    if (!completed) {
        if (run_.role() == TwoDGraphRole::Second) {
            Q_EMIT curvesChanged();
        }
        Q_EMIT runFinished(false);
        return;
    }
    Q_EMIT runFinished(true);
    Q_EMIT graphDrawn();
    QDialog::accept();
}

void TwoDGraphDialog::stop() {
    if (isRunning()) {
        job_.stop();
    }
}

void TwoDGraphDialog::reject() {
    if (isRunning()) {
        stop();
        return;
    }
    QDialog::reject();
}

}  // namespace curvemill
