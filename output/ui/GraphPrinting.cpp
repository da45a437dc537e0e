#include "output/ui/GraphPrinting.h"

#include <algorithm>

#include <QPainter>
#include <QPrinter>

namespace curvemill {

QRect printedRect(QSize screen, QRect page) {
    if (screen.isEmpty() || page.isEmpty()) {
        return page;
    }
    const double scale = std::min(static_cast<double>(page.width()) / screen.width(),
                                  static_cast<double>(page.height()) / screen.height());
    const int width = std::max(1, static_cast<int>(screen.width() * scale));
    const int height = std::max(1, static_cast<int>(screen.height() * scale));
    return QRect(page.x() + (page.width() - width) / 2, page.y(), width, height);
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
    const QRect target = printedRect(picture.screenSize, page);
    painter.translate(target.topLeft());
    painter.setClipRect(QRect(QPoint(0, 0), target.size()));
    painter.fillRect(QRect(QPoint(0, 0), target.size()), Qt::white);
    picture.draw(painter, target.size(), PictureExtent::PrintedPage);
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
