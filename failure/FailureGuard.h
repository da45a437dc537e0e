// The guard every procedure runs its work in: a fault or a throw inside ends in a report.
#pragma once

#include <optional>
#include <utility>

#include "failure/FailureReporter.h"
#include "failure/FaultTranslation.h"

namespace curvemill {

struct Failure {
    ProcedureName name = nullptr;
    FailureCode code = 0;
};

// Runs `body`; returns the failure it ended in, if any. A thrown Fault gives its code, any other
// throw gives 0, a translated signal gives the signal's code.
template <class Body>
std::optional<Failure> catchFailure(ProcedureName name, Body&& body) {
    GuardFrame frame;
    enterGuard(frame);
    if (sigsetjmp(frame.jump, 1) != 0) {
        recoverFromFault(frame);
        return Failure{name, frame.code};
    }
    try {
        std::forward<Body>(body)();
    } catch (const Fault& fault) {
        leaveGuard(frame);
        return Failure{name, fault.code};
    } catch (...) {
        leaveGuard(frame);
        return Failure{name, 0};
    }
    leaveGuard(frame);
    return std::nullopt;
}

// Runs `body` and hands any failure to `reporter`; true when the body ran through.
template <class Body>
bool runGuarded(ProcedureName name, FailureReporter& reporter, Body&& body) {
    const std::optional<Failure> failure = catchFailure(name, std::forward<Body>(body));
    if (failure) {
        reporter.reportFailure(failure->name, failure->code);
        return false;
    }
    return true;
}

}  // namespace curvemill
