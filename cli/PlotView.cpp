#include "cli/PlotView.h"
#include "cli/Printable.h"

#include <charconv>
#include <cmath>

#include "graph2d/DrawStep.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"

namespace curvemill::cli {

namespace {

constexpr double kLeastZoomFactor = 1.0 / 256.0;
constexpr double kMostZoomFactor = 65536.0;

std::optional<double> number(std::string_view text) {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, value);
    if (text.empty() || parsed.ec != std::errc() || parsed.ptr != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

bool readZoom(const ParsedArguments& arguments, const char* name, std::optional<double>& zoom,
              UsageErrors& usage) {
    const auto value = arguments.value(name);
    if (!value) {
        return true;
    }
    zoom = number(*value);
    if (!zoom || *zoom < kLeastZoomFactor || *zoom > kMostZoomFactor) {
        usage.report() << "--" << name << " must be a number from 0.00390625 to 65536, "
                       << "not " << quoted(*value) << "\n";
        return false;
    }
    return true;
}

}  // namespace

void addPlotViewOptions(std::vector<OptionSpec>& options) {
    options.push_back(
        {"zoom-x", "F", "enlarge the X axis F times about the centre (1/256..65536)"});
    options.push_back({"zoom-y", "F", "enlarge the Y axis F times about the centre"});
    options.push_back({"scroll", "X,Y", "scroll offsets in pixels inside the enlarged graph"});
    options.push_back({"fit", "", "Fit To Window: the Y zoom that shows the whole Y range"});
    options.push_back({"ratio", "N", "largest ratio of the Y field to the X field (1..20)"});
    options.push_back({"order", "LETTERS", "display order of the curves, e.g. fdiF or Ff"});
    options.push_back({"no-optimize", "", "visit every record when drawing"});
}

std::optional<PlotViewOptions> plotViewOptions(const ParsedArguments& arguments,
                                               UsageErrors& usage) {
    PlotViewOptions options;
    if (!readZoom(arguments, "zoom-x", options.zoomX, usage) ||
        !readZoom(arguments, "zoom-y", options.zoomY, usage)) {
        return std::nullopt;
    }
    if (const auto scroll = arguments.value("scroll")) {
        const std::size_t comma = scroll->find(',');
        const auto x = number(std::string_view(*scroll).substr(0, comma));
        const auto y = comma == std::string::npos
                           ? std::nullopt
                           : number(std::string_view(*scroll).substr(comma + 1));
        if (!x || !y || *x < 0 || *y < 0) {
            usage.report() << "--scroll must be X,Y with two offsets of 0 or more, not "
                           << quoted(*scroll) << "\n";
            return std::nullopt;
        }
        options.scrollX = x;
        options.scrollY = y;
    }
    if (const auto ratio = arguments.value("ratio")) {
        const std::optional<long> n = plainInteger(*ratio);
        if (!n || *n < 1 || *n > kMostYRatio) {
            usage.report() << "--ratio must be a whole number from 1 to " << kMostYRatio << ", not "
                           << quoted(*ratio) << "\n";
            return std::nullopt;
        }
        options.ratio = static_cast<int>(*n);
    }
    if (const auto order = arguments.value("order")) {
        DisplayOrderPicker picker;
        bool valid = !order->empty();
        for (const char letter : *order) {
            const auto curve = curveOfLetter(letter);
            valid = valid && curve && picker.press(*curve) != 0;
        }
        if (!valid) {
            usage.report() << "--order takes each of the letters f, d, i and F at most "
                           << "once, not " << quoted(*order) << "\n";
            return std::nullopt;
        }
        options.order = picker.order();
    }
    options.fit = arguments.flag("fit");
    options.noOptimize = arguments.flag("no-optimize");
    return options;
}

void applyGraphOptions(const PlotViewOptions& options, TwoDGraph& graph) {
    if (options.ratio) {
        graph.maxYRatio = *options.ratio;
    }
    if (options.noOptimize) {
        graph.drawStep = 1;
        applyOptimizeDrawing(graph.main, false);
        applyOptimizeDrawing(graph.second, false);
    }
}

void applyViewOptions(const PlotViewOptions& options, GraphView& view) {
    if (options.order) {
        view.displayOrder = *options.order;
    }
    if (!options.screenView()) {
        fitGraphHeight(view);
        return;
    }
    scrollToXAxis(view);
    const double column = view.left + view.visibleWidth() / 2;
    const double row = view.top + view.visibleHeight() / 2;
    if (options.zoomX) {
        zoomAbout(view, ZoomAxis::kX, *options.zoomX, column, row);
    }
    if (options.zoomY) {
        zoomAbout(view, ZoomAxis::kY, *options.zoomY, column, row);
    }
    if (options.fit) {
        fitToWindow(view);
    }
    if (options.scrollX) {
        view.scrollX = *options.scrollX;
        view.scrollY = *options.scrollY;
        clampScroll(view);
    }
}

}  // namespace curvemill::cli
