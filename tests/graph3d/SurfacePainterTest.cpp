// Rendered surfaces, by the direct image road and through the painter: cell colours where the
// cells are, near cells over far ones, nothing outside the target, device pixels on dense screens.
#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "SurfaceFixture.h"
#include "graph3d/PixelRaster.h"
#include "graph3d/SurfaceGridBox.h"
#include "graph3d/SurfaceLookRules.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPolygonF>
#include <QSvgGenerator>
#include <QSvgRenderer>

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

// Measured on a 100 x 100 grid of x*y: cell by cell, lines took about 260 bytes a cell.
constexpr int kMostSvgBytesPerCell = 100;

QRgb asRgb(std::uint32_t colour) {
    return RasterSurfaceSink::toPixel(colour);
}

class SurfacePainterTest : public ::testing::TestWithParam<Road> {};

TEST_P(SurfacePainterTest, EachCellShowsItsOwnColour) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "0*x", -1, 1, -1, 1), SurfaceOutcome::Done);
    scene.light.scheme = '1';
    const QImage image = rendered(scene, GetParam(), {800, 600}, {800, 600});
    const DrawingPlan plan = prepareDrawing(scene, 800, 600);
    const LightWeights weights = lightWeights(scene.light);
    for (const auto& [i, j] : {std::pair{10, 10}, {50, 60}, {90, 30}, {98, 98}}) {
        SCOPED_TRACE(testing::Message() << "cell " << i << ',' << j);
        double x = 0, y = 0;
        for (const auto& [di, dj] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
            x += plan.points.at(i - di, j - dj).x / 4.0;
            y += plan.points.at(i - di, j - dj).y / 4.0;
        }
        const std::uint32_t colour = cellColour(scene.light, weights, scene.view, scene.grid, i, j);
        EXPECT_EQ(image.pixel(int(x), int(y)), asRgb(colour));
    }
}

struct DrawnCell {
    QPolygonF shape;
    ScreenPoint corner;
    std::uint32_t colour;
};

class CellRecorder : public SurfaceSink {
  public:
    std::vector<DrawnCell> cells;
    void polygon(const ScreenPoint* c, int n, std::uint32_t colour) override {
        QPolygonF shape;
        for (int k = 0; k < n; ++k) {
            shape << QPointF(c[k].x, c[k].y);
        }
        cells.push_back({shape, c[0], colour});
    }
    void line(ScreenPoint, ScreenPoint, std::uint32_t) override {}
    void pixel(ScreenPoint, std::uint32_t) override {}
    void square(int, int, int, int, std::uint32_t) override {}
};

double distanceToEdges(const QPolygonF& shape, QPointF p) {
    double nearest = 1e300;
    for (int k = 0; k < shape.size(); ++k) {
        const QPointF a = shape[k], b = shape[(k + 1) % shape.size()];
        const QPointF ab = b - a;
        const double length2 = QPointF::dotProduct(ab, ab);
        const double t =
            length2 > 0 ? std::clamp(QPointF::dotProduct(p - a, ab) / length2, 0.0, 1.0) : 0;
        const QPointF d = p - (a + t * ab);
        nearest = std::min(nearest, std::hypot(d.x(), d.y()));
    }
    return nearest;
}

// Distance from the eye to the middle of the cell whose own vertex projects to `corner`.
double eyeDistance(const SurfaceScene& scene, const ScreenPoints& points, ScreenPoint corner) {
    const SurfaceGrid& g = scene.grid;
    for (int i = 1; i <= g.nx; ++i) {
        for (int j = 1; j <= g.ny; ++j) {
            if (points.at(i, j) == corner) {
                Vec3 middle;
                for (const auto& [di, dj] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
                    const SurfaceVertex& v = g.vertex(i - di, j - dj);
                    middle = middle + 0.25 * Vec3{v.x, v.y, v.zShown};
                }
                const Vec3 d = rotatePoint(scene.view, scene.grid, middle) - scene.view.eye;
                return std::sqrt(dot(d, d));
            }
        }
    }
    return -1;
}

// A steep bump hides part of the slope behind it, however it is turned about z. Wherever cells
// overlap on screen, the pixel (away from any cell's outline) has the colour of the covering cell
// nearest to the eye.
TEST_P(SurfacePainterTest, NearCellsCoverFarOnes) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "3*e^(0-(x^2+y^2)*3)", -1, 1, -1, 1, nullptr, 12),
              SurfaceOutcome::Done);
    scene.light.scheme = '1';
    scene.view.mode = 'Q';
    for (const int angle : {0, 90, 180, 270}) {
        SCOPED_TRACE(angle);
        setAxisAngle(scene.view, angle);
        CellRecorder recorder;
        drawSurface(scene, 800, 600, recorder);
        const DrawingPlan plan = prepareDrawing(scene, 800, 600);
        const QImage image = rendered(scene, GetParam(), {800, 600}, {800, 600});
        int overlapped = 0;
        for (int y = 1; y < 600; y += 3) {
            for (int x = 1; x < 800; x += 3) {
                const QPointF centre(x + 0.5, y + 0.5);
                const DrawnCell* top = nullptr;
                double nearest = 0;
                int covering = 0;
                bool nearEdge = false;
                for (const DrawnCell& cell : recorder.cells) {
                    if (cell.shape.boundingRect().adjusted(-3, -3, 3, 3).contains(centre)) {
                        nearEdge |= distanceToEdges(cell.shape, centre) < 2;
                        if (cell.shape.containsPoint(centre, Qt::OddEvenFill)) {
                            const double distance = eyeDistance(scene, plan.points, cell.corner);
                            if (top == nullptr || distance < nearest) {
                                top = &cell;
                                nearest = distance;
                            }
                            ++covering;
                        }
                    }
                }
                if (covering < 2 || nearEdge) {
                    continue;
                }
                ++overlapped;
                ASSERT_EQ(image.pixel(x, y), asRgb(top->colour)) << x << ',' << y;
            }
        }
        EXPECT_GT(overlapped, 20);
    }
}

TEST_P(SurfacePainterTest, NothingIsDrawnOutsideTheTarget) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "sin(x)*cos(y)", -3, 3, -3, 3), SurfaceOutcome::Done);
    for (const char mode : {'a', 'l', 'p'}) {
        SCOPED_TRACE(mode);
        scene.drawing.mode = mode;
        scene.view.zoom = 3;
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
        EXPECT_GT(inside, 300 * 200 / 10);
    }
}

// On a screen with two device pixels per point the figure is laid out in device pixels: the
// same pixels as on a plain image of that size, not a quarter of them scaled up.
TEST_P(SurfacePainterTest, DenseScreensGetTheFigureInDevicePixels) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x^2+y^2", -1, 1, -1, 1), SurfaceOutcome::Done);
    QImage dense = rendered(scene, GetParam(), {800, 600}, {800, 600}, 2.0);
    const QImage plain = rendered(scene, GetParam(), {800, 600}, {800, 600}, 1.0);
    dense.setDevicePixelRatio(1.0);
    EXPECT_EQ(dense, plain);
    EXPECT_NE(plain.pixel(400, 200), qRgb(255, 255, 255));
}

// The box is drawn before the surface: its edges show where nothing covers them, and where the
// surface lies in front of them (the box's hidden parts) the surface's own pixels are untouched.
TEST_P(SurfacePainterTest, GridBoxEdgesShowOnlyWhereTheSurfaceLeavesRoom) {
    // The box's values need fonts, which need an application.
    static int argc = 1;
    static char name[] = "graph3d_painter_test";
    static char* argv[] = {name, nullptr};
    static const std::unique_ptr<QGuiApplication> app = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return std::make_unique<QGuiApplication>(argc, argv);
    }();
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*x-y", -1, 1, -1, 1, nullptr, 30), SurfaceOutcome::Done);
    const QSize size(320, 240);
    const QImage bare = rendered(scene, GetParam(), size, size);
    scene.drawing.gridBox = true;
    const QImage boxed = rendered(scene, GetParam(), size, size);
    const Placement placement = fitFigure(scene.view, scene.grid, size.width(), size.height());
    const ProjectedGridBox box = projectGridBox(scene.view, scene.grid, placement);
    int shown = 0;
    int hidden = 0;
    // Seen along the diagonal, the hidden back vertical edge lies under the front one.
    const auto nearFront = [&box](int x, int y) {
        return std::any_of(box.lines.begin(), box.lines.end(), [x, y](const ProjectedLine& l) {
            const double dx = l.to.x - l.from.x, dy = l.to.y - l.from.y;
            const double cross = (x - l.from.x) * dy - (y - l.from.y) * dx;
            return l.front && std::fabs(cross) < 3 * std::hypot(dx, dy);
        });
    };
    for (const ProjectedLine& line : box.lines) {
        if (!line.edge) {
            continue;
        }
        for (double t = 0.2; t < 0.81; t += 0.05) {
            const int x = static_cast<int>(line.from.x + t * (line.to.x - line.from.x));
            const int y = static_cast<int>(line.from.y + t * (line.to.y - line.from.y));
            bool clear = true;
            int darkest = 255;
            for (int dy = -1; dy <= 1; ++dy) {
                for (int dx = -1; dx <= 1; ++dx) {
                    clear = clear && bare.pixel(x + dx, y + dy) == qRgb(255, 255, 255);
                    darkest = std::min(darkest, qRed(boxed.pixel(x + dx, y + dy)));
                }
            }
            // The edges nearest the eye are drawn after the surface, over it.
            if (clear || line.front) {
                // Antialiased, the line darkens the pixels it passes through.
                EXPECT_LT(darkest, 200) << x << "," << y;
                ++shown;
            } else if (bare.pixel(x, y) != qRgb(255, 255, 255) && !nearFront(x, y)) {
                EXPECT_EQ(boxed.pixel(x, y), bare.pixel(x, y)) << x << "," << y;
                ++hidden;
            }
        }
    }
    EXPECT_GT(shown, 20);
    EXPECT_GT(hidden, 5);
}

INSTANTIATE_TEST_SUITE_P(Roads, SurfacePainterTest, ::testing::Values(Road::Direct, Road::Painter),
                         [](const auto& info) {
                             return info.param == Road::Direct ? "Direct" : "Painter";
                         });

TEST(SurfacePainter, IncompleteSceneDrawsNothing) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -1, 1), SurfaceOutcome::Done);
    scene.complete = false;
    const QImage image = rendered(scene, Road::Direct, {200, 200}, {200, 200});
    QImage white(200, 200, QImage::Format_ARGB32_Premultiplied);
    white.fill(Qt::white);
    EXPECT_EQ(image, white);
}

// The box at two device pixels per point is the box of a plain image of that size, and the
// edges nearest the eye stay visible over the surface from above and from below.
TEST(SurfacePainter, GridBoxInDevicePixelsWithItsFrontEdgesOverTheSurface) {
    static int argc = 1;
    static char name[] = "graph3d_painter_test";
    static char* argv[] = {name, nullptr};
    static const std::unique_ptr<QGuiApplication> app = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return QGuiApplication::instance() ? nullptr
                                           : std::make_unique<QGuiApplication>(argc, argv);
    }();
    for (const int vertical : {3, -3}) {
        SCOPED_TRACE(vertical);
        SurfaceScene scene;
        ASSERT_EQ(computeFor(scene, "1-x*x-y*y", -1, 1, -1, 1, nullptr, 30), SurfaceOutcome::Done);
        scene.view.verticalLocation = vertical;
        setUpView(scene.view, scene.grid);
        scene.drawing.gridBox = true;
        const QSize size(400, 300);
        for (const Road road : {Road::Direct, Road::Painter}) {
            QImage dense = rendered(scene, road, size, size, 2.0);
            dense.setDevicePixelRatio(1.0);
            EXPECT_EQ(dense, rendered(scene, road, size, size, 1.0));
        }
        const QImage image = rendered(scene, Road::Direct, size, size);
        scene.drawing.gridBox = false;
        const QImage bare = rendered(scene, Road::Direct, size, size);
        const Placement placement = fitFigure(scene.view, scene.grid, size.width(), size.height());
        int front = 0;
        for (const ProjectedLine& line : projectGridBox(scene.view, scene.grid, placement).lines) {
            if (!line.front) {
                continue;
            }
            ++front;
            for (double t = 0.25; t < 0.8; t += 0.25) {
                const QPoint at(int(line.from.x + t * (line.to.x - line.from.x)),
                                int(line.from.y + t * (line.to.y - line.from.y)));
                int darkened = 0;
                for (int dy = -1; dy <= 1; ++dy) {
                    for (int dx = -1; dx <= 1; ++dx) {
                        const QPoint p = at + QPoint(dx, dy);
                        darkened =
                            std::max(darkened, qGreen(bare.pixel(p)) - qGreen(image.pixel(p)));
                    }
                }
                EXPECT_GT(darkened, 40) << at.x() << ',' << at.y();
            }
        }
        EXPECT_EQ(front, 3);
    }
}

// An SVG of the surface holds paths, not an element per cell, and rendered back with
// antialiasing shows no background between neighbouring cells.
TEST(SurfacePainter, VectorOutputIsCompactAndSeamless) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -1, 1), SurfaceOutcome::Done);
    const QSize size(400, 300);
    const auto svgOf = [&](char mode) {
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
    for (const char mode : {'l', 'p'}) {
        EXPECT_LT(svgOf(mode).size(), 100 * 100 * kMostSvgBytesPerCell) << mode;
    }
    const QSize large = size * 3;
    scene.drawing.mode = 'a';
    const QImage raster = rendered(scene, Road::Direct, large, large);
    QSvgRenderer renderer(svgOf('a'));
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

// Copy and Save paint the scene while the screen's redraw is under way: the export, of another
// size, must leave the points the screen's plan draws with where they were.
TEST_P(SurfacePainterTest, ExportLeavesTheScreensProjection) {
    SurfaceScene scene;
    ASSERT_EQ(computeFor(scene, "x*y", -1, 1, -1, 1, nullptr, 10), SurfaceOutcome::Done);
    const DrawingPlan screen = prepareDrawing(scene, 400, 300);
    const auto corners = [&] {
        CellRecorder recorder;
        drawLines(scene, screen, 0, lineCount(scene, screen.pass), recorder);
        std::vector<std::pair<int, int>> points;
        for (const DrawnCell& cell : recorder.cells) {
            points.emplace_back(cell.corner.x, cell.corner.y);
        }
        return points;
    };
    const auto before = corners();
    rendered(scene, GetParam(), {900, 700}, {900, 700});
    EXPECT_EQ(corners(), before);
}

// A device that keeps where each text lands, in device pixels.
class TextRecorder : public QPaintDevice, public QPaintEngine {
  public:
    explicit TextRecorder(QSize size) : QPaintEngine(AllFeatures), size_(size) {}
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

  protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmWidth:
                return size_.width();
            case PdmHeight:
                return size_.height();
            case PdmDepth:
                return 32;
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return 96;
            default:
                return QPaintDevice::metric(metric);
        }
    }

  private:
    QSize size_;
    QTransform transform_;
};

// Zoomed far out or seen from far above or below, the box's values crowd: those drawn never
// cover one another.
TEST(SurfacePainter, GridBoxLabelsNeverOverlap) {
    static int argc = 1;
    static char name[] = "graph3d_painter_test";
    static char* argv[] = {name, nullptr};
    static const std::unique_ptr<QGuiApplication> app = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return QGuiApplication::instance() ? nullptr
                                           : std::make_unique<QGuiApplication>(argc, argv);
    }();
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
