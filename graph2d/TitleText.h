// The title written above a graph, and its second line while an area is painted.
#pragma once

#include <string>

namespace curvemill {

enum class TitleGraph {
    kNothing,
    kFunction,
    kEquation,
    kSurface,
    // A title composed elsewhere (the parametric and polar curves), written as it is.
    kAsGiven,
};

struct TitleText {
    std::string firstLine;
    // The painted area's value; empty when none is shown.
    std::string secondLine;
};

// `secondFormula` is empty when no second function exists; `areaText` is used only for functions
// while `areaPainted` is set.
TitleText makeTitle(TitleGraph shown, const std::string& formula, const std::string& secondFormula,
                    bool areaPainted, const std::string& areaText);

}  // namespace curvemill
