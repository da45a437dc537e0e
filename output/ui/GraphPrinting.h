// Printing a graph: the page drawing and the preview window.
#pragma once

#include <QPrintPreviewDialog>

#include "failure/ProcedureNames.h"
#include "output/ui/GraphPicture.h"

class QPrinter;

namespace curvemill {

// Where the graph goes on a page of `page` pixels: the screen's proportions, as large as the
// page allows, centred across and at the top.
QRect printedRect(QSize screen, QRect page);

// Draws the graph on a printed page, laid out at the printer's resolution.
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
