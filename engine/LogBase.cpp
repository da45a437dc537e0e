#include "engine/LogBase.h"

#include <charconv>
#include <cmath>

#include "engine/Formula.h"

namespace curvemill {

namespace {

constexpr std::size_t kBoxCharacters = 99;

}  // namespace

bool isPlainNumber(std::string_view text) {
    bool point = false;
    bool digit = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c >= '0' && c <= '9') {
            digit = true;
        } else if (c == '.' && !point) {
            point = true;
        } else if (!(c == '-' && i == 0)) {
            return false;
        }
    }
    // "-" or "." alone would read as no number at all.
    return digit;
}

LogBaseResult applyLogBase(Formula& formula, bool useOtherBase, std::string_view text) {
    if (!useOtherBase) {
        formula.logBase = 10.0;
    } else {
        text = text.substr(0, kBoxCharacters);
        if (!isPlainNumber(text)) {
            return {false, kMsgEnterValidNumber};
        }
        double base = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), base);
        formula.logBase = base;
        if (formula.logBase < 0) {
            formula.logBase = 10.0;
            return {false, kMsgLogBasePositive};
        }
    }
    // A base of 0 passes on purpose: the factor becomes -0 and every log( reads -0.
    formula.logFactor = 1.0 / std::log10(formula.logBase);
    return {true, {}};
}

}  // namespace curvemill
