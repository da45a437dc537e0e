// Failure codes carried by a report: the fault's 32-bit code, or 0 for a fault without one.
#pragma once

#include <cstdint>

namespace curvemill {

using FailureCode = std::uint32_t;

// Codes a report names in its cause line; every other code is reported without a cause.
inline constexpr FailureCode kCodeInvalidFloat = 0xC0000090;
inline constexpr FailureCode kCodeFloatUnderflow = 0xC0000093;

// Further codes, kept in the same family so that a code alone says what kind of fault it was.
inline constexpr FailureCode kCodeFloatDivideByZero = 0xC000008E;
inline constexpr FailureCode kCodeFloatInexact = 0xC000008F;
inline constexpr FailureCode kCodeFloatOverflow = 0xC0000091;
inline constexpr FailureCode kCodeFloatOther = 0xC0000092;
inline constexpr FailureCode kCodeIntegerDivideByZero = 0xC0000094;
inline constexpr FailureCode kCodeIntegerOverflow = 0xC0000095;
inline constexpr FailureCode kCodeAccessViolation = 0xC0000005;
inline constexpr FailureCode kCodeBusError = 0xC0000006;
inline constexpr FailureCode kCodeIllegalInstruction = 0xC000001D;
inline constexpr FailureCode kCodeOtherSignal = 0xE0000000;

// The code of a signal with its si_code; never 0.
FailureCode codeForSignal(int signalNumber, int signalCode);

// A thrown value that carries a code; guards report it with that code.
struct Fault {
    FailureCode code = 0;
};

}  // namespace curvemill
