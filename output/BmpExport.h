// Writes a bitmap file in the stages the Save To File dialog shows on its progress bar.
#pragma once

#include <atomic>
#include <functional>
#include <string>

#include "output/BmpPixels.h"

namespace curvemill {

enum class ExportOutcome { Written, Cancelled, Failed };

struct BmpExportSteps {
    // Makes the picture at its target size. The pixels must stay valid until exportBmp returns;
    // a picture without pixels fails the export.
    std::function<RgbPixels()> makePicture;
    // Told 10, 20, 30, 40, 50 and 100 as the stages end; it may let the user press Cancel.
    std::function<void(int percent)> progress;
    // Set by Cancel; read after every stage. May be null.
    const std::atomic<bool>* cancel = nullptr;
};

// Creates (or empties) the file at `path` first and writes it stage by stage at 24 or 8 bits per
// pixel. A cancelled or failed export ends with the file created once more, empty: the user sees
// that the name was taken but nothing was saved, and never a truncated picture.
ExportOutcome exportBmp(const std::string& path, int bitsPerPixel, const BmpExportSteps& steps);

}  // namespace curvemill
