#pragma once

#include <atomic>

namespace browser {

/// Thrown out of a sort that is no longer wanted: a comparison has no other way to end the algorithm that
/// asks it.
struct SortGivenUp {};

/// What a long sort asks between its steps.
class SortStop {
 public:
    /// givenUp is set by another thread and outlives the sort; null for a sort that runs to its end.
    explicit SortStop(const std::atomic_bool* givenUp = nullptr) : givenUp_(givenUp) {}

    /// Throws SortGivenUp once the sort is no longer wanted.
    void check() const {
        if (givenUp_ != nullptr && givenUp_->load(std::memory_order_relaxed)) throw SortGivenUp();
    }

 private:
    const std::atomic_bool* givenUp_;
};

}  // namespace browser
