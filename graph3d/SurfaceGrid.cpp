#include "graph3d/SurfaceGrid.h"

#include <algorithm>
#include <new>

namespace curvemill {

namespace {
// Far above the largest grid the input window offers (501 x 501); a request beyond it is a
// programming error met here as "no memory" rather than as a size overflow.
constexpr std::int64_t kMostVertices = std::int64_t(1) << 28;
}  // namespace

bool SurfaceGrid::allocate(std::int32_t intervalsX, std::int32_t intervalsY) {
    release();
    if (intervalsX < 1 || intervalsY < 1) {
        return false;
    }
    const std::int64_t count = (std::int64_t(intervalsX) + 1) * (std::int64_t(intervalsY) + 1);
    if (count > kMostVertices) {
        return false;
    }
    nx = intervalsX;
    ny = intervalsY;
    try {
        vertices_.resize(static_cast<std::size_t>(count));
        scratch_.resize(static_cast<std::size_t>(std::max(nx, ny) + 1));
    } catch (const std::bad_alloc&) {
        release();
        return false;
    }
    return true;
}

void SurfaceGrid::release() {
    // Swapping with empty vectors gives the memory back, which clear() would keep.
    std::vector<SurfaceVertex>().swap(vertices_);
    std::vector<RowCell>().swap(scratch_);
}

bool ScreenPoints::fit(const SurfaceGrid& grid) {
    if (fits(grid)) {
        return true;
    }
    const std::size_t count =
        (static_cast<std::size_t>(grid.nx) + 1) * (static_cast<std::size_t>(grid.ny) + 1);
    try {
        points_.resize(count);
    } catch (const std::bad_alloc&) {
        std::vector<ScreenPoint>().swap(points_);
        nx_ = ny_ = 0;
        return false;
    }
    nx_ = grid.nx;
    ny_ = grid.ny;
    return true;
}

std::int64_t SurfaceGrid::indefiniteCount() const {
    return std::count_if(vertices_.begin(), vertices_.end(),
                         [](const SurfaceVertex& v) { return v.indefinite != 0; });
}

}  // namespace curvemill
