// Turns processor and floating-point faults into failures of the guard that is running.
#pragma once

#include <fenv.h>
#include <csetjmp>
#include <cstdint>

#include "failure/FailureCode.h"
#include "failure/ProcedureNames.h"

namespace curvemill {

// Installs the handlers for SIGFPE, SIGSEGV, SIGBUS and SIGILL, and an alternate signal stack for
// the calling thread so that a stack overflow is reported too. Call once, first thing at start-up.
void installFaultTranslation();

// One active guard on a thread's chain. A signal handler cannot throw through the frames it
// interrupted (they may be C code or half-built objects), and it must not show a message box
// itself, so it only stores the code here and jumps back with siglongjmp to the innermost
// guard, which was entered by sigsetjmp. The abandoned frames are never resumed: the report
// that follows restarts the program, so no state they held is trusted again.
struct GuardFrame {
    sigjmp_buf jump;
    // Written by the signal handler just before it jumps back here.
    volatile std::uint32_t code = 0;
    // The next guard out, restored as the thread's innermost when this one ends.
    GuardFrame* outer = nullptr;
    // The floating-point environment on entry, given back after a fault so that the arithmetic
    // that follows (the report itself) runs with exceptions masked as usual.
    fenv_t floatEnvironment;
};

// Makes `frame` the thread's innermost guard; the chain lives in thread-local storage because a
// signal handler has no other way to find it.
void enterGuard(GuardFrame& frame);
// Makes `frame`'s outer guard the innermost again.
void leaveGuard(GuardFrame& frame);
// After a jump back: leaves the guard and restores its floating-point environment.
void recoverFromFault(GuardFrame& frame);

// The thread's innermost guard, or null.
GuardFrame* innermostGuard();

}  // namespace curvemill
