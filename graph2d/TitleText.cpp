#include "graph2d/TitleText.h"

namespace curvemill {

TitleText makeTitle(TitleGraph shown, const std::string& formula, const std::string& secondFormula,
                    bool areaPainted, const std::string& areaText) {
    TitleText title;
    switch (shown) {
        case TitleGraph::kNothing:
            return title;
        case TitleGraph::kFunction:
            title.firstLine = "y = " + formula;
            if (!secondFormula.empty()) {
                title.firstLine += "   y = " + secondFormula;
            }
            if (areaPainted) {
                title.secondLine = areaText;
            }
            return title;
        case TitleGraph::kEquation:
            title.firstLine = formula + " = 0";
            return title;
        case TitleGraph::kSurface:
            title.firstLine = "Z = " + formula;
            return title;
        case TitleGraph::kAsGiven:
            title.firstLine = formula;
            return title;
    }
    return title;
}

}  // namespace curvemill
