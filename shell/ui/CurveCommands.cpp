#include "shell/ui/CurveCommands.h"

#include <memory>

#include <QCheckBox>
#include <QSpinBox>

#include "engine/ui/LogBaseDialog.h"
#include "graph2d/TwoDGraph.h"
#include "history/ui/HistoryService.h"
#include "history/ui/WriterLock.h"
#include "parametric/ui/CurveToolDialogs.h"
#include "parametric/ui/CurveWindow.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/KindWindows.h"

namespace curvemill {

CurveCommands::CurveCommands(Formula& formula, Worker& worker, QWidget* parent)
    : QObject(parent), formula_(formula), worker_(worker), parent_(parent) {}

CurveCommands::~CurveCommands() = default;

void CurveCommands::bindCommands(CommandActions& actions) {
    actions.bind(Command::ParametricCurve, [this] { openWindow(CurveForm::Parametric); });
    actions.bind(Command::PolarCurve, [this] { openWindow(CurveForm::Polar); });
}

void CurveCommands::setHistoryFolder(const std::optional<std::filesystem::path>& folder) {
    historyFile_.reset();
    lock_.reset();
    history_ = CurveHistory{};
    if (!folder) {
        return;
    }
    historyFile_ = *folder / kCurveHistoryFileName;
    CurveHistoryReading reading = loadCurveHistory(*historyFile_);
    if (!reading.problem.empty()) {
        // A file we cannot read is never replaced: the curves' history stays in memory.
        Q_EMIT statusMessage(QStringLiteral("The history of curves was not read: %1")
                                 .arg(QString::fromStdString(reading.problem)));
        historyFile_.reset();
        return;
    }
    history_ = std::move(reading.history);
    // A second copy in the folder reads the curves but keeps its new ones, as it does the entries.
    lock_ = std::make_unique<WriterLock>(*historyFile_);
    if (lock_->otherCopy()) {
        historyFile_.reset();
        Q_EMIT statusMessage(QString::fromLatin1(kMsgSecondCopy).replace(u'\n', u' '));
    }
}

void CurveCommands::openWindow(CurveForm form) {
    QPointer<CurveWindow>& window = windows_[form == CurveForm::Polar ? 1 : 0];
    if (window == nullptr) {
        window = new CurveWindow(form, formula_, graph_, worker_, parent_);
        window->setHistory(&history_);
        connect(window, &CurveWindow::entryAccepted, this, [this](const CurveEntry& entry) {
            if (!recording_) {
                return;
            }
            history_.record(entry);
            if (historyFile_) {
                if (const auto why = saveCurveHistory(*historyFile_, history_)) {
                    Q_EMIT statusMessage(QStringLiteral("The history of curves was not saved: %1")
                                             .arg(QString::fromStdString(*why)));
                }
            }
        });
        connect(window, &CurveWindow::graphDrawn, this, [this] {
            Q_EMIT shown();
            if (graph_.budgetMet) {
                Q_EMIT statusMessage(
                    QStringLiteral("The curve bends too often to be drawn straight everywhere: "
                                   "it was refined as far as the limit of evaluations allows"));
            }
        });
    }
    window->setHistory(&history_);
    window->show();
    window->raise();
    window->activateWindow();
}

bool CurveCommands::runUnrecorded(const CurveEntry& entry, int points, bool arrow,
                                  std::function<void(bool)> ended) {
    openWindow(entry.form);
    CurveWindow* window = windows_[entry.form == CurveForm::Polar ? 1 : 0];
    if (window->isRunning()) {
        return false;
    }
    window->setEntry(entry);
    if (auto* spin = window->findChild<QSpinBox*>(QString::number(curve_ids::kPointsSpin))) {
        spin->setValue(points / kPointsPerRunUnit);
    }
    if (auto* box = window->findChild<QCheckBox*>(QString::number(curve_ids::kArrow))) {
        box->setChecked(arrow);
    }
    auto connection = std::make_shared<QMetaObject::Connection>();
    *connection = connect(window, &CurveWindow::runFinished, this, [connection, ended](bool drawn) {
        QObject::disconnect(*connection);
        ended(drawn);
    });
    recording_ = false;
    {
        const LogBaseQuestionHold opened;
        window->accept();
    }
    recording_ = true;
    if (!window->isRunning()) {
        QObject::disconnect(*connection);
        return false;
    }
    return true;
}

void CurveCommands::openMathDialog() {
    if (math_ == nullptr) {
        math_ = new CurveMathDialog(formula_, graph_, worker_, parent_);
        belongToGraphKind(*math_, GraphKind::Curve);
    }
    math_->show();
    math_->raise();
}

void CurveCommands::openInformation() {
    if (information_ == nullptr) {
        information_ = new CurveInformationDialog(formula_, graph_, parent_);
        belongToGraphKind(*information_, GraphKind::Curve);
    }
    information_->show();
    information_->raise();
}

}  // namespace curvemill
