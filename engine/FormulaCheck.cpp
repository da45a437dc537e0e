#include "engine/FormulaCheck.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "engine/Formula.h"
#include "engine/FormulaLimits.h"

namespace curvemill {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isOneOf(char c, std::string_view set) {
    return c != '\0' && set.find(c) != set.npos;
}

// The character at `i`, or NUL past the end, as the C buffer the check was written for reads.
char at(const std::string& text, std::size_t i) {
    return i < text.size() ? text[i] : '\0';
}

bool startsWith(const std::string& text, std::size_t i, std::string_view word) {
    return text.compare(i, word.size(), word) == 0;
}

// A number box may only hold a constant whose value surely exists.
const char* constantProblem(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool afterA = i > 0 && text[i - 1] == 'a';
        if (c == 'x') {
            return kMsgNotAConstant;
        }
        if (c == 'l' || c == '^' || c == 'q' || ((c == 's' || c == 'c') && afterA)) {
            return kMsgMayNotBeValidConstant;
        }
    }
    return nullptr;
}

// Rewrites function names and pi into their one-letter codes; false on anything not in the
// language. Written with a separate output so that a long text costs linear time.
bool encodeNames(std::string& text) {
    std::string out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const char c = text[i];
        if (isDigit(c) || isOneOf(c, "()*+-./!x^e")) {
            out += c;
            ++i;
            continue;
        }
        switch (c) {
            case 's':
            case 'c':
            case 't':
            case 'S': {
                if (!out.empty() && !isOneOf(out.back(), "+-*/(^")) {
                    return false;
                }
                const std::string_view rest = c == 's'   ? "in("
                                              : c == 'c' ? "os("
                                              : c == 't' ? "an("
                                                         : "qr(";
                if (!startsWith(text, i + 1, rest)) {
                    return false;
                }
                out += c == 'S' ? 'q' : c;
                i += 3;  // the '(' is passed over by the next round
                break;
            }
            case 'l':
                if (startsWith(text, i + 1, "og(")) {
                    out += 'L';
                    i += 3;
                } else if (startsWith(text, i + 1, "n(")) {
                    out += 'l';
                    i += 2;
                } else {
                    return false;
                }
                break;
            case 'p':
                if (at(text, i + 1) != 'i') {
                    return false;
                }
                out += 'p';
                i += 2;
                break;
            case 'a':
                if (startsWith(text, i + 1, "cos(")) {
                    out += 'C';
                } else if (startsWith(text, i + 1, "sin(")) {
                    out += 'S';
                } else if (startsWith(text, i + 1, "tan(")) {
                    out += 'T';
                } else {
                    return false;
                }
                i += 4;
                break;
            default:
                return false;
        }
    }
    text = std::move(out);
    return true;
}

// Pairs every ')' with the nearest open '(' before it and marks both as '<' '>'.
bool pairBrackets(std::string& text) {
    std::size_t start = 0;
    while (true) {
        const std::size_t close = text.find(')', start);
        if (close == std::string::npos) {
            break;
        }
        const std::size_t open = close == 0 ? std::string::npos : text.rfind('(', close - 1);
        if (open == std::string::npos) {
            return false;
        }
        text[open] = '<';
        text[close] = '>';
        start = open + 1;
    }
    return text.find('(') == std::string::npos;
}

const char* bracketNeighbourProblem(std::string& text, bool lenient) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '>') {
            const char next = at(text, i + 1);
            if (next != '\0' && !isOneOf(next, "+-*/)^!>")) {
                return kMsgWrongAfterBracket;
            }
            const char before = i == 0 ? '\0' : text[i - 1];
            const bool emptyPair = before == '(';
            if (emptyPair ? !lenient : !(isDigit(before) || isOneOf(before, "xpe)!"))) {
                return kMsgWrongBeforeBracket;
            }
            text[i] = ')';
        } else if (text[i] == '<') {
            if (i > 0 && !isOneOf(text[i - 1], "(+-*/^sctSCTlLq")) {
                return kMsgWrongBeforeBracket;
            }
            if (isOneOf(at(text, i + 1), "+*/^")) {
                return kMsgWrongAfterBracket;
            }
            text[i] = '(';
        }
    }
    return nullptr;
}

bool operatorsApart(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isOneOf(text[i], "*/+-^")) {
            continue;
        }
        if ((i == 0 && text[i] != '-') || i + 1 == text.size() || isOneOf(text[i + 1], "*/+-^!")) {
            return false;
        }
    }
    return true;
}

bool decimalPointsValid(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '.') {
            continue;
        }
        if (i == 0 || !isDigit(text[i - 1])) {
            return false;
        }
        if (i + 1 < text.size() && !isDigit(text[i + 1])) {
            return false;
        }
        std::size_t j = i - 1;
        while (j > 0 && isDigit(text[j - 1])) {
            --j;
        }
        if (j > 0 && text[j - 1] == '.') {
            return false;
        }
    }
    return true;
}

bool isSymbol(char c) {
    return isOneOf(c, "xpe");
}

// No implicit products: a variable or constant may not touch another one or a digit.
bool symbolsApart(const std::string& text) {
    if (text.size() > 1 && isSymbol(text[0]) && isDigit(text[1])) {
        return false;
    }
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (!isSymbol(text[i])) {
            continue;
        }
        const char left = text[i - 1];
        const char right = at(text, i + 1);
        if (isSymbol(left) || isDigit(left) || isSymbol(right) || isDigit(right)) {
            return false;
        }
    }
    return true;
}

}  // namespace

void removeBlanks(std::string& text) {
    std::erase(text, ' ');
}

int slotForMode(FormulaMode mode) {
    switch (mode) {
        case FormulaMode::Function:
            return kFunctionSlot;
        case FormulaMode::SecondFunction:
            return kSecondFunctionSlot;
        case FormulaMode::Number:
            return kNumberSlot;
        case FormulaMode::TwoVariables:
            return kTwoVariableSlot;
    }
    return kFunctionSlot;  // only a value cast from outside the enum gets here
}

bool checkFormula(Formula& formula, std::string& text, FormulaMode mode, bool lenient) {
    auto fail = [&formula](const char* message) {
        formula.errorText = message;
        return false;
    };
    // The text is a C buffer at heart: whatever follows a NUL is not part of it.
    text.resize(std::strlen(text.c_str()));
    if (text.empty()) {
        return fail(kMsgBoxIsEmpty);
    }

    // In two variables only one letter is checked; the ordinals bring the y's back at the end.
    std::vector<int> yOrdinals;
    if (mode == FormulaMode::TwoVariables) {
        int ordinal = 0;
        for (char& c : text) {
            if (c == 'y') {
                yOrdinals.push_back(ordinal);
                c = 'x';
            }
            if (c == 'x') {
                ++ordinal;
            }
        }
    }
    if (mode == FormulaMode::Number) {
        if (const char* problem = constantProblem(text)) {
            return fail(problem);
        }
    }
    if (!encodeNames(text)) {
        return fail(kMsgInvalidEntry);
    }
    // Longer texts could outgrow the slot once bracketed; the edit boxes never get near this.
    if (text.size() > static_cast<std::size_t>(kMaxCheckedLength)) {
        return fail(kMsgInvalidEntry);
    }
    if (lenient) {
        std::replace(text.begin(), text.end(), '(', '<');
        std::replace(text.begin(), text.end(), ')', '>');
    } else if (!pairBrackets(text)) {
        return fail(kMsgBracketsDoNotMatch);
    }
    if (const char* problem = bracketNeighbourProblem(text, lenient)) {
        return fail(problem);
    }
    if (!operatorsApart(text)) {
        return fail(kMsgTwoOperators);
    }
    if (text[0] == '!') {
        return false;  // deliberately silent: the caller shows the previous message
    }
    if (!decimalPointsValid(text) || !symbolsApart(text)) {
        return fail(kMsgInvalidEntry);
    }
    if (!yOrdinals.empty()) {
        int ordinal = 0;
        std::size_t next = 0;
        for (char& c : text) {
            if (c != 'x') {
                continue;
            }
            if (next < yOrdinals.size() && yOrdinals[next] == ordinal) {
                c = 'y';
                ++next;
            }
            ++ordinal;
        }
    }

    ExpressionSlot& slot = formula.slots[static_cast<std::size_t>(slotForMode(mode))];
    slot.text.fill('\0');
    std::copy(text.begin(), text.end(), slot.text.begin());
    slot.length = static_cast<std::int32_t>(text.size());
    slot.plan.valid = false;  // the old steps belong to the old text
    return true;
}

}  // namespace curvemill
