#include "shell/ui/WindowDocument.h"

#include <memory>
#include <vector>

#include <QCheckBox>
#include <QLineEdit>
#include <QTimer>

#include "document/DocumentCheck.h"
#include "document/DocumentState.h"
#include "document/ui/GraphDocumentFile.h"
#include "engine/Formula.h"
#include "files/SafeFileWriter.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "graph3d/SurfaceRotation.h"
#include "graph3d/SurfaceScene.h"
#include "graph3d/ui/SurfaceRotator.h"
#include "mathtools/ui/MathControlIds.h"
#include "mathtools/ui/MathDialog.h"
#include "shell/ui/CurveCommands.h"
#include "shell/ui/EquationCommands.h"
#include "shell/ui/FunctionCommands.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/MathCommands.h"
#include "shell/ui/RotationCommands.h"
#include "shell/ui/ViewCommands.h"
#include "worker/ui/WindowJob.h"
#include "worker/ui/Worker.h"

namespace curvemill {

namespace {

// Starts a run of the Math dialog on the worker; `next` gets how it ended, or false at once when
// it did not start.
void runMath(MathDialog& math, const std::function<void()>& start, std::function<void(bool)> next) {
    auto connection = std::make_shared<QMetaObject::Connection>();
    *connection = QObject::connect(&math, &MathDialog::runFinished, &math,
                                   [connection, next](bool completed) {
                                       QObject::disconnect(*connection);
                                       next(completed);
                                   });
    start();
    if (!math.isRunning()) {
        QObject::disconnect(*connection);
        next(false);
    }
}

// The range as the user typed it ("-4*pi") rather than as a number, when it reads back as the
// very values drawn.
void keepTypedRange(GraphDocument& document, const TwoDGraph& graph,
                    const TwoDGraphDialog* dialog) {
    if (dialog == nullptr) {
        return;
    }
    const TwoDGraphInput typed = dialog->currentInput();
    GraphDocument withTyped = document;
    withTyped.function.x = {typed.xBegin, typed.xEnd};
    if (withTyped.function.x == document.function.x) {
        return;
    }
    Formula scratch;
    const PreparedDocument read = prepareDocumentFormulas(scratch, withTyped);
    if (!read.refusal && read.values.xBegin == graph.xBegin && read.values.xEnd == graph.xEnd) {
        document.function.x = withTyped.function.x;
    }
}

}  // namespace

std::optional<std::string> WindowDocument::capture() const {
    if (parts_.worker.isBusy()) {
        return std::nullopt;
    }
    GraphDocument document;
    document.logBase = parts_.formula.logBase;
    const ViewCommands& view = parts_.viewCommands;
    switch (parts_.kind()) {
        case GraphKind::Function2D: {
            if (!parts_.graph.main.exists()) {
                return std::nullopt;
            }
            document.kind = DocumentKind::kFunction;
            const MathDialog* math = parts_.math.existingMathDialog();
            const auto* precise =
                math == nullptr ? nullptr
                                : math->findChild<QCheckBox*>(QString::number(math_ids::kPrecise));
            document.function =
                captureFunction(parts_.graph, parts_.view, view.stretches(), view.currentSettings(),
                                math == nullptr ? nullptr : &math->integral(),
                                precise != nullptr && precise->isChecked());
            keepTypedRange(document, parts_.graph, parts_.functions.existingDialog(false));
            break;
        }
        case GraphKind::Equation:
            document.kind = DocumentKind::kEquation;
            document.equation = captureEquation(parts_.equation.settings(), parts_.view,
                                                view.stretches(), view.currentSettings());
            break;
        case GraphKind::Surface3D:
            if (!parts_.surface.complete) {
                return std::nullopt;
            }
            document.kind = DocumentKind::kSurface;
            document.surface = captureSurface(parts_.equation.settings(), parts_.surface,
                                              parts_.rotation.rotator().angles());
            break;
        case GraphKind::Curve:
            document.kind = DocumentKind::kCurve;
            document.curve = captureCurve(parts_.curves.graph(), parts_.view, view.stretches(),
                                          view.currentSettings());
            break;
        case GraphKind::TitlePage:
            return std::nullopt;
    }
    return graphDocumentJson(document);
}

std::optional<std::string> WindowDocument::write(const QString& path, const std::string& bytes) {
    return writeFileSafely(path.toStdString(), bytes);
}

std::optional<std::string> WindowDocument::open(const QString& path,
                                                std::function<void(bool)> shown) {
    if (parts_.worker.isBusy()) {
        return std::string(kMsgWorkerBusy);
    }
    const DocumentReading reading = readGraphDocument(path.toStdString());
    if (!reading.document) {
        return reading.message;
    }
    const GraphDocument& document = *reading.document;
    // The reader checked the formulas on a Formula of its own; here they take the window's
    // slots, with the document's Log Base, as the windows' runs expect.
    if (const PreparedDocument prepared = prepareDocumentFormulas(parts_.formula, document);
        prepared.refusal) {
        return prepared.refusal->text();
    }
    auto steps = std::make_shared<std::vector<Step>>();
    switch (document.kind) {
        case DocumentKind::kFunction:
            *steps = functionSteps(document);
            break;
        case DocumentKind::kEquation:
            *steps = equationSteps(document);
            break;
        case DocumentKind::kSurface:
            *steps = surfaceSteps(document);
            break;
        case DocumentKind::kCurve:
            *steps = curveSteps(document);
            break;
    }
    runSteps(steps, 0, [this, shown](bool done) {
        parts_.refresh();
        shown(done);
    });
    return std::nullopt;
}

void WindowDocument::runSteps(std::shared_ptr<std::vector<Step>> steps, std::size_t at,
                              std::function<void(bool)> ended) {
    if (at == steps->size()) {
        ended(true);
        return;
    }
    (*steps)[at]([this, steps, at, ended](bool done) {
        // After the signal that ended the step has reached everyone else: the window shows the
        // new graph (and lays its view out) on the same signal.
        QTimer::singleShot(0, &parts_.area, [this, steps, at, ended, done] {
            if (!done) {
                ended(false);
                return;
            }
            runSteps(steps, at + 1, ended);
        });
    });
}

std::vector<WindowDocument::Step> WindowDocument::functionSteps(const GraphDocument& document) {
    const FunctionSection section = document.function;
    std::vector<Step> steps;
    // The old graph's second function would be sampled again over the new range.
    steps.push_back([this, section](Next next) {
        parts_.graph.second.release();
        parts_.graph.secondFormulaText.clear();
        if (!parts_.functions.runUnrecorded(false, section.formula, section.x.begin, section.x.end,
                                            section.points, next)) {
            next(false);
        }
    });
    if (!section.secondFormula.empty()) {
        steps.push_back([this, section](Next next) {
            if (!parts_.functions.runUnrecorded(true, section.secondFormula, section.x.begin,
                                                section.x.end, section.points, next)) {
                next(false);
            }
        });
    }
    const auto mathRun = [this](void (MathDialog::*start)()) {
        return [this, start](Next next) {
            MathDialog* math = parts_.math.mathDialog();
            runMath(
                *math, [math, start] { (math->*start)(); }, next);
        };
    };
    if (section.derivative) {
        steps.push_back(mathRun(&MathDialog::drawDerivative));
    }
    if (section.integralCurve) {
        steps.push_back(mathRun(&MathDialog::displayIntegralCurve));
    }
    if (section.integral.shown) {
        steps.push_back([this, section](Next next) {
            MathDialog* math = parts_.math.mathDialog();
            math->findChild<QLineEdit*>(QString::number(math_ids::kXBegin))
                ->setText(QString::fromStdString(section.integral.range.begin));
            math->findChild<QLineEdit*>(QString::number(math_ids::kXEnd))
                ->setText(QString::fromStdString(section.integral.range.end));
            math->findChild<QCheckBox*>(QString::number(math_ids::kPrecise))
                ->setChecked(section.integral.precise);
            if (!section.integral.precise) {
                math->accept();
                next(parts_.view.areaPainted);
                return;
            }
            runMath(
                *math, [math] { math->accept(); }, next);
        });
    }
    steps.push_back([this, section](Next next) {
        parts_.view.indefiniteMarked = section.indefiniteMarked;
        next(true);
    });
    addFlatSteps(steps, section.view, section.look);
    return steps;
}

std::vector<WindowDocument::Step> WindowDocument::equationSteps(const GraphDocument& document) {
    const GraphDocument copy = document;
    std::vector<Step> steps;
    steps.push_back([this, copy](Next next) {
        applyTwoVariableEntries(copy, parts_.equation.settings());
        if (!parts_.equation.runUnrecorded(TwoVariableMode::kEquation, next)) {
            next(false);
        }
    });
    addFlatSteps(steps, copy.equation.view, copy.equation.look);
    return steps;
}

std::vector<WindowDocument::Step> WindowDocument::surfaceSteps(const GraphDocument& document) {
    const GraphDocument copy = document;
    std::vector<Step> steps;
    steps.push_back([this, copy](Next next) {
        applyTwoVariableEntries(copy, parts_.equation.settings());
        if (!parts_.equation.runUnrecorded(TwoVariableMode::kSurface, next)) {
            next(false);
        }
    });
    steps.push_back([this, copy](Next next) {
        RotationAngles angles = parts_.rotation.rotator().angles();
        applySurfaceLook(copy.surface, parts_.surface, angles);
        parts_.rotation.rotator().setAngles(angles);
        parts_.area.canvas()->invalidate();
        next(true);
    });
    return steps;
}

std::vector<WindowDocument::Step> WindowDocument::curveSteps(const GraphDocument& document) {
    const CurveSection section = document.curve;
    std::vector<Step> steps;
    steps.push_back([this, section](Next next) {
        const CurveEntry entry{section.polar ? CurveForm::Polar : CurveForm::Parametric,
                               section.first, section.second, section.t.begin, section.t.end};
        if (!parts_.curves.runUnrecorded(entry, section.points, section.arrow, next)) {
            next(false);
        }
    });
    addFlatSteps(steps, section.view, section.look);
    return steps;
}

void WindowDocument::addFlatSteps(std::vector<Step>& steps, const FlatViewState& state,
                                  const FlatLook& look) {
    steps.push_back([this, look](Next next) {
        ViewCommands& commands = parts_.viewCommands;
        TwoDSettings settings = commands.currentSettings();
        // A new ratio lays the view out anew, as after the customization dialog.
        if (applyFlatLook(look, settings, parts_.graph, parts_.view)) {
            resetView(parts_.view, parts_.graph);
            parts_.area.showNewGraph();
        }
        // The window's own route for the rest: mouse mode, tooltips, toolbar.
        commands.applySettings(settings);
        next(true);
    });
    // A step of its own: the toolbar shown or hidden above resizes the canvas first, and the
    // scroll offsets are held to the view of the canvas's final size.
    steps.push_back([this, state](Next next) {
        applyFlatView(state, parts_.view, parts_.viewCommands.stretches());
        parts_.area.redraw();
        next(true);
    });
}

}  // namespace curvemill
