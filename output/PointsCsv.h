// The curve points of a picture as comma-separated text, for pasting into a spreadsheet.
#pragma once

#include <string>
#include <vector>

namespace curvemill {

struct CsvPoint {
    double x = 0.0;
    double y = 0.0;
};

struct CsvCurve {
    // The curve's name in the first column, e.g. "f(x) = sin(x)"; quoted when it needs to be.
    std::string name;
    std::vector<CsvPoint> points;
};

// "curve,x,y" and one line per point, numbers with 17 significant digits so that a paste gives
// back the very doubles; lines end in CR LF, as spreadsheets expect on the clipboard.
std::string pointsCsv(const std::vector<CsvCurve>& curves);

}  // namespace curvemill
