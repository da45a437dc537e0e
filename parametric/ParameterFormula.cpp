#include "parametric/ParameterFormula.h"

#include <array>
#include <cctype>
#include <string_view>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"

namespace curvemill {

namespace {

// Names whose letters are not the variable: "tan" and "atan" hold a t.
constexpr std::array<std::string_view, 9> kFunctionNames = {"asin", "acos", "atan", "sin", "cos",
                                                            "tan",  "log",  "ln",   "Sqr"};

bool isFunctionName(std::string_view word) {
    for (const std::string_view name : kFunctionNames) {
        if (word == name) {
            return true;
        }
    }
    return false;
}

// The text the check reads: in every word that is not a function's name, t becomes x and an x
// becomes a character the check refuses, so that "x" here is the same mistake as "y" in a
// function of x and gets the language's own message.
std::string inX(const std::string& typed) {
    std::string text = typed;
    std::size_t n = 0;
    while (n < text.size()) {
        if (!std::isalpha(static_cast<unsigned char>(text[n]))) {
            ++n;
            continue;
        }
        std::size_t end = n;
        while (end < text.size() && std::isalpha(static_cast<unsigned char>(text[end]))) {
            ++end;
        }
        if (!isFunctionName(std::string_view(text).substr(n, end - n))) {
            for (std::size_t k = n; k < end; ++k) {
                if (text[k] == 'x') {
                    text[k] = '#';
                } else if (text[k] == 't') {
                    text[k] = 'x';
                }
            }
        }
        n = end;
    }
    return text;
}

}  // namespace

bool prepareParameterFormula(Formula& formula, const std::string& typed, FormulaMode mode) {
    std::string text = typed;
    removeBlanks(text);
    return prepareFormula(formula, inX(text), mode);
}

}  // namespace curvemill
