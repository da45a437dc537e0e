// The checks an opened document passes before anything on screen changes: every value through
// the same entry checks and limits as the window that would have made it.
#pragma once

#include <optional>
#include <string>

#include "document/GraphDocument.h"

namespace curvemill {

class Formula;

// Why a document is refused: the field (its path in the file, "function.x.begin") and the reason.
struct DocumentRefusal {
    std::string field;
    std::string reason;
    // "<field>: <reason>", what the user is shown.
    std::string text() const;
};

// The ranges' values as the boxes read them.
struct DocumentValues {
    double xBegin = 0.0;
    double xEnd = 0.0;
    // The equation's and the surface's Y range.
    double yBegin = 0.0;
    double yEnd = 0.0;
    // The function's integral range, when one is shown.
    double integralBegin = 0.0;
    double integralEnd = 0.0;
};

struct PreparedDocument {
    DocumentValues values;
    std::optional<DocumentRefusal> refusal;
};

// Prepares the document's formulas into `formula`'s slots through the windows' own entry checks,
// with the document's Log Base: the function (and the second function), the equation or surface
// formula in x and y, or the curve's formulas in t. Stops at the first refusal; `formula` may then
// hold part of the document, so a caller that must keep its state checks on a Formula of its own.
PreparedDocument prepareDocumentFormulas(Formula& formula, const GraphDocument& document);

// Everything a window would refuse: the formulas and ranges (as prepareDocumentFormulas, on a
// Formula of its own), counts, ratios, stretches, zoom, angles, the surface's look.
std::optional<DocumentRefusal> checkGraphDocument(const GraphDocument& document);

// A text that the number boxes read back as exactly `value` (plain decimals, no exponent), for a
// range known only as a number; empty when it would not fit a box.
std::string numberEntryText(double value);

}  // namespace curvemill
