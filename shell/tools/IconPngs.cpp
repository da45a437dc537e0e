// Renders the program's scalable icon into the PNG sizes of the desktop's icon theme:
//   curvemill-icon-pngs ICON.svg OUTPUT_FOLDER SIZE...
// writes OUTPUT_FOLDER/<size>x<size>/apps/curvemill.png for each size.
#include <cstdio>
#include <cstdlib>

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>

int main(int argc, char* argv[]) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: %s ICON.svg OUTPUT_FOLDER SIZE...\n", argv[0]);
        return 2;
    }
    QGuiApplication qt(argc, argv);
    QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
    if (!svg.isValid()) {
        std::fprintf(stderr, "%s: not a readable SVG picture\n", argv[1]);
        return 1;
    }
    const QDir out(QString::fromLocal8Bit(argv[2]));
    for (int i = 3; i < argc; ++i) {
        const int size = std::atoi(argv[i]);
        if (size <= 0 || size > 1024) {
            std::fprintf(stderr, "%s: not an icon size\n", argv[i]);
            return 2;
        }
        QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
        icon.fill(Qt::transparent);
        QPainter painter(&icon);
        painter.setRenderHint(QPainter::Antialiasing);
        svg.render(&painter, QRectF(0, 0, size, size));
        painter.end();
        const QString folder = QStringLiteral("%1x%1/apps").arg(size);
        QSaveFile file(out.filePath(folder + QStringLiteral("/curvemill.png")));
        if (!out.mkpath(folder) || !file.open(QIODevice::WriteOnly) || !icon.save(&file, "PNG") ||
            !file.commit()) {
            std::fprintf(stderr, "%s: cannot write the %d pixel icon\n", argv[2], size);
            return 1;
        }
    }
    return 0;
}
