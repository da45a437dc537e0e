#include "failure/FailureReporter.h"

#include "failure/FailureMessage.h"

namespace curvemill {

void RestartingFailureReporter::reportFailure(ProcedureName name, FailureCode code) {
    if (reporting_) {
        platform_.exitProcess(0);
        return;
    }
    reporting_ = true;
    const std::string text = failureMessage(name, code);
    platform_.hideWindows();
    platform_.showErrorMessage(text);
    platform_.startDetached(platform_.executablePath());
    platform_.focusMainWindow();
    platform_.exitProcess(0);
    reporting_ = false;
}

}  // namespace curvemill
