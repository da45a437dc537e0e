// The formula language's arithmetic where its bits must not depend on the compiler's choices.
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

// -v, as a sum's term after a '-' is negated before it is added. Compilers turn t + (-v) into
// t - v, or not, depending on the optimisation level; the two differ when v is a NaN (x86 hands
// on a NaN operand as it is, so the sign of the NaN that comes out changes). The empty asm keeps
// the negation a step of its own wherever it is used.
inline double negated(double v) {
    double n = -v;
#if defined(__x86_64__) || defined(__i386__)
    asm("" : "+x"(n));
#else
    asm("" : "+m"(n));
#endif
    return n;
}

// total + v and total * v with the running total as the first operand: when both are NaN, x86
// hands on the first, so the order must not be left to the compiler (which may swap the operands
// of + and * as it sees fit).
inline double added(double total, double v) {
#if defined(__x86_64__) || defined(__i386__)
    asm("addsd %1, %0" : "+x"(total) : "x"(v));
    return total;
#else
    return total + v;
#endif
}

inline double multiplied(double total, double v) {
#if defined(__x86_64__) || defined(__i386__)
    asm("mulsd %1, %0" : "+x"(total) : "x"(v));
    return total;
#else
    return total * v;
#endif
}

}  // namespace curvemill
