#include "mathtools/MathTexts.h"

#include <charconv>

#include "engine/DisplayFormat.h"
#include "mathtools/PreciseIntegral.h"

namespace curvemill {

namespace {

// to_chars, not printf: the application switches the C locale to the user's, whose decimal
// separator may be a comma.
std::string fixed(double v, int precision) {
    char buffer[512];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::fixed, precision);
    return std::string(buffer, result.ptr);
}

std::string general(double v, int precision) {
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::general, precision);
    return std::string(buffer, result.ptr);
}

// printf's field width: blanks on the left up to `width` characters.
std::string padded(std::string text, std::size_t width) {
    if (text.size() < width) {
        text.insert(0, width - text.size(), ' ');
    }
    return text;
}

}  // namespace

std::string integralText(double begin, double end, double value) {
    return "S(" + general(begin, 6) + ", " + general(end, 6) +
           ") = " + padded(fixed(value, 15), 18);
}

std::string preciseQuestionText(double value) {
    return "Integral Is " + padded(general(value, 15), 18) +
           ". \n  Do You Want To Calculate It More Precisely?";
}

std::string refinementCutText() {
    return "THE INTEGRAL DID NOT SETTLE WITHIN " + std::to_string(kMostRefinementEvaluations) +
           " EVALUATIONS: THE VALUE SHOWN IS THE BEST FOUND";
}

std::string yText(double y) {
    return "y=" + fixed(y, 6);
}

std::string slopeText(double slope) {
    return "y'=" + fixed(slope, 6);
}

std::string solutionText(double root, bool piUnits) {
    return piUnits ? formatSolutionInPi(root) : formatValue(root);
}

std::string extremeText(double v, bool piUnits) {
    return piUnits ? formatValueInPi(v) : formatValue(v);
}

}  // namespace curvemill
