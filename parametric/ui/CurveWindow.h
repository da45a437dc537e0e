// The input window of the parametric and polar curves: T range, formulas in t and number of
// starting points, sampled on the worker; built like the Function dialog.
#pragma once

#include <QDialog>

#include "engine/NumberEntry.h"
#include "engine/SlotKeeper.h"
#include "failure/ProcedureNames.h"
#include "graph2d/SamplingControl.h"
#include "parametric/CurveEntries.h"
#include "parametric/CurveGraph.h"
#include "parametric/CurveHistory.h"
#include "worker/ui/WindowJob.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace curvemill {

class Formula;
class TwoDGraphPointsSpin;
class Worker;

// Control identifiers (each widget's objectName), clear of the specified windows' numbers.
namespace curve_ids {
inline constexpr int kTBegin = 1300;
inline constexpr int kTEnd = 1301;
inline constexpr int kFirstFormula = 1302;
inline constexpr int kSecondFormula = 1303;
inline constexpr int kUsePrompts = 1304;
inline constexpr int kPointsEdit = 1305;
inline constexpr int kPointsSpin = 1306;
inline constexpr int kPointsLabel = 1307;
inline constexpr int kProgress = 1308;
inline constexpr int kOk = 1;
inline constexpr int kStop = 1309;
inline constexpr int kCancel = 2;
inline constexpr int kHistory = 1310;
inline constexpr int kHelp = 1311;
inline constexpr int kArrow = 1312;
}  // namespace curve_ids

class CurveWindow : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    CurveWindow(CurveForm form, Formula& formula, CurveGraph& graph, Worker& worker,
                QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcCurveWindow; }
    CurveForm form() const { return form_; }
    // "History" lists the earlier entries of this window's kind to pick from; without a history
    // (or with none of this kind) the button is grey.
    void setHistory(const CurveHistory* history);
    void setEntry(const CurveEntry& entry);
    CurveEntry currentInput() const;
    bool isRunning() const { return job_.running(); }

  public Q_SLOTS:
    void accept() override;
    // Escape and the close box: while a run goes on they stop it instead of closing.
    void reject() override;
    void stop();

  Q_SIGNALS:
    // An entry was accepted and its run started: the history records it as typed.
    void entryAccepted(const CurveEntry& entry);
    // The worker has ended; `completed` is false when it was stopped.
    void runFinished(bool completed);
    // A run completed: the curve is to be shown.
    void graphDrawn();

  private:
    void buildControls();
    void updatePointsLabel();
    void applyPrompts(bool on);
    void setRunning(bool running);
    void finishRun(bool completed);
    bool hasEntriesOfKind() const;
    void showHistory();

    CurveForm form_;
    Formula& formula_;
    CurveGraph& graph_;
    const CurveHistory* history_ = nullptr;

    QLineEdit* tBeginEdit_ = nullptr;
    QLineEdit* tEndEdit_ = nullptr;
    QLineEdit* firstEdit_ = nullptr;
    QLineEdit* secondEdit_ = nullptr;
    QCheckBox* usePrompts_ = nullptr;
    QCheckBox* arrow_ = nullptr;
    TwoDGraphPointsSpin* pointsSpin_ = nullptr;
    QLabel* pointsLabel_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* stopButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPushButton* historyButton_ = nullptr;

    NumberBox tBeginBox_{kTBeginBoxName};
    NumberBox tEndBox_{kTEndBoxName};
    // The run samples into this graph, handed over only when it completes: a stopped run leaves
    // the curve on screen whole.
    CurveGraph running_;
    SlotKeeper previousFirst_;
    SlotKeeper previousSecond_;
    SamplingControl control_;
    // Last: it stops and waits for a job still running, which reads the members above.
    WindowJob job_;
};

}  // namespace curvemill
