#include "equation/ui/EquationInformationDialog.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/GraphView.h"
#include "worker/ui/Worker.h"

namespace curvemill {

namespace {

QString idName(int id) {
    return QString::number(id);
}

}  // namespace

EquationInformationPanel::EquationInformationPanel(Formula& formula, const GraphView& view,
                                                   Worker& worker, QWidget* parent)
    : QWidget(parent),
      formula_(formula),
      view_(view),
      job_(
          worker, this,
          [this](int percent) {
              if (running_) {
                  progress_->setValue(percent);
              }
          },
          [this](bool completed) {
              if (running_) {
                  finish(completed);
              }
          }) {
    // Shares the Information dialog's display name; help finds the equation's topic by this name.
    setObjectName(QStringLiteral("equationInformation"));
    yEdit_ = new QLineEdit(this);
    yEdit_->setObjectName(idName(equation_information_ids::kYForX));
    yEdit_->setMaxLength(99);
    xEdit_ = new QLineEdit(this);
    xEdit_->setObjectName(idName(equation_information_ids::kXForY));
    xEdit_->setMaxLength(99);
    findX_ = new QPushButton(QStringLiteral("Find &x"), this);
    findX_->setObjectName(idName(equation_information_ids::kFindX));
    findY_ = new QPushButton(QStringLiteral("&Find y"), this);
    findY_->setObjectName(idName(equation_information_ids::kFindY));
    piUnits_ = new QCheckBox(QStringLiteral("In &PI Units"), this);
    piUnits_->setObjectName(idName(equation_information_ids::kPiUnits));
    list_ = new QListWidget(this);
    list_->setObjectName(idName(equation_information_ids::kList));
    list_->setMinimumHeight(180);
    progress_ = new QProgressBar(this);
    progress_->setObjectName(idName(equation_information_ids::kProgress));
    progress_->setRange(0, 100);
    // The window keeps one size whether or not a search runs.
    QSizePolicy keepRoom = progress_->sizePolicy();
    keepRoom.setRetainSizeWhenHidden(true);
    progress_->setSizePolicy(keepRoom);
    progress_->hide();
    stop_ = new QPushButton(QStringLiteral("&Stop"), this);
    stop_->setObjectName(idName(equation_information_ids::kStop));
    stop_->setEnabled(false);

    auto* grid = new QGridLayout;
    auto* yLabel = new QLabel(QStringLiteral("For &y ="), this);
    yLabel->setBuddy(yEdit_);
    auto* xLabel = new QLabel(QStringLiteral("For x &="), this);
    xLabel->setBuddy(xEdit_);
    grid->addWidget(yLabel, 0, 0);
    grid->addWidget(yEdit_, 0, 1);
    grid->addWidget(findX_, 0, 2);
    grid->addWidget(xLabel, 1, 0);
    grid->addWidget(xEdit_, 1, 1);
    grid->addWidget(findY_, 1, 2);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(piUnits_);
    bottom->addWidget(progress_, 1);
    bottom->addWidget(stop_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(grid);
    layout->addWidget(list_, 1);
    layout->addLayout(bottom);

    connect(findX_, &QPushButton::clicked, this, &EquationInformationPanel::findX);
    connect(findY_, &QPushButton::clicked, this, &EquationInformationPanel::findY);
    connect(yEdit_, &QLineEdit::returnPressed, this, &EquationInformationPanel::findX);
    connect(xEdit_, &QLineEdit::returnPressed, this, &EquationInformationPanel::findY);
    connect(stop_, &QPushButton::clicked, this, &EquationInformationPanel::stop);
    connect(piUnits_, &QCheckBox::toggled, this, [this] {
        if (!running_) {
            fillList();
        }
    });
}

void EquationInformationPanel::findX() {
    scan(RootKind::kX);
}

void EquationInformationPanel::findY() {
    scan(RootKind::kY);
}

void EquationInformationPanel::scan(RootKind kind) {
    if (running_) {
        return;
    }
    QLineEdit* box = kind == RootKind::kX ? yEdit_ : xEdit_;
    const auto refuse = [this, box](const std::string& message) {
        QMessageBox::critical(this, QString::fromLatin1(kBoxCaption),
                              QString::fromStdString(message));
        box->setFocus();
        box->selectAll();
    };
    if (job_.refuseWhileBusy(kBoxCaption)) {
        return;
    }
    const NumberReading reading =
        readNumberEntry(formula_, box->text().toStdString(), kind == RootKind::kX ? "Y" : "X");
    if (!reading.ok) {
        return refuse(reading.message);
    }
    // The part of the graph the user sees, as zoomed and scrolled.
    range_ = RootRange{view_.visibleXBegin(), view_.visibleXEnd(), view_.visibleYBegin(),
                       view_.visibleYEnd()};
    if (const auto refusal = rootValueRefusal(kind, reading.value, range_)) {
        return refuse(*refusal);
    }
    kind_ = kind;
    fixed_ = reading.value;
    typedBox_ = box;
    typedText_ = box->text();
    list_->clear();
    running_ = true;
    setInputsEnabled(false);
    const bool started =
        job_.start(kProcInformationDialog, formula_.keepComputing, [this](const JobContext& c) {
            control_.progress = c.progress;
            control_.stopRequested = nullptr;
            result_ = findRoots(formula_, kind_, fixed_, range_, control_);
            return result_.completed;
        });
    if (!started) {
        running_ = false;
        setInputsEnabled(true);
    }
}

void EquationInformationPanel::finish(bool completed) {
    running_ = false;
    setInputsEnabled(true);
    if (completed) {
        fillList();
        typedBox_->setText(typedText_);
    }
    Q_EMIT scanFinished(completed);
}

void EquationInformationPanel::fillList() {
    list_->clear();
    const std::vector<std::string> lines = solutionTexts(result_.solutions, piUnits_->isChecked());
    for (const std::string& line : lines) {
        if (list_->count() >= capacity_) {
            QMessageBox::warning(this, QStringLiteral("WARNING"),
                                 QString::fromLatin1(kMsgNotAllValues));
            break;
        }
        list_->addItem(QString::fromStdString(line));
    }
    if (list_->count() > 0) {
        list_->setCurrentRow(0);
    }
}

void EquationInformationPanel::stop() {
    if (running_) {
        stop_->setEnabled(false);
        job_.stop();
    }
}

void EquationInformationPanel::setInputsEnabled(bool enabled) {
    for (QWidget* input :
         std::initializer_list<QWidget*>{yEdit_, xEdit_, findX_, findY_, piUnits_}) {
        input->setEnabled(enabled);
    }
    stop_->setEnabled(!enabled);
    progress_->setVisible(!enabled);
    progress_->setValue(0);
}

EquationInformationDialog::EquationInformationDialog(Formula& formula, const GraphView& view,
                                                     Worker& worker, QWidget* parent)
    : QDialog(parent), panel_(new EquationInformationPanel(formula, view, worker, this)) {
    setWindowTitle(QStringLiteral("Information"));
    auto* close = new QPushButton(QStringLiteral("&Close"), this);
    close->setObjectName(QStringLiteral("2"));
    close->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(panel_, 1);
    layout->addLayout(buttons);
    connect(close, &QPushButton::clicked, this, &EquationInformationDialog::reject);
    panel_->findChild<QLineEdit*>(idName(equation_information_ids::kYForX))->setFocus();
}

// Closing stops a scan first: its end would fill a list no one sees.
void EquationInformationDialog::reject() {
    if (panel_->isRunning()) {
        panel_->stop();
        return;
    }
    QDialog::reject();
}

}  // namespace curvemill
