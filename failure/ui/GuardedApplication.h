// The QApplication that delivers every event inside a failure guard named for its window.
#pragma once

#include <QApplication>

#include "failure/FailureReporter.h"
#include "failure/ProcedureNames.h"

namespace curvemill {

// The display name of the window or dialog an event goes to: the nearest FailureScope among the
// receiver and its parents, else "WinMain" (the message loop itself).
ProcedureName procedureNameFor(const QObject* receiver);

class GuardedApplication final : public QApplication {
  public:
    GuardedApplication(int& argc, char** argv);
    // Until this is set, events are delivered unguarded (nothing to report to yet).
    void setFailureReporter(FailureReporter* reporter) { reporter_ = reporter; }
    bool notify(QObject* receiver, QEvent* event) override;

  private:
    FailureReporter* reporter_ = nullptr;
};

}  // namespace curvemill
