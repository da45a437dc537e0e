#include "failure/FaultTranslation.h"

#include <csignal>
#include <cstdlib>
#include <initializer_list>

namespace curvemill {

namespace {

// The signal handler's only way to the guards of its thread (see GuardFrame).
thread_local GuardFrame* tlsInnermostGuard = nullptr;

void onFault(int signalNumber, siginfo_t* info, void*) {
    GuardFrame* frame = tlsInnermostGuard;
    if (frame == nullptr) {
        // No guard on this thread: let the default action end the process as usual.
        std::signal(signalNumber, SIG_DFL);
        std::raise(signalNumber);
        return;
    }
    frame->code = codeForSignal(signalNumber, info != nullptr ? info->si_code : 0);
    siglongjmp(frame->jump, 1);
}

}  // namespace

FailureCode codeForSignal(int signalNumber, int signalCode) {
    switch (signalNumber) {
        case SIGFPE:
            switch (signalCode) {
                case FPE_FLTINV:
                    return kCodeInvalidFloat;
                case FPE_FLTUND:
                    return kCodeFloatUnderflow;
                case FPE_FLTDIV:
                    return kCodeFloatDivideByZero;
                case FPE_FLTOVF:
                    return kCodeFloatOverflow;
                case FPE_FLTRES:
                    return kCodeFloatInexact;
                case FPE_INTDIV:
                    return kCodeIntegerDivideByZero;
                case FPE_INTOVF:
                    return kCodeIntegerOverflow;
                default:
                    return kCodeFloatOther;
            }
        case SIGSEGV:
            return kCodeAccessViolation;
        case SIGBUS:
            return kCodeBusError;
        case SIGILL:
            return kCodeIllegalInstruction;
        default:
            return kCodeOtherSignal | static_cast<FailureCode>(signalNumber & 0xFF);
    }
}

void installFaultTranslation() {
    // The alternate stack lives until the process ends; it is never freed on purpose.
    stack_t stack{};
    stack.ss_size = 64 * 1024;
    stack.ss_sp = std::malloc(stack.ss_size);
    if (stack.ss_sp != nullptr) {
        sigaltstack(&stack, nullptr);
    }

    struct sigaction action {};
    action.sa_sigaction = &onFault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (int signalNumber : {SIGFPE, SIGSEGV, SIGBUS, SIGILL}) {
        sigaction(signalNumber, &action, nullptr);
    }
}

void enterGuard(GuardFrame& frame) {
    fegetenv(&frame.floatEnvironment);
    frame.code = 0;
    frame.outer = tlsInnermostGuard;
    tlsInnermostGuard = &frame;
}

void leaveGuard(GuardFrame& frame) {
    tlsInnermostGuard = frame.outer;
}

void recoverFromFault(GuardFrame& frame) {
    leaveGuard(frame);
    fesetenv(&frame.floatEnvironment);
    feclearexcept(FE_ALL_EXCEPT);
}

GuardFrame* innermostGuard() {
    return tlsInnermostGuard;
}

}  // namespace curvemill
