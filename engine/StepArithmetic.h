// The arithmetic of the evaluator's steps (EvaluationSteps.h), inline so that each step's code in
// the dispatch is the operation itself. The choices where the text-rewriting algorithm leaves a
// value open are listed at the top of Evaluator.cpp.
#pragma once

#include <cmath>
#include <cstdint>

#include "engine/Arithmetic.h"
#include "engine/EvaluationPlan.h"

namespace curvemill::steps {

inline std::int32_t truncateToInt32(double v) {
    if (v > -2147483649.0 && v < 2147483648.0) {
        return static_cast<std::int32_t>(v);
    }
    return INT32_MIN;
}

inline bool isWhole(double v) {
    return v == static_cast<double>(truncateToInt32(v));
}

// n! in wrapping 32-bit arithmetic; from 34! on the product holds 2^32 and stays 0.
inline double wrappedFactorial(std::int32_t n) {
    if (n >= 34) {
        return 0.0;
    }
    std::uint32_t product = 1;
    for (std::int32_t i = 2; i <= n; ++i) {
        product *= static_cast<std::uint32_t>(i);
    }
    return static_cast<double>(static_cast<std::int32_t>(product));
}

// A function's value; outside the domain it is computed all the same and marks the result.
inline double checked(bool inside, double value, bool& indefinite) {
    if (!inside) {
        indefinite = true;
    }
    return value;
}

template <bool Negated>
inline double term(double v) {
    return Negated ? -v : v;
}

template <bool NegateA, bool NegateB>
inline double sum2(double a, double b) {
    return (0.0 + term<NegateA>(a)) + term<NegateB>(b);
}

template <bool NegateA, bool NegateB, bool NegateC>
inline double sum3(double a, double b, double c) {
    return sum2<NegateA, NegateB>(a, b) + term<NegateC>(c);
}

template <bool NegateA, bool NegateB, bool NegateC, bool NegateD>
inline double sum4(double a, double b, double c, double d) {
    return sum3<NegateA, NegateB, NegateC>(a, b, c) + term<NegateD>(d);
}

inline double sum(const ResolvedStep& s) {
    double total = 0.0;
    const ResolvedOperand* op = s.operands;
    for (const ResolvedOperand* end = op + s.count; op != end; ++op) {
        total = total + (op->inverted ? -*op->number : *op->number);
    }
    return total;
}

// The product so far times one more factor that follows a '/'.
inline double divideBy(double total, double factor, bool& indefinite) {
    if (factor == 0.0) {
        if (total == 0.0) {
            indefinite = true;
            total = 1.0;
        } else {
            factor = 1e10;
        }
    } else {
        factor = 1.0 / factor;
    }
    return total * factor;
}

template <bool DivideB, bool DivideC>
inline double product3(double a, double b, double c, bool& indefinite) {
    const double total = DivideB ? divideBy(a, b, indefinite) : a * b;
    return DivideC ? divideBy(total, c, indefinite) : total * c;
}

inline double product(const ResolvedStep& s, bool& indefinite) {
    double total = 1.0;
    const ResolvedOperand* op = s.operands;
    for (const ResolvedOperand* end = op + s.count; op != end; ++op) {
        total = op->inverted ? divideBy(total, *op->number, indefinite) : total * *op->number;
    }
    return total;
}

// One '^': the running result starts as the base and takes the power while nothing is
// indefinite.
template <bool Independent>
inline double power(double base, double exponent, bool& indefinite) {
    if (!(base > 0.0) && !(Independent && isWhole(exponent))) {
        indefinite = true;
    }
    return indefinite ? base : raisePower(base, exponent);
}

// A constant whole exponent takes any base.
inline double powerOfWhole(double base, double exponent, bool indefinite) {
    return indefinite ? base : raisePower(base, exponent);
}

inline double powerChain(const ResolvedStep& s, bool& indefinite) {
    const ResolvedOperand* op = s.operands;
    double running = *op->number;
    for (const ResolvedOperand* end = op + s.count; ++op != end;) {
        running = op->independent ? power<true>(running, *op->number, indefinite)
                                  : power<false>(running, *op->number, indefinite);
    }
    return running;
}

}  // namespace curvemill::steps
