#include "twovar/ui/TwoVariableWindow.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "engine/ui/EntryErrorBox.h"
#include "engine/ui/LogBaseDialog.h"
#include "history/HistoryPort.h"
#include "twovar/TwoVariableEntries.h"
#include "twovar/TwoVariableSettings.h"
#include "worker/ui/RunFrame.h"
#include "worker/ui/Worker.h"

namespace curvemill {

namespace {

constexpr int kEditLength = 99;
// Our own: the one worker runs one computation at a time, and a second request is refused.

QString idName(int id) {
    return QString::number(id);
}

// A spin whose edit can be named, so tests and accessibility find it by its identifier.
class GridSpin : public QSpinBox {
  public:
    explicit GridSpin(QWidget* parent) : QSpinBox(parent) {
        lineEdit()->setMaxLength(3);
        setAlignment(Qt::AlignRight);
    }
    QLineEdit* editor() const { return lineEdit(); }
};

QString pointsText(int points) {
    return QStringLiteral("Number of Points: %1").arg(points);
}

QString precisionText(int digits) {
    return QStringLiteral("Precision: 1e-%1").arg(digits);
}

EntryKind entryKind(TwoVariableMode mode) {
    return mode == TwoVariableMode::kSurface ? EntryKind::ThreeD : EntryKind::Equation;
}

}  // namespace

TwoVariableWindow::TwoVariableWindow(Formula& formula, TwoVariableSettings& settings,
                                     Worker& worker, TwoVariableComputation* surface,
                                     TwoVariableComputation* equation, QWidget* parent)
    : QDialog(parent),
      formula_(formula),
      settings_(settings),
      surface_(surface),
      equation_(equation),
      job_(
          worker, this,
          [this](int percent) {
              if (running_) {
                  progress_->setValue(percent);
              }
          },
          [this](bool completed) { computationEnded(completed); }) {
    buildControls();
    prepare(TwoVariableMode::kEquation);
}

void TwoVariableWindow::buildControls() {
    xBeginEdit_ = makeEntryBox(this, twovar_ids::kXBegin, QString(), kEditLength);
    xEndEdit_ = makeEntryBox(this, twovar_ids::kXEnd, QString(), kEditLength);
    yBeginEdit_ = makeEntryBox(this, twovar_ids::kYBegin, QString(), kEditLength);
    yEndEdit_ = makeEntryBox(this, twovar_ids::kYEnd, QString(), kEditLength);
    formulaEdit_ = makeEntryBox(this, twovar_ids::kFormula, QString(), kEditLength);
    formulaEdit_->setMinimumWidth(420);
    QFont mono(QStringLiteral("Courier New"));
    mono.setStyleHint(QFont::Monospace);
    formulaEdit_->setFont(mono);
    formulaLabel_ = new QLabel(this);
    formulaLabel_->setObjectName(idName(twovar_ids::kFormulaLabel));
    formulaLabel_->setFont(mono);
    formulaLabel_->setBuddy(formulaEdit_);

    auto makeSpin = [this](int spinId, int editId, int labelId, QSpinBox*& spin, QLabel*& label) {
        auto* gridSpin = new GridSpin(this);
        gridSpin->setObjectName(idName(spinId));
        gridSpin->editor()->setObjectName(idName(editId));
        spin = gridSpin;
        label = new QLabel(this);
        label->setObjectName(idName(labelId));
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(pointsText(2000) + u' '));
        connect(spin, &QSpinBox::valueChanged, this, &TwoVariableWindow::spinChanged);
    };
    makeSpin(twovar_ids::kXPointsSpin, twovar_ids::kXPointsEdit, twovar_ids::kXPointsLabel,
             xPointsSpin_, xPointsLabel_);
    makeSpin(twovar_ids::kYPointsSpin, twovar_ids::kYPointsEdit, twovar_ids::kYPointsLabel,
             yPointsSpin_, yPointsLabel_);
    makeSpin(twovar_ids::kPrecisionSpin, twovar_ids::kPrecisionEdit, twovar_ids::kPrecisionLabel,
             precisionSpin_, precisionLabel_);

    // The window keeps one size whether or not a computation runs.
    progress_ = makeRunProgress(this, twovar_ids::kProgress, true);
    usePrompts_ = new QCheckBox(QStringLiteral("Use &Prompts"), this);
    usePrompts_->setObjectName(idName(twovar_ids::kUsePrompts));

    okButton_ = makeWindowButton(this, twovar_ids::kOk, QStringLiteral("&OK"));
    okButton_->setDefault(true);
    stopButton_ = makeWindowButton(this, twovar_ids::kStop, QStringLiteral("&Stop"));
    cancelButton_ = makeWindowButton(this, twovar_ids::kCancel, QStringLiteral("&Cancel"));
    historyButton_ = makeWindowButton(this, twovar_ids::kHistory, QStringLiteral("H&istory"));
    auto* helpButton = makeHelpButton(this, twovar_ids::kHelp);

    auto* ranges = new QGridLayout;
    auto addRange = [this, ranges](int row, int column, const QString& text, QLineEdit* edit) {
        auto* label = new QLabel(text, this);
        label->setBuddy(edit);
        ranges->addWidget(label, row, column);
        ranges->addWidget(edit, row, column + 1);
    };
    addRange(0, 0, QStringLiteral("&X Begin"), xBeginEdit_);
    addRange(0, 2, QStringLiteral("X &End"), xEndEdit_);
    addRange(1, 0, QStringLiteral("&Y Begin"), yBeginEdit_);
    addRange(1, 2, QStringLiteral("Y E&nd"), yEndEdit_);
    ranges->setColumnStretch(1, 1);
    ranges->setColumnStretch(3, 1);

    auto* formulaRow = new QHBoxLayout;
    formulaRow->addWidget(formulaLabel_);
    formulaRow->addWidget(formulaEdit_, 1);

    auto* grid = new QGridLayout;
    auto addSpinRow = [this, grid](int row, const QString& caption, QSpinBox* spin, QLabel* label) {
        auto* captionLabel = new QLabel(caption, this);
        captionLabel->setBuddy(spin);
        grid->addWidget(captionLabel, row, 0);
        grid->addWidget(spin, row, 1);
        grid->addWidget(label, row, 2);
        return captionLabel;
    };
    addSpinRow(0, QStringLiteral("Poin&ts along x (x 100)"), xPointsSpin_, xPointsLabel_);
    addSpinRow(1, QStringLiteral("Points alon&g y (x 100)"), yPointsSpin_, yPointsLabel_);
    precisionCaption_ =
        addSpinRow(2, QStringLiteral("Precision &digits"), precisionSpin_, precisionLabel_);
    grid->setColumnStretch(3, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(historyButton_);
    buttons->addWidget(usePrompts_);
    buttons->addStretch(1);
    buttons->addWidget(okButton_);
    buttons->addWidget(stopButton_);
    buttons->addWidget(cancelButton_);
    buttons->addWidget(helpButton);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(ranges);
    layout->addLayout(formulaRow);
    layout->addLayout(grid);
    layout->addWidget(progress_);
    layout->addLayout(buttons);

    connect(okButton_, &QPushButton::clicked, this, &TwoVariableWindow::accept);
    connect(stopButton_, &QPushButton::clicked, this, &TwoVariableWindow::stop);
    connect(cancelButton_, &QPushButton::clicked, this, &TwoVariableWindow::reject);
    connect(historyButton_, &QPushButton::clicked, this, &TwoVariableWindow::showPreviousEntries);
    connect(usePrompts_, &QCheckBox::toggled, this, &TwoVariableWindow::applyPrompts);
}

void TwoVariableWindow::prepare(TwoVariableMode mode) {
    mode_ = mode;
    const bool surface = mode == TwoVariableMode::kSurface;
    setWindowTitle(surface ? QStringLiteral("ThreeD Function") : QStringLiteral("Equation"));
    // Help tells the modes apart by this name.
    setObjectName(surface ? QStringLiteral("ThreeD") : QStringLiteral("Equation"));
    formulaLabel_->setText(surface ? QStringLiteral("&Z =") : QStringLiteral("&0="));
    for (QWidget* precision :
         {static_cast<QWidget*>(precisionSpin_), static_cast<QWidget*>(precisionLabel_),
          static_cast<QWidget*>(precisionCaption_)}) {
        precision->setVisible(!surface);
    }
    {
        const QSignalBlocker blockX(xPointsSpin_);
        const QSignalBlocker blockY(yPointsSpin_);
        const QSignalBlocker blockP(precisionSpin_);
        const int maximum = (surface ? kMostSurfacePoints : kMostEquationPoints) / kGridPointsUnit;
        xPointsSpin_->setRange(1, maximum);
        yPointsSpin_->setRange(1, maximum);
        precisionSpin_->setRange(1, kMostPrecisionDigits);
        const int xPoints = surface ? settings_.surfaceXPoints : settings_.equationXPoints;
        const int yPoints = surface ? settings_.surfaceYPoints : settings_.equationYPoints;
        xPointsSpin_->setValue(xPoints / kGridPointsUnit);
        yPointsSpin_->setValue(yPoints / kGridPointsUnit);
        precisionSpin_->setValue(settings_.precisionDigits);
        xPointsLabel_->setText(pointsText(xPoints));
        yPointsLabel_->setText(pointsText(yPoints));
        precisionLabel_->setText(precisionText(settings_.precisionDigits));
    }
    // The window serves both modes: an entry of the other kind must not be left in the boxes.
    const bool ownKind = settings_.kind == mode_;
    fillFromEntry(ownKind ? TypedEntry{settings_.formula, settings_.xBegin, settings_.xEnd,
                                       settings_.yBegin, settings_.yEnd, entrySection()}
                          : TypedEntry{"", "-10", "10", "-10", "10", entrySection()});
    historyAvailable_ = history_ != nullptr && history_->entryCount(entryKind(mode)) > 0;
    if (history_ != nullptr) {
        history_->setShownKind(entryKind(mode));
    }
    running_ = false;
    setInputsEnabled(true);
    formulaEdit_->setFocus();
}

EntrySection TwoVariableWindow::entrySection() const {
    return mode_ == TwoVariableMode::kSurface ? EntrySection::Graphs : EntrySection::Equations;
}

TwoVariableComputation* TwoVariableWindow::computation() const {
    return mode_ == TwoVariableMode::kSurface ? surface_ : equation_;
}

void TwoVariableWindow::spinChanged() {
    const bool surface = mode_ == TwoVariableMode::kSurface;
    const int xPoints = xPointsSpin_->value() * kGridPointsUnit;
    const int yPoints = yPointsSpin_->value() * kGridPointsUnit;
    (surface ? settings_.surfaceXPoints : settings_.equationXPoints) = xPoints;
    (surface ? settings_.surfaceYPoints : settings_.equationYPoints) = yPoints;
    xPointsLabel_->setText(pointsText(xPoints));
    yPointsLabel_->setText(pointsText(yPoints));
    if (!surface) {
        settings_.precisionDigits = precisionSpin_->value();
        precisionLabel_->setText(precisionText(settings_.precisionDigits));
    }
}

void TwoVariableWindow::applyPrompts(bool on) {
    const auto prompt = [on](QWidget* widget, const QString& tip) {
        widget->setToolTip(on ? tip : QString());
    };
    const auto placeholder = [on](QLineEdit* edit, const QString& text) {
        edit->setPlaceholderText(on ? text : QString());
    };
    const QString number = QStringLiteral(
        "A number or a constant expression, for example -10, pi/2 or 2*pi; not x or y.");
    placeholder(xBeginEdit_, QStringLiteral("e.g. -2 or -pi"));
    placeholder(xEndEdit_, QStringLiteral("e.g. 2 or pi"));
    placeholder(yBeginEdit_, QStringLiteral("e.g. -2"));
    placeholder(yEndEdit_, QStringLiteral("e.g. 2"));
    prompt(xBeginEdit_, QStringLiteral("Where the grid begins on the x axis.\n") + number);
    prompt(xEndEdit_, QStringLiteral("Where it ends; more than X Begin.\n") + number);
    prompt(yBeginEdit_, QStringLiteral("Where the grid begins on the y axis.\n") + number);
    prompt(yEndEdit_, QStringLiteral("Where it ends; more than Y Begin.\n") + number);
    const bool surface = mode_ == TwoVariableMode::kSurface;
    placeholder(formulaEdit_, surface ? QStringLiteral("z as a function of x and y, e.g. "
                                                       "sin(x)*cos(y)")
                                      : QStringLiteral("F(x, y) of F(x, y) = 0, e.g. x^2+y^2-1"));
    prompt(formulaEdit_,
           QStringLiteral("Use x and y, * for products (2*x, not 2x), ^ for powers,\n"
                          "sin( cos( tan( asin( acos( atan( ln( log( and Sqr( for the root."));
    prompt(xPointsSpin_, QStringLiteral("Grid steps along x, in hundreds: more steps find more "
                                        "points and take longer."));
    prompt(yPointsSpin_, QStringLiteral("Grid steps along y, in hundreds."));
    prompt(precisionSpin_,
           QStringLiteral("A point counts as a solution when |F| is below 1e-(this number)."));
}

void TwoVariableWindow::setInputsEnabled(bool enabled) {
    showRunning(!enabled,
                {xBeginEdit_, xEndEdit_, yBeginEdit_, yEndEdit_, formulaEdit_, xPointsSpin_,
                 yPointsSpin_, precisionSpin_, okButton_, cancelButton_, usePrompts_},
                stopButton_, progress_);
    historyButton_->setEnabled(enabled && historyAvailable_);
}

// Every box carries the error icon; a refused range or formula also has a Help button explaining
// its message, the ordering messages need none.
void TwoVariableWindow::fail(const QString& message, QLineEdit* box) {
    box->setFocus();
    box->selectAll();
    QMessageBox::critical(this, QString::fromLatin1(kBoxCaption), message);
}

void TwoVariableWindow::refuse(const QString& message, QLineEdit* box) {
    box->setFocus();
    box->selectAll();
    showEntryError(this, message, box);
}

void TwoVariableWindow::accept() {
    if (running_) {
        return;
    }
    if (job_.refuseWhileBusy(kBoxCaption)) {
        return;
    }
    const std::string typed = formulaEdit_->text().toStdString();
    slot_.keep(formula_, kTwoVariableSlot);
    const TwoVariableEntries entries = checkTwoVariableEntries(
        formula_,
        {xBeginEdit_->text().toStdString(), xEndEdit_->text().toStdString(),
         yBeginEdit_->text().toStdString(), yEndEdit_->text().toStdString(), typed},
        [this] { askLogBase(formula_, this); });
    if (const auto& refusal = entries.refusal) {
        slot_.restore();
        QLineEdit* const boxes[] = {xBeginEdit_, xEndEdit_, yBeginEdit_, yEndEdit_, formulaEdit_};
        QLineEdit* box = boxes[static_cast<int>(refusal->box)];
        // A formula check that stopped without a message of its own only returns to the box.
        if (refusal->box == TwoVariableBox::kFormula && formula_.errorText.empty()) {
            box->setFocus();
            return;
        }
        const QString message = QString::fromStdString(refusal->message);
        return refusal->explained ? refuse(message, box) : fail(message, box);
    }
    settings_.xBegin = xBeginEdit_->text().toStdString();
    settings_.xEnd = xEndEdit_->text().toStdString();
    settings_.yBegin = yBeginEdit_->text().toStdString();
    settings_.yEnd = yEndEdit_->text().toStdString();
    settings_.formula = typed;
    settings_.kind = mode_;
    const TypedEntry entry = currentInput();

    TwoVariableComputation* work = computation();
    if (work == nullptr) {
        slot_.restore();
        if (history_ != nullptr) {
            history_->recordEntry(entry);
        }
        Q_EMIT statusMessage(QString::fromLatin1(kMsgSurfacesNotDrawn));
        return;
    }
    setInputsEnabled(false);
    work->discardPrevious();
    Q_EMIT previousDiscarded();
    if (history_ != nullptr) {
        history_->recordEntry(entry);
    }
    const bool surface = mode_ == TwoVariableMode::kSurface;
    TwoVariableRequest request;
    request.xBegin = entries.xBegin;
    request.xEnd = entries.xEnd;
    request.yBegin = entries.yBegin;
    request.yEnd = entries.yEnd;
    request.xPoints = surface ? settings_.surfaceXPoints : settings_.equationXPoints;
    request.yPoints = surface ? settings_.surfaceYPoints : settings_.equationYPoints;
    request.precisionDigits = settings_.precisionDigits;
    request.formulaText = typed;
    running_ = true;
    if (!job_.start(kProcEquationWindow, formula_.keepComputing, work->makeJob(request))) {
        running_ = false;
        slot_.restore();
        setInputsEnabled(true);
    }
}

void TwoVariableWindow::computationEnded(bool completed) {
    if (!running_) {
        return;
    }
    running_ = false;
    TwoVariableComputation* work = computation();
    if (completed) {
        if (work != nullptr) {
            work->show();
        }
        if (history_ != nullptr) {
            history_->setShownKind(EntryKind::TwoD);
        }
        Q_EMIT computationShown(mode_);
        QDialog::accept();
        return;
    }
    if (work != nullptr) {
        work->abandoned();
    }
    slot_.restore();
    setInputsEnabled(true);
    Q_EMIT repaintRequested();
}

void TwoVariableWindow::stop() {
    if (running_) {
        stopButton_->setEnabled(false);
        job_.stop();
    }
}

void TwoVariableWindow::reject() {
    if (running_) {
        stop();
        return;
    }
    if (history_ != nullptr) {
        history_->hideWindows();
        history_->setShownKind(EntryKind::TwoD);
    }
    QDialog::reject();
    Q_EMIT cancelled();
}

void TwoVariableWindow::disableHistory() {
    setHistoryEnabled(false);
}

void TwoVariableWindow::disableStop() {
    stopButton_->setEnabled(false);
}

void TwoVariableWindow::setHistoryEnabled(bool enabled) {
    historyAvailable_ = enabled;
    historyButton_->setEnabled(enabled && !running_);
}

void TwoVariableWindow::fillFromEntry(const TypedEntry& entry) {
    formulaEdit_->setText(QString::fromStdString(entry.formula));
    xBeginEdit_->setText(QString::fromStdString(entry.xBegin));
    xEndEdit_->setText(QString::fromStdString(entry.xEnd));
    yBeginEdit_->setText(QString::fromStdString(entry.yBegin));
    yEndEdit_->setText(QString::fromStdString(entry.yEnd));
    okButton_->setFocus();
}

TypedEntry TwoVariableWindow::currentInput() const {
    return TypedEntry{formulaEdit_->text().toStdString(), xBeginEdit_->text().toStdString(),
                      xEndEdit_->text().toStdString(),    yBeginEdit_->text().toStdString(),
                      yEndEdit_->text().toStdString(),    entrySection()};
}

void TwoVariableWindow::showPreviousEntries() {
    if (history_ == nullptr) {
        return;
    }
    const QPointer<TwoVariableWindow> guard(this);
    history_->showPreviousEntries(
        HistoryClient{[guard] { return guard.isNull() ? TypedEntry{} : guard->currentInput(); },
                      [guard](const TypedEntry& entry) {
                          if (!guard.isNull()) {
                              guard->fillFromEntry(entry);
                          }
                      }});
    history_->setShownKind(entryKind(mode_));
}

}  // namespace curvemill
