// The equation's commands in the main window: the input window in both modes, the equation
// computation, the curve's look on the canvas, and the equation tools.
#pragma once

#include <functional>
#include <memory>

#include <QObject>
#include <QPointer>

#include "equation/EquationComputation.h"
#include "equation/EquationCurve.h"
#include "equation/ui/EquationInformationDialog.h"
#include "equation/ui/EquationPainter.h"
#include "equation/ui/EquationSolutionsDialog.h"
#include "twovar/TwoVariableSettings.h"
#include "twovar/ui/TwoVariableWindow.h"

class QWidget;

namespace curvemill {

class CommandActions;
class Formula;
class HistoryPort;
class Worker;
struct GraphView;
struct TwoDGraph;

class EquationCommands : public QObject {
    Q_OBJECT
  public:
    // `curve` and `settings` are the application's; null gives the commands their own.
    EquationCommands(Formula& formula, GraphView& view, Worker& worker, const TwoDGraph& graph,
                     EquationCurve* curve, TwoVariableSettings* settings, QWidget* parent);
    ~EquationCommands() override;

    // Binds the group's rows of the command table.
    void bindCommands(CommandActions& actions);
    void setHistoryPort(HistoryPort* history);
    // The surface mode's computation; until one is set, surface entries are checked and recorded
    // but not drawn.
    void setSurfaceComputation(TwoVariableComputation* surface);
    // The input window, created on first use; null until then.
    TwoVariableWindow* window() const { return window_; }
    void openWindow(TwoVariableMode mode);
    // The input window for `mode` over the settings as they stand, OK pressed without a history
    // entry (an opened document); `ended` gets whether the graph was shown. False when the
    // window refused the entries or could not start (`ended` is then never called).
    bool runUnrecorded(TwoVariableMode mode, std::function<void(bool shown)> ended);
    TwoVariableSettings& settings() { return *settings_; }
    // "Math Dialog" while an equation is shown: the curve's solution points.
    void openSolutions();
    // x for a typed y, or y for a typed x, on the equation shown.
    void openInformation();
    EquationSolutionsDialog* solutionsDialog() const { return solutions_; }
    EquationInformationDialog* informationDialog() const { return information_; }

    const EquationCurve& curve() const { return *curve_; }
    const EquationLook& look() const { return look_; }
    // The squares around the dots, a view option of ours.
    void setSquares(bool on);

  Q_SIGNALS:
    // A computed equation is ready to be shown.
    void shown();
    // Draw the canvas again (a stopped run, a point marked or unmarked).
    void repaintRequested();
    // The window was cancelled while idle.
    void cancelled();
    // OK in the input window discarded the picture on screen, whichever kind it was.
    void previousDiscarded();
    void statusMessage(const QString& text);

  private:
    Formula& formula_;
    GraphView& view_;
    Worker& worker_;
    QWidget* parent_;
    HistoryPort* history_ = nullptr;
    TwoVariableComputation* surface_ = nullptr;
    std::unique_ptr<EquationCurve> ownCurve_;
    std::unique_ptr<TwoVariableSettings> ownSettings_;
    EquationCurve* curve_;
    TwoVariableSettings* settings_;
    EquationComputation computation_;
    EquationLook look_;
    QPointer<TwoVariableWindow> window_;
    QPointer<EquationSolutionsDialog> solutions_;
    QPointer<EquationInformationDialog> information_;
};

}  // namespace curvemill
