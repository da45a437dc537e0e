// The "Equation" / "ThreeD Function" input window: ranges, formula and grid of an equation
// F(x, y) = 0 or a surface z = f(x, y), checked and handed to the computation of its mode.
#pragma once

#include <string>

#include <QDialog>

#include "engine/SlotKeeper.h"
#include "failure/ProcedureNames.h"
#include "history/HistoryEntry.h"
#include "twovar/TwoVariableComputation.h"
#include "twovar/TwoVariableSettings.h"
#include "worker/ui/WindowJob.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;

namespace curvemill {

class Formula;
class HistoryPort;
class Worker;
struct TypedEntry;

// Control identifiers (each widget's objectName).
namespace twovar_ids {
inline constexpr int kXBegin = 1117;
inline constexpr int kXEnd = 1119;
inline constexpr int kYBegin = 1120;
inline constexpr int kYEnd = 1121;
inline constexpr int kFormula = 1122;
inline constexpr int kFormulaLabel = 1140;
inline constexpr int kXPointsEdit = 1130;
inline constexpr int kXPointsSpin = 1131;
inline constexpr int kXPointsLabel = 1135;
inline constexpr int kYPointsEdit = 1132;
inline constexpr int kYPointsSpin = 1133;
inline constexpr int kYPointsLabel = 1134;
inline constexpr int kPrecisionEdit = 1128;
inline constexpr int kPrecisionSpin = 1129;
inline constexpr int kPrecisionLabel = 1127;
inline constexpr int kProgress = 1123;
inline constexpr int kOk = 1;
inline constexpr int kStop = 1126;
inline constexpr int kCancel = 2;
inline constexpr int kHistory = 1136;
inline constexpr int kHelp = 9;
inline constexpr int kUsePrompts = 1049;
}  // namespace twovar_ids

// Our own: the status bar's word while no surface computation is wired in.
inline constexpr const char* kMsgSurfacesNotDrawn =
    "Surfaces are not drawn yet: the entry was checked and kept in the history.";

class TwoVariableWindow : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    // `surface` may be null: surface entries are then checked and recorded but not computed.
    TwoVariableWindow(Formula& formula, TwoVariableSettings& settings, Worker& worker,
                      TwoVariableComputation* surface, TwoVariableComputation* equation,
                      QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcEquationWindow; }
    // Null leaves "History" disabled and records nothing.
    void setHistoryPort(HistoryPort* history) { history_ = history; }
    void setSurfaceComputation(TwoVariableComputation* surface) { surface_ = surface; }
    // Sets the window up for `mode` (caption, labels, spins, last entry, "History"); call before
    // showing it.
    void prepare(TwoVariableMode mode);
    TwoVariableMode mode() const { return mode_; }
    bool isRunning() const { return running_; }

  public Q_SLOTS:
    void accept() override;
    // Escape and the close box stop a run instead of closing while one goes on.
    void reject() override;
    void stop();
    // The notifications a computation sends (queued): failed or stopped, finished, "History" off,
    // "Stop" off, an entry picked in the history list, "History" on or off.
    void computationEnded(bool completed);
    void disableHistory();
    void disableStop();
    void fillFromEntry(const TypedEntry& entry);
    void setHistoryEnabled(bool enabled);

  Q_SIGNALS:
    // A completed computation has been shown and the window closes.
    void computationShown(TwoVariableMode mode);
    // A failed or stopped run: the main window repaints what it had.
    void repaintRequested();
    // OK discarded the previous picture: nothing is on screen until this run ends.
    void previousDiscarded();
    // Cancel while idle; the shell goes back to the title page when no graph is on screen.
    void cancelled();
    void statusMessage(const QString& text);

  private:
    void buildControls();
    void applyPrompts(bool on);
    void spinChanged();
    void setInputsEnabled(bool enabled);
    void fail(const QString& message, QLineEdit* box);
    void refuse(const QString& message, QLineEdit* box);
    void showPreviousEntries();
    TypedEntry currentInput() const;
    TwoVariableComputation* computation() const;
    EntrySection entrySection() const;

    Formula& formula_;
    TwoVariableSettings& settings_;
    TwoVariableComputation* surface_;
    TwoVariableComputation* equation_;
    HistoryPort* history_ = nullptr;
    TwoVariableMode mode_ = TwoVariableMode::kEquation;
    bool running_ = false;
    bool historyAvailable_ = false;
    // The slot of the graph on screen, put back when an entry is refused, fails or is stopped.
    SlotKeeper slot_;

    QLineEdit* xBeginEdit_ = nullptr;
    QLineEdit* xEndEdit_ = nullptr;
    QLineEdit* yBeginEdit_ = nullptr;
    QLineEdit* yEndEdit_ = nullptr;
    QLineEdit* formulaEdit_ = nullptr;
    QLabel* formulaLabel_ = nullptr;
    QSpinBox* xPointsSpin_ = nullptr;
    QSpinBox* yPointsSpin_ = nullptr;
    QSpinBox* precisionSpin_ = nullptr;
    QLabel* xPointsLabel_ = nullptr;
    QLabel* yPointsLabel_ = nullptr;
    QLabel* precisionLabel_ = nullptr;
    QLabel* precisionCaption_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* stopButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPushButton* historyButton_ = nullptr;
    QCheckBox* usePrompts_ = nullptr;
    // Last: it stops and waits for a job still running, which reads the members above.
    WindowJob job_;
};

}  // namespace curvemill
