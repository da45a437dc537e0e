// The records of a curve being computed: a fixed-size array that never grows past its room.
// The array belongs to the caller, not to the store, so that a fault that leaves the computation
// without unwinding (see worker/JobRun.h) abandons no memory: the store itself owns nothing.
#pragma once

#include <cstddef>
#include <vector>

#include "graph2d/PlotPoint.h"

namespace curvemill {

class PointStore {
  public:
    // Every record of `records` starts cleared (no break, defined, a vertex, ordinary) and
    // `room` of them are there; the memory is reused when it is already large enough.
    PointStore(std::vector<PlotPoint>& records, std::size_t room) : records_(records) {
        records_.assign(room, PlotPoint{});
    }

    int count() const { return count_; }
    bool empty() const { return count_ == 0; }
    PlotPoint& back() { return records_[count_ - 1]; }
    // The record `places` before the end (1 is the last one); null when there is none.
    PlotPoint* fromEnd(int places) {
        return places <= count_ ? &records_[count_ - places] : nullptr;
    }
    PlotPoint& operator[](int i) { return records_[i]; }

    // Appends a record and returns it; a record beyond the room is dropped rather than written
    // outside the array (the room is sized so that this does not happen).
    PlotPoint* push(double x, double y, bool indefinite) {
        if (static_cast<std::size_t>(count_) >= records_.size()) {
            return nullptr;
        }
        PlotPoint& p = records_[count_++];
        p.x = x;
        p.y = y;
        p.isIndefinite = indefinite ? 1 : 0;
        return &p;
    }

  private:
    std::vector<PlotPoint>& records_;
    int count_ = 0;
};

}  // namespace curvemill
