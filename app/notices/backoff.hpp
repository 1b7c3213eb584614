// When to try again.
#pragma once

#include <algorithm>
#include <chrono>

namespace quillmere::notices {

/// The pause after something has failed: two seconds, and twice as long with each further failure, up to a
/// minute.
class Backoff {
public:
    using Moment = std::chrono::steady_clock::time_point;

    void failed(Moment now)
    {
        ends_ = now + next_;
        next_ = std::min(next_ * 2, longest);
    }
    void worked() { *this = Backoff(); }
    bool isPausing(Moment now) const { return now < ends_; }

private:
    static constexpr std::chrono::seconds shortest{2};
    static constexpr std::chrono::seconds longest{60};

    std::chrono::seconds next_ = shortest;
    Moment ends_{};
};

}  // namespace quillmere::notices
