// Finding a desktop calculator program on PATH.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace curvemill {

// Looked for in this order; the first one found is started.
inline constexpr std::array<std::string_view, 6> kCalculatorPrograms{
    "gnome-calculator", "kcalc", "mate-calc", "galculator", "qalculate-gtk", "xcalc"};

inline constexpr const char* kMsgNoCalculator = "UNABLE TO FIND CALCULATOR PROGRAM ON YOU PC";

// Full path of the first calculator that is an executable file in one of the ':'-separated
// directories of `searchPath`, trying each program in every directory before the next program;
// empty when none is found.
std::string findCalculator(std::string_view searchPath);

}  // namespace curvemill
