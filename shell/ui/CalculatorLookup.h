// Finding a desktop calculator program on PATH, the way Qt finds executables.
#pragma once

#include <string>
#include <string_view>

#include "shell/CalculatorLocator.h"

namespace curvemill {

// Full path of the first of kCalculatorPrograms that is an executable file in one of the
// ':'-separated directories of `searchPath`, trying each program in every directory before the
// next program; empty when none is found.
std::string findCalculator(std::string_view searchPath);

}  // namespace curvemill
