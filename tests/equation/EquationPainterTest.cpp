// The equation's dots on a drawn graph: where they must be, in their colour, none outside the
// plotting area, one dot per layout pixel on a denser target; and the ring around a marked point.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "equation/EquationSolver.h"
#include "equation/EquationView.h"
#include "equation/ui/EquationPainter.h"
#include "graph2d/ui/GraphPainter.h"

namespace curvemill {
namespace {

class EquationPainterTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        static int argc = 1;
        static char name[] = "equation_painter_test";
        static char* argv[] = {name, nullptr};
        static QGuiApplication app(argc, argv);
    }

    void SetUp() override {
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, "x^2+y^2-1", FormulaMode::TwoVariables));
        std::atomic<bool> running{true};
        EquationWork work;
        // Wider than tall, so the X range leaves room to both sides of the circle.
        ASSERT_TRUE(solveEquation(formula, {-3, 3, -1.5, 1.5, 600, 300, 5}, running, work, curve_));
        curve_.formulaText = "x^2+y^2-1";
        view_.gridOn = false;
        setViewSize(view_, 600, 400);
        resetEquationView(view_, curve_, 10);
    }

    QImage render(double ratio, const EquationLook& look = {}) {
        QImage image(static_cast<int>(600 * ratio), static_cast<int>(400 * ratio),
                     QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::black);
        QPainter painter(&image);
        GraphPainter graphPainter;
        EquationPainter().draw(graphPainter, painter, curve_, view_, look);
        return image;
    }

    // The target pixels for which `test(column, row, pixel)` holds.
    static int count(const QImage& image, const std::function<bool(int, int, QRgb)>& test) {
        int n = 0;
        for (int row = 0; row < image.height(); ++row) {
            for (int column = 0; column < image.width(); ++column) {
                n += test(column, row, image.pixel(column, row));
            }
        }
        return n;
    }
    static bool isDot(QRgb pixel) { return pixel == qRgb(200, 0, 0); }
    static bool isRing(QRgb pixel) { return pixel == qRgb(0, 0, 160); }
    bool inside(double column, double row) const {
        return column >= view_.left && column < view_.plotRight() + 1 && row >= view_.top &&
               row < view_.plotBottom() + 1;
    }

    EquationCurve curve_;
    GraphView view_;
};

// Far points are left out; squares grow the dots.
TEST_F(EquationPainterTest, DotsLieOnTheCircleInsideThePlottingArea) {
    const int onCircle = curve_.count();
    curve_.solutions.push_back({-1e9, 0});
    curve_.solutions.push_back({0, 1e9});
    const auto isDotAt = [](int, int, QRgb p) { return isDot(p); };
    for (double ratio : {1.0, 2.0}) {
        SCOPED_TRACE(ratio);
        const QImage image = render(ratio);
        EXPECT_EQ(count(image,
                        [&](int column, int row, QRgb p) {
                            const double x = view_.graphX(column / ratio);
                            const double y = view_.graphY(row / ratio);
                            return isDot(p) &&
                                   (std::fabs(std::hypot(x, y) - 1.0) > 2.5 / view_.ppu ||
                                    !inside(column / ratio, row / ratio));
                        }),
                  0);
        // Every solution is a dot of ratio x ratio target pixels; neighbours may share one.
        const int dots = count(image, isDotAt);
        EXPECT_GT(dots, onCircle / 2 * ratio * ratio);
        EXPECT_LE(dots, onCircle * ratio * ratio);
    }
    EquationLook squares;
    squares.squares = true;
    EXPECT_GT(count(render(1.0, squares), isDotAt), count(render(1.0), isDotAt) * 2);
}

// A grid without solutions still gets the graph with its title (dark blue, above the area).
TEST_F(EquationPainterTest, EmptyCurveKeepsTheTitle) {
    curve_.solutions.clear();
    curve_.formulaText = "x^2+y^2+1";
    const QImage image = render(1.0);
    EXPECT_GT(count(image,
                    [&](int, int row, QRgb p) {
                        return row < view_.top && qBlue(p) > 80 && qRed(p) < 60 && qGreen(p) < 60;
                    }),
              20);
    EXPECT_EQ(count(image, [](int, int, QRgb p) { return isDot(p); }), 0);
}

// A point picked in the solutions list gets a hollow ring of radius 7 with four ticks out to 14,
// in layout pixels; near the frame the ticks stop at it.
TEST_F(EquationPainterTest, AMarkedPointIsRingedAndItsTicksStopAtTheFrame) {
    view_.smoothLines = false;
    EquationLook look;
    look.hasMark = true;
    look.mark = {1, 0};
    for (double ratio : {1.0, 2.0}) {
        SCOPED_TRACE(ratio);
        const QImage image = render(ratio, look);
        const double px = view_.toPixelX(1);
        const double py = view_.toPixelY(0);
        // Whether a target pixel next to the layout point (px + dx, py + dy) is the ring's.
        const auto ring = [&](double dx, double dy) {
            const QPoint p((px + dx) * ratio, (py + dy) * ratio);
            return isRing(image.pixel(p)) || isRing(image.pixel(p + QPoint(1, 1))) ||
                   isRing(image.pixel(p - QPoint(1, 1)));
        };
        const double d = 7 / std::sqrt(2.0);  // on the circle between the ticks
        EXPECT_TRUE(ring(d, d) && ring(-d, d) && ring(d, -d) && ring(-d, -d));
        EXPECT_TRUE(ring(10.5, 0) && ring(-10.5, 0) && ring(0, 10.5) && ring(0, -10.5));
        EXPECT_FALSE(ring(3, 2) || ring(0, 0) || ring(17, 0) || ring(0, -17));
    }
    EXPECT_EQ(count(render(1.0), [](int, int, QRgb p) { return isRing(p); }), 0);

    look.mark = {view_.graphX(view_.left + 4), view_.graphY(view_.top + 4)};
    const QImage corner = render(1.0, look);
    EXPECT_GT(count(corner, [](int, int, QRgb p) { return isRing(p); }), 20);
    EXPECT_EQ(count(corner, [&](int c, int r, QRgb p) { return isRing(p) && !inside(c, r); }), 0);
}

}  // namespace
}  // namespace curvemill
