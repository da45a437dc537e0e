// The evaluator's specialised steps, listed once: CURVEMILL_EVALUATION_STEPS(X) calls
// X(Name, result) for each step, in order (X takes the result as `...`, as it holds commas). The
// list makes the Operation enumeration here, and in Evaluator.cpp the dispatch's table of code
// addresses and the code of each step, so the three cannot fall out of step.
//
// A result expression reads the running step `s` (its first operands *s->a .. *s->d, or the whole
// list), the last step's result `r`, still in a register, and may set `indefinite`. The groups:
// - Copy and the nine functions in the order of PlanFunction, then the same nine of `r` (OfLast);
// - short sums, one step per pattern of signs (P adds a term, M subtracts it) so that each is a
//   single well-predicted dispatch with no loop and no flag tests: two, three and four terms, the
//   first term's sign the highest bit;
// - short products (M multiplies, D divides; the first factor is never divided by);
// - the short sums and products again, in the same order, their last operand `r` (OfLast);
// - the general steps that walk their operand list, and the powers.
// StepSelection.cpp relies on that order; its static_asserts check it.
#pragma once

#include <cstdint>

// clang-format off
#define CURVEMILL_EVALUATION_STEPS(X)                                           \
    X(Copy, *s->a)                                                              \
    X(Sin, std::sin(*s->a))                                                     \
    X(Cos, std::cos(*s->a))                                                     \
    X(Tan, std::tan(*s->a))                                                     \
    X(Atan, std::atan(*s->a))                                                   \
    X(Asin, checked(std::fabs(*s->a) <= 1.0, std::asin(*s->a), indefinite))     \
    X(Acos, checked(std::fabs(*s->a) <= 1.0, std::acos(*s->a), indefinite))     \
    X(Ln, checked(*s->a > 0.0, std::log(*s->a), indefinite))                    \
    X(Log, checked(*s->a > 0.0, std::log10(*s->a) * *s->b, indefinite))         \
    X(Sqrt, checked(*s->a > 0.0, std::sqrt(*s->a), indefinite))                 \
    X(SinOfLast, std::sin(r))                                                   \
    X(CosOfLast, std::cos(r))                                                   \
    X(TanOfLast, std::tan(r))                                                   \
    X(AtanOfLast, std::atan(r))                                                 \
    X(AsinOfLast, checked(std::fabs(r) <= 1.0, std::asin(r), indefinite))       \
    X(AcosOfLast, checked(std::fabs(r) <= 1.0, std::acos(r), indefinite))       \
    X(LnOfLast, checked(r > 0.0, std::log(r), indefinite))                      \
    X(LogOfLast, checked(r > 0.0, std::log10(r) * *s->b, indefinite))           \
    X(SqrtOfLast, checked(r > 0.0, std::sqrt(r), indefinite))                   \
    X(SumPP, sum2<false, false>(*s->a, *s->b))                                  \
    X(SumPM, sum2<false, true>(*s->a, *s->b))                                   \
    X(SumMP, sum2<true, false>(*s->a, *s->b))                                   \
    X(SumMM, sum2<true, true>(*s->a, *s->b))                                    \
    X(SumPPP, sum3<false, false, false>(*s->a, *s->b, *s->c))                   \
    X(SumPPM, sum3<false, false, true>(*s->a, *s->b, *s->c))                    \
    X(SumPMP, sum3<false, true, false>(*s->a, *s->b, *s->c))                    \
    X(SumPMM, sum3<false, true, true>(*s->a, *s->b, *s->c))                     \
    X(SumMPP, sum3<true, false, false>(*s->a, *s->b, *s->c))                    \
    X(SumMPM, sum3<true, false, true>(*s->a, *s->b, *s->c))                     \
    X(SumMMP, sum3<true, true, false>(*s->a, *s->b, *s->c))                     \
    X(SumMMM, sum3<true, true, true>(*s->a, *s->b, *s->c))                      \
    X(SumPPPP, sum4<false, false, false, false>(*s->a, *s->b, *s->c, *s->d))    \
    X(SumPPPM, sum4<false, false, false, true>(*s->a, *s->b, *s->c, *s->d))     \
    X(SumPPMP, sum4<false, false, true, false>(*s->a, *s->b, *s->c, *s->d))     \
    X(SumPPMM, sum4<false, false, true, true>(*s->a, *s->b, *s->c, *s->d))      \
    X(SumPMPP, sum4<false, true, false, false>(*s->a, *s->b, *s->c, *s->d))     \
    X(SumPMPM, sum4<false, true, false, true>(*s->a, *s->b, *s->c, *s->d))      \
    X(SumPMMP, sum4<false, true, true, false>(*s->a, *s->b, *s->c, *s->d))      \
    X(SumPMMM, sum4<false, true, true, true>(*s->a, *s->b, *s->c, *s->d))       \
    X(SumMPPP, sum4<true, false, false, false>(*s->a, *s->b, *s->c, *s->d))     \
    X(SumMPPM, sum4<true, false, false, true>(*s->a, *s->b, *s->c, *s->d))      \
    X(SumMPMP, sum4<true, false, true, false>(*s->a, *s->b, *s->c, *s->d))      \
    X(SumMPMM, sum4<true, false, true, true>(*s->a, *s->b, *s->c, *s->d))       \
    X(SumMMPP, sum4<true, true, false, false>(*s->a, *s->b, *s->c, *s->d))      \
    X(SumMMPM, sum4<true, true, false, true>(*s->a, *s->b, *s->c, *s->d))       \
    X(SumMMMP, sum4<true, true, true, false>(*s->a, *s->b, *s->c, *s->d))       \
    X(SumMMMM, sum4<true, true, true, true>(*s->a, *s->b, *s->c, *s->d))        \
    X(Product, *s->a * *s->b)                                                   \
    X(Quotient, divideBy(*s->a, *s->b, indefinite))                             \
    X(Product3MM, product3<false, false>(*s->a, *s->b, *s->c, indefinite))      \
    X(Product3MD, product3<false, true>(*s->a, *s->b, *s->c, indefinite))       \
    X(Product3DM, product3<true, false>(*s->a, *s->b, *s->c, indefinite))       \
    X(Product3DD, product3<true, true>(*s->a, *s->b, *s->c, indefinite))        \
    X(SumPPOfLast, sum2<false, false>(*s->a, r))                                \
    X(SumPMOfLast, sum2<false, true>(*s->a, r))                                 \
    X(SumMPOfLast, sum2<true, false>(*s->a, r))                                 \
    X(SumMMOfLast, sum2<true, true>(*s->a, r))                                  \
    X(SumPPPOfLast, sum3<false, false, false>(*s->a, *s->b, r))                 \
    X(SumPPMOfLast, sum3<false, false, true>(*s->a, *s->b, r))                  \
    X(SumPMPOfLast, sum3<false, true, false>(*s->a, *s->b, r))                  \
    X(SumPMMOfLast, sum3<false, true, true>(*s->a, *s->b, r))                   \
    X(SumMPPOfLast, sum3<true, false, false>(*s->a, *s->b, r))                  \
    X(SumMPMOfLast, sum3<true, false, true>(*s->a, *s->b, r))                   \
    X(SumMMPOfLast, sum3<true, true, false>(*s->a, *s->b, r))                   \
    X(SumMMMOfLast, sum3<true, true, true>(*s->a, *s->b, r))                    \
    X(SumPPPPOfLast, sum4<false, false, false, false>(*s->a, *s->b, *s->c, r))  \
    X(SumPPPMOfLast, sum4<false, false, false, true>(*s->a, *s->b, *s->c, r))   \
    X(SumPPMPOfLast, sum4<false, false, true, false>(*s->a, *s->b, *s->c, r))   \
    X(SumPPMMOfLast, sum4<false, false, true, true>(*s->a, *s->b, *s->c, r))    \
    X(SumPMPPOfLast, sum4<false, true, false, false>(*s->a, *s->b, *s->c, r))   \
    X(SumPMPMOfLast, sum4<false, true, false, true>(*s->a, *s->b, *s->c, r))    \
    X(SumPMMPOfLast, sum4<false, true, true, false>(*s->a, *s->b, *s->c, r))    \
    X(SumPMMMOfLast, sum4<false, true, true, true>(*s->a, *s->b, *s->c, r))     \
    X(SumMPPPOfLast, sum4<true, false, false, false>(*s->a, *s->b, *s->c, r))   \
    X(SumMPPMOfLast, sum4<true, false, false, true>(*s->a, *s->b, *s->c, r))    \
    X(SumMPMPOfLast, sum4<true, false, true, false>(*s->a, *s->b, *s->c, r))    \
    X(SumMPMMOfLast, sum4<true, false, true, true>(*s->a, *s->b, *s->c, r))     \
    X(SumMMPPOfLast, sum4<true, true, false, false>(*s->a, *s->b, *s->c, r))    \
    X(SumMMPMOfLast, sum4<true, true, false, true>(*s->a, *s->b, *s->c, r))     \
    X(SumMMMPOfLast, sum4<true, true, true, false>(*s->a, *s->b, *s->c, r))     \
    X(SumMMMMOfLast, sum4<true, true, true, true>(*s->a, *s->b, *s->c, r))      \
    X(ProductOfLast, *s->a * r)                                                 \
    X(QuotientOfLast, divideBy(*s->a, r, indefinite))                           \
    X(Product3MMOfLast, product3<false, false>(*s->a, *s->b, r, indefinite))    \
    X(Product3MDOfLast, product3<false, true>(*s->a, *s->b, r, indefinite))     \
    X(Product3DMOfLast, product3<true, false>(*s->a, *s->b, r, indefinite))     \
    X(Product3DDOfLast, product3<true, true>(*s->a, *s->b, r, indefinite))      \
    X(SumN, sum(*s))                                                            \
    X(ProductN, product(*s, indefinite))                                        \
    X(Square, powerOfWhole(*s->a, 2.0, indefinite))                             \
    X(PowerWhole, powerOfWhole(*s->a, *s->b, indefinite))                       \
    X(PowerIndependent, power<true>(*s->a, *s->b, indefinite))                  \
    X(PowerDependent, power<false>(*s->a, *s->b, indefinite))                   \
    X(PowerChain, powerChain(*s, indefinite))                                   \
    X(Factorial, wrappedFactorial(truncateToInt32(*s->a)))
// clang-format on

namespace curvemill {

#define CURVEMILL_STEP_ENUMERATOR(name, ...) k##name,
// clang-format off
enum class Operation : std::uint8_t {
    CURVEMILL_EVALUATION_STEPS(CURVEMILL_STEP_ENUMERATOR)
    kEnd,  // after the last step: leaves the dispatch
};
// clang-format on
#undef CURVEMILL_STEP_ENUMERATOR

// The operation's index in the dispatch's table of code addresses.
constexpr int code(Operation operation) {
    return static_cast<int>(operation);
}

}  // namespace curvemill
