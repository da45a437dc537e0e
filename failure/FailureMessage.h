// The text a failure report shows.
#pragma once

#include <string>

#include "failure/FailureCode.h"
#include "failure/ProcedureNames.h"

namespace curvemill {

inline constexpr const char* kSupportAddress = "support@curvemill.org";

// "Invalid Float Operation", "Float Underflow", or empty for every other code.
std::string failureCause(FailureCode code);

// The demonstration text, the long form (code not 0) or the short form (code 0).
std::string failureMessage(ProcedureName name, FailureCode code);

}  // namespace curvemill
