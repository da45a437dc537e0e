// Rendered surfaces, by the direct image road and through the painter: cell colours where the
// cells are, near cells over far ones, nothing outside the target, device pixels on dense screens.
#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

#include <gtest/gtest.h>

// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "SurfaceFixture.h"
#include "graph3d/PixelRaster.h"
#include "graph3d/SurfaceGridBox.h"
#include "graph3d/SurfaceLookRules.h"

#include <QtGui>
#include <QtSvg>

#include "graph3d/ui/GridBoxPainter.h"
#include "graph3d/ui/SurfacePainter.h"

namespace curvemill {
namespace {

enum class Road { Direct, Painter };

QImage rendered(SurfaceScene& scene, Road road, QSize image, QSize target, double ratio = 1) {
    QImage picture(image, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::white);
    picture.setDevicePixelRatio(ratio);
    QPainter painter(&picture);
    if (road == Road::Painter) {
        painter.setClipRect(QRect(QPoint(0, 0), image));  // a caller's clip: the painter road
    }
    paintSurface(painter, scene, target);
    return picture;
}

// The box's values need fonts, which need an application.
void needFonts() {
    static int argc = 1;
    static char name[] = "graph3d_painter_test";
    static char* argv[] = {name, nullptr};
    [[maybe_unused]] static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication app(argc, argv);
}

class SurfacePainterTest : public ::testing::TestWithParam<Road> {};

// Each cell's distance from the eye to its middle and its colour, by where the cell's own
// vertex lands on screen.
auto cellsByCorner(const SurfaceScene& scene, const DrawingPlan& plan) {
    std::map<std::pair<int, int>, std::pair<double, std::uint32_t>> cells;
    const SurfaceGrid& g = scene.grid;
    for (int i = 1; i <= g.nx; ++i) {
        for (int j = 1; j <= g.ny; ++j) {
            Vec3 middle;
            for (const auto& [di, dj] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
                const SurfaceVertex& v = g.vertex(i - di, j - dj);
                middle = middle + 0.25 * Vec3{v.x, v.y, v.zShown};
            }
            cells.try_emplace({plan.points.at(i, j).x, plan.points.at(i, j).y},
                              distance(rotatePoint(scene.view, g, middle), scene.view.eye),
                              cellColour(scene.light, plan.weights, scene.view, g, i, j));
        }
    }
    return cells;
}

// A steep bump hides part of the slope behind it, however it is turned about z. Each cell is
// handed over in its own colour, and every pixel away from the cells' outlines has the colour of
// the covering cell nearest to the eye.
TEST_P(SurfacePainterTest, EachPixelShowsTheNearestCellInItsOwnColour) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "3*e^(0-(x^2+y^2)*3)", -1, 1, -1, 1, nullptr, 12),
              SurfaceOutcome::Done);
    scene.light.scheme = ColourScheme::kGrey;
    scene.view.mode = RotationMode::kAboutZ;
    struct Cell {
        QPolygonF shape;
        QPainterPath outline;  // two pixels either side of the edges
        double distance;
        QRgb colour;
    };
    QPainterPathStroker stroker;
    stroker.setWidth(4);
    for (const int angle : {0, 90, 180, 270}) {
        SCOPED_TRACE(angle);
        setAxisAngle(scene.view, angle);
        RecordingSink sink;
        drawSurface(scene, 800, 600, sink);
        const auto byCorner = cellsByCorner(scene, prepareDrawing(scene, 800, 600));
        std::vector<Cell> cells;
        for (const RecordingSink::Item& item : sink.items) {
            const auto [distance, colour] = byCorner.at({item.points[0].x, item.points[0].y});
            EXPECT_EQ(item.colour, colour);
            QPolygonF shape;
            for (const ScreenPoint& p : item.points) {
                shape << QPointF(p.x, p.y);
            }
            QPainterPath path;
            path.addPolygon(shape);
            path.closeSubpath();
            cells.push_back(
                {shape, stroker.createStroke(path), distance, RasterSurfaceSink::toPixel(colour)});
        }
        const QImage image = rendered(scene, GetParam(), {800, 600}, {800, 600});
        int covered = 0;
        int overlapped = 0;
        for (int y = 1; y < 600; y += 3) {
            for (int x = 1; x < 800; x += 3) {
                const QPointF centre(x + 0.5, y + 0.5);
                const Cell* top = nullptr;
                int covering = 0;
                bool nearEdge = false;
                for (const Cell& cell : cells) {
                    if (cell.outline.boundingRect().contains(centre)) {
                        nearEdge |= cell.outline.contains(centre);
                        if (cell.shape.containsPoint(centre, Qt::OddEvenFill)) {
                            ++covering;
                            top = top == nullptr || cell.distance < top->distance ? &cell : top;
                        }
                    }
                }
                if (covering > 0 && !nearEdge) {
                    ++covered;
                    overlapped += covering > 1;
                    ASSERT_EQ(image.pixel(x, y), top->colour) << x << ',' << y;
                }
            }
        }
        EXPECT_GT(covered, 2000);
        EXPECT_GT(overlapped, 20);
    }
}

TEST_P(SurfacePainterTest, NothingIsDrawnOutsideTheTargetNorForAnIncompleteScene) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "sin(x)*cos(y)", -3, 3, -3, 3), SurfaceOutcome::Done);
    scene.view.zoom = 3;
    using enum DrawingMode;
    for (const auto& [mode, complete] :
         {std::pair{kPolygons, true}, {kLines, true}, {kPixels, true}, {kPolygons, false}}) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(mode) << ' ' << complete);
        scene.drawing.mode = mode;
        scene.complete = complete;  // false: a computation that did not complete
        const QImage image = rendered(scene, GetParam(), {400, 300}, {300, 200});
        int inside = 0;
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 400; ++x) {
                const bool white = image.pixel(x, y) == qRgb(255, 255, 255);
                if (x >= 300 || y >= 200) {
                    ASSERT_TRUE(white) << x << ',' << y;
                } else {
                    inside += white ? 0 : 1;
                }
            }
        }
        EXPECT_TRUE(scene.complete ? inside > 300 * 200 / 10 : inside == 0) << inside;
    }
}

// On a screen with two device pixels per point the figure and its box are laid out in device
// pixels: the same pixels as on a plain image of that size, not a quarter of them scaled up. The
// box's back edges show where nothing covers them and stay under the surface in front of them;
// the three edges nearest the eye are drawn over the surface, seen from above and from below.
TEST_P(SurfacePainterTest, GridBoxInDevicePixelsWithItsFrontEdgesOverTheSurface) {
    needFonts();
    const QSize size(400, 300);
    const QRgb white = qRgb(255, 255, 255);
    int hidden = 0;
    for (const auto& [formula, vertical] :
         {std::pair{"x*x-y", 3}, {"1-x*x-y*y", 3}, {"1-x*x-y*y", -3}}) {
        SCOPED_TRACE(testing::Message() << formula << ' ' << vertical);
        SurfaceScene scene;
        ASSERT_EQ(computeFor(scene, formula, -1, 1, -1, 1, nullptr, 30), SurfaceOutcome::Done);
        scene.view.verticalLocation = vertical;
        setUpView(scene.view, scene.grid);
        const QImage bare = rendered(scene, GetParam(), size, size);
        scene.drawing.gridBox = true;
        const QImage boxed = rendered(scene, GetParam(), size, size);
        QImage dense = rendered(scene, GetParam(), size, size, 2.0);
        dense.setDevicePixelRatio(1.0);
        EXPECT_EQ(dense, boxed);
        const Placement placement = fitFigure(scene.view, scene.grid, size.width(), size.height());
        const ProjectedGridBox box = projectGridBox(scene.view, scene.grid, placement);
        // Seen along the diagonal, the hidden back vertical edge lies under the front one.
        const auto nearFront = [&box](QPoint p) {
            return std::any_of(box.lines.begin(), box.lines.end(), [p](const ProjectedLine& l) {
                const double dx = l.to.x - l.from.x, dy = l.to.y - l.from.y;
                const double cross = (p.x() - l.from.x) * dy - (p.y() - l.from.y) * dx;
                return l.front && std::fabs(cross) < 3 * std::hypot(dx, dy);
            });
        };
        int front = 0;
        for (const ProjectedLine& line : box.lines) {
            front += line.front;
            for (double t = 0.2; line.edge && t < 0.81; t += 0.05) {
                const QPoint at(int(line.from.x + t * (line.to.x - line.from.x)),
                                int(line.from.y + t * (line.to.y - line.from.y)));
                bool clear = true;
                bool covered = true;
                int darkest = 255;
                for (int k = 0; k < 9; ++k) {
                    const QPoint d(k % 3 - 1, k / 3 - 1);
                    clear = clear && bare.pixel(at + d) == white;
                    covered = covered && bare.pixel(at + d) != white;
                    darkest = std::min(darkest, qRed(boxed.pixel(at + d)));
                }
                // Scheme 'r' keeps red at 255: less is the line, antialiased or not. Along the
                // figure's smooth edge what lies behind shows through a little, so only pixels
                // deep inside it must hide the box.
                if (clear || line.front) {
                    EXPECT_LT(darkest, 200) << at.x() << ',' << at.y();
                } else if (covered && !nearFront(at)) {
                    EXPECT_EQ(boxed.pixel(at), bare.pixel(at)) << at.x() << ',' << at.y();
                    ++hidden;
                }
            }
        }
        EXPECT_EQ(front, 3);
    }
    EXPECT_GT(hidden, 5);
}

// On images the figure's edge is blended into what lies behind, and no pixel of the background
// shows through between the outline and the fill (the fill once took pixel centres half a pixel
// away from the outline's, leaving a dotted line of pinholes along steep edges).
TEST(SurfacePainter, TheFiguresEdgeIsSmoothWithoutPinholes) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*x-y", -1, 1, -1, 1, nullptr, 30), SurfaceOutcome::Done);
    for (const double ratio : {1.0, 2.0}) {
        const QImage image = rendered(scene, Road::Direct, {400, 300}, {400, 300}, ratio);
        const QRgb white = qRgb(255, 255, 255);
        int blended = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 1; x + 1 < image.width(); ++x) {
                const QRgb p = image.pixel(x, y);
                // Scheme 'r' keeps red at 255 and green equal to blue; white mixed in raises both.
                blended += p != white && qGreen(p) > 200 && qGreen(p) < 250;
                EXPECT_FALSE(p == white && image.pixel(x - 1, y) != white &&
                             image.pixel(x + 1, y) != white)
                    << x << ',' << y << " at ratio " << ratio;
            }
        }
        EXPECT_GT(blended, 100) << "at ratio " << ratio;
    }
}

INSTANTIATE_TEST_SUITE_P(Roads, SurfacePainterTest, ::testing::Values(Road::Direct, Road::Painter),
                         [](const auto& info) {
                             return info.param == Road::Direct ? "Direct" : "Painter";
                         });

// An SVG of the surface holds paths, not an element per cell, and rendered back with
// antialiasing shows no background between neighbouring cells. Copy and Save paint the scene
// while the screen's redraw is under way: exports of other sizes, by both roads, must leave the
// points the screen's plan draws with where they were.
TEST(SurfacePainter, VectorOutputIsCompactAndSeamless) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -1, 1), SurfaceOutcome::Done);
    const QSize size(400, 300);
    const DrawingPlan screen = prepareDrawing(scene, 500, 350);
    const auto corners = [&] {
        RecordingSink sink;
        drawLines(scene, screen, 0, lineCount(scene, screen.pass), sink);
        std::vector<std::pair<int, int>> points;
        for (const RecordingSink::Item& item : sink.items) {
            points.emplace_back(item.points[0].x, item.points[0].y);
        }
        return points;
    };
    const auto before = corners();
    const auto svgOf = [&](DrawingMode mode) {
        scene.drawing.mode = mode;
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize(size);
        generator.setViewBox(QRect(QPoint(0, 0), size));
        {
            QPainter painter(&generator);
            paintSurface(painter, scene, size);
        }
        return buffer.data();
    };
    // At most 100 bytes a cell: drawn cell by cell, lines took about 260.
    EXPECT_LT(svgOf(DrawingMode::kLines).size(), 100 * 100 * 100);
    EXPECT_LT(svgOf(DrawingMode::kPixels).size(), 100 * 100 * 100);
    const QSize large = size * 3;
    scene.drawing.mode = DrawingMode::kPolygons;
    const QImage raster = rendered(scene, Road::Direct, large, large);
    QSvgRenderer renderer(svgOf(DrawingMode::kPolygons));
    rendered(scene, Road::Painter, {900, 700}, {900, 700});
    EXPECT_EQ(corners(), before);
    QImage image(large, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter);
    }
    int inside = 0;
    int seams = 0;
    for (int y = 6; y < large.height() - 6; ++y) {
        for (int x = 6; x < large.width() - 6; ++x) {
            bool covered = true;
            for (int d = -6; d <= 6 && covered; d += 3) {
                covered = raster.pixel(x + d, y) != qRgb(255, 255, 255) &&
                          raster.pixel(x, y + d) != qRgb(255, 255, 255);
            }
            inside += covered;
            // Scheme 'r' keeps green at 204 or below: more is the white background showing.
            seams += covered && qGreen(image.pixel(x, y)) > 210;
        }
    }
    EXPECT_GT(inside, 50000);
    EXPECT_EQ(seams, 0);
}

// An image whose painter keeps where each text lands, in device pixels, and draws nothing.
class TextRecorder : public QImage, public QPaintEngine {
  public:
    explicit TextRecorder(QSize size)
        : QImage(size, Format_ARGB32_Premultiplied), QPaintEngine(AllFeatures) {}
    std::vector<QRectF> texts;
    QPaintEngine* paintEngine() const override { return const_cast<TextRecorder*>(this); }
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& state) override {
        if (state.state() & DirtyTransform) {
            transform_ = state.transform();
        }
    }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTextItem(const QPointF& p, const QTextItem& item) override {
        texts.push_back(transform_.mapRect(
            QRectF(p.x(), p.y() - item.ascent(), item.width(), item.ascent() + item.descent())));
    }
    Type type() const override { return User; }

  private:
    QTransform transform_;
};

// Zoomed far out or seen from far above or below, the box's values crowd: those drawn never
// cover one another.
TEST(SurfacePainter, GridBoxLabelsNeverOverlap) {
    needFonts();
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1000, 1000, -1000, 1000, nullptr, 20),
              SurfaceOutcome::Done);
    scene.drawing.gridBox = true;
    for (const int vertical : {3, kVerticalLocationHigh, kVerticalLocationLow}) {
        for (const double zoom : {1.0, 1.0 / 64}) {
            SCOPED_TRACE(testing::Message() << vertical << " zoom " << zoom);
            scene.view.verticalLocation = vertical;
            setUpView(scene.view, scene.grid);
            scene.view.zoom = zoom;
            const QSize size(400, 300);
            TextRecorder device(size);
            QPainter painter(&device);
            paintGridBoxLabels(painter, scene,
                               fitFigure(scene.view, scene.grid, size.width(), size.height()),
                               size);
            painter.end();
            EXPECT_GE(device.texts.size(), 3u);
            for (std::size_t i = 0; i < device.texts.size(); ++i) {
                for (std::size_t j = i + 1; j < device.texts.size(); ++j) {
                    EXPECT_FALSE(device.texts[i].intersects(device.texts[j])) << i << ' ' << j;
                }
            }
        }
    }
}

}  // namespace
}  // namespace curvemill
