// The points spin of the Two D Graph dialog: 1..40 units of 10000, out-of-range entries corrected.
#pragma once

#include <QSpinBox>

namespace curvemill {

class TwoDGraphPointsSpin : public QSpinBox {
    Q_OBJECT
  public:
    explicit TwoDGraphPointsSpin(QWidget* parent = nullptr);
    // The editor inside the spin, so the dialog can name it as the points edit box.
    QLineEdit* editor() const { return lineEdit(); }
    // The position the current text stands for, corrected into 1..40 (0 gives 1, 41 gives 40).
    int correctedValue() const;

  protected:
    // Lets any whole number be typed, so that 0 or 41 can be corrected rather than refused.
    QValidator::State validate(QString& input, int& position) const override;
    void fixup(QString& input) const override;

  private:
    // A number is clamped into the range; anything else keeps the current position.
    int correctedValueOf(const QString& text) const;
};

}  // namespace curvemill
