// The desktop calculator programs the Calculator command looks for (shell/ui/CalculatorLookup
// finds them).
#pragma once

#include <array>
#include <string_view>

namespace curvemill {

// Looked for in this order; the first one found is started.
inline constexpr std::array<std::string_view, 6> kCalculatorPrograms{
    "gnome-calculator", "kcalc", "mate-calc", "galculator", "qalculate-gtk", "xcalc"};

inline constexpr const char* kMsgNoCalculator = "UNABLE TO FIND CALCULATOR PROGRAM ON YOU PC";

}  // namespace curvemill
