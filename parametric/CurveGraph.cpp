#include "parametric/CurveGraph.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "engine/Formula.h"
#include "parametric/CurveRefiner.h"

namespace curvemill {

std::string CurveGraph::title() const {
    if (form == CurveForm::Polar) {
        return "r = " + firstText;
    }
    return "x = " + firstText + ", y = " + secondText;
}

namespace {

// The lowest and highest of `values` that are not far outside their middle 90 %.
std::pair<double, double> bulkRange(std::vector<double>& values) {
    const auto at = [&values](double share) {
        const auto n = static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size() - 1));
        std::nth_element(values.begin(), values.begin() + n, values.end());
        return values[static_cast<std::size_t>(n)];
    };
    const double low = at(0.05);
    const double high = at(0.95);
    const double span = high - low;
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    return {std::max(*least, low - 2 * span), std::min(*most, high + 2 * span)};
}

}  // namespace

CurveBox viewBox(const std::vector<CurvePoint>& points) {
    if (points.empty()) {
        return {};
    }
    // One scratch list for both coordinates: a curve of many points makes it megabytes.
    std::vector<double> values;
    values.reserve(points.size());
    for (const CurvePoint& p : points) {
        values.push_back(p.x);
    }
    CurveBox box;
    std::tie(box.xMin, box.xMax) = bulkRange(values);
    values.clear();
    for (const CurvePoint& p : points) {
        values.push_back(p.y);
    }
    std::tie(box.yMin, box.yMax) = bulkRange(values);
    const double size = std::max({box.xMax - box.xMin, box.yMax - box.yMin, 1e-9});
    for (auto [low, high] : {std::pair{&box.xMin, &box.xMax}, std::pair{&box.yMin, &box.yMax}}) {
        if (*high - *low < size * 1e-6) {
            *low -= size / 2;
            *high += size / 2;
        }
    }
    return box;
}

bool runCurve(Formula& formula, CurveGraph& graph, const SamplingControl& control) {
    const CurveAt curve = curveOf(formula, graph.form);
    RefineSettings settings;
    settings.tBegin = graph.tBegin;
    settings.tEnd = graph.tEnd;
    settings.startPoints = graph.startPoints;
    settings.depthLimit = 0;
    // The first, even pass is a small share of the work: its progress is not shown.
    CurveSampling even = refineCurve(curve, settings, {nullptr, control.stopRequested});
    // A Stop that clears the engine's flag makes every value indefinite: such a pass is void.
    if (even.stopped || !formula.keepComputing) {
        return false;
    }
    fitPixelSize(even.points, kFirstViewWidth, kFirstViewHeight, settings);
    settings.depthLimit = RefineSettings{}.depthLimit;
    CurveSampling refined = refineCurve(curve, settings, control, std::move(even.points));
    if (refined.stopped || !formula.keepComputing) {
        return false;
    }
    graph.points = std::move(refined.points);
    graph.budgetMet = refined.budgetMet;
    return true;
}

}  // namespace curvemill
