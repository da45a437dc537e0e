// Seeded generator of formulas as users type them, for cross-checking the evaluators.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace curvemill::reference {

class FormulaGenerator {
  public:
    explicit FormulaGenerator(std::uint64_t seed) : rng_(seed) {}

    // A formula in x (and y when `withY`), mostly valid, of at most 99 characters once blanks
    // are removed; a few carry blanks or a deleted character so the check sees noise as well.
    std::string next(bool withY);

  private:
    std::size_t pick(std::size_t n) { return static_cast<std::size_t>(rng_() % n); }
    bool chance(int percent) { return pick(100) < static_cast<std::size_t>(percent); }

    std::string chain(int depth, bool sum);
    std::string powerChain(int depth);
    std::string atom(int depth);
    std::string leaf();
    std::string number();

    // mt19937_64 is fully specified, so a seed gives the same formulas on every platform; the
    // distributions of <random> are not, hence the plain modulo in pick().
    std::mt19937_64 rng_;
    bool withY_ = false;
    // Characters produced so far for the formula in the making (roughly).
    std::size_t produced_ = 0;
};

}  // namespace curvemill::reference
