// One formula slot kept aside while a new entry is checked and run in it.
#pragma once

#include "engine/ExpressionSlot.h"
#include "engine/Formula.h"

namespace curvemill {

// The graph on screen is still evaluated from its slot (by the math tools, by a repaint), so an
// entry that is refused, fails or is stopped must leave the slot as it found it.
class SlotKeeper {
  public:
    void keep(Formula& formula, int slot) {
        formula_ = &formula;
        slot_ = slot;
        kept_ = formula.slots[slot];
    }
    // Puts the kept slot back; nothing when none was kept.
    void restore() const {
        if (formula_ != nullptr) {
            formula_->slots[slot_] = kept_;
        }
    }

  private:
    Formula* formula_ = nullptr;
    int slot_ = 0;
    ExpressionSlot kept_;
};

}  // namespace curvemill
