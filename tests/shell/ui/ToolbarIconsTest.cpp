#include <QtTest>

#include "shell/CommandTable.h"
#include "shell/ui/ToolbarIcons.h"

using namespace curvemill;

class ToolbarIconsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // Every button has its own picture, drawn at the screen's own pixels at any scale: a blurred,
    // blank or missing one means a picture that did not load (or Qt's SVG engine is missing).
    void everyButtonHasItsOwnSharpPicture() {
        QList<QImage> seen;
        for (const CommandRow& row : commandTable()) {
            if (row.tooltip.empty()) {
                continue;
            }
            const QIcon icon = toolbarIcon(row.id);
            for (const qreal scale : {1.0, 2.0, 3.0}) {
                const QImage picture = icon.pixmap(QSize(24, 24), scale).toImage();
                QVERIFY2(picture.size() == QSize(24, 24) * scale && !picture.allGray(),
                         qPrintable(QStringLiteral("%1 at %2x").arg(row.id).arg(scale)));
            }
            const QImage picture = icon.pixmap(QSize(24, 24), 2.0).toImage();
            QVERIFY2(!seen.contains(picture), qPrintable(QString::number(row.id)));
            seen.append(picture);
        }
        QVERIFY(!programIcon().pixmap(QSize(64, 64), 2.0).toImage().allGray());
    }
};

QTEST_MAIN(ToolbarIconsTest)
#include "ToolbarIconsTest.moc"
