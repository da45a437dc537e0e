// Test double: a failure reporter that keeps each report instead of restarting the program.
#pragma once

#include <vector>

#include "failure/FailureReporter.h"

namespace curvemill::testing {

class RecordingReporter : public FailureReporter {
  public:
    void reportFailure(ProcedureName name, FailureCode code) override {
        names.push_back(name);
        codes.push_back(code);
    }
    std::vector<ProcedureName> names;
    std::vector<FailureCode> codes;
};

}  // namespace curvemill::testing
