// The kinds of graph the main window shows, each behind one small interface: what it puts on the
// canvas, its own tools for the commands every kind shares, and what the menus need from it.
#pragma once

#include <QString>

#include "shell/GraphKind.h"

namespace curvemill {

class CurveCommands;
class EquationCommands;
class GraphArea;
class MathCommands;
class RotationCommands;
class SurfaceCommands;
class ViewCommands;
struct GraphView;
struct ShellState;
struct SurfaceScene;
struct TwoDGraph;

class ShownGraph {
  public:
    virtual ~ShownGraph() = default;
    virtual GraphKind kind() const = 0;
    // Puts the graph on the canvas; what the status line then says about it (empty: the status
    // line stays as it is).
    virtual QString show() = 0;
    virtual void openMathDialog() = 0;
    virtual void openInformation() = 0;
    // Draw Grid, and the zoom commands that act on every kind.
    virtual void toggleGrid() = 0;
    virtual void zoomBoth(bool in) = 0;
    virtual void restoreZoom() = 0;
    // What the menus need to know from this kind.
    virtual void fillState(ShellState& state) const = 0;
};

// A flat graph: the 2D view's grid and zoom.
class FlatGraph : public ShownGraph {
  public:
    FlatGraph(GraphArea& area, GraphView& view, ViewCommands& commands)
        : area_(area), view_(view), commands_(commands) {}
    void toggleGrid() override;
    void zoomBoth(bool in) override;
    void restoreZoom() override;
    void fillState(ShellState& state) const override;

  protected:
    GraphArea& area_;
    GraphView& view_;
    ViewCommands& commands_;
};

class FunctionGraph : public FlatGraph {
  public:
    FunctionGraph(GraphArea& area, GraphView& view, ViewCommands& commands, const TwoDGraph& graph,
                  MathCommands& math)
        : FlatGraph(area, view, commands), graph_(graph), math_(math) {}
    GraphKind kind() const override { return GraphKind::Function2D; }
    QString show() override;
    void openMathDialog() override;
    void openInformation() override;

  private:
    const TwoDGraph& graph_;
    MathCommands& math_;
};

// For an equation the Math dialog is the list of its solution points, and Information finds x
// for a y or y for an x on its curve.
class EquationGraph : public FlatGraph {
  public:
    EquationGraph(GraphArea& area, GraphView& view, ViewCommands& commands,
                  EquationCommands& equation)
        : FlatGraph(area, view, commands), equation_(equation) {}
    GraphKind kind() const override { return GraphKind::Equation; }
    QString show() override;
    void openMathDialog() override;
    void openInformation() override;

  private:
    EquationCommands& equation_;
};

// A parametric or polar curve: the 2D view, its own Math and Information windows.
class CurveShownGraph : public FlatGraph {
  public:
    CurveShownGraph(GraphArea& area, GraphView& view, ViewCommands& commands, CurveCommands& curves)
        : FlatGraph(area, view, commands), curves_(curves) {}
    GraphKind kind() const override { return GraphKind::Curve; }
    QString show() override;
    void openMathDialog() override;
    void openInformation() override;

  private:
    CurveCommands& curves_;
};

// A surface has a grid box, zooms as a figure and has no math tools.
class SurfaceGraph : public ShownGraph {
  public:
    SurfaceGraph(GraphArea& area, SurfaceScene& scene, SurfaceCommands& commands,
                 RotationCommands& rotation)
        : area_(area), scene_(scene), commands_(commands), rotation_(rotation) {}
    GraphKind kind() const override { return GraphKind::Surface3D; }
    QString show() override;
    void openMathDialog() override {}
    void openInformation() override {}
    void toggleGrid() override;
    void zoomBoth(bool in) override { zoom(in ? 2.0 : 0.5); }
    void restoreZoom() override;
    void fillState(ShellState& state) const override;
    // Scales the figure by `factor`; false when it is at its limit.
    bool zoom(double factor);

  private:
    GraphArea& area_;
    SurfaceScene& scene_;
    SurfaceCommands& commands_;
    RotationCommands& rotation_;
};

}  // namespace curvemill
