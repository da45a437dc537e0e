#include "graph2d/AreaPolygons.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

namespace {

constexpr double kLowestRow = -32768.0;
constexpr double kHighestRow = 32767.0;

PixelPoint toPixel(double x, double y) {
    return {static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)};
}

// Builds the polygons one at a time; each starts and ends on the axis row.
class PolygonWriter {
  public:
    PolygonWriter(std::vector<AreaPolygon>& out, double axisRow) : out_(out), axisRow_(axisRow) {}

    bool open() const { return open_; }
    bool above() const { return current_.aboveAxis; }

    void begin(double column, bool above) {
        current_ = AreaPolygon{};
        current_.aboveAxis = above;
        current_.points.push_back(toPixel(column, axisRow_));
        open_ = true;
    }

    void add(double column, double row) {
        current_.points.push_back(toPixel(column, row));
        if (static_cast<int>(current_.points.size()) >= kMaxAreaPolygonPoints - 1) {
            const bool above = current_.aboveAxis;
            close(column);
            begin(column, above);
            current_.points.push_back(toPixel(column, row));
        }
    }

    void close(double column) {
        if (!open_) {
            return;
        }
        current_.points.push_back(toPixel(column, axisRow_));
        if (current_.points.size() >= 3) {
            out_.push_back(std::move(current_));
        }
        current_ = AreaPolygon{};
        open_ = false;
    }

  private:
    std::vector<AreaPolygon>& out_;
    double axisRow_;
    AreaPolygon current_;
    bool open_ = false;
};

}  // namespace

std::vector<AreaPolygon> buildAreaPolygons(const GraphView& view, const PlotPoint* records,
                                           int count, int first, int last) {
    std::vector<AreaPolygon> polygons;
    if (records == nullptr || count <= 0) {
        return polygons;
    }
    first = std::max(first, 0);
    last = std::min(last, count - 1);
    const double left = view.left;
    const double right = view.plotRight();
    const auto inside = [&](int i) {
        const double column = view.toPixelX(records[i].x);
        return column >= left && column <= right;
    };
    while (first <= last && !inside(first)) {
        ++first;
    }
    while (last >= first && !inside(last)) {
        --last;
    }
    if (first > last) {
        return polygons;
    }
    const double top = view.top;
    const double bottom = view.plotBottom();
    // Where the curve leaves the plotting rows the polygon runs along the top or bottom row.
    const auto rowOf = [&](double y) {
        double row = view.toPixelY(y);
        row = !(row >= kLowestRow) ? kLowestRow : std::min(row, kHighestRow);
        return std::clamp(row, top, bottom);
    };
    const double axisRow = rowOf(0.0);

    PolygonWriter writer(polygons, axisRow);
    double prevColumn = 0.0;
    double prevY = 0.0;
    for (int i = first; i <= last; ++i) {
        const PlotPoint& r = records[i];
        if (i != first && i != last && !r.isVertex) {
            continue;
        }
        const double column = view.toPixelX(r.x);
        if (r.isIndefinite || std::isnan(r.y)) {
            writer.close(prevColumn);
            continue;
        }
        const bool above = r.y > 0.0;
        if (writer.open() && above != writer.above()) {
            // Close exactly at the crossing of the straight line between the two records.
            const double t = prevY / (prevY - r.y);
            const double crossing = prevColumn + (column - prevColumn) * t;
            writer.close(crossing);
            writer.begin(crossing, above);
        }
        if (!writer.open()) {
            writer.begin(column, above);
        }
        writer.add(column, rowOf(r.y));
        prevColumn = column;
        prevY = r.y;
    }
    writer.close(prevColumn);
    return polygons;
}

}  // namespace curvemill
