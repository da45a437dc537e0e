// The "Save To File" dialog: which picture, its colours and size, then the file, written with
// progress.
#pragma once

#include <atomic>
#include <functional>

#include <QDialog>

#include "failure/ProcedureNames.h"
#include "output/BmpExport.h"
#include "output/ExportOptions.h"
#include "output/ui/GraphPicture.h"
#include "output/ui/ImageFiles.h"

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace curvemill {

// Control identifiers (each widget's objectName).
namespace save_ids {
inline constexpr int kDocument = 1083;
inline constexpr int kCurrentScreen = 1084;
inline constexpr int kCurrentSelection = 1105;
inline constexpr int kFullColour = 1091;
inline constexpr int kEightBits = 1092;
inline constexpr int kAsIs = 1085;
inline constexpr int kFitToScreen = 1086;
inline constexpr int kOther = 1087;
inline constexpr int kOtherList = 1088;
inline constexpr int kProgress = 1089;
inline constexpr int kSizeText = 1090;
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kHelp = 9;
}  // namespace save_ids

// Our own message, shown when the file could not be written.
inline constexpr const char* kMsgCannotSave = "UNABLE TO SAVE THE PICTURE IN %s";

// The file name the user chose, or empty when the save dialog was cancelled.
using FileNameChooser = std::function<QString(const QString& suggested)>;

class SaveToFileDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    SaveToFileDialog(GraphPicture picture, QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcSaveToFileDialog; }

    // The name offered in the save dialog; after a save, the name saved under.
    void setFileName(const QString& name) { fileName_ = name; }
    const QString& fileName() const { return fileName_; }
    // Replaces the system's save dialog (tests, scripted use).
    void setFileNameChooser(FileNameChooser chooser) { chooser_ = std::move(chooser); }
    // Told each stage's percentage as the bar moves (tests watch the stages here).
    void setProgressObserver(std::function<void(int)> observer) { observer_ = std::move(observer); }

    ExportSource source() const;
    int bitsPerPixel() const;
    double scale() const;
    // The picture's size for the current choices.
    PixelSize targetSize() const;
    // How the last OK ended; Cancelled also when the save dialog was cancelled.
    ExportOutcome lastOutcome() const { return outcome_; }

  public Q_SLOTS:
    void accept() override;
    void reject() override;

  private:
    void updateChoices();
    void setWriting(bool writing);
    void stageDone(int percent);
    ExportOutcome save(const QString& path);
    ExportOutcome saveOther(const QString& path, ImageFormat format);
    QString askFileName(const QString& suggested);

    GraphPicture picture_;
    QString fileName_ = QStringLiteral("Graph.bmp");
    FileNameChooser chooser_;
    std::function<void(int)> observer_;
    std::atomic<bool> cancel_{false};
    bool writing_ = false;
    ExportOutcome outcome_ = ExportOutcome::Cancelled;

    QRadioButton* document_;
    QRadioButton* screen_;
    QRadioButton* selection_;
    QRadioButton* fullColour_;
    QRadioButton* eightBits_;
    QRadioButton* asIs_;
    QRadioButton* fitToScreen_;
    QRadioButton* other_;
    QComboBox* otherList_;
    QLabel* sizeText_;
    QProgressBar* progress_;
    QPushButton* ok_;
    QPushButton* cancel_button_;
};

}  // namespace curvemill
