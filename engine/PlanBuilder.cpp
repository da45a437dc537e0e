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

// Where the operand at `position` of the (partly rewritten) text takes its number from; a
// function code reads its function's value, which a step of its own works out first.
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
            if (functionOf(c) != PlanFunction::kNone) {
                op.source = OperandSource::kFunctions;
                op.index = here;
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

// Index of the next character of `set` in (from, close), or close when there is none.
int nextOf(const Text& text, int from, int close, std::string_view set) {
    int p = from + 1;
    while (p < close && set.find(text[static_cast<std::size_t>(p)]) == std::string_view::npos) {
        ++p;
    }
    return p;
}

// Records the steps of one slot while replaying the rewriting on its own copy of the text.
class Recorder {
  public:
    Recorder(EvaluationPlan& plan, const Text& saved) : plan_(plan), saved_(saved) {}

    Text text;

    // Records the step of the pair open..close, exactly as the rewriting reads it.
    void pair(int open, int close) {
        pending_.clear();
        StepKind kind = StepKind::kSingle;
        switch (at(nextOf(text, open, close, ")+-*/^!"))) {
            case '+':
            case '-':
                kind = StepKind::kSum;
                chain(at(open + 1) == '-' ? open + 2 : open + 1, close, "+-", '-');
                break;
            case '*':
            case '/':
                kind = StepKind::kProduct;
                chain(open + 1, close, "*/", '/');
                break;
            case '^':
                kind = StepKind::kPower;
                powerChain(open, close);
                break;
            case '!':
                kind = StepKind::kFactorial;
                operand(open + 1, false);
                break;
            default:
                operand(open + 1, false);
                break;
        }
        step(kind, open);
    }

  private:
    char at(int position) const { return text[static_cast<std::size_t>(position)]; }

    // values[index] only repeats x, y or a constant: read that at once and keep the store of
    // values[index] off the path from x to the result.
    PlanOperand throughCopies(PlanOperand op) const {
        if (op.source == OperandSource::kValues && copies_[op.index]) {
            return copied_[op.index];
        }
        return op;
    }

    void operand(int position, bool inverted, bool independent = false) {
        PlanOperand op = throughCopies(operandAt(text, position));
        if (op.source == OperandSource::kFunctions) {
            // The function's argument pair was computed and marked 'f' one place to the right.
            PlanStep apply;
            apply.kind = StepKind::kFunction;
            apply.function = functionOf(at(position));
            apply.target = op.index;
            apply.first = static_cast<std::uint16_t>(plan_.operands.size());
            apply.count = 1;
            plan_.operands.push_back(throughCopies(operandAt(text, position + 1)));
            plan_.steps.push_back(apply);
        }
        op.inverted = inverted;
        op.independent = independent;
        pending_.push_back(op);
    }

    // Terms of a sum or factors of a product, from `j` on, each after the next separator.
    void chain(int j, int close, std::string_view separators, char inverting) {
        while (true) {
            operand(j, at(j - 1) == inverting);
            const int p = nextOf(text, j, close, separators);
            if (p >= close) {
                return;
            }
            j = p + 1;
        }
    }

    // The base, then each exponent; the rewriting marks the running result and the used '^'.
    void powerChain(int open, int close) {
        operand(open + 1, false);
        for (int p = nextOf(text, open, close, "^"); p < close;
             p = nextOf(text, open, close, "^")) {
            operand(p + 1, false, exponentIsIndependent(saved_, p + 1));
            text[static_cast<std::size_t>(open + 1)] = 'v';
            text[static_cast<std::size_t>(p)] = '@';
        }
    }

    void step(StepKind kind, int open) {
        PlanStep step;
        step.kind = kind;
        step.target = static_cast<std::uint16_t>(open);
        step.first = static_cast<std::uint16_t>(plan_.operands.size());
        step.count = static_cast<std::uint16_t>(pending_.size());
        plan_.operands.insert(plan_.operands.end(), pending_.begin(), pending_.end());
        plan_.steps.push_back(step);
        const PlanOperand& only = pending_.back();
        if (kind == StepKind::kSingle &&
            (only.source == OperandSource::kConstants ||
             (only.source == OperandSource::kInputs && only.index != kInputRunning))) {
            copies_[static_cast<std::size_t>(open)] = true;
            copied_[static_cast<std::size_t>(open)] = only;
        }
    }

    EvaluationPlan& plan_;
    const Text& saved_;
    // The operands of the pair being recorded; its function steps come first in the plan.
    std::vector<PlanOperand> pending_;
    // Pairs computed as a plain copy of x, y, a zero or a constant, and what they copy.
    std::array<bool, kSlotCapacity> copies_{};
    std::array<PlanOperand, kSlotCapacity> copied_{};
};

}  // namespace

void buildEvaluationPlan(ExpressionSlot& slot) {
    EvaluationPlan& plan = slot.plan;
    plan.steps.clear();
    plan.operands.clear();
    plan.reachesOuterPair = false;
    plan.resolvedFor = nullptr;

    Text saved = slot.text;
    saved.back() = '\0';

    Recorder record(plan, saved);
    record.text = saved;
    Text& text = record.text;
    const int end = static_cast<int>(std::strlen(text.data()));
    int start = 0;
    // The rewriting loop itself: innermost pair first, each computed pair becomes "f@@..@".
    while (start <= slot.length - 1 && start < end) {
        const void* closing =
            std::memchr(text.data() + start, ')', static_cast<std::size_t>(end - start));
        if (closing == nullptr) {
            break;
        }
        const int close = static_cast<int>(static_cast<const char*>(closing) - text.data());
        int open = close - 1;
        while (open >= 0 && text[static_cast<std::size_t>(open)] != '(') {
            --open;
        }
        if (open < 0) {
            break;
        }
        record.pair(open, close);
        if (open == 0) {
            plan.reachesOuterPair = true;
            break;
        }
        text[static_cast<std::size_t>(open)] = 'f';
        std::fill(text.begin() + open + 1, text.begin() + close + 1, '@');
        start = close + 1;
    }
    // Evaluate resolves into these without allocating.
    plan.resolvedSteps.assign(plan.steps.size() + 1, ResolvedStep{});
    plan.resolvedOperands.assign(plan.operands.size(), ResolvedOperand{});
    plan.valid = true;
}

}  // namespace curvemill
