// Notices that the computer was suspended.
#pragma once

#include <quillmere/records/instant.hpp>

#include <functional>
#include <optional>

namespace quillmere::base {

/// Seconds for which the computer has been suspended since it was started: CLOCK_BOOTTIME counts them,
/// CLOCK_MONOTONIC does not (clock_gettime(2)). 0 where the system does not tell.
double suspendedSeconds();

/// A time for which the computer was suspended.
struct Sleep {
    Instant from;
    Instant to;

    friend bool operator==(const Sleep&, const Sleep&) = default;
};

/// For a loop that looks at its clock again after a sleep.
class SleepDetector {
public:
    /// The source counts as `suspendedSeconds` does.
    explicit SleepDetector(std::function<double()> source = suspendedSeconds);

    /// The sleep since the last call, as ending at `now`; absent when it was shorter than a minute.
    std::optional<Sleep> take(Instant now);

    /// Of all sleeps since the start of the computer: the same for each process that has seen the same
    /// sleeps.
    double totalSeconds() const { return total_; }

private:
    std::function<double()> source_;
    double total_;
};

}  // namespace quillmere::base
