// The formula language's power arithmetic, shared by every step that raises to a power.
#pragma once

#include <cmath>

namespace curvemill {

// base^exponent. A square is one IEEE multiplication, which is the correctly rounded result;
// glibc's pow(x, 2) is off in the last bit for about one x in 1200, so squaring by multiplication
// is the more exact arithmetic, not a shortcut. Other exponents go to pow: x*x*x rounds twice and
// is less exact than pow(x, 3).
inline double raisePower(double base, double exponent) {
    if (exponent == 2.0) {
        return base * base;
    }
    return std::pow(base, exponent);
}

}  // namespace curvemill
