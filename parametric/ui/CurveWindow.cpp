#include "parametric/ui/CurveWindow.h"

#include <algorithm>

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "engine/Formula.h"
#include "engine/ui/EntryErrorBox.h"
#include "engine/ui/LogBaseDialog.h"
#include "graph2d/ui/TwoDGraphPointsSpin.h"
#include "worker/ui/RunFrame.h"

namespace curvemill {

namespace {

constexpr int kEditLength = 70;
// The points spin counts in the Function dialog's units.
constexpr int kPointsUnit = 10000;

QString idName(int id) {
    return QString::number(id);
}

}  // namespace

CurveWindow::CurveWindow(CurveForm form, Formula& formula, CurveGraph& graph, Worker& worker,
                         QWidget* parent)
    : QDialog(parent),
      form_(form),
      formula_(formula),
      graph_(graph),
      job_(
          worker, this, [this](int percent) { progress_->setValue(percent); },
          [this](bool completed) { finishRun(completed); }) {
    const bool polar = form == CurveForm::Polar;
    setWindowTitle(polar ? QStringLiteral("Polar Curve") : QStringLiteral("Parametric Curve"));
    // Help tells the two kinds apart by this name.
    setObjectName(polar ? QStringLiteral("PolarCurve") : QStringLiteral("ParametricCurve"));
    buildControls();
    setRunning(false);
}

void CurveWindow::buildControls() {
    const bool polar = form_ == CurveForm::Polar;
    tBeginEdit_ = makeEntryBox(this, curve_ids::kTBegin, QStringLiteral("0"), kEditLength);
    tEndEdit_ = makeEntryBox(this, curve_ids::kTEnd, QStringLiteral("2*pi"), kEditLength);
    QFont mono(QStringLiteral("Courier New"));
    mono.setStyleHint(QFont::Monospace);
    firstEdit_ = makeEntryBox(this, curve_ids::kFirstFormula, QString(), kEditLength);
    firstEdit_->setMinimumWidth(360);
    firstEdit_->setFont(mono);
    secondEdit_ = makeEntryBox(this, curve_ids::kSecondFormula, QString(), kEditLength);
    secondEdit_->setFont(mono);

    usePrompts_ = new QCheckBox(QStringLiteral("Use &Prompts"), this);
    usePrompts_->setObjectName(idName(curve_ids::kUsePrompts));
    arrow_ = new QCheckBox(QStringLiteral("Show &Arrow"), this);
    arrow_->setObjectName(idName(curve_ids::kArrow));
    arrow_->setChecked(true);
    pointsSpin_ = new TwoDGraphPointsSpin(this);
    pointsSpin_->setObjectName(idName(curve_ids::kPointsSpin));
    pointsSpin_->editor()->setObjectName(idName(curve_ids::kPointsEdit));
    pointsLabel_ = new QLabel(this);
    pointsLabel_->setObjectName(idName(curve_ids::kPointsLabel));
    pointsLabel_->setMinimumWidth(
        pointsLabel_->fontMetrics().horizontalAdvance(QStringLiteral("400000 Points ")));
    // The window keeps one size whether or not a computation runs.
    progress_ = makeRunProgress(this, curve_ids::kProgress, true);

    okButton_ = makeWindowButton(this, curve_ids::kOk, QStringLiteral("&OK"));
    okButton_->setDefault(true);
    stopButton_ = makeWindowButton(this, curve_ids::kStop, QStringLiteral("&Stop"));
    cancelButton_ = makeWindowButton(this, curve_ids::kCancel, QStringLiteral("&Cancel"));
    historyButton_ = makeWindowButton(this, curve_ids::kHistory, QStringLiteral("H&istory"));
    auto* helpButton = makeHelpButton(this, curve_ids::kHelp);

    auto* boxes = new QGridLayout;
    auto addRow = [this, boxes](int row, int column, const QString& text, QLineEdit* edit,
                                int span) {
        auto* label = new QLabel(text, this);
        label->setBuddy(edit);
        boxes->addWidget(label, row, column);
        boxes->addWidget(edit, row, column + 1, 1, span);
    };
    addRow(0, 0, QStringLiteral("&T Begin"), tBeginEdit_, 1);
    addRow(0, 2, QStringLiteral("T &End"), tEndEdit_, 1);
    if (polar) {
        addRow(1, 0, QStringLiteral("&R(t) ="), firstEdit_, 3);
        secondEdit_->hide();
    } else {
        addRow(1, 0, QStringLiteral("&X(t) ="), firstEdit_, 3);
        addRow(2, 0, QStringLiteral("&Y(t) ="), secondEdit_, 3);
    }
    boxes->setColumnStretch(1, 1);
    boxes->setColumnStretch(3, 1);

    auto* pointsRow = new QHBoxLayout;
    pointsRow->addWidget(usePrompts_);
    pointsRow->addWidget(arrow_);
    pointsRow->addStretch(1);
    auto* pointsCaption = new QLabel(QStringLiteral("Poi&nts (x 10000)"), this);
    pointsCaption->setBuddy(pointsSpin_);
    pointsRow->addWidget(pointsCaption);
    pointsRow->addWidget(pointsSpin_);
    pointsRow->addWidget(pointsLabel_);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(historyButton_);
    buttons->addStretch(1);
    buttons->addWidget(okButton_);
    buttons->addWidget(stopButton_);
    buttons->addWidget(cancelButton_);
    buttons->addWidget(helpButton);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(boxes);
    layout->addLayout(pointsRow);
    layout->addWidget(progress_);
    layout->addLayout(buttons);

    connect(okButton_, &QPushButton::clicked, this, &CurveWindow::accept);
    connect(stopButton_, &QPushButton::clicked, this, &CurveWindow::stop);
    connect(cancelButton_, &QPushButton::clicked, this, &CurveWindow::reject);
    connect(historyButton_, &QPushButton::clicked, this, &CurveWindow::showHistory);
    connect(pointsSpin_, &QSpinBox::valueChanged, this, &CurveWindow::updatePointsLabel);
    connect(pointsSpin_->editor(), &QLineEdit::textChanged, this, &CurveWindow::updatePointsLabel);
    connect(usePrompts_, &QCheckBox::toggled, this, &CurveWindow::applyPrompts);
    // The boxes' change notifications: a range is evaluated again only after an edit.
    tBeginBox_.setText(tBeginEdit_->text().toStdString());
    tEndBox_.setText(tEndEdit_->text().toStdString());
    connect(tBeginEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { tBeginBox_.setText(text.toStdString()); });
    connect(tEndEdit_, &QLineEdit::textChanged, this,
            [this](const QString& text) { tEndBox_.setText(text.toStdString()); });
    updatePointsLabel();
    // The window opens at the formula, as the Function dialog does.
    firstEdit_->setFocus();
}

void CurveWindow::setHistory(const CurveHistory* history) {
    history_ = history;
    historyButton_->setEnabled(hasEntriesOfKind() && !isRunning());
}

bool CurveWindow::hasEntriesOfKind() const {
    return history_ != nullptr &&
           std::any_of(history_->entries.begin(), history_->entries.end(),
                       [this](const CurveEntry& e) { return e.form == form_; });
}

// A menu under the button, newest first: picking an entry fills the boxes with it.
void CurveWindow::showHistory() {
    if (history_ == nullptr) {
        return;
    }
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("CurveHistoryMenu"));
    for (const CurveEntry& entry : history_->entries) {
        if (entry.form != form_) {
            continue;
        }
        CurveGraph shown;
        shown.form = entry.form;
        shown.firstText = entry.first;
        shown.secondText = entry.second;
        const QString text =
            QStringLiteral("%1   [%2, %3]")
                .arg(QString::fromStdString(shown.title()), QString::fromStdString(entry.tBegin),
                     QString::fromStdString(entry.tEnd));
        // No access keys from the typed text: an "&" there is part of no formula anyway.
        QAction* action = menu.addAction(QString(text).replace(u'&', QStringLiteral("&&")));
        connect(action, &QAction::triggered, this, [this, entry] { setEntry(entry); });
    }
    menu.exec(historyButton_->mapToGlobal(QPoint(0, historyButton_->height())));
}

void CurveWindow::setEntry(const CurveEntry& entry) {
    firstEdit_->setText(QString::fromStdString(entry.first));
    secondEdit_->setText(QString::fromStdString(entry.second));
    tBeginEdit_->setText(QString::fromStdString(entry.tBegin));
    tEndEdit_->setText(QString::fromStdString(entry.tEnd));
}

CurveEntry CurveWindow::currentInput() const {
    return {form_, firstEdit_->text().toStdString(),
            form_ == CurveForm::Polar ? std::string() : secondEdit_->text().toStdString(),
            tBeginEdit_->text().toStdString(), tEndEdit_->text().toStdString()};
}

void CurveWindow::updatePointsLabel() {
    pointsLabel_->setText(
        QStringLiteral("%1 Points").arg(pointsSpin_->correctedValue() * kPointsUnit));
}

void CurveWindow::applyPrompts(bool on) {
    const auto prompt = [on](QLineEdit* edit, const QString& placeholder, const QString& tip) {
        edit->setPlaceholderText(on ? placeholder : QString());
        edit->setToolTip(on ? tip : QString());
    };
    const QString numberTip =
        QStringLiteral("A number or a constant expression, for example 0, pi/2 or 2*pi.");
    const QString formulaTip = QStringLiteral(
        "Type it as a function of t, for example cos(3*t) or 1+cos(t).\n"
        "Use * for products (2*t, not 2t), / for division and ^ for powers (t^2).\n"
        "Functions: sin( cos( tan( asin( acos( atan( ln( log( and Sqr( for the square root "
        "(with a capital S).\nConstants: pi and e.");
    prompt(tBeginEdit_, QStringLiteral("start of t, e.g. 0"),
           QStringLiteral("Where the curve begins.\n") + numberTip);
    prompt(tEndEdit_, QStringLiteral("end of t, e.g. 2*pi"),
           QStringLiteral("Where the curve ends; it must be more than T Begin.\n") + numberTip);
    if (form_ == CurveForm::Polar) {
        prompt(firstEdit_, QStringLiteral("r as a function of t, e.g. 1+cos(t)"),
               QStringLiteral("The distance from the origin at the angle t (in radians).\n") +
                   formulaTip);
    } else {
        prompt(firstEdit_, QStringLiteral("x as a function of t, e.g. sin(3*t)"),
               QStringLiteral("Where the curve is across at t.\n") + formulaTip);
        prompt(secondEdit_, QStringLiteral("y as a function of t, e.g. sin(2*t)"),
               QStringLiteral("Where the curve is up at t.\n") + formulaTip);
    }
    arrow_->setToolTip(on ? QStringLiteral("A small arrow at the start of the curve shows which "
                                           "way t runs.")
                          : QString());
    pointsSpin_->setToolTip(
        on ? QStringLiteral("How many values of t the curve starts from, in units of 10000 "
                            "(1 to 40);\nwhere the curve bends, more are added between them.")
           : QString());
}

void CurveWindow::setRunning(bool running) {
    showRunning(running,
                {tBeginEdit_, tEndEdit_, firstEdit_, secondEdit_, usePrompts_, arrow_, pointsSpin_,
                 okButton_, cancelButton_},
                stopButton_, progress_);
    historyButton_->setEnabled(!running && hasEntriesOfKind());
}

void CurveWindow::accept() {
    if (isRunning() || job_.refuseWhileBusy(kBoxCaption)) {
        return;
    }
    const CurveEntry input = currentInput();
    // The function graph's slots stay whole until a run completes in their place.
    previousFirst_.keep(formula_, kFunctionSlot);
    previousSecond_.keep(formula_, kSecondFunctionSlot);
    const CurveEntries entries =
        checkCurveEntries(formula_, form_, tBeginBox_, tEndBox_, input.first, input.second,
                          [this] { askLogBase(formula_, this); });
    if (const auto& refusal = entries.refusal) {
        previousFirst_.restore();
        previousSecond_.restore();
        QLineEdit* box = refusal->box == CurveEntryBox::kTBegin         ? tBeginEdit_
                         : refusal->box == CurveEntryBox::kTEnd         ? tEndEdit_
                         : refusal->box == CurveEntryBox::kFirstFormula ? firstEdit_
                                                                        : secondEdit_;
        showRefusal(this, QString::fromStdString(refusal->message), box, refusal->explained);
        return;
    }
    running_ = CurveGraph{};
    running_.form = form_;
    running_.firstText = input.first;
    running_.secondText = input.second;
    running_.tBegin = entries.tBegin;
    running_.tEnd = entries.tEnd;
    running_.startPoints = pointsSpin_->correctedValue() * kPointsUnit;
    running_.arrow = arrow_->isChecked();
    setRunning(true);
    Q_EMIT entryAccepted(input);
    const bool started =
        job_.start(kProcCurveWindow, formula_.keepComputing, [this](const JobContext& context) {
            control_.progress = context.progress;
            return runCurve(formula_, running_, control_);
        });
    if (!started) {
        setRunning(false);
    }
}

void CurveWindow::finishRun(bool completed) {
    setRunning(false);
    if (!completed) {
        previousFirst_.restore();
        previousSecond_.restore();
        Q_EMIT runFinished(false);
        return;
    }
    graph_ = std::move(running_);
    Q_EMIT runFinished(true);
    Q_EMIT graphDrawn();
    QDialog::accept();
}

void CurveWindow::stop() {
    if (isRunning()) {
        job_.stop();
    }
}

void CurveWindow::reject() {
    if (isRunning()) {
        stop();
        return;
    }
    QDialog::reject();
}

}  // namespace curvemill
