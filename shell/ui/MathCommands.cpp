#include "shell/ui/MathCommands.h"

#include <QWidget>

#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "mathtools/Integral.h"
#include "mathtools/ui/InformationDialog.h"
#include "mathtools/ui/MathDialog.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"

namespace curvemill {

MathCommands::MathCommands(MathCommandParts parts, QObject* parent)
    : QObject(parent), parts_(std::move(parts)) {}

// The dialogs are children of the window and go with it.
MathCommands::~MathCommands() = default;

void MathCommands::bindCommands(CommandActions& actions) {
    actions.bind(Command::EraseIntegral, [this] { eraseIntegral(); });
    actions.bind(Command::EraseDerivative, [this] { eraseDerivative(); });
    actions.bind(Command::UnmarkIndefinite, [this] { unmarkIndefiniteAreas(); });
}

MathDialog* MathCommands::mathDialog() {
    if (mathDialog_ == nullptr) {
        mathDialog_ =
            new MathDialog(parts_.formula, parts_.graph, parts_.view, parts_.worker, parts_.window);
        mathDialog_->setWindowModality(Qt::WindowModal);
        connect(mathDialog_, &MathDialog::graphChanged, this, [this] { parts_.redraw(); });
        connect(mathDialog_, &MathDialog::curveAdded, this, [this] { parts_.showNewGraph(); });
        connect(mathDialog_, &MathDialog::informationRequested, this,
                &MathCommands::openInformation);
    }
    return mathDialog_;
}

InformationDialog* MathCommands::informationDialog() {
    if (informationDialog_ == nullptr) {
        informationDialog_ =
            new InformationDialog(parts_.formula, parts_.graph, parts_.worker, parts_.window);
        informationDialog_->setWindowModality(Qt::WindowModal);
    }
    return informationDialog_;
}

void MathCommands::openMathDialog() {
    mathDialog()->open();
}

void MathCommands::openInformation() {
    InformationDialog* dialog = informationDialog();
    dialog->showPage(InformationDialog::kFunctionPage);
    // From the Math dialog it comes up over it and belongs to it.
    if (mathDialog_ != nullptr && mathDialog_->isVisible()) {
        dialog->setParent(mathDialog_, dialog->windowFlags());
    } else {
        dialog->setParent(parts_.window, dialog->windowFlags());
    }
    dialog->setWindowModality(Qt::WindowModal);
    dialog->open();
}

void MathCommands::eraseIntegral() {
    clearIntegralArea(parts_.graph, parts_.view);
    if (parts_.graph.hasIntegral()) {
        parts_.graph.integral.release();
        parts_.showNewGraph();
        return;
    }
    parts_.redraw();
}

void MathCommands::unmarkIndefiniteAreas() {
    parts_.view.indefiniteMarked = false;
    parts_.redraw();
}

void MathCommands::eraseDerivative() {
    if (!parts_.graph.hasDerivative()) {
        return;
    }
    parts_.graph.derivative.release();
    parts_.showNewGraph();
}

}  // namespace curvemill
