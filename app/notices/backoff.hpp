// When to try again after a failure.
#pragma once

#include "base/moment.hpp"

#include <algorithm>
#include <chrono>

namespace quillmere::notices {

/// The pause after a failure: two seconds, doubled by each further failure, at most a minute.
class Backoff {
public:
    void failed(base::Moment now)
    {
        ends_ = now + next_;
        next_ = std::min(next_ * 2, longest);
    }
    void succeeded() { *this = Backoff(); }
    bool isPausing(base::Moment now) const { return now < ends_; }
    /// Of the last pause; long ago without one.
    base::Moment end() const { return ends_; }

private:
    static constexpr std::chrono::seconds shortest{2};
    static constexpr std::chrono::seconds longest{60};

    std::chrono::seconds next_ = shortest;
    base::Moment ends_{};
};

}  // namespace quillmere::notices
