#include "FormulaGenerator.h"

#include <array>

namespace curvemill::reference {
namespace {

constexpr std::array kNumbers{
    "0",   "1",    "2",     "3", "10", "0.5",       "2.5",       "13",          "12",        "34",
    "100", "1000", "0.001", "7", "1.", "1.0000001", "0.9999999", "99999999999", "2147483648"};

constexpr std::array kFunctions{"sin(", "cos(",  "tan(",  "Sqr(", "log(",
                                "ln(",  "asin(", "acos(", "atan("};

// Domain edges and the deliberate oddities of the language, each a complete operand.
constexpr std::array kSpecials{
    "asin(1.0000001)", "acos(-1.0000001)", "asin(1)", "ln(0)", "Sqr(0)", "log(0)", "(0^x)",
    "((-2)^x)", "((-2)^3)", "((-8)^(1/3))", "(0^2)", "(2^3^2)", "(x/0)", "(0/0)", "(x/x)", "(-1/0)",
    "13!", "((-3)!)", "5.7!", "log(8)", "tan(pi/2)", "(e^1000-e^1000)", "(10^400)", "(x-x)",
    "(-x^2)", "(x^0.5)", "(x^(1+1))", "(2^(x-x))", "((-x)^(2*3))", "(0*x/0)", "((-2)^Sqr(4))",
    "((-x)^sin(0))", "(x^cos(x))", "sin(x)!", "((-1)^(x-x+2))",
    // The check lets a number stand before asin, acos, atan, log and ln; the bracket that holds
    // such a pair then reads only the number, yet its text still mentions x.
    "(0^(2asin(x)))", "((-1)^(3atan(x)))", "(x^(2ln(x)))"};

// Rough count of characters after which a formula stops growing: deep formulas would otherwise
// mostly come out longer than 99 characters and be thrown away.
constexpr std::size_t kBudget = 70;

}  // namespace

std::string FormulaGenerator::next(bool withY) {
    withY_ = withY;
    std::string text;
    do {
        produced_ = 0;
        text = chain(1 + static_cast<int>(pick(4)), true);
    } while (text.size() > 99);
    if (chance(4)) {
        text.erase(pick(text.size()), 1);
    }
    if (chance(10)) {
        for (std::size_t n = 1 + pick(3); n > 0; --n) {
            text.insert(pick(text.size() + 1), 1, ' ');
        }
    }
    return text;
}

// A sum of products (`sum`) or a product of power chains, with a leading minus now and then.
std::string FormulaGenerator::chain(int depth, bool sum) {
    std::string text = sum && chance(20) ? "-" : "";
    text += sum ? chain(depth, false) : powerChain(depth);
    for (std::size_t n = pick(sum ? depth + 2 : 3); n > 0 && produced_ < kBudget; --n) {
        text += chance(50) ? (sum ? "+" : "*") : (sum ? "-" : "/");
        text += sum ? chain(depth, false) : powerChain(depth);
    }
    return text;
}

std::string FormulaGenerator::powerChain(int depth) {
    std::string text = atom(depth);
    for (std::size_t n = chance(25) ? 1 + pick(2) : 0; n > 0; --n) {
        text += "^";
        text += atom(depth - 1);
    }
    if (chance(8)) {
        text += chance(80) ? "!" : "!!";
    }
    return text;
}

std::string FormulaGenerator::atom(int depth) {
    const std::size_t choice = depth <= 0 || produced_ >= kBudget ? 0 : pick(100);
    if (choice < 55) {
        return leaf();
    }
    if (choice < 77) {
        return kFunctions[pick(kFunctions.size())] + chain(depth - 1, true) + ")";
    }
    if (choice < 93) {
        std::string text(1, '(');  // appending sidesteps a false -Wrestrict of GCC 12
        text += chain(depth - 1, true);
        return text += ')';
    }
    produced_ += 8;
    return kSpecials[pick(kSpecials.size())];
}

std::string FormulaGenerator::leaf() {
    produced_ += 3;
    const std::size_t choice = pick(100);
    if (choice < 40) {
        return number();
    }
    return choice < 70 ? "x" : choice < 85 && withY_ ? "y" : choice < 93 ? "pi" : "e";
}

std::string FormulaGenerator::number() {
    if (chance(60)) {
        return kNumbers[pick(kNumbers.size())];
    }
    std::string digits = std::to_string(pick(1000));
    if (chance(50)) {
        digits += '.';
        digits += std::to_string(pick(100000));
    }
    return digits;
}

}  // namespace curvemill::reference
