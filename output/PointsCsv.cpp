#include "output/PointsCsv.h"

#include <cstdio>

namespace curvemill {

namespace {

std::string csvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"') {
            quoted += '"';
        }
        quoted += c;
    }
    return quoted + '"';
}

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

}  // namespace

std::string pointsCsv(const std::vector<CsvCurve>& curves) {
    std::string text = "curve,x,y\r\n";
    for (const CsvCurve& curve : curves) {
        const std::string name = csvField(curve.name);
        for (const CsvPoint& point : curve.points) {
            text += name + ',' + number(point.x) + ',' + number(point.y) + "\r\n";
        }
    }
    return text;
}

std::string verticesCsv(const std::vector<CsvVertex>& vertices) {
    std::string text = "i,j,x,y,z\r\n";
    for (const CsvVertex& v : vertices) {
        text += std::to_string(v.i) + ',' + std::to_string(v.j) + ',' + number(v.x) + ',' +
                number(v.y) + ',' + number(v.z) + "\r\n";
    }
    return text;
}

}  // namespace curvemill
