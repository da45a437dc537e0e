#include "cli/SurfaceLook.h"
#include "cli/Printable.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include "cli/MathCommands.h"
#include "graph3d/SurfaceLookRules.h"

namespace curvemill::cli {

namespace {

// A plain decimal number, all of the text.
std::optional<double> plainNumber(const std::string& text) {
    if (text.empty()) {
        return std::nullopt;
    }
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::vector<OptionSpec> surfaceLookOptions() {
    return {{"grid", "", "draw the box with grid lines and values around the figure"},
            {"light", "X,Y,Z",
             "light vector, each component -1 to 1, not all 0\n"
             "(default -1,-(D-C)/(B-A),0)"},
            {"fog", "N", "fog intensity 0 to 10 (default 5)"},
            {"ambient", "N", "ambient light 0 to 10, in tens of brightness (default 5)"},
            {"shiny", "S", "shiny surface with specular share S, 0 to 1 (default off)"}};
}

bool applySurfaceLook(const ParsedArguments& arguments, SurfaceScene& scene, UsageErrors& usage) {
    SurfaceLight& light = scene.light;
    scene.drawing.gridBox = arguments.flag("grid");
    if (const auto text = arguments.value("light")) {
        double parts[3] = {0, 0, 0};
        std::size_t start = 0;
        bool ok = true;
        for (int k = 0; k < 3 && ok; ++k) {
            const std::size_t comma = text->find(',', start);
            const bool last = k == 2;
            if (last != (comma == std::string::npos)) {
                ok = false;
                break;
            }
            const auto value =
                plainNumber(text->substr(start, last ? std::string::npos : comma - start));
            ok = value && std::fabs(*value) <= 1;
            parts[k] = value.value_or(0);
            start = comma + 1;
        }
        if (!ok || (parts[0] == 0 && parts[1] == 0 && parts[2] == 0)) {
            usage.report() << "--light takes three numbers X,Y,Z from -1 to 1, not "
                              "all 0, not "
                           << quoted(*text) << "\n";
            return false;
        }
        light.vector = {parts[0], parts[1], parts[2]};
    }
    const auto fog =
        wholeArgument(arguments.value("fog"), "fog", 0, kLookSliderMax, light.fogIntensity, usage);
    const auto ambient = wholeArgument(arguments.value("ambient"), "ambient", 0, kLookSliderMax,
                                       ambientPosition(light.ambient), usage);
    if (!fog || !ambient) {
        return false;
    }
    light.fogIntensity = *fog;
    light.ambient = ambientFromPosition(*ambient);
    if (const auto text = arguments.value("shiny")) {
        const auto share = plainNumber(*text);
        if (!share || *share < 0 || *share > 1) {
            usage.report() << "--shiny takes a share from 0 to 1, not " << quoted(*text) << "\n";
            return false;
        }
        light.shiny = true;
        light.specularShare = static_cast<float>(*share);
    }
    return true;
}

}  // namespace curvemill::cli
