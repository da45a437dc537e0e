// The colour wheel of the 3D customization dialog: hue around the circle, saturation from the
// grey centre to the pure colours at the rim, full value. A click inside picks a colour.
#pragma once

#include <optional>

#include <QColor>
#include <QImage>
#include <QWidget>

namespace curvemill {

class ColourWheel : public QWidget {
    Q_OBJECT
  public:
    explicit ColourWheel(QWidget* parent = nullptr);
    // The colour drawn at `point` (widget coordinates); none outside the circle.
    std::optional<QColor> colourAt(QPointF point) const;
    QSize sizeHint() const override { return {120, 120}; }

  Q_SIGNALS:
    void colourPicked(const QColor& colour);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QPointF centre() const;
    double radius() const;
};

}  // namespace curvemill
