// A point in time.
#pragma once

#include <compare>
#include <functional>

namespace quillmere {

/// Double-precision seconds since 1970-01-01T00:00:00Z, without leap seconds. Files have whole seconds only;
/// the fraction is lost there. A number does not convert to an instant; the difference of two instants is a
/// number of seconds.
class Instant {
public:
    explicit constexpr Instant(double secondsSince1970) noexcept : seconds_(secondsSince1970) {}

    constexpr double secondsSince1970() const noexcept { return seconds_; }

    /// The instant `seconds` later (earlier when negative).
    friend constexpr Instant operator+(Instant instant, double seconds) noexcept
    {
        return Instant(instant.seconds_ + seconds);
    }
    friend constexpr Instant operator-(Instant instant, double seconds) noexcept
    {
        return Instant(instant.seconds_ - seconds);
    }

    /// Seconds from `earlier` to `later`.
    friend constexpr double operator-(Instant later, Instant earlier) noexcept
    {
        return later.seconds_ - earlier.seconds_;
    }

    /// Exact comparison. An instant that is not a number equals none, and is neither before nor after any.
    friend constexpr bool operator==(Instant, Instant) = default;
    friend constexpr std::partial_ordering operator<=>(Instant, Instant) = default;

private:
    double seconds_;
};

/// Returns the current instant.
using Clock = std::function<Instant()>;

}  // namespace quillmere
