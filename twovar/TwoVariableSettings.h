// What the Equation / ThreeD input window keeps between uses; owned by the application.
#pragma once

#include <optional>
#include <string>

namespace curvemill {

// The window's two modes; the numbers are the ones the window is opened with.
enum class TwoVariableMode { kSurface = 1, kEquation = 2 };

// The window's points spins count in whole units of 100 up to the mode's most; the precision spin
// runs from 1 to its most.
inline constexpr int kGridPointsUnit = 100;
inline constexpr int kMostSurfacePoints = 500;
inline constexpr int kMostEquationPoints = 2000;
inline constexpr int kMostPrecisionDigits = 15;

struct TwoVariableSettings {
    // The last accepted entry as typed, and its mode (none before any).
    std::string xBegin;
    std::string xEnd;
    std::string yBegin;
    std::string yEnd;
    std::string formula;
    std::optional<TwoVariableMode> kind;
    // Points along x and y of a surface, multiples of 100 from 100 to 500.
    int surfaceXPoints = 100;
    int surfaceYPoints = 100;
    // Points along x and y of an equation (multiples of 100 from 100 to 2000) and its precision
    // digits (1 to 15).
    int equationXPoints = 500;
    int equationYPoints = 500;
    int precisionDigits = 5;
};

}  // namespace curvemill
