#include "graph2d/CurveRuns.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

namespace {

constexpr double kRowTolerance = 1e-10;
constexpr double kFlatSlope = 1e-10;
constexpr double kFarCrossing = 1e15;
constexpr double kSameColumnShift = 0.000001;

double clampRow(double row) {
    if (!(row >= -kRowLimit)) {
        return -kRowLimit;  // also catches NaN
    }
    return std::min(row, kRowLimit);
}

struct Segment {
    double x1, y1, x2, y2;
};

// Cuts the segment at the top and bottom rows along the line through its ends. Returns false
// when the segment must be dropped: the line's crossing with the column axis is too far off, or
// the cut lands outside the segment itself.
bool clipRows(Segment& s, double top, double bottom, bool& clipped) {
    const bool out1 = s.y1 < top - kRowTolerance || s.y1 > bottom + kRowTolerance;
    const bool out2 = s.y2 < top - kRowTolerance || s.y2 > bottom + kRowTolerance;
    if (!out1 && !out2) {
        return true;
    }
    double slope = (s.y2 - s.y1) / (s.x2 - s.x1);
    if (slope == 0.0) {
        slope = kFlatSlope;
    }
    const double crossing = s.y1 - slope * s.x1;
    if (!(std::fabs(crossing) <= kFarCrossing)) {
        return false;
    }
    const double lo = std::min(s.x1, s.x2);
    const double hi = std::max(s.x1, s.x2);
    const auto cut = [&](double& x, double& y) {
        const double row = y < top ? top : bottom;
        x = std::clamp((row - crossing) / slope, lo, hi);
        y = row;
    };
    if (out1) {
        cut(s.x1, s.y1);
    }
    if (out2) {
        cut(s.x2, s.y2);
    }
    clipped = true;
    // Both ends cut to the same row: the segment only touched the band at a corner, or not at all.
    return !(out1 && out2 && s.y1 == s.y2);
}

// Keeps columns near the plotting area; the painter clips there anyway, this only keeps the
// numbers small for a graph zoomed far in.
void clipColumns(Segment& s, double leftEdge, double rightEdge, bool& clipped) {
    const auto cutAt = [&](double column, double& x, double& y, double ox, double oy) {
        const double t = (column - ox) / (x - ox);
        y = oy + (y - oy) * t;
        x = column;
        clipped = true;
    };
    if (s.x1 < leftEdge && s.x2 > leftEdge) {
        cutAt(leftEdge, s.x1, s.y1, s.x2, s.y2);
    } else if (s.x2 < leftEdge && s.x1 > leftEdge) {
        cutAt(leftEdge, s.x2, s.y2, s.x1, s.y1);
    }
    if (s.x2 > rightEdge && s.x1 < rightEdge) {
        cutAt(rightEdge, s.x2, s.y2, s.x1, s.y1);
    } else if (s.x1 > rightEdge && s.x2 < rightEdge) {
        cutAt(rightEdge, s.x1, s.y1, s.x2, s.y2);
    }
}

PixelPoint toPixel(double x, double y) {
    return {static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)};
}

// Gathers points into runs of at most kMaxRunPoints.
class RunWriter {
  public:
    explicit RunWriter(CurveRuns& out) : out_(out) {}

    void start(double x1, double y1, double x2, double y2) {
        finish();
        add(x1, y1);
        add(x2, y2);
    }

    void append(double x, double y) {
        if (std::fabs(x - lastX_) < 1.0 && std::fabs(y - lastY_) < 1.0) {
            return;
        }
        add(x, y);
        if (static_cast<int>(out_.points.size()) - runStart_ >= kMaxRunPoints) {
            finish();
            add(x, y);
        }
    }

    void finish() {
        const int size = static_cast<int>(out_.points.size());
        if (size - runStart_ >= 2) {
            out_.runEnds.push_back(size);
        } else {
            out_.points.resize(runStart_);
        }
        runStart_ = static_cast<int>(out_.points.size());
    }

  private:
    void add(double x, double y) {
        out_.points.push_back(toPixel(x, y));
        lastX_ = x;
        lastY_ = y;
    }

    CurveRuns& out_;
    int runStart_ = 0;
    double lastX_ = 0.0;
    double lastY_ = 0.0;
};

}  // namespace

std::pair<int, int> visibleStretch(const GraphView& view, const PlotPoint* records, int count) {
    if (count <= 0 || records == nullptr) {
        return {0, -1};
    }
    const double xBegin = view.visibleXBegin();
    const double xEnd = view.visibleXEnd();
    int first = 0;
    while (first + 1 < count && records[first + 1].x < xBegin) {
        ++first;
    }
    int last = first;
    while (last + 1 < count && !(records[last].x > xEnd)) {
        ++last;
    }
    return {first, last};
}

CurveRuns buildCurveRuns(const GraphView& view, const PlotPoint* records, int count) {
    CurveRuns runs;
    const auto [first, last] = visibleStretch(view, records, count);
    if (first >= last) {
        return runs;
    }
    const double yBegin = view.visibleYBegin();
    const double yEnd = view.visibleYEnd();
    const double top = view.top;
    const double bottom = view.plotBottom();
    const double leftEdge = view.left - 1.0;
    const double rightEdge = view.plotRight() + 1.0;

    RunWriter writer(runs);
    bool penUp = true;
    const PlotPoint* p = &records[first];
    for (int i = first + 1; i <= last; ++i) {
        const PlotPoint& cur = records[i];
        if (!cur.isVertex && i != last) {
            continue;
        }
        const PlotPoint& prev = *p;
        p = &cur;
        if (prev.isBreak && cur.isBreak) {
            penUp = true;
            continue;
        }
        // Copies: the records are packed, and std::max/min would bind references to misaligned
        // doubles.
        const double prevY = prev.y;
        const double curY = cur.y;
        if (prev.isIndefinite || cur.isIndefinite || std::isnan(prevY) || std::isnan(curY)) {
            penUp = true;
            continue;
        }
        if (!(std::max(prevY, curY) >= yBegin && std::min(prevY, curY) <= yEnd)) {
            penUp = true;
            continue;
        }
        Segment s{view.toPixelX(prev.x), clampRow(view.toPixelY(prevY)), view.toPixelX(cur.x),
                  clampRow(view.toPixelY(curY))};
        if (!std::isfinite(s.x1) || !std::isfinite(s.x2)) {
            penUp = true;
            continue;
        }
        if (s.x1 == s.x2) {
            s.x2 += kSameColumnShift;
        }
        bool clipped = false;
        if (!clipRows(s, top, bottom, clipped)) {
            penUp = true;
            continue;
        }
        clipColumns(s, leftEdge, rightEdge, clipped);
        if (std::max(s.x1, s.x2) < leftEdge || std::min(s.x1, s.x2) > rightEdge) {
            penUp = true;
            continue;
        }
        if (penUp || clipped) {
            writer.start(s.x1, s.y1, s.x2, s.y2);
            penUp = false;
        } else {
            writer.append(s.x2, s.y2);
        }
    }
    writer.finish();
    return runs;
}

}  // namespace curvemill
