// The equation half of the Information dialog: every x of the visible range where the equation
// on screen holds for a typed y, or every y for a typed x. A panel, so that the dialog of the
// function on screen can hold it too; the dialog below wraps it on its own.
#pragma once

#include <string>

#include <QDialog>
#include <QWidget>

#include "failure/ProcedureNames.h"
#include "graph2d/SamplingControl.h"
#include "mathtools/RootScan.h"
#include "worker/ui/WindowJob.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace curvemill {

class Formula;
class Worker;
struct GraphView;

namespace equation_information_ids {
inline constexpr int kYForX = 1084;  // the typed y, whose x values are found
inline constexpr int kFindX = 1085;
inline constexpr int kXForY = 1086;  // the typed x, whose y values are found
inline constexpr int kFindY = 1087;
inline constexpr int kList = 1088;
inline constexpr int kPiUnits = 1089;
inline constexpr int kProgress = 1090;
inline constexpr int kStop = 1091;
}  // namespace equation_information_ids

inline constexpr const char* kMsgNotAllValues = "NOT ALL VALUES CAN BE DISPLAYED";

class EquationInformationPanel : public QWidget, public FailureScope {
    Q_OBJECT
  public:
    EquationInformationPanel(Formula& formula, const GraphView& view, Worker& worker,
                             QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcInformationDialog; }
    bool isRunning() const { return running_; }
    // Most lines the list takes; the rest is refused with a warning. A setting for tests.
    void setListCapacity(int lines) { capacity_ = lines; }

  public Q_SLOTS:
    void findX();
    void findY();
    void stop();

  Q_SIGNALS:
    // The list has been filled (or left empty by a stop).
    void scanFinished(bool completed);

  private:
    void scan(RootKind kind);
    void finish(bool completed);
    void setInputsEnabled(bool enabled);
    void fillList();

    Formula& formula_;
    const GraphView& view_;
    QLineEdit* yEdit_;
    QLineEdit* xEdit_;
    QPushButton* findX_;
    QPushButton* findY_;
    QCheckBox* piUnits_;
    QListWidget* list_;
    QProgressBar* progress_;
    QPushButton* stop_;
    bool running_ = false;
    int capacity_ = 32767;
    // What the job reads and fills: here, not in the job's frames.
    RootKind kind_ = RootKind::kX;
    double fixed_ = 0.0;
    RootRange range_;
    SamplingControl control_;
    RootScanResult result_;
    QLineEdit* typedBox_ = nullptr;
    QString typedText_;
    // Last: it stops and waits for a job still running, which reads the members above.
    WindowJob job_;
};

class EquationInformationDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    EquationInformationDialog(Formula& formula, const GraphView& view, Worker& worker,
                              QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcInformationDialog; }
    EquationInformationPanel* panel() const { return panel_; }

  public Q_SLOTS:
    void reject() override;

  private:
    EquationInformationPanel* panel_;
};

}  // namespace curvemill
