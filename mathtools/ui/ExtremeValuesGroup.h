// The Math dialog's "Extreme Values" group: which marked extremes of the curve are listed, and how.
#pragma once

#include <QGroupBox>

#include "mathtools/ExtremeList.h"

class QCheckBox;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace curvemill {

struct Curve;

class ExtremeValuesGroup : public QGroupBox {
    Q_OBJECT
  public:
    // Lists the marks of `curve`; listing erases one mark of every adjacent pair from it.
    explicit ExtremeValuesGroup(Curve& curve, QWidget* parent = nullptr);

    // "Find Extreme Values": lists the extremes the sampler marked.
    void find();
    // A new curve: the rows of the old one are gone, and nothing is listed until asked.
    void forget();
    ExtremeFilter filter() const { return filter_; }
    int rowCount() const;

  private:
    void refill();
    void setFilter(ExtremeFilter filter);

    Curve& curve_;
    ExtremeFilter filter_ = ExtremeFilter::kBoth;
    // The filter and the pi-unit boxes refill the list only once it has been asked for.
    bool found_ = false;
    QPushButton* findButton_ = nullptr;
    QTreeWidget* list_ = nullptr;
    QCheckBox* xInPi_ = nullptr;
    QCheckBox* yInPi_ = nullptr;
    QRadioButton* maxima_ = nullptr;
    QRadioButton* minima_ = nullptr;
    QRadioButton* both_ = nullptr;
};

}  // namespace curvemill
