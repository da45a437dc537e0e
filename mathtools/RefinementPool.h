// The fixed pool of chain nodes the precise integral refines with: its size bounds the depth of
// one refinement, so a function that never settles cannot exhaust memory or the stack.
#pragma once

#include <array>

namespace curvemill {

struct RefinementNode {
    double x = 0.0;
    double y = 0.0;
    bool inUse = false;
    // The next point of the chain; -1 at its end.
    int next = -1;
};

class RefinementPool {
  public:
    static constexpr int kSize = 100;
    // Two further nodes hold the ends of the interval being refined; they never come from take().
    static constexpr int kLeftEnd = kSize;
    static constexpr int kRightEnd = kSize + 1;

    // Marks every node free and forgets the spare.
    void reset() {
        for (RefinementNode& node : nodes_) {
            node.inUse = false;
        }
        spare_ = -1;
    }

    // The spare node if one is kept, else the first free one; -1 when all are in use.
    int take() {
        int found = spare_;
        spare_ = -1;
        for (int i = 0; found < 0 && i < kSize; ++i) {
            if (!nodes_[i].inUse) {
                found = i;
            }
        }
        if (found >= 0) {
            nodes_[found].inUse = true;
        }
        return found;
    }

    // Frees a node taken from the pool; the last one freed is kept aside as the spare.
    void release(int node) {
        if (node >= 0 && node < kSize) {
            nodes_[node].inUse = false;
            spare_ = node;
        }
    }

    RefinementNode& operator[](int node) { return nodes_[node]; }

  private:
    std::array<RefinementNode, kSize + 2> nodes_{};
    int spare_ = -1;
};

}  // namespace curvemill
