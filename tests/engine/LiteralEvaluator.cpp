#include "LiteralEvaluator.h"

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
    return c == ')' || c == '+' || c == '-' || c == '*' || c == '/' || c == '^' || c == '!';
}

class LiteralRun {
  public:
    LiteralRun(ExpressionSlot& slot, double logFactor, double x, double y)
        : slot_(slot), text_(slot.text.data()), logFactor_(logFactor), x_(x), y_(y) {}

    LiteralResult run() {
        std::memcpy(savedText_.data(), slot_.text.data(), slot_.text.size());
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
            switch (text_[selector]) {
                case ')':
                    slot_.values[open] = operand(open + 1);
                    break;
                case '+':
                case '-':
                    slot_.values[open] = sum(open, close);
                    break;
                case '*':
                case '/':
                    slot_.values[open] = product(open, close);
                    break;
                case '^':
                    slot_.values[open] = power(open, close);
                    break;
                default:
                    slot_.values[open] = factorial(open);
                    break;
            }
            if (open == 0) {
                std::memcpy(slot_.text.data(), savedText_.data(), slot_.text.size());
                return {slot_.values[0], indefinite_};
            }
            text_[open] = 'f';
            for (int i = open + 1; i <= close; ++i) {
                text_[i] = '@';
            }
            start = close + 1;
        }
    }

  private:
    [[noreturn]] void fail(const std::string& why) const {
        throw std::logic_error(why + " in \"" + std::string(savedText_.data()) + "\"");
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
        switch (code) {
            case 's':
                return std::sin(v);
            case 'c':
                return std::cos(v);
            case 't':
                return std::tan(v);
            case 'T':
                return std::atan(v);
            case 'S':
                domain(std::fabs(v) <= 1.0);
                return std::asin(v);
            case 'C':
                domain(std::fabs(v) <= 1.0);
                return std::acos(v);
            case 'l':
                domain(v > 0.0);
                return std::log(v);
            case 'L':
                domain(v > 0.0);
                return std::log10(v) * logFactor_;
            case 'q':
                domain(v > 0.0);
                return std::sqrt(v);
            default:
                return 0.0;
        }
    }

    void domain(bool inside) {
        if (!inside) {
            indefinite_ = true;
        }
    }

    double operand(int j) {
        const char c = text_[j];
        switch (c) {
            case 'x':
                return x_;
            case 'y':
                return y_;
            case 'k':
                return slot_.constants[j];
            case 'f':
                return slot_.values[j];
            case 'v':
                return running_;
            case '!':
                // The check lets "(!)" through: the factorial then finds itself where its operand
                // should be. The algorithm gives that no value; like the fast evaluator we read 0.
                return 0.0;
            default:
                if (c == '\0' || std::strchr("sctTSClLq", c) == nullptr) {
                    fail(std::string("unexpected operand '") + c + "'");
                }
                if (text_[j + 1] != 'f') {
                    fail("function without a computed argument");
                }
                return function(c, slot_.values[j + 1]);
        }
    }

    // Position of the next of the two operator characters after `from`, or `close`.
    int skipTo(int from, int close, char a, char b) const {
        int i = from + 1;
        while (i < close && text_[i] != a && text_[i] != b) {
            ++i;
        }
        return i;
    }

    double sum(int open, int close) {
        double total = 0.0;
        int j = text_[open + 1] == '-' ? open + 2 : open + 1;
        for (;;) {
            // volatile: negate, then add, as written. A compiler may otherwise fold t + (-v) into
            // t - v, which hands a NaN's sign on unchanged where the negation would flip it.
            volatile double term = operand(j);
            if (text_[j - 1] == '-') {
                term = -term;
            }
            total += term;
            const int next = skipTo(j, close, '+', '-');
            if (next >= close) {
                return total;
            }
            j = next + 1;
        }
    }

    double product(int open, int close) {
        double result = 1.0;
        int j = open + 1;
        for (;;) {
            double factor = operand(j);
            if (text_[j - 1] == '/') {
                if (factor == 0.0) {
                    if (result == 0.0) {
                        indefinite_ = true;
                        result = 1.0;
                    } else {
                        factor = 1e10;
                    }
                } else {
                    factor = 1.0 / factor;
                }
            }
            result *= factor;
            const int next = skipTo(j, close, '*', '/');
            if (next >= close) {
                return result;
            }
            j = next + 1;
        }
    }

    // Whether the exponent that starts at `j` in savedText mentions x or y.
    bool exponentDependsOnVariables(int j) const {
        const char* saved = savedText_.data();
        const char c = saved[j];
        if (c == 'k') {
            return false;
        }
        if (c == 'x' || c == 'y') {
            return true;
        }
        int i = c == '(' ? j : j + 1;
        if (saved[i] != '(') {
            fail("exponent is neither a constant, a variable nor a bracket");
        }
        int depth = 0;
        for (; i < kSlotCapacity && saved[i] != '\0'; ++i) {
            if (saved[i] == '(') {
                ++depth;
            } else if (saved[i] == ')') {
                if (--depth == 0) {
                    return false;
                }
            } else if (saved[i] == 'x' || saved[i] == 'y') {
                return true;
            }
        }
        fail("unbalanced exponent bracket");
    }

    double power(int open, int close) {
        running_ = operand(open + 1);
        for (;;) {
            int caret = open + 1;
            while (caret < close && text_[caret] != '^') {
                ++caret;
            }
            if (caret >= close) {
                return running_;
            }
            const double base = operand(open + 1);
            const double exponent = operand(caret + 1);
            if (!(base > 0.0)) {
                const bool whole = exponent == static_cast<double>(truncateToInt32(exponent));
                if (!whole || exponentDependsOnVariables(caret + 1)) {
                    indefinite_ = true;
                }
            }
            if (!indefinite_) {
                running_ = powerOf(base, exponent);
            }
            text_[open + 1] = 'v';
            text_[caret] = '@';
        }
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
    std::array<char, kSlotCapacity> savedText_{};
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
