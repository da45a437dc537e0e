#include "output/ui/SaveToFileDialog.h"

#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "output/BmpLayout.h"
#include "output/ui/PictureRendering.h"

namespace curvemill {

namespace {

QRadioButton* radio(const QString& text, int id, QWidget* parent) {
    auto* button = new QRadioButton(text, parent);
    button->setObjectName(QString::number(id));
    return button;
}

QGroupBox* group(const QString& title, std::initializer_list<QWidget*> widgets, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    auto* layout = new QVBoxLayout(box);
    auto* buttons = new QButtonGroup(box);
    for (QWidget* widget : widgets) {
        layout->addWidget(widget);
        // One choice per group, also for a button sitting in a row of its own.
        if (auto* button = qobject_cast<QRadioButton*>(widget)) {
            buttons->addButton(button);
        }
        for (QRadioButton* inner : widget->findChildren<QRadioButton*>()) {
            buttons->addButton(inner);
        }
    }
    return box;
}

// The save dialog's file types; the bitmap comes first, as the program's own format.
const QStringList& nameFilters() {
    static const QStringList filters{
        QStringLiteral("BMP Files (*.BMP *.bmp)"), QStringLiteral("PNG Files (*.png *.PNG)"),
        QStringLiteral("SVG Files (*.svg *.SVG)"), QStringLiteral("PDF Files (*.pdf *.PDF)")};
    return filters;
}

}  // namespace

SaveToFileDialog::SaveToFileDialog(GraphPicture picture, QWidget* parent)
    : QDialog(parent), picture_(std::move(picture)) {
    setObjectName(QStringLiteral("121"));
    setWindowTitle(QStringLiteral("Save To File"));

    document_ = radio(QStringLiteral("&Document"), save_ids::kDocument, this);
    screen_ = radio(QStringLiteral("Current &Screen"), save_ids::kCurrentScreen, this);
    selection_ = radio(QStringLiteral("Current S&election"), save_ids::kCurrentSelection, this);
    fullColour_ = radio(QStringLiteral("&None (Full Color)"), save_ids::kFullColour, this);
    eightBits_ = radio(QStringLiteral("&8 Bits Per Pixel"), save_ids::kEightBits, this);
    asIs_ = radio(QStringLiteral("&As Is"), save_ids::kAsIs, this);
    fitToScreen_ = radio(QStringLiteral("&Fit to Screen"), save_ids::kFitToScreen, this);
    other_ = radio(QStringLiteral("&Other"), save_ids::kOther, this);
    otherList_ = new QComboBox(this);
    otherList_->setObjectName(QString::number(save_ids::kOtherList));
    sizeText_ = new QLabel(this);
    sizeText_->setObjectName(QString::number(save_ids::kSizeText));
    sizeText_->setAlignment(Qt::AlignCenter);
    progress_ = new QProgressBar(this);
    progress_->setObjectName(QString::number(save_ids::kProgress));
    progress_->setRange(0, 100);
    progress_->setValue(0);
    progress_->setTextVisible(false);
    ok_ = new QPushButton(QStringLiteral("O&K"), this);
    ok_->setObjectName(QString::number(save_ids::kOk));
    ok_->setDefault(true);
    cancel_button_ = new QPushButton(QStringLiteral("&Cancel"), this);
    cancel_button_->setObjectName(QString::number(save_ids::kCancel));
    auto* help = new QPushButton(QStringLiteral("&Help"), this);
    help->setObjectName(QString::number(save_ids::kHelp));
    help->setAutoDefault(false);
    connect(help, &QPushButton::clicked, this, [this] {
        QEvent request(QEvent::HelpRequest);
        QCoreApplication::sendEvent(this, &request);
    });

    auto* otherRow = new QWidget(this);
    auto* otherLayout = new QHBoxLayout(otherRow);
    otherLayout->setContentsMargins(0, 0, 0, 0);
    otherLayout->addWidget(other_);
    otherLayout->addWidget(otherList_, 1);

    auto* layout = new QGridLayout(this);
    layout->addWidget(group(QStringLiteral("Picture"), {document_, screen_, selection_}, this), 0,
                      0);
    layout->addWidget(group(QStringLiteral("Compression"), {fullColour_, eightBits_}, this), 0, 1);
    layout->addWidget(group(QStringLiteral("Size"), {asIs_, fitToScreen_, otherRow}, this), 1, 0);
    auto* right = new QVBoxLayout;
    right->addWidget(sizeText_);
    right->addStretch(1);
    right->addWidget(ok_);
    right->addWidget(cancel_button_);
    right->addWidget(help);
    layout->addLayout(right, 1, 1);
    layout->addWidget(progress_, 2, 0, 1, 2);

    screen_->setChecked(true);
    fullColour_->setChecked(true);
    asIs_->setChecked(true);
    selection_->setEnabled(picture_.selection.has_value());

    for (QRadioButton* button :
         {document_, screen_, selection_, fullColour_, eightBits_, asIs_, fitToScreen_, other_}) {
        connect(button, &QRadioButton::toggled, this, [this](bool on) {
            if (on) {
                updateChoices();
            }
        });
    }
    connect(otherList_, &QComboBox::currentIndexChanged, this, [this] { updateChoices(); });
    connect(ok_, &QPushButton::clicked, this, &SaveToFileDialog::accept);
    connect(cancel_button_, &QPushButton::clicked, this, &SaveToFileDialog::reject);
    updateChoices();
}

ExportSource SaveToFileDialog::source() const {
    if (document_->isChecked()) {
        return ExportSource::Document;
    }
    return selection_->isChecked() ? ExportSource::Selection : ExportSource::Screen;
}

int SaveToFileDialog::bitsPerPixel() const {
    return eightBits_->isChecked() ? 8 : 24;
}

double SaveToFileDialog::scale() const {
    const SizeChoice choice = asIs_->isChecked()          ? SizeChoice::AsIs
                              : fitToScreen_->isChecked() ? SizeChoice::FitToScreen
                                                          : SizeChoice::Other;
    const QSize screen = picture_.screenSize;
    return choiceScale(choice, source(), otherList_->currentIndex(), sourceSize(picture_, source()),
                       {screen.width(), screen.height()});
}

PixelSize SaveToFileDialog::targetSize() const {
    return scaledSize(sourceSize(picture_, source()), scale());
}

// Called on every change: the list follows the source, keeping the position chosen in it.
void SaveToFileDialog::updateChoices() {
    const auto list = percentList(source());
    const int index = std::max(0, otherList_->currentIndex());
    if (otherList_->count() == 0 ||
        otherList_->itemText(0) !=
            QString::fromUtf8(list[0].text.data(), static_cast<qsizetype>(list[0].text.size()))) {
        const QSignalBlocker block(otherList_);
        otherList_->clear();
        for (const PercentChoice& choice : list) {
            otherList_->addItem(
                QString::fromUtf8(choice.text.data(), static_cast<qsizetype>(choice.text.size())));
        }
        otherList_->setCurrentIndex(std::min(index, otherList_->count() - 1));
    }
    otherList_->setEnabled(other_->isChecked() && !writing_);
    const PixelSize size = targetSize();
    sizeText_->setText(
        QString::fromStdString(bytesText(bmpFileSize(size.width, size.height, bitsPerPixel()))));
}

void SaveToFileDialog::setWriting(bool writing) {
    writing_ = writing;
    for (QWidget* widget : std::initializer_list<QWidget*>{
             document_, screen_, fullColour_, eightBits_, asIs_, fitToScreen_, other_, ok_}) {
        widget->setEnabled(!writing);
    }
    selection_->setEnabled(!writing && picture_.selection.has_value());
    otherList_->setEnabled(!writing && other_->isChecked());
}

void SaveToFileDialog::stageDone(int percent) {
    progress_->setValue(percent);
    if (observer_) {
        observer_(percent);
    }
    // The writing runs here, on the window's thread, and is short; letting events through between
    // stages keeps the bar moving and lets Cancel be pressed.
    QCoreApplication::processEvents();
}

QString SaveToFileDialog::askFileName(const QString& suggested) {
    QFileDialog files(this, QStringLiteral("Save As"), QString(), QString());
    files.setAcceptMode(QFileDialog::AcceptSave);
    files.setFileMode(QFileDialog::AnyFile);
    files.setNameFilters(nameFilters());
    files.setDefaultSuffix(QStringLiteral("bmp"));
    files.setOption(QFileDialog::DontConfirmOverwrite, false);
    // A name of another type chooses that type; switching the type gives the name its ending.
    if (const auto format = formatForPath(suggested)) {
        files.selectNameFilter(nameFilters().at(static_cast<int>(*format)));
        files.setDefaultSuffix(formatExtension(*format));
    }
    files.selectFile(suggested);
    connect(&files, &QFileDialog::filterSelected, &files, [&files](const QString& filter) {
        const int index = static_cast<int>(nameFilters().indexOf(filter));
        if (index < 0) {
            return;
        }
        const QString suffix = formatExtension(static_cast<ImageFormat>(index));
        files.setDefaultSuffix(suffix);
    });
    if (files.exec() != QDialog::Accepted || files.selectedFiles().isEmpty()) {
        return {};
    }
    return files.selectedFiles().constFirst();
}

void SaveToFileDialog::accept() {
    if (writing_) {
        return;
    }
    const QString path = chooser_ ? chooser_(fileName_) : askFileName(fileName_);
    if (path.isEmpty()) {
        outcome_ = ExportOutcome::Cancelled;
        QDialog::reject();
        return;
    }
    fileName_ = path;
    cancel_ = false;
    progress_->setValue(0);
    setWriting(true);
    outcome_ = save(path);
    setWriting(false);
    if (outcome_ == ExportOutcome::Failed) {
        QMessageBox::warning(this, windowTitle(), QString::fromLatin1(kMsgCannotSave).arg(path));
    }
    if (outcome_ == ExportOutcome::Written) {
        QDialog::accept();
    } else {
        QDialog::reject();
    }
}

void SaveToFileDialog::reject() {
    if (writing_) {
        cancel_ = true;
        return;
    }
    QDialog::reject();
}

ExportOutcome SaveToFileDialog::save(const QString& path) {
    const std::optional<ImageFormat> format = formatForPath(path);
    if (format && *format != ImageFormat::Bmp) {
        return saveOther(path, *format);
    }
    QImage image;
    BmpExportSteps steps;
    steps.makePicture = [this, &image] {
        image = renderPicture(picture_, source(), scale());
        return RgbPixels{image.constBits(), image.width(), image.height(), image.bytesPerLine()};
    };
    steps.progress = [this](int percent) { stageDone(percent); };
    steps.cancel = &cancel_;
    return exportBmp(path.toStdString(), bitsPerPixel(), steps);
}

// PNG, SVG and PDF: the same picture, written whole or not at all, with the bar moving as the
// picture is drawn, encoded and written.
ExportOutcome SaveToFileDialog::saveOther(const QString& path, ImageFormat format) {
    const ExportSource chosen = source();
    const double factor = scale();
    std::optional<QByteArray> bytes;
    if (format == ImageFormat::Png) {
        const QImage image = renderPicture(picture_, chosen, factor);
        stageDone(30);
        if (cancel_) {
            return ExportOutcome::Cancelled;
        }
        bytes = encodeRasterFile(format, image);
    } else {
        const PixelSize size = targetSize();
        const PageDrawing draw = [this, chosen](QPainter& painter, QSize pixels) {
            drawSource(painter, picture_, chosen, pixels);
        };
        bytes = encodeGraphFile(format, draw, QSize(size.width, size.height));
    }
    stageDone(50);
    if (cancel_ || !bytes) {
        return bytes ? ExportOutcome::Cancelled : ExportOutcome::Failed;
    }
    const std::optional<QString> failure = writeWholeFile(path, *bytes);
    stageDone(100);
    return failure ? ExportOutcome::Failed : ExportOutcome::Written;
}

}  // namespace curvemill
