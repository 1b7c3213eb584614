#include <quillmere/store/wall_clock.hpp>

#include <ctime>

namespace quillmere {

Instant wallClock() noexcept
{
    timespec time{};
    // Every system has this clock, so the call cannot fail.
    ::clock_gettime(CLOCK_REALTIME, &time);
    constexpr double nanosecondsPerSecond = 1e9;
    return Instant(static_cast<double>(time.tv_sec) +
                   static_cast<double>(time.tv_nsec) / nanosecondsPerSecond);
}

}  // namespace quillmere
