// What a worker-thread computation of curve points is given besides the formula: progress and Stop.
#pragma once

#include <atomic>
#include <functional>

namespace curvemill {

struct SamplingControl {
    // Called with a whole percentage 0..100, only when it changed since the last call. It runs on
    // the computing thread, so a GUI receiver must queue it to its own thread.
    std::function<void(int percent)> progress;
    // Set by the Stop button; polled once per regular sample. May be null.
    const std::atomic<bool>* stopRequested = nullptr;
};

}  // namespace curvemill
