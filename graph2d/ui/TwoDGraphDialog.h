// The "Function" dialog: X range, formula and number of points of a 2D graph, sampled on a worker.
#pragma once

#include <functional>
#include <string>

#include <QDialog>

#include "engine/NumberEntry.h"
#include "failure/ProcedureNames.h"
#include "graph2d/GraphEntries.h"
#include "graph2d/SamplingControl.h"
#include "graph2d/TwoDRun.h"
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
struct GraphView;
struct TwoDGraph;

// Control identifiers (each widget's objectName).
namespace twod_ids {
inline constexpr int kXBegin = 1000;
inline constexpr int kXEnd = 1002;
inline constexpr int kFormula = 1003;
inline constexpr int kUsePrompts = 1049;
inline constexpr int kPointsEdit = 1025;
inline constexpr int kPointsSpin = 1027;
inline constexpr int kPointsLabel = 1031;
inline constexpr int kProgress = 1012;
inline constexpr int kOk = 1;
inline constexpr int kStop = 1014;
inline constexpr int kCancel = 2;
inline constexpr int kHistory = 1063;
inline constexpr int kHistoryList = 1037;
}  // namespace twod_ids

// The three boxes' texts as they stand, for the history to locate.
struct TwoDGraphInput {
    std::string formula;
    std::string xBegin;
    std::string xEnd;
};

// What the dialog hands to the history; a hook left empty is not offered to the user.
struct TwoDGraphHistoryHooks {
    // An accepted entry as typed.
    std::function<void(const std::string& formula, const std::string& xBegin,
                       const std::string& xEnd)>
        record;
    // "History": the previous entries of 2D functions, with the boxes' entry located.
    std::function<void()> showPreviousEntries;
    // "History 1": the list of functions, the same way.
    std::function<void()> showListOfFunctions;
};

class TwoDGraphDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    TwoDGraphDialog(TwoDGraphRole role, Formula& formula, TwoDGraph& graph, GraphView& view,
                    Worker& worker, QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcTwoDGraphDialog; }
    void setHistoryHooks(TwoDGraphHistoryHooks hooks);
    // Fills the boxes, as when an entry is picked from the history.
    void setEntry(const QString& formula, const QString& xBegin, const QString& xEnd);
    TwoDGraphInput currentInput() const;
    // Takes the X range as typed in `other`: both functions are drawn over one X range.
    void copyRangeFrom(const TwoDGraphDialog& other);
    // The formula box alone, so the dialogs follow when the two functions are switched.
    QString formulaText() const;
    void setFormulaText(const QString& text);
    bool isRunning() const { return running_; }

  public Q_SLOTS:
    void accept() override;
    // Escape and the close box: while a run goes on they stop it instead of closing.
    void reject() override;
    void stop();

  Q_SIGNALS:
    // The worker has ended; `completed` is false when it was stopped.
    void runFinished(bool completed);
    // Curves were added or removed (derivative and integral erased, second function dropped).
    void curvesChanged();
    // A run completed and the view was reset to it: the graph is to be drawn.
    void graphDrawn();

  private:
    void buildControls();
    void updatePointsLabel();
    void applyPrompts(bool on);
    void setRunning(bool running);
    void startRun(const std::string& typedFormula, double xBegin, double xEnd);
    void finishRun(bool completed);

    Formula& formula_;
    TwoDRun run_;
    TwoDGraphHistoryHooks hooks_;

    QLineEdit* xBeginEdit_ = nullptr;
    QLineEdit* xEndEdit_ = nullptr;
    QLineEdit* formulaEdit_ = nullptr;
    QCheckBox* usePrompts_ = nullptr;
    TwoDGraphPointsSpin* pointsSpin_ = nullptr;
    QLabel* pointsLabel_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* stopButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPushButton* historyButton_ = nullptr;
    QPushButton* historyListButton_ = nullptr;

    // The range boxes keep their value between readings while their text is unchanged.
    NumberBox xBeginBox_{kXBeginBoxName};
    NumberBox xEndBox_{kXEndBoxName};

    // This dialog's own run is on the worker (another window's may be).
    bool running_ = false;
    // Lives here, not on the worker's stack: a fault there leaves the job without unwinding.
    SamplingControl control_;
    // Last: it stops and waits for a job still running, which reads the members above.
    WindowJob job_;
};

}  // namespace curvemill
