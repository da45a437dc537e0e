#include "output/ui/GraphPrinting.h"

#include <algorithm>

#include <QPainter>
#include <QPrinter>

namespace curvemill {

double printedPixelRatio(const QPaintDevice& page) {
    constexpr double kLayoutDpi = 96.0;
    return std::max(1.0, page.logicalDpiX() / kLayoutDpi);
}

void printPicture(QPrinter& printer, const GraphPicture& picture) {
    QPainter painter;
    if (!painter.begin(&printer) || !picture.draw) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    // The painter's origin is the printable area's corner; the rectangle is in printer pixels.
    const QRect page(QPoint(0, 0),
                     printer.pageLayout().paintRectPixels(printer.resolution()).size());
    painter.setClipRect(page);
    painter.fillRect(page, Qt::white);
    picture.draw(painter, page.size(), PictureExtent::PrintedPage);
}

PrintPreviewWindow::PrintPreviewWindow(QPrinter& printer, GraphPicture picture, QWidget* parent)
    : QPrintPreviewDialog(&printer, parent), picture_(std::move(picture)) {
    setObjectName(QStringLiteral("preview class"));
    setWindowTitle(QStringLiteral("Print Preview"));
    const QSize screen = picture_.screenSize;
    printer.setPageOrientation(screen.width() > screen.height() ? QPageLayout::Landscape
                                                                : QPageLayout::Portrait);
    connect(this, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* target) { printPicture(*target, picture_); });
}

}  // namespace curvemill
