#include "base/system/clock_changes.hpp"

#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <ctime>
#include <limits>
#include <system_error>

namespace quillmere::base {

ClockChanges::ClockChanges() : timer_(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC))
{
    await();
}

void ClockChanges::take()
{
    std::uint64_t expirations = 0;
    if (::read(timer_.get(), &expirations, sizeof expirations) == -1 && errno == ECANCELED) {
        await();
    }
}

void ClockChanges::await()
{
    itimerspec never{};
    never.it_value.tv_sec = std::numeric_limits<time_t>::max();
    if (::timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &never, nullptr) != 0) {
        throw std::system_error(errno, std::generic_category(), "timerfd_settime");
    }
}

}  // namespace quillmere::base
