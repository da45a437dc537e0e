// The Find dialog's ring of the last 20 search strings, saved with the entries.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace curvemill {

class SearchRing {
  public:
    static constexpr int kSize = 20;

    // Adds `text` unless it is empty or already held; returns whether it was added. While the ring
    // is not full the string takes slot `count` and the newest index stays put; only a full ring
    // advances the newest index and overwrites. The entries file shows this on purpose.
    bool add(const std::string& text);

    // Stores a string read from the file in the next slot (at most kSize); does not set changed.
    void appendLoaded(const std::string& text);

    // Writer order: from newest + 1 up to the last filled slot, then 0 up to newest.
    std::vector<std::string> oldestFirst() const;
    // The drop-down order: the reverse of oldestFirst.
    std::vector<std::string> newestFirst() const;

    void clear();

    int newest() const { return newest_; }
    int count() const { return count_; }
    const std::string& at(int slot) const { return strings_.at(slot); }
    bool changed() const { return changed_; }
    void setChanged(bool changed) { changed_ = changed; }

  private:
    // Empty strings mark free slots.
    std::array<std::string, kSize> strings_{};
    int newest_ = 0;
    int count_ = 0;
    // Set when the user added a string, so that saving has something to write.
    bool changed_ = false;
};

}  // namespace curvemill
