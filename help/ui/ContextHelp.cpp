#include "help/ui/ContextHelp.h"

#include <string>
#include <vector>

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "failure/ProcedureNames.h"
#include "help/ui/HelpViewer.h"

namespace curvemill {

namespace {

const FailureScope* scopeOf(const QWidget* widget) {
    return dynamic_cast<const FailureScope*>(widget);
}

}  // namespace

HelpLink helpLinkForWidget(const QWidget* widget) {
    // Control names met on the way up, innermost first, until a window with a display name.
    std::vector<std::string> controls;
    for (const QWidget* w = widget; w != nullptr; w = w->parentWidget()) {
        const FailureScope* scope = scopeOf(w);
        if (scope == nullptr) {
            if (!w->objectName().isEmpty()) {
                controls.push_back(w->objectName().toStdString());
            }
            continue;
        }
        for (const std::string& control : controls) {
            if (auto link = exactHelpLink(scope->procedureName(), control)) {
                return *link;
            }
        }
        // One window serving two subjects (the input window's equation and surface modes) names
        // itself after the one it shows.
        if (!w->objectName().isEmpty()) {
            if (auto link = exactHelpLink(scope->procedureName(), w->objectName().toStdString())) {
                return *link;
            }
        }
        if (auto link = exactHelpLink(scope->procedureName(), {})) {
            return *link;
        }
        controls.clear();
    }
    return HelpLink{};
}

void requestHelp(QWidget* about) {
    if (about == nullptr) {
        return;
    }
    QEvent request(QEvent::HelpRequest);
    QCoreApplication::sendEvent(about, &request);
}

ContextHelp::ContextHelp(HelpViewer& viewer, QObject* parent) : QObject(parent), viewer_(viewer) {
    qApp->installEventFilter(this);
}

ContextHelp::~ContextHelp() {
    if (qApp != nullptr) {
        qApp->removeEventFilter(this);
    }
}

void ContextHelp::showFor(const QWidget* widget) {
    if (widget == nullptr) {
        widget = QApplication::focusWidget();
    }
    if (widget == nullptr) {
        widget = QApplication::activeWindow();
    }
    const HelpLink link = helpLinkForWidget(widget);
    const std::string anchor(link.anchor);
    viewer_.showHelpTopic(link.topic, anchor.empty() ? nullptr : anchor.c_str());
}

bool ContextHelp::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) {
        return false;
    }
    auto* widget = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::HelpRequest) {
        showFor(widget);
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier &&
            !key->isAutoRepeat()) {
            showFor(widget);
            return true;
        }
    }
    return false;
}

}  // namespace curvemill
