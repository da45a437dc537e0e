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

// One vertex of a surface grid: its indices along x and y and its point in space.
struct CsvVertex {
    int i = 0;
    int j = 0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

// "i,j,x,y,z" and one line per vertex, in the same number format and line ends as pointsCsv.
std::string verticesCsv(const std::vector<CsvVertex>& vertices);

}  // namespace curvemill
