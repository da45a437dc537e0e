// The Save To File dialog driven as a user would: choices, size text, lists, stages, Cancel.
#include <array>

#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "output/ui/SaveToFileDialog.h"
#include "tests/output/ui/FakePicture.h"
#include "tests/support/DialogControls.h"

using namespace curvemill;
using curvemill::testing::control;
using curvemill::testing::DrawCall;
using curvemill::testing::fakePicture;

namespace {

GraphPicture picture(bool withSelection = true) {
    auto calls = std::make_shared<std::vector<DrawCall>>();
    return fakePicture(calls, QSize(101, 50), QSize(202, 100),
                       withSelection ? std::optional<QRect>(QRect(0, 0, 31, 20)) : std::nullopt);
}

void choose(const QWidget& dialog, int id) {
    QTest::mouseClick(control<QRadioButton>(dialog, id), Qt::LeftButton);
}

QString sizeText(const QWidget& dialog) {
    return control<QLabel>(dialog, save_ids::kSizeText)->text();
}

QStringList otherList(const QWidget& dialog) {
    auto* list = control<QComboBox>(dialog, save_ids::kOtherList);
    QStringList items;
    for (int i = 0; i < list->count(); ++i) {
        items << list->itemText(i);
    }
    return items;
}

// A dialog on the test picture, shown, that saves to `path` in a folder of its own.
struct Saving {
    QTemporaryDir folder;
    QString path;
    QString offered;  // the name the dialog suggested
    SaveToFileDialog dialog{picture()};
    explicit Saving(const QString& name) : path(folder.filePath(name)) {
        dialog.setFileNameChooser([this](const QString& suggested) {
            offered = suggested;
            return path;
        });
        dialog.show();
    }
    void ok() { QTest::mouseClick(control<QPushButton>(dialog, save_ids::kOk), Qt::LeftButton); }
};

}  // namespace

class SaveToFileDialogTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:

    // The sizes come from the export choices; the rows show the dialog passes its choices on.
    // 31x20 fitted into 101x50 is 77x50, at 8 bits rows of 80 bytes; 25% (the list's first) of
    // 202x100 at 24 bits is 50x25, rows of 152 bytes.
    void sizeTextFollowsEveryChoice() {
        using namespace save_ids;
        const std::array<std::array<int, 4>, 2> cases{
            {{kDocument, kFullColour, kOther, 3854},
             {kCurrentSelection, kEightBits, kFitToScreen, 5078}}};
        for (const auto& [source, compression, size, bytes] : cases) {
            SaveToFileDialog dialog(picture());
            dialog.show();
            choose(dialog, source);
            choose(dialog, compression);
            choose(dialog, size);
            QCOMPARE(sizeText(dialog), QString::number(bytes) + QStringLiteral(" Bytes"));
        }
    }

    void listsFollowTheSource() {
        SaveToFileDialog dialog(picture());
        dialog.show();
        QCOMPARE(otherList(dialog), (QStringList{"150%", "200%", "400%"}));
        QVERIFY(!control(dialog, save_ids::kOtherList)->isEnabled());
        choose(dialog, save_ids::kOther);
        QVERIFY(control(dialog, save_ids::kOtherList)->isEnabled());
        control<QComboBox>(dialog, save_ids::kOtherList)->setCurrentIndex(2);
        choose(dialog, save_ids::kDocument);
        QCOMPARE(otherList(dialog), (QStringList{"25%", "50%", "75%"}));
        // The place in the list is kept: 400 % became 75 %.
        QCOMPARE(dialog.scale(), 0.75);
        choose(dialog, save_ids::kCurrentSelection);
        QCOMPARE(otherList(dialog), (QStringList{"150%", "200%", "400%"}));
        QCOMPARE(dialog.scale(), 4.0);

        // Nothing selected: that source cannot be chosen.
        SaveToFileDialog plain(picture(false));
        QVERIFY(!control(plain, save_ids::kCurrentSelection)->isEnabled());
        QVERIFY(control<QRadioButton>(plain, save_ids::kCurrentScreen)->isChecked());
        QVERIFY(control<QPushButton>(plain, save_ids::kOk)->isDefault());
    }

    void writesInStagesAndRemembersTheName() {
        Saving saving(QStringLiteral("chosen.bmp"));
        SaveToFileDialog& dialog = saving.dialog;
        std::vector<int> stages;
        std::vector<int> barValues;
        bool locked = true;
        dialog.setProgressObserver([&](int percent) {
            stages.push_back(percent);
            barValues.push_back(control<QProgressBar>(dialog, save_ids::kProgress)->value());
            // Nothing can be changed while the file is written.
            locked = locked && !control(dialog, save_ids::kOk)->isEnabled() &&
                     !control(dialog, save_ids::kDocument)->isEnabled();
        });
        choose(dialog, save_ids::kEightBits);
        const QString shown = sizeText(dialog);
        saving.ok();
        QCOMPARE(saving.offered, QStringLiteral("Graph.bmp"));
        QCOMPARE(stages, (std::vector<int>{10, 20, 30, 40, 50, 100}));
        QCOMPARE(barValues, stages);
        QVERIFY(locked);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.lastOutcome(), ExportOutcome::Written);
        QCOMPARE(dialog.fileName(), saving.path);
        QCOMPARE(QString::number(QFile(saving.path).size()) + QStringLiteral(" Bytes"), shown);
        const QImage back(saving.path);
        QCOMPARE(back.size(), QSize(101, 50));
        QCOMPARE(back.pixelColor(50, 25), QColor(Qt::green));  // the screen as shown
    }

    void cancelWhileWritingLeavesAnEmptyFile() {
        Saving saving(QStringLiteral("Graph.bmp"));
        SaveToFileDialog& dialog = saving.dialog;
        // Which stages run before the flag is seen is the writer's test's.
        dialog.setProgressObserver([&](int percent) {
            if (percent == 30) {
                QTest::mouseClick(control<QPushButton>(dialog, save_ids::kCancel), Qt::LeftButton);
            }
        });
        saving.ok();
        QCOMPARE(dialog.lastOutcome(), ExportOutcome::Cancelled);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(QFile::exists(saving.path));
        QCOMPARE(QFile(saving.path).size(), 0);
    }

    void otherFormatsAndACancelledSaveDialog() {
        Saving png(QStringLiteral("graph.png"));
        choose(png.dialog, save_ids::kOther);
        control<QComboBox>(png.dialog, save_ids::kOtherList)->setCurrentIndex(1);
        png.ok();
        const QImage back(png.path, "PNG");
        QCOMPARE(back.size(), QSize(202, 100));  // drawn again at 200 %
        QCOMPARE(back.pixelColor(150, 50), QColor(Qt::blue));

        Saving cancelled(QStringLiteral("none.bmp"));
        cancelled.path.clear();  // the file dialog was cancelled
        cancelled.ok();
        QCOMPARE(cancelled.dialog.result(), int(QDialog::Rejected));
        QCOMPARE(cancelled.dialog.lastOutcome(), ExportOutcome::Cancelled);
        QVERIFY(QDir(cancelled.folder.path()).isEmpty());
    }
};

QTEST_MAIN(SaveToFileDialogTest)
#include "SaveToFileDialogTest.moc"
