#include "engine/DisplayFormat.h"

#include <charconv>
#include <cmath>

namespace curvemill {

namespace {

// to_chars instead of printf: the application object switches the C locale to the user's, which
// would turn the decimal point into a comma.
std::string fixed(double v, int precision) {
    char buffer[512];
    auto result =
        std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::fixed, precision);
    return std::string(buffer, result.ptr);
}

std::string general(double v, int precision) {
    char buffer[64];
    auto result =
        std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::general, precision);
    return std::string(buffer, result.ptr);
}

}  // namespace

std::string trimZeros(std::string text) {
    if (text.find('.') == std::string::npos) {
        return text;
    }
    while (!text.empty() && text.back() == '0') {
        text.pop_back();
    }
    if (!text.empty() && text.back() == '.') {
        text.pop_back();
    }
    return text;
}

std::string formatValue(double v) {
    return fixed(v, 15);
}

std::string formatValueInPi(double v) {
    return "pi*" + fixed(v / kPi, 15);
}

std::string formatSolutionInPi(double v) {
    return "pi*" + general(v / kPi, 6);
}

std::string formatEquationSolution(double v) {
    return general(v, 10);
}

std::string boxText(double v) {
    return trimZeros(formatValue(v));
}

std::string boxTextWithin(double v, double lo, double hi) {
    const auto readBack = [](const std::string& text) {
        double value = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    };
    constexpr double kLastDecimal = 1e-15;
    const std::string text = boxText(v);
    const double back = readBack(text);
    if (back < lo) {
        return boxText(v + kLastDecimal);
    }
    if (back > hi) {
        return boxText(v - kLastDecimal);
    }
    return text;
}

std::string formatLogBase(double v) {
    return fixed(v, 6);
}

std::string labelText(double v, bool piUnits) {
    if (std::fabs(v) < 0.000001) {
        return "0";
    }
    std::string prefix;
    if (piUnits) {
        v /= kPi;
        prefix = v <= 0 ? "-pi*" : "pi*";
    } else if (v < 0) {
        prefix = "-";
    }
    const int room = 10 - static_cast<int>(prefix.size());
    const double magnitude = std::fabs(v);
    // From 10^(room-1) on the integer digits alone would fill the label; also catches inf and NaN.
    if (!(magnitude < std::pow(10.0, room - 1))) {
        return prefix;
    }
    return prefix + trimZeros(fixed(magnitude, 6).substr(0, static_cast<std::size_t>(room)));
}

double wholePart(double v) {
    const double magnitude = std::fabs(v);
    if (!(magnitude > 1.0)) {
        return 0.0;
    }
    const double whole = std::ceil(magnitude) - 1.0;
    return v <= 0 ? -whole : whole;
}

}  // namespace curvemill
