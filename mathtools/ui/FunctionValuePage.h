// The Information dialog's page for a function on screen: y and y' at a typed x.
#pragma once

#include "engine/NumberEntry.h"
#include "mathtools/MathMessages.h"
#include "mathtools/PointValue.h"
#include "mathtools/ui/InformationPage.h"

class QCheckBox;
class QLineEdit;

namespace curvemill {

class Formula;
struct TwoDGraph;

class FunctionValuePage : public InformationPage {
    Q_OBJECT
  public:
    FunctionValuePage(Formula& formula, const TwoDGraph& graph, QWidget* parent = nullptr);

    // Reads the X box and shows y and y' there; a refused entry leaves the results empty.
    bool calculate() override;
    QLineEdit* xEdit() const { return xEdit_; }

  private:
    void showResult();

    Formula& formula_;
    const TwoDGraph& graph_;
    QLineEdit* xEdit_ = nullptr;
    QLineEdit* yResult_ = nullptr;
    QLineEdit* slopeResult_ = nullptr;
    QCheckBox* piUnits_ = nullptr;
    NumberBox xBox_{math_messages::kBoxX};
    // The last value shown, so the pi-unit switch rewrites it without evaluating again.
    bool shown_ = false;
    PointValue value_;
};

}  // namespace curvemill
