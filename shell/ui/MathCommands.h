// The Math menu's commands on the 2D graph: the Math and Information dialogs, and erasing what
// they and the derivative added to the graph.
#pragma once

#include <functional>

#include <QObject>

class QWidget;

namespace curvemill {

class CommandActions;
class Formula;
class InformationDialog;
class MathDialog;
class Worker;
struct GraphView;
struct TwoDGraph;

struct MathCommandParts {
    Formula& formula;
    TwoDGraph& graph;
    GraphView& view;
    Worker& worker;
    // The window the dialogs belong to.
    QWidget* window;
    // The graph's pictures changed (an area, its text): draw it again and refresh the menus.
    std::function<void()> redraw;
    // A curve was removed: the view's ranges are chosen again as for a new graph.
    std::function<void()> showNewGraph;
};

class MathCommands : public QObject {
    Q_OBJECT
  public:
    explicit MathCommands(MathCommandParts parts, QObject* parent = nullptr);
    ~MathCommands() override;

    // Binds the group's rows of the command table.
    void bindCommands(CommandActions& actions);
    void openMathDialog();
    void openInformation();
    void eraseIntegral();
    void eraseDerivative();
    void unmarkIndefiniteAreas();

    // Created on first use.
    MathDialog* mathDialog();
    // Null until first used.
    const MathDialog* existingMathDialog() const { return mathDialog_; }
    InformationDialog* informationDialog();

  private:
    MathCommandParts parts_;
    MathDialog* mathDialog_ = nullptr;
    InformationDialog* informationDialog_ = nullptr;
};

}  // namespace curvemill
