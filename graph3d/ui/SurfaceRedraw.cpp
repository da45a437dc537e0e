#include "graph3d/ui/SurfaceRedraw.h"

#include <QPainter>

#include "graph3d/ui/GridBoxPainter.h"

#include <algorithm>

#include <QTimer>

#include "graph3d/PixelRaster.h"

namespace curvemill {

namespace {

PixelBuffer pixelsOf(QImage& image) {
    return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
            image.bytesPerLine() / 4};
}

}  // namespace

void SurfaceRedraw::start(QImage& image, SurfaceScene& scene) {
    cancel();
    if (!scene.complete || !scene.grid.allocated() || !scene.grid.hasDefinedVertex() ||
        image.isNull() || image.depth() != 32) {
        Q_EMIT finished();
        return;
    }
    image_ = &image;
    scene_ = &scene;
    plan_ = prepareDrawing(scene, image.width(), image.height());
    next_ = 0;
    lines_ = lineCount(scene, plan_.pass);
    {
        QPainter painter(&image);
        paintGridBoxLines(painter, scene, plan_.placement, image.size(), BoxPass::Behind);
    }
    drawSlice();
}

void SurfaceRedraw::cancel() {
    ++generation_;
    image_ = nullptr;
    scene_ = nullptr;
}

void SurfaceRedraw::drawSlice() {
    // The scene was discarded between two slices (a new computation fills its grid on the worker):
    // what is left of this picture is not drawn.
    if (!scene_->complete || !scene_->grid.allocated()) {
        cancel();
        Q_EMIT finished();
        return;
    }
    QElapsedTimer clock;
    clock.start();
    RasterSurfaceSink sink(pixelsOf(*image_));
    if (paced_) {
        const int end = std::min(lines_, next_ + std::max(1, lines_ / kPacedSlices));
        drawLines(*scene_, plan_, next_, end, sink);
        next_ = end;
    }
    while (!paced_ && next_ < lines_ && clock.elapsed() < kSliceMilliseconds) {
        const int end = std::min(lines_, next_ + 4);
        drawLines(*scene_, plan_, next_, end, sink);
        next_ = end;
    }
    Q_EMIT sliceDrawn(lines_ > 0 ? 100 * next_ / lines_ : 100);
    if (next_ >= lines_) {
        {
            QPainter painter(image_);
            paintGridBoxLines(painter, *scene_, plan_.placement, image_->size(), BoxPass::InFront);
            paintGridBoxLabels(painter, *scene_, plan_.placement, image_->size());
        }
        image_ = nullptr;
        scene_ = nullptr;
        Q_EMIT finished();
        return;
    }
    const unsigned generation = generation_;
    QTimer::singleShot(paced_ ? kPacedMilliseconds : 0, this, [this, generation] {
        if (generation == generation_ && image_ != nullptr) {
            drawSlice();
        }
    });
}

}  // namespace curvemill
