#include "base/system/sleep_detector.hpp"

#include <ctime>
#include <utility>

namespace quillmere::base {
namespace {

constexpr double leastSeconds = 60;

std::optional<double> secondsOf(clockid_t clock)
{
    timespec time{};
    if (::clock_gettime(clock, &time) != 0) {
        return std::nullopt;
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

double suspendedSeconds()
{
    const std::optional<double> awake = secondsOf(CLOCK_MONOTONIC);
    const std::optional<double> all = secondsOf(CLOCK_BOOTTIME);
    return awake && all && *all > *awake ? *all - *awake : 0;
}

SleepDetector::SleepDetector(std::function<double()> source) : source_(std::move(source)), total_(source_())
{
}

std::optional<Sleep> SleepDetector::take(Instant now)
{
    const double before = std::exchange(total_, source_());
    const double slept = total_ - before;
    return slept >= leastSeconds ? std::optional(Sleep{.from = now - slept, .to = now}) : std::nullopt;
}

}  // namespace quillmere::base
