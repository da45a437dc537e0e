// Save As File, Print and Copy for the graph on screen: builds the picture the output side needs.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QRect>
#include <QString>

#include "output/ui/GraphPicture.h"
#include "shell/GraphKind.h"

class QPrinter;
class QWidget;

namespace curvemill {

class CommandActions;
class GraphArea;
struct CurveGraph;
struct EquationCurve;
struct EquationLook;
struct GraphView;
struct SurfaceScene;
struct TwoDGraph;

// The 2D graph's drawing for any target: the screen's view (or the whole zoomed graph) laid out
// again in the target's own pixels, so a page or a large export is drawn at its resolution.
GraphDrawing twoDGraphDrawing(const TwoDGraph& graph, const GraphView& view);

// The view of the whole graph at the screen's zoom, unscrolled: the "document" of a zoomed graph.
// The view a 2D or equation drawing uses on a target of `pixels` painted by `painter`: the screen's
// or the document's scaled to the target's width, or a printed page's own layout.
GraphView targetView(const GraphView& view, const QPainter& painter, QSize pixels,
                     PictureExtent extent);

GraphView twoDDocumentView(const GraphView& view);

// The graphs besides the 2D one and which of them is shown; the output side gets the drawing of
// the shown kind.
struct OtherGraphs {
    std::function<GraphKind()> shownKind;
    const EquationCurve* equation = nullptr;
    const EquationLook* equationLook = nullptr;
    SurfaceScene* surface = nullptr;
    const CurveGraph* curve = nullptr;
};

class GraphOutputs {
  public:
    GraphOutputs(const TwoDGraph& graph, const GraphView& view, GraphArea& area, QWidget* window);
    ~GraphOutputs();

    // The selected rectangle in the graph canvas's logical pixels, once selecting exists.
    void setSelectionSource(std::function<std::optional<QRect>()> selection) {
        selection_ = std::move(selection);
    }
    void setOtherGraphs(OtherGraphs others) { others_ = std::move(others); }
    // The graph on screen as the output side sees it.
    GraphPicture picture() const;

    // Binds the group's rows of the command table.
    void bindCommands(CommandActions& actions);
    void saveAsFile();
    void print();
    void copy();

  private:
    const TwoDGraph& graph_;
    const GraphView& view_;
    GraphArea& area_;
    QWidget* window_;
    std::function<std::optional<QRect>()> selection_;
    OtherGraphs others_;
    // Kept between saves and prints, as the user left them.
    QString fileName_ = QStringLiteral("Graph.bmp");
    std::unique_ptr<QPrinter> printer_;
};

}  // namespace curvemill
