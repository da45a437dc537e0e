// The evaluated surface: its vertices, the domain and the shown z range; and the vertices
// projected onto one drawing target.
#pragma once

#include <cstdint>
#include <vector>

namespace curvemill {

struct SurfaceVertex {
    double x = 0;
    // May be moved off the regular spacing by the peak and valley refinement.
    double y = 0;
    // z as drawn: z itself, or z clamped into the Z-limit band.
    double zShown = 0;
    double z = 0;
    std::uint8_t indefinite = 0;
};

// A projected vertex in device pixels of the drawing target.
struct ScreenPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

// One record of the row being drawn: the cell's colour and its index along the row.
struct RowCell {
    std::uint32_t colour = 0;
    std::int32_t index = 0;
};

// The height limits that keep a pole from flattening the rest of the figure.
struct ZLimits {
    std::int32_t step = 5;
    std::int32_t lowerBound = 1;
    std::int32_t upperBound = 10;
    std::int32_t availableSteps = 0;
    // The range is wide enough for a band of at least lowerBound steps.
    bool active = false;
    // Range of the defined vertices, found by the last applyZLimits.
    double zMin = 1e100;
    double zMax = -1e100;
};

class SurfaceGrid {
  public:
    // Intervals along x and y; vertices are i = 0..nx, j = 0..ny.
    std::int32_t nx = 100;
    std::int32_t ny = 100;
    // The counts the next computation uses (the input window's spins).
    std::int32_t requestedNx = 100;
    std::int32_t requestedNy = 100;

    double xBegin = 0;
    double xEnd = 1;
    double yBegin = 0;
    double yEnd = 1;
    double diagonal = 0;
    double zLow = 0;
    double zHigh = 0;
    double xc = 0;
    double yc = 0;
    double zc = 0;
    ZLimits limits;
    // Vertices evaluated by the last computation (refinement samples not counted).
    std::int64_t evaluatedCount = 0;

    SurfaceVertex& vertex(int i, int j) { return vertices_[index(i, j)]; }
    const SurfaceVertex& vertex(int i, int j) const { return vertices_[index(i, j)]; }
    std::vector<RowCell>& scratchLine() { return scratch_; }

    // Storage for (nx + 1) x (ny + 1) vertices and the scratch line;
    // false (and nothing held) when the memory cannot be had.
    bool allocate(std::int32_t intervalsX, std::int32_t intervalsY);
    // Frees everything; the counts stay as they were.
    void release();
    bool allocated() const { return !vertices_.empty(); }
    std::int64_t indefiniteCount() const;
    bool hasDefinedVertex() const { return indefiniteCount() < std::int64_t(vertices_.size()); }

  private:
    std::size_t index(int i, int j) const {
        return static_cast<std::size_t>(i) * static_cast<std::size_t>(ny + 1) +
               static_cast<std::size_t>(j);
    }
    std::vector<SurfaceVertex> vertices_;
    std::vector<RowCell> scratch_;
};

// The vertices projected onto one drawing target, in its device pixels. Each target holds its
// own, so that painting an export never moves the points the screen is being drawn with.
class ScreenPoints {
  public:
    // Room for every vertex of `grid`; false (and nothing held) when the memory cannot be had.
    bool fit(const SurfaceGrid& grid);
    // Whether the points were made for a grid of this many intervals.
    bool fits(const SurfaceGrid& grid) const {
        return nx_ == grid.nx && ny_ == grid.ny && !points_.empty();
    }
    ScreenPoint& at(int i, int j) { return points_[index(i, j)]; }
    const ScreenPoint& at(int i, int j) const { return points_[index(i, j)]; }

  private:
    std::size_t index(int i, int j) const {
        return static_cast<std::size_t>(i) * static_cast<std::size_t>(ny_ + 1) +
               static_cast<std::size_t>(j);
    }
    std::int32_t nx_ = 0;
    std::int32_t ny_ = 0;
    std::vector<ScreenPoint> points_;
};

}  // namespace curvemill
