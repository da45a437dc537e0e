// Redraws the surface on screen in slices: a 501 x 501 grid takes several frames' time to draw,
// so it is drawn a few lines at a time between events, and the window stays responsive.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QObject>

#include "graph3d/SurfaceDrawing.h"

namespace curvemill {

class SurfaceRedraw : public QObject {
    Q_OBJECT
  public:
    // Time drawn per turn of the event loop before the rest is left for the next turn.
    static constexpr int kSliceMilliseconds = 12;

    explicit SurfaceRedraw(QObject* parent = nullptr) : QObject(parent) {}
    // Starts a whole redraw of `scene` into `image` (already filled with the background), drawing
    // the first slice now. A redraw still under way is dropped.
    void start(QImage& image, SurfaceScene& scene);
    void cancel();
    // "Show Drawing Process": the lines are drawn a few at a time, kPacedMilliseconds apart, so
    // that the figure builds up far side first over about kPacedSlices frames.
    void setPaced(bool on) { paced_ = on; }
    bool paced() const { return paced_; }
    static constexpr int kPacedMilliseconds = 25;
    static constexpr int kPacedSlices = 60;
    bool running() const { return image_ != nullptr; }

  Q_SIGNALS:
    // More of the figure is in the image: repaint. `percent` of the lines are drawn.
    void sliceDrawn(int percent);
    void finished();

  private:
    void drawSlice();

    QImage* image_ = nullptr;
    SurfaceScene* scene_ = nullptr;
    // Holds the screen's own projection: an export painted between two slices projects into
    // its own plan and leaves this one as it was.
    DrawingPlan plan_;
    int next_ = 0;
    int lines_ = 0;
    bool paced_ = false;
    // Bumped by every start or cancel, so that a slice posted for an older redraw does nothing.
    unsigned generation_ = 0;
};

}  // namespace curvemill
