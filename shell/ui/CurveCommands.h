// The parametric and polar curves on the main window: their input windows, the curve they draw,
// its Math tools and its history file.
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <QObject>
#include <QPointer>

#include "parametric/CurveGraph.h"
#include "parametric/CurveHistory.h"

class QWidget;

namespace curvemill {

class CommandActions;
class CurveInformationDialog;
class CurveMathDialog;
class CurveWindow;
class WriterLock;
class Formula;
class Worker;

class CurveCommands : public QObject {
    Q_OBJECT
  public:
    CurveCommands(Formula& formula, Worker& worker, QWidget* parent);
    ~CurveCommands() override;

    // Binds the group's rows of the command table.
    void bindCommands(CommandActions& actions);
    // Where the history of curves is kept: the entries file's folder. None keeps it in memory.
    void setHistoryFolder(const std::optional<std::filesystem::path>& folder);

    const CurveGraph& graph() const { return graph_; }
    void openWindow(CurveForm form);
    // The window of `entry`'s form filled with it and `points`, OK pressed without a history entry
    // (an opened document); `ended` gets whether the curve was drawn. False when the window
    // refused the entries or could not start (`ended` is then never called).
    bool runUnrecorded(const CurveEntry& entry, int points, bool arrow,
                       std::function<void(bool drawn)> ended);
    void openMathDialog();
    void openInformation();

  Q_SIGNALS:
    // A curve was drawn: it is to be shown.
    void shown();
    void statusMessage(const QString& text);

  private:
    Formula& formula_;
    Worker& worker_;
    QWidget* parent_;
    CurveGraph graph_;
    CurveHistory history_;
    std::optional<std::filesystem::path> historyFile_;
    std::unique_ptr<WriterLock> lock_;
    // Off while an opened document is drawn.
    bool recording_ = true;
    std::array<QPointer<CurveWindow>, 2> windows_;
    QPointer<CurveMathDialog> math_;
    QPointer<CurveInformationDialog> information_;
};

}  // namespace curvemill
