// The integral, value, extremes and roots commands of curvemill-cli: exact output, exit status.
// The numbers are the core's (its tests hold them to closed forms); here they show the formats.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "CliRun.h"
#include "mathtools/MathMessages.h"

namespace {

const std::string kLine = "3*x-2 --x-begin 0 --x-end 4 --points 10000 --from 1 --to 3";
const std::string kExp = "e^x --x-begin 0 --x-end 20 --points 10000 --from 0 --to 20";
const std::string kRefused = std::string(curvemill::math_messages::kCannotIntegrate) + "\n";
const std::string kRange = " --x-begin -5 --x-end 5 --y-begin -5 --y-end 5";

TEST(MathCli, PrintsAndExitsAsScriptsExpect) {
    // A command line split at its blanks, its exact stdout and status.
    const std::tuple<std::string, std::string, int> rows[] = {
        {"integral " + kLine, "S(1, 3) =  7.999999999999999\nprecise-enough yes\n", 0},
        {"integral --precise " + kLine, "S(1, 3) =  7.999999999999999\n", 0},
        {"integral " + kExp, "S(0, 20) = 485165356.131509542465210\nprecise-enough no\n", 0},
        // Refused by the interval's check, then by the sum's.
        {"integral Sqr(x) --x-begin -1 --x-end 1 --from -1 --to 1", kRefused, 1},
        {"integral 10^308 --x-begin -5 --x-end 5 --from -5 --to 5", kRefused, 1},
        {"integral --precise sin(1/x) --x-begin -5 --x-end 5 --points 10000 --from -5 --to 5",
         "S(-5, 5) = -0.006542144823964\nTHE INTEGRAL DID NOT SETTLE WITHIN 20000000 "
         "EVALUATIONS: THE VALUE SHOWN IS THE BEST FOUND\n",
         0},
        {"integral x --x-begin -1 --x-end 1 --from 0", "", 2},
        {"integral x --x-begin -1 --x-end 1 --from 0 --to 1 --points 5", "", 2},
        {"value x^2 --x-begin -10 --x-end 10 --at 3", "y 9\nslope 6.0000001461379355\n", 0},
        {"value Sqr(x) --x-begin -10 --x-end 10 --at -1", "y INDEFINITE\nslope INDEFINITE\n", 0},
        {"value x --x-begin -10 --x-end 10 --at 11", "X IS OUTSIDE THE RANGE OF FUNCTION\n", 1},
        {"value x --x-begin -10 --x-end 10", "", 2},
        {"extremes sin(x) --x-begin 0 --x-end 7 --points 10000",
         "1.570796337331609\t1.000000000000000\n"
         "4.712388990921405\t-1.000000000000000\n",
         0},
        {"extremes sin(x) --x-begin 0 --x-end 7 --points 10000 --filter max --x-pi --y-pi",
         "pi*0.500000003353940\tpi*0.318309886183791\n", 0},
        {"extremes x --x-begin 0 --x-end 7", "", 0},
        {"extremes x --x-begin 0 --x-end 7 --filter top", "", 2},
        {"roots x*x-y --y 4" + kRange, "-2.000000000000000\n2.000000000000000\n", 0},
        {"roots x*x-y --x 2" + kRange, "4.000000000000000\n", 0},
        // The default grid finds the roots +-0.1 (see RootScan); five steps miss them.
        {"roots x*x-y --y 0.01 --steps 5" + kRange, "", 0},
        {"roots x*x-y --y 9" + kRange, "Y IS OUTSIDE THE CURRENTLY SELECTED RANGE:\n-5 TO 5\n", 1},
        {"roots x* --y 4" + kRange, "ERROR IN FORMULA EDIT BOX:\nTWO OPERATORS TOGETHER\n", 1},
        {"roots x*x-y" + kRange, "", 2},
        {"roots x*x-y --y 1 --x 1" + kRange, "", 2},
        {"roots x*x-y --y 1 --steps 0" + kRange, "", 2},
        {"roots x*x-y --y 1 --precision 16" + kRange, "", 2},
    };
    for (const auto& [line, out, exitCode] : rows) {
        SCOPED_TRACE(line);
        EXPECT_EQ(checkCliCase({words(line), out, exitCode}), "");
    }
}

}  // namespace
