#include "engine/Bracketing.h"

#include <charconv>
#include <cstring>
#include <string_view>

#include "engine/DisplayFormat.h"
#include "engine/PlanBuilder.h"

namespace curvemill {

namespace {

inline constexpr double kE = 2.718281828459045;

int textLength(const ExpressionSlot& slot) {
    const void* end = std::memchr(slot.text.data(), '\0', slot.text.size());
    return end ? static_cast<int>(static_cast<const char*>(end) - slot.text.data())
               : kSlotCapacity - 1;
}

bool isStop(char c, std::string_view stops) {
    return c != '\0' && stops.find(c) != stops.npos;
}

// Scans right from `from` for a stop outside nested brackets; a ')' at depth 0 always stops.
// Running off the end (possible only for lenient, unbalanced texts) yields `length`.
int scanRight(const ExpressionSlot& slot, int from, int length, std::string_view stops,
              int& depth) {
    for (int p = from; p < length; ++p) {
        const char c = slot.text[static_cast<std::size_t>(p)];
        if (depth == 0 && (c == ')' || isStop(c, stops))) {
            return p;
        }
        if (c == ')') {
            ++depth;
        } else if (c == '(') {
            --depth;
        }
    }
    return length;
}

// The mirror of scanRight; running off the start yields -1.
int scanLeft(const ExpressionSlot& slot, int from, std::string_view stops, int& depth) {
    for (int p = from; p >= 0; --p) {
        const char c = slot.text[static_cast<std::size_t>(p)];
        if (depth == 0 && (c == '(' || isStop(c, stops))) {
            return p;
        }
        if (c == ')') {
            ++depth;
        } else if (c == '(') {
            --depth;
        }
    }
    return -1;
}

}  // namespace

int insertChar(ExpressionSlot& slot, int position, int length, char character) {
    // The check keeps texts short enough; this only protects against a caller that did not check.
    if (length + 1 >= kSlotCapacity || position < 0 || position > length) {
        return length;
    }
    char* text = slot.text.data();
    std::memmove(text + position + 1, text + position, static_cast<std::size_t>(length - position));
    text[position] = character;
    text[length + 1] = '\0';
    return length + 1;
}

int bracketFormula(ExpressionSlot& slot) {
    int length = textLength(slot);
    length = insertChar(slot, 0, length, '(');
    length = insertChar(slot, length, length, ')');
    int i = 0;
    while (i < length) {
        const char op = slot.text[static_cast<std::size_t>(i)];
        if (op != '*' && op != '/' && op != '^' && op != '!') {
            ++i;
            continue;
        }
        int depth = 0;
        int left = 0;
        int right = 0;  // where the ')' goes
        bool rightIsBracket = false;
        if (op == '!') {
            right = i + 1;
            rightIsBracket = i + 1 < length && slot.text[static_cast<std::size_t>(i + 1)] == ')';
            left = scanLeft(slot, i - 1, "+-*/^", depth);
        } else {
            const std::string_view stops = op == '^' ? "+-*/" : "+-";
            right = scanRight(slot, i + 1, length, stops, depth);
            rightIsBracket = right < length && slot.text[static_cast<std::size_t>(right)] == ')';
            left = scanLeft(slot, i - 1, stops, depth);
        }
        const bool leftIsBracket = left >= 0 && slot.text[static_cast<std::size_t>(left)] == '(';
        if (leftIsBracket && rightIsBracket) {
            ++i;
            continue;
        }
        length = insertChar(slot, right, length, ')');
        length = insertChar(slot, left + 1, length, '(');
        i += 2;  // the operator moved one place right
    }
    slot.length = length;
    return length;
}

void encodeNumbers(ExpressionSlot& slot) {
    slot.constants.fill(0.0);
    slot.values.fill(0.0);
    char* text = slot.text.data();
    int length = textLength(slot);
    for (int i = 0; i < length; ++i) {
        const char c = text[i];
        if (c == 'p') {
            slot.constants[static_cast<std::size_t>(i)] = kPi;
            text[i] = 'k';
        } else if (c == 'e') {
            slot.constants[static_cast<std::size_t>(i)] = kE;
            text[i] = 'k';
        } else if (c >= '0' && c <= '9') {
            int end = i;
            while (end < length && ((text[end] >= '0' && text[end] <= '9') || text[end] == '.')) {
                ++end;
            }
            // from_chars reads like "%lf" but ignores the locale the application switched to.
            double value = 0.0;
            std::from_chars(text + i, text + end, value);
            slot.constants[static_cast<std::size_t>(i)] = value;
            text[i] = 'k';
            std::memmove(text + i + 1, text + end, static_cast<std::size_t>(length - end + 1));
            length -= end - i - 1;
        }
    }
    buildEvaluationPlan(slot);
}

}  // namespace curvemill
