// The equation's dots on a drawn graph: where they must be, in their colour, none outside the
// plotting area, one dot per layout pixel on a denser target.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>

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
        if (QGuiApplication::instance() == nullptr) {
            static QGuiApplication app(argc, argv);
        }
    }

    void SetUp() override {
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, "x^2+y^2-1", 'e'));
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

    static bool isDot(QRgb pixel) { return pixel == qRgb(200, 0, 0); }

    EquationCurve curve_;
    GraphView view_;
};

TEST_F(EquationPainterTest, DotsLieOnTheCircleInsideThePlottingArea) {
    for (double ratio : {1.0, 2.0}) {
        SCOPED_TRACE(ratio);
        const QImage image = render(ratio);
        int dots = 0;
        for (int row = 0; row < image.height(); ++row) {
            for (int column = 0; column < image.width(); ++column) {
                if (!isDot(image.pixel(column, row))) {
                    continue;
                }
                ++dots;
                const double x = view_.graphX(column / ratio);
                const double y = view_.graphY(row / ratio);
                ASSERT_NEAR(std::hypot(x, y), 1.0, 2.5 / view_.ppu) << column << ", " << row;
                ASSERT_GE(column / ratio, view_.left);
                ASSERT_LT(column / ratio, view_.plotRight() + 1);
            }
        }
        // Every solution is a dot of ratio x ratio target pixels; neighbours may share one.
        EXPECT_GT(dots, curve_.count() / 2 * ratio * ratio);
        EXPECT_LE(dots, curve_.count() * ratio * ratio);
    }
}

TEST_F(EquationPainterTest, PointsOutsideTheAreaAreNotDrawnAndSquaresGrowTheDots) {
    curve_.solutions.push_back({-1e9, 0});
    curve_.solutions.push_back({0, 1e9});
    const QImage plain = render(1.0);
    EquationLook squares;
    squares.squares = true;
    const QImage boxed = render(1.0, squares);
    int plainDots = 0;
    int boxedDots = 0;
    for (int row = 0; row < plain.height(); ++row) {
        for (int column = 0; column < plain.width(); ++column) {
            const bool inside = column >= view_.left && column <= view_.plotRight() &&
                                row >= view_.top && row <= view_.plotBottom();
            plainDots += isDot(plain.pixel(column, row));
            boxedDots += isDot(boxed.pixel(column, row));
            if (!inside) {
                ASSERT_FALSE(isDot(plain.pixel(column, row))) << column << ", " << row;
            }
        }
    }
    EXPECT_GT(boxedDots, plainDots * 2);
}

// A grid without solutions still gets the graph with its title (dark blue, above the area).
TEST_F(EquationPainterTest, EmptyCurveKeepsTheTitle) {
    curve_.solutions.clear();
    curve_.formulaText = "x^2+y^2+1";
    const QImage image = render(1.0);
    int titlePixels = 0;
    int dots = 0;
    for (int row = 0; row < image.height(); ++row) {
        for (int column = 0; column < image.width(); ++column) {
            const QRgb p = image.pixel(column, row);
            titlePixels += row < view_.top && qBlue(p) > 80 && qRed(p) < 60 && qGreen(p) < 60;
            dots += isDot(p);
        }
    }
    EXPECT_GT(titlePixels, 20);
    EXPECT_EQ(dots, 0);
}

}  // namespace
}  // namespace curvemill
