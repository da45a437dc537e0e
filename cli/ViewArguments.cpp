#include "cli/ViewArguments.h"
#include "cli/Printable.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace curvemill::cli {

namespace {

// Numbers separated by commas, each read whole; nothing when one is not a finite number.
std::optional<std::vector<double>> numberList(const std::string& text) {
    std::vector<double> numbers;
    std::size_t begin = 0;
    while (true) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const std::string item = text.substr(begin, end - begin);
        char* stop = nullptr;
        errno = 0;
        const double v = std::strtod(item.c_str(), &stop);
        if (item.empty() || stop != item.c_str() + item.size() || errno != 0 || !std::isfinite(v)) {
            return std::nullopt;
        }
        numbers.push_back(v);
        if (end == text.size()) {
            return numbers;
        }
        begin = end + 1;
    }
}

}  // namespace

std::optional<RotationAngles> readRotation(const std::optional<std::string>& value,
                                           UsageErrors& usage) {
    if (!value) {
        return RotationAngles{};
    }
    const auto numbers = numberList(*value);
    if (!numbers || numbers->size() != 3) {
        usage.report() << "--rotate takes three angles in degrees about x, y and z, "
                          "as A,B,C, not "
                       << quoted(*value) << "\n";
        return std::nullopt;
    }
    return RotationAngles{wrapDegrees((*numbers)[0]), wrapDegrees((*numbers)[1]),
                          wrapDegrees((*numbers)[2])};
}

bool readViewerLocation(const std::optional<std::string>& value, SurfaceView& view,
                        UsageErrors& usage) {
    if (!value) {
        return true;
    }
    const auto numbers = numberList(*value);
    const bool whole = numbers && numbers->size() == 2 &&
                       (*numbers)[0] == std::floor((*numbers)[0]) &&
                       (*numbers)[1] == std::floor((*numbers)[1]);
    if (!whole || (*numbers)[0] < kLeastHorizontalLocation ||
        (*numbers)[0] > kMostHorizontalLocation ||
        std::abs((*numbers)[1]) > kMostVerticalLocation) {
        usage.report() << "--view takes two whole numbers H,V with H from "
                       << kLeastHorizontalLocation << " to " << kMostHorizontalLocation
                       << " and V from " << -kMostVerticalLocation << " to "
                       << kMostVerticalLocation << ", not " << quoted(*value) << "\n";
        return false;
    }
    view.horizontalLocation = static_cast<std::int32_t>((*numbers)[0]);
    view.verticalLocation = static_cast<std::int32_t>((*numbers)[1]);
    return true;
}

}  // namespace curvemill::cli
