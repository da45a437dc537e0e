// The commands that move around the 2D view (zoom, Fit To Window, stretch), its customization
// dialog, the mouse mode and "Show Drawing Process", carried out for the main window.
#pragma once

#include <QObject>

#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"

class QLabel;
class QMainWindow;

namespace curvemill {

class CommandActions;
class GraphArea;
struct ShellState;

class ViewCommands : public QObject {
    Q_OBJECT
  public:
    // Adds the coordinates read-out to the window's status bar.
    ViewCommands(QMainWindow& window, GraphArea& area, TwoDGraph& graph, GraphView& view,
                 CommandActions& actions);

    // Binds the group's rows of the command table.
    void bindCommands(CommandActions& actions);
    void zoomIn(ZoomAxis axis);
    void zoomOut(ZoomAxis axis);
    void restore();
    void fit();
    void stretch();
    void undoStretch();
    void setSelectArea(bool on);
    void toggleDrawingProcess();
    // The "Customization" dialog, modal; `equationShown` greys "Optimize Drawing".
    void openCustomization(bool equationShown);
    // Applies what the dialog returned; a changed ratio lays the view out anew at zoom 1.
    void applySettings(const TwoDSettings& settings);
    // "Display Toolbar" of either customization dialog: one flag for both.
    void showToolbar(bool on);

    // Zoom limits, stretch stack, mouse mode and drawing process, for the menus.
    void fillState(ShellState& state) const;
    const TwoDSettings& settings() const { return settings_; }
    // The settings as the program holds them now (the graph's ratio and drawing step, the
    // view's display order).
    TwoDSettings currentSettings() const;
    const StretchStack& stretches() const { return stretches_; }
    StretchStack& stretches() { return stretches_; }
    QLabel* coordinates() const { return coordinates_; }

  Q_SIGNALS:
    // Something the menus show changed.
    void stateChanged();

  protected:
    // Keeps the toolbar's tooltips away while "Display Tooltips" is off.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void afterZoom(bool changed);

    QMainWindow& window_;
    GraphArea& area_;
    TwoDGraph& graph_;
    GraphView& view_;
    CommandActions& actions_;
    StretchStack stretches_;
    TwoDSettings settings_;
    QLabel* coordinates_;
};

}  // namespace curvemill
