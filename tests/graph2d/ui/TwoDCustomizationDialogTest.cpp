#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QtTest>

#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDCustomizationDialog.h"
#include "tests/support/DialogControls.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;
namespace ids = curvemill::customization_ids;

class TwoDCustomizationDialogTest : public QObject {
    Q_OBJECT

    // A main curve over x 0..20 whose y runs yMin..yMax.
    static TwoDGraph graphOf(double yMin, double yMax) {
        TwoDGraph graph;
        std::tie(graph.xBegin, graph.xEnd, graph.main.yMin, graph.main.yMax) =
            std::tuple(0.0, 20.0, yMin, yMax);
        graph.main.points.resize(2);
        graph.main.pointCount = 2;
        return graph;
    }

  private Q_SLOTS:
    void ratioSpin() {
        // The curve's Y extent, the ratio in force, the spin's top, the Y range shown.
        const std::tuple<double, double, int, int, QString> rows[] = {
            {-1, 1, 10, 1, u"Y Range: -1 to 1"_s},               // shorter than wide
            {-1e300, 1e300, 10, 20, u"Y Range: -100 to 100"_s},  // a pole
            {-30, 30, 10, 3, u"Y Range: -30 to 30"_s},
            {-32, 32, 2, 4, u"Y Range: -20 to 20"_s},
            {1e100, -1e100, 10, 1, u"Y Range: -1 to 1"_s},  // nothing defined
        };
        for (const auto& [yMin, yMax, ratio, top, yRange] : rows) {
            const TwoDGraph graph = graphOf(yMin, yMax);
            TwoDSettings settings;
            settings.maxYRatio = ratio;
            TwoDCustomizationDialog dialog(graph, settings, false);
            auto* spin = control<QSpinBox>(dialog, ids::kRatioSpin);
            const int opening = std::min(ratio, top);
            QCOMPARE((QList<int>{spin->minimum(), spin->maximum(), spin->isEnabled(), spin->value(),
                                 dialog.openingRatio()}),
                     (QList<int>{1, top, top > 1, opening, opening}));
            QCOMPARE(control<QLabel>(dialog, ids::kXRangeLabel)->text(), u"X Range: 0 to 20"_s);
            QCOMPARE(control<QLabel>(dialog, ids::kYRangeLabel)->text(), yRange);
        }
        // The spin rewrites the Y range at once.
        const TwoDGraph graph = graphOf(0, 1000);
        TwoDCustomizationDialog dialog(graph, TwoDSettings{}, false);
        control<QSpinBox>(dialog, ids::kRatioSpin)->setValue(3);
        QCOMPARE(control<QLabel>(dialog, ids::kYRangeLabel)->text(), u"Y Range: 0 to 60"_s);
        QCOMPARE(dialog.settings().maxYRatio, 3);
        QCOMPARE(dialog.openingRatio(), 10);
    }

    void displayOrderIsRebuiltFromThePlaces() {
        const TwoDGraph graph = graphOf(-1, 1);
        TwoDCustomizationDialog dialog(graph, TwoDSettings{}, false);
        const int buttons[] = {ids::kFunctionButton, ids::kDerivativeButton, ids::kIntegralButton,
                               ids::kSecondButton};
        const int places[] = {ids::kFunctionPlace, ids::kDerivativePlace, ids::kIntegralPlace,
                              ids::kSecondPlace};
        for (int i = 0; i < 4; ++i) {  // the order in use shows at opening
            QVERIFY(!control<QPushButton>(dialog, buttons[i])->isEnabled());
            QCOMPARE(control<QLabel>(dialog, places[i])->text(), QString::number(i + 1));
        }
        QTest::mouseClick(control<QPushButton>(dialog, ids::kResetOrder), Qt::LeftButton);
        QVERIFY(control<QPushButton>(dialog, ids::kIntegralButton)->isEnabled());
        QCOMPARE(control<QLabel>(dialog, ids::kIntegralPlace)->text(), QString());
        for (const int id : {ids::kSecondButton, ids::kIntegralButton, ids::kFunctionButton,
                             ids::kDerivativeButton}) {
            QTest::mouseClick(control<QPushButton>(dialog, id), Qt::LeftButton);
            QVERIFY(!control<QPushButton>(dialog, id)->isEnabled());
        }
        QCOMPARE(control<QLabel>(dialog, ids::kSecondPlace)->text(), u"1"_s);
        QCOMPARE(control<QLabel>(dialog, ids::kDerivativePlace)->text(), u"4"_s);
        QCOMPARE(dialog.settings().displayOrder.letters(), std::string("Fifd"));
    }

    void optionsAndMouseFunction() {
        const TwoDGraph graph = graphOf(-1, 1);
        TwoDSettings settings;
        settings.selectArea = true;
        settings.tooltips = false;
        TwoDCustomizationDialog dialog(graph, settings, true);
        QVERIFY(control<QRadioButton>(dialog, ids::kSelectArea)->isChecked() &&
                !control<QCheckBox>(dialog, ids::kDisplayTooltips)->isChecked() &&
                control<QCheckBox>(dialog, ids::kDisplayToolbar)->isChecked());
        // An equation is shown: its points are not sampled in drawing steps.
        QVERIFY(!control<QCheckBox>(dialog, ids::kOptimizeDrawing)->isEnabled());
        control<QRadioButton>(dialog, ids::kMoveScreen)->click();
        control<QCheckBox>(dialog, ids::kDisplayToolbar)->click();
        const TwoDSettings chosen = dialog.settings();
        QVERIFY(!chosen.selectArea && !chosen.toolbar && chosen.optimizeDrawing);
        QCOMPARE(control<QPushButton>(dialog, 1)->text(), u"O&K"_s);
    }
};

QTEST_MAIN(TwoDCustomizationDialogTest)
#include "TwoDCustomizationDialogTest.moc"
