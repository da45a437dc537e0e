#include "engine/PlanBuilder.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace curvemill {

namespace {

using Text = std::array<char, kSlotCapacity>;

bool isFunctionCode(char c) {
    return c != '\0' && std::string_view("sctTSClLq").find(c) != std::string_view::npos;
}

PlanFunction functionOf(char c) {
    switch (c) {
        case 's':
            return PlanFunction::kSin;
        case 'c':
            return PlanFunction::kCos;
        case 't':
            return PlanFunction::kTan;
        case 'T':
            return PlanFunction::kAtan;
        case 'S':
            return PlanFunction::kAsin;
        case 'C':
            return PlanFunction::kAcos;
        case 'l':
            return PlanFunction::kLn;
        case 'L':
            return PlanFunction::kLog;
        case 'q':
            return PlanFunction::kSqrt;
        default:
            return PlanFunction::kNone;
    }
}

// Where the operand at `position` of the (partly rewritten) text takes its number from.
PlanOperand operandAt(const Text& text, int position) {
    PlanOperand op;
    const char c = text[static_cast<std::size_t>(position)];
    const auto here = static_cast<std::uint16_t>(position);
    switch (c) {
        case 'x':
            op.index = kInputX;
            break;
        case 'y':
            op.index = kInputY;
            break;
        case 'v':
            op.index = kInputRunning;
            break;
        case 'k':
            op.source = OperandSource::kConstants;
            op.index = here;
            break;
        case 'f':
            op.source = OperandSource::kValues;
            op.index = here;
            break;
        default:
            op.function = functionOf(c);
            if (op.function != PlanFunction::kNone) {
                op.source = OperandSource::kValues;
                op.index = static_cast<std::uint16_t>(position + 1);
            }
            break;
    }
    return op;
}

// The bracket that starts at `open` in the saved text holds no variable up to its partner.
bool bracketIsConstant(const Text& saved, int open) {
    if (open >= kSlotCapacity || saved[static_cast<std::size_t>(open)] != '(') {
        return false;
    }
    int depth = 0;
    for (int r = open; r < kSlotCapacity && saved[static_cast<std::size_t>(r)] != '\0'; ++r) {
        const char c = saved[static_cast<std::size_t>(r)];
        if (c == 'x' || c == 'y') {
            return false;
        }
        if (c == '(') {
            ++depth;
        } else if (c == ')' && --depth == 0) {
            return true;
        }
    }
    return true;
}

// Whether a non-positive base may be raised to the exponent at `position` of the saved text.
bool exponentIsIndependent(const Text& saved, int position) {
    const char c = saved[static_cast<std::size_t>(position)];
    if (c == 'k') {
        return true;
    }
    if (c == '(') {
        return bracketIsConstant(saved, position);
    }
    if (isFunctionCode(c)) {
        return bracketIsConstant(saved, position + 1);
    }
    return false;
}

class Recorder {
  public:
    Recorder(ExpressionSlot& slot, Text& text) : plan_(slot.plan), text_(text) {}

    void operand(int position, bool inverted, bool independent = false) {
        PlanOperand op = operandAt(text_, position);
        op.inverted = inverted;
        op.independent = independent;
        plan_.operands.push_back(op);
    }

    void step(StepKind kind, int open, std::size_t first) {
        PlanStep step;
        step.kind = kind;
        step.open = static_cast<std::uint16_t>(open);
        step.first = static_cast<std::uint16_t>(first);
        step.count = static_cast<std::uint16_t>(plan_.operands.size() - first);
        if (step.count == 2 && kind == StepKind::kSum) {
            step.kind = StepKind::kSumOfTwo;
        } else if (step.count == 2 && kind == StepKind::kProduct &&
                   !plan_.operands.back().inverted) {
            step.kind = StepKind::kProductOfTwo;
        }
        plan_.steps.push_back(step);
    }

    std::size_t operandCount() const { return plan_.operands.size(); }

  private:
    EvaluationPlan& plan_;
    Text& text_;
};

// Index of the next character of `set` in (from, close), or close when there is none.
int nextOf(const Text& text, int from, int close, std::string_view set) {
    int p = from + 1;
    while (p < close && set.find(text[static_cast<std::size_t>(p)]) == std::string_view::npos) {
        ++p;
    }
    return p;
}

}  // namespace

void buildEvaluationPlan(ExpressionSlot& slot) {
    EvaluationPlan& plan = slot.plan;
    plan.steps.clear();
    plan.operands.clear();
    plan.reachesOuterPair = false;
    plan.steps.reserve(kSlotCapacity / 2 + 2);
    plan.operands.reserve(kSlotCapacity);

    Text text = slot.text;
    text.back() = '\0';
    Text saved = text;
    std::fill(slot.savedText.begin(), slot.savedText.end(), '\0');
    std::copy(text.begin(), text.end(), slot.savedText.begin());

    const int end = static_cast<int>(std::strlen(text.data()));
    Recorder record(slot, text);
    int start = 0;
    while (true) {
        if (start > slot.length - 1 || start >= end) {
            break;
        }
        const char* closing = static_cast<const char*>(
            std::memchr(text.data() + start, ')', static_cast<std::size_t>(end - start)));
        int open = -1;
        const int close = closing ? static_cast<int>(closing - text.data()) : end;
        for (int p = close - 1; closing && p >= 0; --p) {
            if (text[static_cast<std::size_t>(p)] == '(') {
                open = p;
                break;
            }
        }
        if (open < 0) {
            break;
        }
        const std::size_t first = record.operandCount();
        const char selector = text[static_cast<std::size_t>(nextOf(text, open, close, ")+-*/^!"))];
        StepKind kind = StepKind::kSingle;
        if (selector == '+' || selector == '-') {
            kind = StepKind::kSum;
            int j = text[static_cast<std::size_t>(open + 1)] == '-' ? open + 2 : open + 1;
            while (true) {
                record.operand(j, text[static_cast<std::size_t>(j - 1)] == '-');
                const int p = nextOf(text, j, close, "+-");
                if (p >= close) {
                    break;
                }
                j = p + 1;
            }
        } else if (selector == '*' || selector == '/') {
            kind = StepKind::kProduct;
            int j = open + 1;
            while (true) {
                record.operand(j, text[static_cast<std::size_t>(j - 1)] == '/');
                const int p = nextOf(text, j, close, "*/");
                if (p >= close) {
                    break;
                }
                j = p + 1;
            }
        } else if (selector == '^') {
            kind = StepKind::kPower;
            record.operand(open + 1, false);
            int p = nextOf(text, open, close, "^");
            while (p < close) {
                record.operand(p + 1, false, exponentIsIndependent(saved, p + 1));
                text[static_cast<std::size_t>(open + 1)] = 'v';
                text[static_cast<std::size_t>(p)] = '@';
                p = nextOf(text, open, close, "^");
            }
        } else {
            kind = selector == '!' ? StepKind::kFactorial : StepKind::kSingle;
            record.operand(open + 1, false);
        }
        record.step(kind, open, first);
        if (open == 0) {
            plan.reachesOuterPair = true;
            break;
        }
        text[static_cast<std::size_t>(open)] = 'f';
        std::fill(text.begin() + open + 1, text.begin() + close + 1, '@');
        start = close + 1;
    }
    plan.valid = true;
}

}  // namespace curvemill
