#include "output/ExportOptions.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace curvemill {

namespace {

constexpr std::array<PercentChoice, 3> kSmaller{{{"25%", 0.25}, {"50%", 0.5}, {"75%", 0.75}}};
constexpr std::array<PercentChoice, 3> kLarger{{{"150%", 1.5}, {"200%", 2.0}, {"400%", 4.0}}};

int truncatedSide(double side) {
    if (!(side >= 1.0)) {
        return 1;
    }
    return static_cast<int>(std::min(side, static_cast<double>(kLargestExportSide)));
}

}  // namespace

std::span<const PercentChoice> percentList(ExportSource source) {
    if (source == ExportSource::Document) {
        return kSmaller;
    }
    return kLarger;
}

double fitToScreenScale(PixelSize source, PixelSize screen) {
    if (source.width <= 0 || source.height <= 0 || screen.width <= 0 || screen.height <= 0) {
        return 1.0;
    }
    return std::min({static_cast<double>(screen.width) / source.width,
                     static_cast<double>(screen.height) / source.height, kLargestScale});
}

PixelSize scaledSize(PixelSize source, double scale) {
    if (!std::isfinite(scale) || scale <= 0.0) {
        scale = 1.0;
    }
    double width = source.width * scale;
    double height = source.height * scale;
    const double largest = std::max(width, height);
    if (largest > kLargestExportSide) {
        width *= kLargestExportSide / largest;
        height *= kLargestExportSide / largest;
    }
    if (width * height > kLargestExportPixels) {
        const double shrink = std::sqrt(kLargestExportPixels / (width * height));
        width *= shrink;
        height *= shrink;
    }
    return {truncatedSide(width), truncatedSide(height)};
}

double choiceScale(SizeChoice choice, ExportSource source, int otherIndex, PixelSize sourceSize,
                   PixelSize screen) {
    switch (choice) {
        case SizeChoice::AsIs:
            return 1.0;
        case SizeChoice::FitToScreen:
            return fitToScreenScale(sourceSize, screen);
        case SizeChoice::Other: {
            const auto list = percentList(source);
            const auto index = static_cast<std::size_t>(std::clamp(otherIndex, 0, 2));
            return list[index].scale;
        }
    }
    return 1.0;
}

std::string bytesText(std::int64_t bytes) {
    return std::to_string(bytes) + " Bytes";
}

}  // namespace curvemill
