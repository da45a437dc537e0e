// The precomputed evaluation steps of one slot (owned by the evaluator; see Evaluator.cpp).
#pragma once

#include <cstdint>
#include <vector>

namespace curvemill {

// Filled by buildEvaluationPlan when a slot is prepared; evaluate runs it without scanning text.
struct EvaluationPlan {
    bool valid = false;
    // Layout is the evaluator's own business; the storage is reserved once so runs never allocate.
    std::vector<std::int32_t> code;
};

}  // namespace curvemill
