#include "shell/ui/FunctionCommands.h"

#include <memory>
#include <utility>

#include <QPointer>

#include "engine/Formula.h"
#include "engine/ui/LogBaseDialog.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/TwoDRun.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "graph2d/ui/TwoDGraphPointsSpin.h"
#include "history/HistoryPort.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"

namespace curvemill {

FunctionCommands::FunctionCommands(FunctionCommandParts parts, QObject* parent)
    : QObject(parent), parts_(std::move(parts)) {}

void FunctionCommands::bindCommands(CommandActions& actions) {
    actions.bind(Command::TwoDGraph, [this] { dialog(false)->open(); });
    actions.bind(Command::SecondFunction, [this] { addOrEraseSecondFunction(); });
    actions.bind(Command::SwitchFunctions, [this] { switchFunctions(); });
}

void FunctionCommands::setHistoryPort(HistoryPort* history) {
    history_ = history;
    delete mainDialog_;
    delete secondDialog_;
    mainDialog_ = nullptr;
    secondDialog_ = nullptr;
}

TwoDGraphDialog* FunctionCommands::dialog(bool second) {
    TwoDGraphDialog*& dialog = second ? secondDialog_ : mainDialog_;
    if (dialog != nullptr) {
        return dialog;
    }
    dialog =
        new TwoDGraphDialog(second ? TwoDGraphRole::Second : TwoDGraphRole::Main, parts_.formula,
                            parts_.graph, parts_.view, parts_.worker, parts_.window);
    dialog->setWindowModality(Qt::WindowModal);
    if (history_ != nullptr) {
        connectHistory(*dialog);
    }
    connect(dialog, &TwoDGraphDialog::curvesChanged, this, [this] {
        parts_.area.redraw();
        parts_.changed();
    });
    connect(dialog, &TwoDGraphDialog::graphDrawn, this, [this, second] {
        // The marks were made on the function this one replaced.
        if (!second) {
            parts_.view.indefiniteMarked = false;
        }
        // The second function's own range became the graph's: the main dialog shows it too.
        if (second && mainDialog_ != nullptr) {
            mainDialog_->copyRangeFrom(*secondDialog_);
        }
        parts_.drawn();
    });
    return dialog;
}

bool FunctionCommands::runUnrecorded(bool second, const std::string& formula,
                                     const std::string& xBegin, const std::string& xEnd, int points,
                                     std::function<void(bool)> ended) {
    TwoDGraphDialog* run = dialog(second);
    if (run->isRunning()) {
        return false;
    }
    run->setEntry(QString::fromStdString(formula), QString::fromStdString(xBegin),
                  QString::fromStdString(xEnd));
    if (auto* spin = run->findChild<TwoDGraphPointsSpin*>(QString::number(twod_ids::kPointsSpin))) {
        spin->setValue(points / kPointsPerRunUnit);
    }
    auto connection = std::make_shared<QMetaObject::Connection>();
    *connection =
        connect(run, &TwoDGraphDialog::runFinished, this, [connection, ended](bool drawn) {
            QObject::disconnect(*connection);
            ended(drawn);
        });
    run->setHistoryHooks({});
    run->open();
    {
        const LogBaseQuestionHold opened;
        run->accept();
    }
    if (history_ != nullptr) {
        connectHistory(*run);
    }
    if (!run->isRunning()) {
        QObject::disconnect(*connection);
        return false;
    }
    return true;
}

void FunctionCommands::connectHistory(TwoDGraphDialog& dialog) {
    HistoryPort* history = history_;
    TwoDGraphHistoryHooks hooks;
    hooks.record = [history](const std::string& formula, const std::string& xBegin,
                             const std::string& xEnd) {
        history->recordEntry(TypedEntry{formula, xBegin, xEnd, "$", "$", EntrySection::Graphs});
    };
    // The lists may outlive the dialog (a new history port deletes it).
    const QPointer<TwoDGraphDialog> guard(&dialog);
    const HistoryClient client{[guard] {
                                   if (guard.isNull()) {
                                       return TypedEntry{};
                                   }
                                   const TwoDGraphInput input = guard->currentInput();
                                   return TypedEntry{input.formula, input.xBegin,
                                                     input.xEnd,    "$",
                                                     "$",           EntrySection::Graphs};
                               },
                               [guard](const TypedEntry& entry) {
                                   if (!guard.isNull()) {
                                       guard->setEntry(QString::fromStdString(entry.formula),
                                                       QString::fromStdString(entry.xBegin),
                                                       QString::fromStdString(entry.xEnd));
                                   }
                               }};
    hooks.showPreviousEntries = [history, client] { history->showPreviousEntries(client); };
    hooks.showListOfFunctions = [history, client] { history->showListOfFunctions(client); };
    dialog.setHistoryHooks(std::move(hooks));
}

void FunctionCommands::addOrEraseSecondFunction() {
    if (!parts_.graph.hasSecond()) {
        TwoDGraphDialog* second = dialog(true);
        second->copyRangeFrom(*dialog(false));
        second->open();
        return;
    }
    dropSecondFunction(parts_.graph);
    resetView(parts_.view, parts_.graph);
    parts_.area.showNewGraph();
    parts_.changed();
}

void FunctionCommands::switchFunctions() {
    if (!curvemill::switchFunctions(parts_.graph, parts_.formula, parts_.view)) {
        return;
    }
    // The dialogs show what each curve is now, so OK in either draws what the user sees.
    if (mainDialog_ != nullptr && secondDialog_ != nullptr) {
        const QString mainText = mainDialog_->formulaText();
        mainDialog_->setFormulaText(secondDialog_->formulaText());
        secondDialog_->setFormulaText(mainText);
    }
    parts_.area.showNewGraph();
    parts_.changed();
}

}  // namespace curvemill
