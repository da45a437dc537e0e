// Windows open no larger than the free area of the screen they open on, and wholly on it: a
// help window sized for scale 1 would leave the screen at scale 2, a list placed under the
// mouse would hang below the bottom edge.
#pragma once

#include <QObject>

class QWidget;

namespace curvemill {

void fitToScreen(QWidget& window);

// Fits every other window of the program as it is shown; lives as long as its parent, the
// main window.
class ScreenFitter : public QObject {
  public:
    explicit ScreenFitter(QObject* parent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace curvemill
