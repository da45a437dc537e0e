// Turns a 32-bit picture into a PNG file: 8-bit RGB rows, filtered and deflated through zlib.
#pragma once

#include <optional>
#include <string>

#include "output/BmpPixels.h"

namespace curvemill {

// A whole PNG file of `pixels` (no alpha: the top byte of each word is left out), with their
// resolution in dots per metre when it is above 0. Nothing when zlib fails (out of memory).
std::optional<std::string> encodePng(const RgbPixels& pixels, int dotsPerMeter = 0);

}  // namespace curvemill
