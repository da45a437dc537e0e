#include "failure/ui/GuardedApplication.h"

#include "failure/FailureGuard.h"

namespace curvemill {

ProcedureName procedureNameFor(const QObject* receiver) {
    for (const QObject* object = receiver; object != nullptr; object = object->parent()) {
        if (const auto* scope = dynamic_cast<const FailureScope*>(object)) {
            return scope->procedureName();
        }
    }
    return kProcWinMain;
}

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    if (reporter_ == nullptr) {
        return QApplication::notify(receiver, event);
    }
    // Looked up before delivery: the handler may delete the receiver.
    const ProcedureName name = procedureNameFor(receiver);
    bool handled = false;
    const std::optional<Failure> failure =
        catchFailure(name, [&] { handled = QApplication::notify(receiver, event); });
    if (failure) {
        reporter_->reportFailure(failure->name, failure->code);
    }
    return handled;
}

}  // namespace curvemill
