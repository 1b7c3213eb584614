#include "support/eventually.hpp"

#include <algorithm>
#include <thread>

namespace quillmere::test {

testing::AssertionResult eventually(const std::function<bool()>& condition,
                                    const std::function<std::string()>& lastSeen,
                                    std::chrono::milliseconds limit)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::microseconds shortestPause{200};
    constexpr std::chrono::microseconds longestPause{5'000};
    const Clock::time_point begin = Clock::now();
    auto pause = shortestPause;
    while (!condition()) {
        if (Clock::now() - begin > limit) {
            return testing::AssertionFailure() << "waited in vain for " << limit.count() << " ms"
                                               << (lastSeen ? "; last seen: " + lastSeen() : std::string());
        }
        std::this_thread::sleep_for(pause);
        pause = std::min(2 * pause, longestPause);
    }
    return testing::AssertionSuccess();
}

}  // namespace quillmere::test
