#include "base/system/wait.hpp"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <system_error>
#include <vector>

namespace quillmere::base {
namespace {

[[noreturn]] void fail(int error) { throw std::system_error(error, std::generic_category(), "poll"); }

timespec timespecFrom(std::chrono::nanoseconds limit)
{
    const auto positive = std::max(limit, std::chrono::nanoseconds::zero());
    const auto whole = std::chrono::floor<std::chrono::seconds>(positive);
    return {.tv_sec = static_cast<time_t>(whole.count()),
            .tv_nsec = static_cast<long>((positive - whole).count())};
}

}  // namespace

bool waitFor(std::span<PollSource> sources, std::optional<std::chrono::nanoseconds> limit)
{
    std::vector<pollfd> files;
    files.reserve(sources.size());
    for (const PollSource& source : sources) {
        files.push_back({.fd = source.descriptor, .events = source.events, .revents = 0});
    }
    const timespec time = timespecFrom(limit.value_or(std::chrono::nanoseconds::zero()));
    // ppoll(2) takes nanoseconds; rounded to milliseconds, a wait could end just before its time.
    const int count = ::ppoll(files.data(), files.size(), limit ? &time : nullptr, nullptr);
    if (count == -1 && errno != EINTR) {
        fail(errno);
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
        // After a failed call `revents` is still 0.
        if ((files[i].revents & POLLNVAL) != 0) {
            fail(EBADF);
        }
        sources[i].found = files[i].revents;
    }
    return count > 0;
}

}  // namespace quillmere::base
