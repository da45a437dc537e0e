#include "shell/ui/ViewCommands.h"

#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "graph2d/ui/TwoDCustomizationDialog.h"
#include "shell/CommandState.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/GraphMouse.h"

namespace curvemill {

ViewCommands::ViewCommands(QMainWindow& window, GraphArea& area, TwoDGraph& graph, GraphView& view,
                           CommandActions& actions)
    : QObject(&window),
      window_(window),
      area_(area),
      graph_(graph),
      view_(view),
      actions_(actions),
      coordinates_(new QLabel(window.statusBar())) {
    coordinates_->setObjectName(QStringLiteral("coordinatesText"));
    coordinates_->setMinimumWidth(coordinates_->fontMetrics().horizontalAdvance(
        QStringLiteral("x = -0000.0000   y = -0000.0000")));
    window.statusBar()->addPermanentWidget(coordinates_);
    for (QToolButton* button : actions_.toolBar()->findChildren<QToolButton*>()) {
        button->installEventFilter(this);
    }
    connect(&area_.mouse(), &GraphMouse::coordinatesChanged, coordinates_, &QLabel::setText);
    connect(&area_.mouse(), &GraphMouse::viewZoomed, this, &ViewCommands::stateChanged);
    connect(&area_.mouse(), &GraphMouse::selectionChanged, this, &ViewCommands::stateChanged);
    connect(&area_, &GraphArea::newGraphShown, this, [this] { stretches_.clear(); });
    connect(area_.canvas(), &GraphCanvas::drawingProgress, this, [this](int percent) {
        coordinates_->setText(percent < 0 ? QString()
                                          : QStringLiteral("Drawing: %1%").arg(percent));
    });
}

void ViewCommands::bindCommands(CommandActions& actions) {
    actions.bind(Command::ZoomInX, [this] { zoomIn(ZoomAxis::kX); });
    actions.bind(Command::ZoomInY, [this] { zoomIn(ZoomAxis::kY); });
    actions.bind(Command::ZoomOutX, [this] { zoomOut(ZoomAxis::kX); });
    actions.bind(Command::ZoomOutY, [this] { zoomOut(ZoomAxis::kY); });
    actions.bind(Command::FitToWindow, [this] { fit(); });
    actions.bind(Command::Stretch, [this] { stretch(); });
    actions.bind(Command::UndoStretch, [this] { undoStretch(); });
    actions.bind(Command::MouseMove, [this] { setSelectArea(false); });
    actions.bind(Command::MouseSelect, [this] { setSelectArea(true); });
    actions.bind(Command::ShowDrawingProcess, [this] { toggleDrawingProcess(); });
    for (const Command id : {Command::TwoDCustomization, Command::GridProperties}) {
        actions.bind(id,
                     [this] { openCustomization(area_.canvas()->kind() == GraphKind::Equation); });
    }
}

void ViewCommands::afterZoom(bool changed) {
    if (changed) {
        area_.redraw();
    }
    Q_EMIT stateChanged();
}

void ViewCommands::zoomIn(ZoomAxis axis) {
    area_.beforeViewChange();
    if (area_.canvas()->graphShown()) {
        afterZoom(curvemill::zoomIn(view_, axis));
    }
}

void ViewCommands::zoomOut(ZoomAxis axis) {
    area_.beforeViewChange();
    if (area_.canvas()->graphShown()) {
        afterZoom(curvemill::zoomOut(view_, axis));
    }
}

void ViewCommands::restore() {
    area_.beforeViewChange();
    restoreZoom(view_);
    stretches_.clear();
    afterZoom(true);
}

void ViewCommands::fit() {
    area_.beforeViewChange();
    afterZoom(fitToWindow(view_));
}

void ViewCommands::stretch() {
    const QRect s = area_.selectedRect();
    if (s.isEmpty()) {
        return;
    }
    // The band covers the pixels from its left edge through its right one.
    afterZoom(stretches_.stretch(view_, s.left(), s.top(), s.right() + 1, s.bottom() + 1));
}

void ViewCommands::undoStretch() {
    afterZoom(stretches_.undo(view_));
}

void ViewCommands::setSelectArea(bool on) {
    settings_.selectArea = on;
    area_.mouse().setSelectArea(on);
    Q_EMIT stateChanged();
}

void ViewCommands::toggleDrawingProcess() {
    GraphCanvas* canvas = area_.canvas();
    canvas->setShowDrawingProcess(!canvas->showsDrawingProcess());
    if (canvas->showsDrawingProcess()) {
        canvas->redrawShowingProcess();
    }
    Q_EMIT stateChanged();
}

TwoDSettings ViewCommands::currentSettings() const {
    TwoDSettings current = settings_;
    current.maxYRatio = graph_.maxYRatio;
    current.optimizeDrawing = graph_.drawStep != 1;
    current.displayOrder = view_.displayOrder;
    return current;
}

void ViewCommands::openCustomization(bool equationShown) {
    TwoDCustomizationDialog dialog(graph_, currentSettings(), equationShown, &window_);
    // A ratio above what the curves reach is lowered on opening; it shows the same Y range, so
    // only a ratio changed in the dialog lays the view out anew.
    graph_.maxYRatio = dialog.openingRatio();
    if (dialog.exec() == QDialog::Accepted) {
        applySettings(dialog.settings());
    }
}

void ViewCommands::showToolbar(bool on) {
    settings_.toolbar = on;
    actions_.toolBar()->setVisible(on);
}

void ViewCommands::applySettings(const TwoDSettings& settings) {
    const bool ratioChanged = applyGraphSettings(graph_, view_, settings);
    setSelectArea(settings.selectArea);
    settings_ = settings;
    area_.mouse().setCurveTooltips(settings.tooltips);
    actions_.toolBar()->setVisible(settings.toolbar);
    if (ratioChanged && graph_.main.exists()) {
        resetView(view_, graph_);
        area_.showNewGraph();
    } else {
        area_.redraw();
    }
    Q_EMIT stateChanged();
}

void ViewCommands::fillState(ShellState& state) const {
    state.canZoomInX = canZoomIn(view_, ZoomAxis::kX);
    state.canZoomInY = canZoomIn(view_, ZoomAxis::kY);
    state.canZoomOutX = canZoomOut(view_, ZoomAxis::kX);
    state.canZoomOutY = canZoomOut(view_, ZoomAxis::kY);
    state.canStretch = !area_.selectedRect().isEmpty() && !stretches_.full();
    state.canUndoStretch = stretches_.depth() > 0;
    state.selectArea = settings_.selectArea;
    state.drawingProcess = area_.canvas()->showsDrawingProcess();
}

bool ViewCommands::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && !settings_.tooltips) {
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace curvemill
