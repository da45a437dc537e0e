// What one integral of the main curve keeps between the interval check, the computation and the
// painted area.
#pragma once

#include <cstdint>
#include <string>

namespace curvemill {

struct IntegralState {
    // The interval typed into the Math dialog (integralBegin, integralEnd).
    double begin = 0.0;
    double end = 0.0;
    // The running and then final value; 0 after a stopped precise run.
    double value = 0.0;
    // The first sample with x >= begin and the last with x <= end. firstIndex > lastIndex when
    // no sample lies inside the interval.
    std::int32_t firstIndex = 0;
    std::int32_t lastIndex = -1;
    // "S(%g, %g) = %18.15f" once a computation has finished; empty otherwise.
    std::string resultText;
    // Set when a precise run reached kMostRefinementEvaluations: its value is the best it found,
    // short of the tolerance, and the user is told so (refinementCutText).
    bool refinementCut = false;

    // Whether the indices name samples of a curve of `count` records, at least one of them
    // inside the interval. Indices from another curve are not trusted: the interval is then
    // integrated as one strip rather than read out of bounds.
    bool hasSamplesInside(int count) const {
        return firstIndex >= 0 && firstIndex <= lastIndex && lastIndex < count;
    }
};

}  // namespace curvemill
