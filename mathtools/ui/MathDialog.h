// The "Math" dialog: the integral of the function on screen between two typed x values, quick or
// precise (on the worker, with progress and Stop), and the list of its extreme values.
#pragma once

#include <string>

#include <QDialog>

#include "engine/NumberEntry.h"
#include "failure/ProcedureNames.h"
#include "graph2d/SamplingControl.h"
#include "graph2d/TwoDGraph.h"
#include "mathtools/IntegralState.h"
#include "mathtools/MathMessages.h"
#include "worker/ui/WindowJob.h"

class QCheckBox;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace curvemill {

class ExtremeValuesGroup;
class Formula;
class Worker;
struct GraphView;

class MathDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    MathDialog(Formula& formula, TwoDGraph& graph, GraphView& view, Worker& worker,
               QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcMathDialog; }
    bool isRunning() const { return run_ != Run::kNone; }
    // The last integral computed or being computed.
    const IntegralState& integral() const { return state_; }
    ExtremeValuesGroup* extremeValues() const { return extremes_; }

  public Q_SLOTS:
    // OK: the integral, as the check box asks.
    void accept() override;
    // Escape and the close box: while the precise run goes on they stop it instead of closing.
    void reject() override;
    void stop();
    // "Draw Derivative": the derivative curve of the function on screen, on the worker.
    void drawDerivative();
    // "Display Integral Curve": the running integral of the function on screen, on the worker.
    void displayIntegralCurve();

  Q_SIGNALS:
    // The painted area or its text changed: the graph is to be drawn again.
    void graphChanged();
    // The precise run or a curve's run has ended; `completed` is false when it was stopped.
    void runFinished(bool completed);
    // A derivative or integral curve was added: the view's ranges are to be chosen again.
    void curveAdded();
    void informationRequested();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void buildControls();
    void setRunning(bool running);
    void refuse(const std::string& message);
    enum class Run { kNone, kIntegral, kDerivative, kIntegralCurve };
    bool refuseWhileBusy();
    void startRun(Run run);
    void finishRun(bool completed);
    // False when the sum was refused.
    bool finishPrecise(bool completed);
    void finishCurve(Run run, bool completed);
    void startCurveRun(Run run);
    void takeGraph();

    Formula& formula_;
    TwoDGraph& graph_;
    GraphView& view_;

    QLineEdit* xBeginEdit_ = nullptr;
    QLineEdit* xEndEdit_ = nullptr;
    QCheckBox* precise_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* stopButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPushButton* informationButton_ = nullptr;
    QPushButton* derivativeButton_ = nullptr;
    QPushButton* integralCurveButton_ = nullptr;
    QPushButton* markButton_ = nullptr;
    ExtremeValuesGroup* extremes_ = nullptr;

    NumberBox xBeginBox_{math_messages::kBoxXBegin};
    NumberBox xEndBox_{math_messages::kBoxXEnd};
    // Read by the worker's job, so kept here rather than on its stack (a fault there abandons
    // the job's frames without unwinding).
    IntegralState state_;
    SamplingControl control_;
    Run run_ = Run::kNone;
    // The derivative and integral curves are built from a copy of the main curve into a graph of
    // its own, so the screen, which may repaint meanwhile, never sees a curve the worker is
    // writing.
    TwoDGraph curveRun_;
    // The sampled graph the boxes and the list were last set up for; another one presets the
    // boxes to its first defined stretch and empties the list.
    std::string seenFormula_;
    int seenCount_ = -1;
    double seenXBegin_ = 0.0;
    double seenXEnd_ = 0.0;
    // Last: it stops and waits for a job still running, which reads the members above.
    WindowJob job_;
};

}  // namespace curvemill
