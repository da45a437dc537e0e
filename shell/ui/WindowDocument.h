// The main window's side of graph documents: the document of the graph on screen, and an opened
// document drawn again through the windows that would have drawn it (their checks, the worker
// with its progress and Stop), its view and look put back once the points are there.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shell/GraphKind.h"
#include "shell/ui/DocumentCommands.h"

namespace curvemill {

class CurveCommands;
class EquationCommands;
class Formula;
class FunctionCommands;
class GraphArea;
class MathCommands;
class RotationCommands;
class ViewCommands;
class Worker;
struct FlatLook;
struct FlatViewState;
struct GraphDocument;
struct GraphView;
struct SurfaceScene;
struct TwoDGraph;

struct WindowDocumentParts {
    Formula& formula;
    TwoDGraph& graph;
    GraphView& view;
    SurfaceScene& surface;
    Worker& worker;
    GraphArea& area;
    ViewCommands& viewCommands;
    FunctionCommands& functions;
    MathCommands& math;
    EquationCommands& equation;
    CurveCommands& curves;
    RotationCommands& rotation;
    std::function<GraphKind()> kind;
    // Menus and toolbar follow the graph shown.
    std::function<void()> refresh;
};

class WindowDocument : public DocumentPort {
  public:
    explicit WindowDocument(WindowDocumentParts parts) : parts_(std::move(parts)) {}

    std::optional<std::string> capture() const override;
    std::optional<std::string> write(const QString& path, const std::string& bytes) override;
    std::optional<std::string> open(const QString& path,
                                    std::function<void(bool shown)> shown) override;

  private:
    // Each step starts its part and hands on whether it was done; a step that did not start
    // hands on false at once.
    using Next = std::function<void(bool done)>;
    using Step = std::function<void(Next)>;
    // Runs `steps` one after the other; `ended` gets false at the first that was not done.
    void runSteps(std::shared_ptr<std::vector<Step>> steps, std::size_t at,
                  std::function<void(bool)> ended);

    std::vector<Step> functionSteps(const GraphDocument& document);
    std::vector<Step> equationSteps(const GraphDocument& document);
    std::vector<Step> surfaceSteps(const GraphDocument& document);
    std::vector<Step> curveSteps(const GraphDocument& document);
    // The customization, then the 2D view's zoom, scroll and stretches, of a drawn flat graph.
    void addFlatSteps(std::vector<Step>& steps, const FlatViewState& state, const FlatLook& look);

    WindowDocumentParts parts_;
};

}  // namespace curvemill
