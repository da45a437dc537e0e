#include "failure/FailureReporter.h"

#include <fenv.h>

#include <cstdio>

#include "failure/FailureMessage.h"

namespace curvemill {

void RestartingFailureReporter::reportFailure(ProcedureName name, FailureCode code) {
    // A trap the failing code left enabled (or one signalled while a modal box waited) must not
    // fault the report's own arithmetic: its text, its box and its layout run with traps masked.
    fenv_t unused;
    feholdexcept(&unused);
    ++depth_;
    if (depth_ == 2) {
        // The report itself failed, perhaps before its box was shown: its box cannot be trusted
        // again, so the user gets the plain words where they can still go, and the fresh copy.
        std::fprintf(stderr,
                     "curvemill: a second fault (code 0x%08X in %s) happened while a fault was "
                     "being reported; the program restarts.\n",
                     static_cast<unsigned>(code), name != nullptr ? name : "?");
        std::fflush(stderr);
        platform_.startDetached(platform_.executablePath());
    }
    if (depth_ >= 2) {
        // A fault in the restart above is not reported again: that could go on for ever.
        platform_.exitProcess(0);
        --depth_;
        return;
    }
    const std::string text = failureMessage(name, code);
    platform_.hideWindows();
    platform_.showErrorMessage(text);
    platform_.startDetached(platform_.executablePath());
    platform_.focusMainWindow();
    platform_.exitProcess(0);
    --depth_;
}

}  // namespace curvemill
