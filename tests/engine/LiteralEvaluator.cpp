#include "LiteralEvaluator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

namespace curvemill::reference {
namespace {

// A double truncated toward zero to 32 bits the way the x86 conversion does it: anything out
// of range (NaN included) becomes INT32_MIN instead of being undefined behaviour.
std::int32_t truncateToInt32(double v) {
    if (!(v > -2147483649.0 && v < 2147483648.0)) {
        return INT32_MIN;
    }
    return static_cast<std::int32_t>(v);
}

// pow as the program defines it: a square is the one correctly rounded multiplication (glibc's
// pow(x, 2) can be a last bit off), any other exponent goes to the C library. Written out here
// rather than shared with the engine, so that a change of the engine's arithmetic shows up.
double powerOf(double base, double exponent) {
    return exponent == 2.0 ? base * base : std::pow(base, exponent);
}

bool isOperatorStop(char c) {
    return c != '\0' && std::strchr(")+-*/^!", c) != nullptr;
}

// Function codes in the order of LiteralRun::function's results.
constexpr char kFunctionCodes[] = "sctTSClLq";

class LiteralRun {
  public:
    LiteralRun(ExpressionSlot& slot, double logFactor, double x, double y)
        : slot_(slot), text_(slot.text.data()), logFactor_(logFactor), x_(x), y_(y) {
        std::copy(slot.text.begin(), slot.text.end(), saved_.begin());
    }

    LiteralResult run() {
        int start = 0;
        for (;;) {
            if (start > slot_.length - 1) {
                return {0.0, indefinite_};
            }
            const int close = findForward(start, ')');
            int open = close - 1;
            while (open >= 0 && text_[open] != '(') {
                --open;
            }
            if (open < 0) {
                fail("closing bracket without an opening one");
            }
            int selector = open + 1;
            while (selector < close && !isOperatorStop(text_[selector])) {
                ++selector;
            }
            const char op = text_[selector];
            slot_.values[open] = op == ')'                ? operand(open + 1)
                                 : op == '+' || op == '-' ? sum(open, close)
                                 : op == '*' || op == '/' ? product(open, close)
                                 : op == '^'              ? power(open, close)
                                                          : factorial(open);
            if (open == 0) {
                std::memcpy(slot_.text.data(), saved_.data(), saved_.size());
                return {slot_.values[0], indefinite_};
            }
            text_[open] = 'f';
            std::fill(text_ + open + 1, text_ + close + 1, '@');
            start = close + 1;
        }
    }

  private:
    [[noreturn]] void fail(const std::string& why) const {
        throw std::logic_error(why + " in \"" + std::string(saved_.data()) + "\"");
    }

    int findForward(int from, char wanted) const {
        for (int i = from; i < kSlotCapacity && text_[i] != '\0'; ++i) {
            if (text_[i] == wanted) {
                return i;
            }
        }
        fail(std::string("no '") + wanted + "' found");
    }

    double function(char code, double v) {
        const bool unit = code == 'S' || code == 'C';
        const bool positive = code == 'l' || code == 'L' || code == 'q';
        if ((unit && !(std::fabs(v) <= 1.0)) || (positive && !(v > 0.0))) {
            indefinite_ = true;
        }
        const double results[] = {
            std::sin(v),  std::cos(v),  std::tan(v), std::atan(v),
            std::asin(v), std::acos(v), std::log(v), std::log10(v) * logFactor_,
            std::sqrt(v)};
        return results[std::strchr(kFunctionCodes, code) - kFunctionCodes];
    }

    double operand(int j) {
        const char c = text_[j];
        // '!' stands where an operand should when the check let "(!)" through: the algorithm gives
        // it no value; like the fast evaluator we read 0.
        static constexpr char kPlain[] = "xykfv!";
        if (c != '\0' && std::strchr(kPlain, c) != nullptr) {
            const double plain[] = {x_, y_, slot_.constants[j], slot_.values[j], running_, 0.0};
            return plain[std::strchr(kPlain, c) - kPlain];
        }
        if (c == '\0' || std::strchr(kFunctionCodes, c) == nullptr) {
            fail(std::string("unexpected operand '") + c + "'");
        }
        if (text_[j + 1] != 'f') {
            fail("function without a computed argument");
        }
        return function(c, slot_.values[j + 1]);
    }

    // Position of the next of the two operator characters after `from`, or `close`.
    int skipTo(int from, int close, char a, char b) const {
        int i = from + 1;
        while (i < close && text_[i] != a && text_[i] != b) {
            ++i;
        }
        return i;
    }

    // Operands of a sum or product run from just after the bracket (or a leading minus) to each
    // operator: skipTo() lands on `close` after the last one.
    double sum(int open, int close) {
        double total = 0.0;
        for (int j = text_[open + 1] == '-' ? open + 2 : open + 1; j <= close;
             j = skipTo(j, close, '+', '-') + 1) {
            // volatile: negate, then add, as written. A compiler may otherwise fold t + (-v) into
            // t - v, which hands a NaN's sign on unchanged where the negation would flip it.
            volatile double term = operand(j);
            if (text_[j - 1] == '-') {
                term = -term;
            }
            total += term;
        }
        return total;
    }

    // Division by zero gives 1e10 as the factor, unless the product so far is zero too.
    double product(int open, int close) {
        double result = 1.0;
        for (int j = open + 1; j <= close; j = skipTo(j, close, '*', '/') + 1) {
            double factor = operand(j);
            const bool divides = text_[j - 1] == '/';
            if (divides && factor != 0.0) {
                factor = 1.0 / factor;
            } else if (divides && result != 0.0) {
                factor = 1e10;
            } else if (divides) {
                indefinite_ = true;
                result = 1.0;
            }
            result *= factor;
        }
        return result;
    }

    // Whether the exponent that starts at `j` in the text as prepared mentions x or y.
    bool exponentDependsOnVariables(int j) const {
        const char* saved = saved_.data();
        if (saved[j] == 'k' || saved[j] == 'x' || saved[j] == 'y') {
            return saved[j] != 'k';
        }
        int i = saved[j] == '(' ? j : j + 1;
        if (saved[i] != '(') {
            fail("exponent is neither a constant, a variable nor a bracket");
        }
        for (int depth = 0; i < kSlotCapacity && saved[i] != '\0'; ++i) {
            depth += int{saved[i] == '('} - int{saved[i] == ')'};
            if (depth == 0 || saved[i] == 'x' || saved[i] == 'y') {
                return depth != 0;
            }
        }
        fail("unbalanced exponent bracket");
    }

    // Each '^' in turn raises the chain's value so far, which then stands at the base as 'v'.
    double power(int open, int close) {
        running_ = operand(open + 1);
        for (char* caret;
             (caret = std::find(text_ + open + 1, text_ + close, '^')) != text_ + close;) {
            const int at = static_cast<int>(caret - text_);
            const double base = operand(open + 1);
            const double exponent = operand(at + 1);
            const bool whole = exponent == static_cast<double>(truncateToInt32(exponent));
            if (!(base > 0.0) && (!whole || exponentDependsOnVariables(at + 1))) {
                indefinite_ = true;
            }
            if (!indefinite_) {
                running_ = powerOf(base, exponent);
            }
            text_[open + 1] = 'v';
            *caret = '@';
        }
        return running_;
    }

    double factorial(int open) {
        const std::int32_t n = truncateToInt32(operand(open + 1));
        std::uint32_t result = 1;  // unsigned so the 32-bit wrap is defined
        // From 34! on the 32-bit product holds 2^32 and stays 0, so stopping there changes nothing.
        for (std::int32_t i = 2; i <= n && result != 0; ++i) {
            result *= static_cast<std::uint32_t>(i);
        }
        return static_cast<double>(static_cast<std::int32_t>(result));
    }

    ExpressionSlot& slot_;
    char* text_;
    // The text as prepared: the run rewrites text_ and restores it from here at the end.
    std::array<char, kSlotCapacity> saved_{};
    double logFactor_;
    double x_;
    double y_;
    bool indefinite_ = false;
    // The value a 'v' stands for: the power chain's result so far.
    double running_ = 0.0;
};

}  // namespace

LiteralResult evaluateLiterally(ExpressionSlot& slot, double logFactor, double x, double y) {
    return LiteralRun(slot, logFactor, x, y).run();
}

}  // namespace curvemill::reference
