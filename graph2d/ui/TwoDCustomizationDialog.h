// The "Customization" dialog of the 2D graph: Y ratio, mouse function, display order, options.
#pragma once

#include <array>

#include <QDialog>

#include "failure/ProcedureNames.h"
#include "graph2d/TwoDSettings.h"

class QAbstractButton;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace curvemill {

// Control identifiers (each widget's objectName).
namespace customization_ids {
inline constexpr int kRatioEdit = 1016;
inline constexpr int kRatioSpin = 1018;
inline constexpr int kRatioCaption = 1021;
inline constexpr int kXRangeLabel = 1023;
inline constexpr int kYRangeLabel = 1024;
inline constexpr int kMoveScreen = 1103;
inline constexpr int kSelectArea = 1104;
inline constexpr int kFunctionButton = 1106;
inline constexpr int kDerivativeButton = 1107;
inline constexpr int kIntegralButton = 1108;
inline constexpr int kSecondButton = 1114;
inline constexpr int kFunctionPlace = 1110;
inline constexpr int kDerivativePlace = 1111;
inline constexpr int kIntegralPlace = 1112;
inline constexpr int kSecondPlace = 1115;
inline constexpr int kResetOrder = 1109;
inline constexpr int kOptimizeDrawing = 1034;
inline constexpr int kDisplayTooltips = 1101;
inline constexpr int kDisplayToolbar = 1116;
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kHelp = 9;
}  // namespace customization_ids

class TwoDCustomizationDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    // Opens on `current`, the ratio lowered to what the graph's curves allow. `equationShown`
    // disables "Optimize Drawing", which only applies to sampled curves.
    TwoDCustomizationDialog(const TwoDGraph& graph, TwoDSettings current, bool equationShown,
                            QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcTwoDCustomizationDialog; }
    // What the controls say now (the display order rebuilt from the place numbers).
    TwoDSettings settings() const;
    // The ratio the dialog opened with, lowered to what the curves allow: a different one on OK
    // means a new Y range.
    int openingRatio() const { return openingRatio_; }

  private:
    struct OrderButton {
        GraphCurve curve;
        QPushButton* button;
        QLabel* place;
    };
    QWidget* buildRatioGroup();
    QWidget* buildMouseGroup();
    QWidget* buildOrderGroup();
    void showRanges();
    void pressOrderButton(OrderButton& entry);
    void showPlaces();

    const TwoDGraph& graph_;
    TwoDSettings settings_;
    int openingRatio_ = 0;
    DisplayOrderPicker picker_;
    QSpinBox* ratio_ = nullptr;
    QLabel* xRange_ = nullptr;
    QLabel* yRange_ = nullptr;
    QRadioButton* moveScreen_ = nullptr;
    QRadioButton* selectArea_ = nullptr;
    std::array<OrderButton, 4> order_{};
    QCheckBox* optimize_ = nullptr;
    QCheckBox* tooltips_ = nullptr;
    QCheckBox* toolbar_ = nullptr;
};

}  // namespace curvemill
