#include "history/SearchRing.h"

#include <algorithm>

namespace curvemill {

bool SearchRing::add(const std::string& text) {
    if (text.empty() || std::find(strings_.begin(), strings_.end(), text) != strings_.end()) {
        return false;
    }
    if (count_ < kSize) {
        strings_[count_] = text;
        ++count_;
    } else {
        newest_ = (newest_ + 1) % kSize;
        strings_[newest_] = text;
    }
    changed_ = true;
    return true;
}

void SearchRing::appendLoaded(const std::string& text) {
    if (count_ < kSize && !text.empty()) {
        strings_[count_] = text;
        ++count_;
    }
}

std::vector<std::string> SearchRing::oldestFirst() const {
    std::vector<std::string> out;
    for (int slot = newest_ + 1; slot < kSize && !strings_[slot].empty(); ++slot) {
        out.push_back(strings_[slot]);
    }
    for (int slot = 0; slot <= newest_; ++slot) {
        if (!strings_[slot].empty()) {
            out.push_back(strings_[slot]);
        }
    }
    return out;
}

std::vector<std::string> SearchRing::newestFirst() const {
    std::vector<std::string> out = oldestFirst();
    std::reverse(out.begin(), out.end());
    return out;
}

void SearchRing::clear() {
    strings_.fill(std::string());
    newest_ = 0;
    count_ = 0;
    changed_ = false;
}

}  // namespace curvemill
