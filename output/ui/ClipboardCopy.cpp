#include "output/ui/ClipboardCopy.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "output/ui/PictureRendering.h"

namespace curvemill {

std::unique_ptr<QMimeData> clipboardData(const GraphPicture& picture) {
    const bool selected = picture.selection.has_value();
    const ExportSource source = selected ? ExportSource::Selection : ExportSource::Document;
    auto data = std::make_unique<QMimeData>();
    data->setImageData(renderPicture(picture, source, 1.0));
    if (picture.pointsCsv) {
        const std::string csv = picture.pointsCsv(
            selected ? std::optional<QRect>(sourceRect(picture, source)) : std::nullopt);
        const QByteArray bytes(csv.data(), static_cast<qsizetype>(csv.size()));
        data->setText(QString::fromUtf8(bytes));
        data->setData(QStringLiteral("text/csv"), bytes);
    }
    return data;
}

void copyToClipboard(const GraphPicture& picture) {
    QGuiApplication::clipboard()->setMimeData(clipboardData(picture).release());
}

}  // namespace curvemill
