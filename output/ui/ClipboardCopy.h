// Copying a graph to the clipboard: the picture for image editors, its points for spreadsheets.
#pragma once

#include <memory>

#include "output/ui/GraphPicture.h"

class QMimeData;

namespace curvemill {

// The selection (drawn again at its size) with the curve points inside it or, without one, the
// whole graph (also what is scrolled out of sight) with every point: an image, and CSV both as
// plain text and as text/csv.
std::unique_ptr<QMimeData> clipboardData(const GraphPicture& picture);

// Puts clipboardData on the system clipboard.
void copyToClipboard(const GraphPicture& picture);

}  // namespace curvemill
