// The choices of the Save To File dialog and what follows from them: scale, picture size, file
// size.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace curvemill {

// Which picture is saved (the numbers are the export's own).
enum class ExportSource { Screen = 1, Document = 2, Selection = 3 };
enum class SizeChoice { AsIs, FitToScreen, Other };

struct PercentChoice {
    std::string_view text;
    double scale;
};

// The "Other" list a source offers. The whole document is at least as large as the screen, so it
// is offered smaller (25, 50, 75 %); the screen and a selection, which are at most screen-sized,
// are offered larger (150, 200, 400 %) for sharper prints and posters.
std::span<const PercentChoice> percentList(ExportSource source);

struct PixelSize {
    int width = 0;
    int height = 0;
};

// "Fit to Screen": the largest scale at which the whole source fits the screen's graph area, so
// a large document shrinks to it and a small selection grows to it (the screen itself stays 1),
// but never beyond the largest scale the lists offer: a sliver of a selection would otherwise be
// blown up a thousandfold into a blur.
double fitToScreenScale(PixelSize source, PixelSize screen);

inline constexpr double kLargestScale = 4.0;
// The largest side and pixel count of a saved picture (160 MB as 32-bit pixels); larger requests
// are scaled down to fit, keeping the proportions.
inline constexpr int kLargestExportSide = 16384;
inline constexpr double kLargestExportPixels = 40e6;

// The picture's size at `scale`: each side truncated and at least 1, within the limits above.
PixelSize scaledSize(PixelSize source, double scale);

// The scale a choice stands for; `otherIndex` picks from the source's percentList.
double choiceScale(SizeChoice choice, ExportSource source, int otherIndex, PixelSize sourceSize,
                   PixelSize screen);

// The dialog's size text: "%d Bytes".
std::string bytesText(std::int64_t bytes);

}  // namespace curvemill
