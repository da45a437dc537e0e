// Printing a graph: the page drawing and the preview window.
#pragma once

#include <QPrintPreviewDialog>

#include "failure/ProcedureNames.h"
#include "output/ui/GraphPicture.h"

class QPaintDevice;
class QPrinter;

namespace curvemill {

// Pixels of a printed page per layout pixel: the screen's 96 to the inch, so that text and lines
// keep on paper the size they have on a screen of that density.
double printedPixelRatio(const QPaintDevice& page);

// Draws the graph over the whole printable area of the page, at the page's proportions, laid out
// at the printer's resolution (the drawing gets PictureExtent::PrintedPage and the area's size).
void printPicture(QPrinter& printer, const GraphPicture& picture);

// The print preview: the page as it will print, with page setup and printing (to a printer or,
// through the print dialog, to a PDF file). Landscape when the graph is wider than tall.
class PrintPreviewWindow : public QPrintPreviewDialog, public FailureScope {
    Q_OBJECT
  public:
    PrintPreviewWindow(QPrinter& printer, GraphPicture picture, QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcPreviewWindow; }

  private:
    GraphPicture picture_;
};

}  // namespace curvemill
