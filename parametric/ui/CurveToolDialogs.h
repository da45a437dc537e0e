// The Math tools of a shown parametric or polar curve: the read-out at a typed t, and the length
// of an arc with the area a closed curve encloses (computed on the worker).
#pragma once

#include <QDialog>

#include "engine/NumberEntry.h"
#include "failure/ProcedureNames.h"
#include "graph2d/SamplingControl.h"
#include "parametric/CurveEntries.h"
#include "parametric/CurveGraph.h"
#include "parametric/CurveMeasures.h"
#include "parametric/CurveTools.h"
#include "worker/ui/WindowJob.h"

class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace curvemill {

class Formula;
class Worker;

// Control identifiers (each widget's objectName), clear of the specified windows' numbers.
namespace curve_tool_ids {
inline constexpr int kT = 1320;
inline constexpr int kTBegin = 1321;
inline constexpr int kTEnd = 1322;
inline constexpr int kResult = 1323;
inline constexpr int kStop = 1324;
inline constexpr int kProgress = 1325;
inline constexpr int kOk = 1;
inline constexpr int kClose = 2;
}  // namespace curve_tool_ids

// x, y, their derivatives and the slope at one t.
class CurveInformationDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    CurveInformationDialog(Formula& formula, const CurveGraph& graph, QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcCurveWindow; }

  public Q_SLOTS:
    // "Calculate": reads T and writes the read-out; the dialog stays open for the next t.
    void accept() override;

  private:
    Formula& formula_;
    const CurveGraph& graph_;
    QLineEdit* tEdit_ = nullptr;
    QPlainTextEdit* result_ = nullptr;
    NumberBox tBox_{curve_messages::kBoxT};
};

// The length between two t values and, when the arc closes, the area it encloses.
class CurveMathDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    CurveMathDialog(Formula& formula, const CurveGraph& graph, Worker& worker,
                    QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcCurveWindow; }
    bool isRunning() const { return job_.running(); }

  public Q_SLOTS:
    void accept() override;
    // Escape and the close box: while a computation goes on they stop it instead of closing.
    void reject() override;

  private:
    void setRunning(bool running);
    void finish(bool completed);

    Formula& formula_;
    const CurveGraph& graph_;
    QLineEdit* beginEdit_ = nullptr;
    QLineEdit* endEdit_ = nullptr;
    QPlainTextEdit* result_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* stopButton_ = nullptr;
    QPushButton* closeButton_ = nullptr;
    NumberBox beginBox_{kTBeginBoxName};
    NumberBox endBox_{kTEndBoxName};
    // Filled on the worker, read when it ends.
    double begin_ = 0.0;
    double end_ = 0.0;
    CurveMeasures measures_;
    double swept_ = 0.0;
    bool sweptDefined_ = false;
    SamplingControl control_;
    // Last: it stops and waits for a job still running, which reads the members above.
    WindowJob job_;
};

}  // namespace curvemill
