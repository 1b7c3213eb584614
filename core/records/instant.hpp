// A point in time.
#pragma once

#include <compare>
#include <functional>

namespace quillmere {

/// An absolute instant: double-precision seconds since 1970-01-01T00:00:00Z, leap seconds not
/// counted. Sub-second precision is kept in memory and lost in files, which hold whole seconds.
/// A bare number is never an instant; a difference of two instants is a bare number of seconds.
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

    /// Exact comparison; an instant that is not a number equals nothing and is ordered with nothing.
    friend constexpr bool operator==(Instant, Instant) = default;
    friend constexpr std::partial_ordering operator<=>(Instant, Instant) = default;

private:
    double seconds_;
};

/// Where an operation gets the current instant from.
using Clock = std::function<Instant()>;

}  // namespace quillmere
