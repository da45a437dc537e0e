// ReportFailure: tell the user, start a fresh copy of the program, end this one.
#pragma once

#include <string>

#include "failure/FailureCode.h"
#include "failure/ProcedureNames.h"

namespace curvemill {

// What a report does to the world outside the program; tests replace it to watch a report
// without a real message box, restart or exit.
class FailurePlatform {
  public:
    virtual ~FailurePlatform() = default;
    // The history windows, the preview window and the main window, in that order.
    virtual void hideWindows() = 0;
    // Ownerless box, caption "ERROR MESSAGE", exclamation icon, OK.
    virtual void showErrorMessage(const std::string& text) = 0;
    // The program file of the running process, started again by the report.
    virtual std::string executablePath() = 0;
    // Starts `program` detached; a failure to start is not reported further.
    virtual void startDetached(const std::string& program) = 0;
    // The hidden main window takes the keyboard focus, so no other window of ours keeps it while
    // the process ends.
    virtual void focusMainWindow() = 0;
    // Ends the process with `code`, without saving the history. Returns only in tests.
    virtual void exitProcess(int code) = 0;
};

// The receiver of every failure; guards call it.
class FailureReporter {
  public:
    virtual ~FailureReporter() = default;
    // Never returns in the program; a test's reporter may return.
    virtual void reportFailure(ProcedureName name, FailureCode code) = 0;
};

// The program's reporter: message, hide, box, restart, focus, exit 0.
class RestartingFailureReporter final : public FailureReporter {
  public:
    explicit RestartingFailureReporter(FailurePlatform& platform) : platform_(platform) {}
    void reportFailure(ProcedureName name, FailureCode code) override;

  private:
    FailurePlatform& platform_;
    // Reports under way: a fault inside the report itself starts no second box, but is told on
    // stderr once and still restarts the program.
    int depth_ = 0;
};

}  // namespace curvemill
