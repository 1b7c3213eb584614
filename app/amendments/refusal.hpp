// Why an amendment is not made, and what is possible instead.
#pragma once

#include <quillmere/records/instant.hpp>

#include <optional>
#include <stdexcept>
#include <string>
#include <variant>

namespace quillmere::amendments {

/// The instants that would be accepted, both ends included.
struct PossibleTimes {
    Instant earliest;
    Instant latest;

    friend bool operator==(const PossibleTimes&, const PossibleTimes&) = default;
};

/// The lengths that would be accepted, in seconds, both ends included.
struct PossibleLengths {
    double shortest;
    double longest;

    friend bool operator==(const PossibleLengths&, const PossibleLengths&) = default;
};

/// The amendment fits another place of the workflow than the present one.
struct PossibleElsewhere {
    friend bool operator==(const PossibleElsewhere&, const PossibleElsewhere&) = default;
};

using Possible = std::variant<std::monostate, PossibleTimes, PossibleLengths, PossibleElsewhere>;

// Nothing is possible between bounds in the wrong order.
Possible timesBetween(Instant earliest, Instant latest);
Possible lengthsBetween(double shortest, double longest);

/// Thrown by every amendment before anything is written. The message says in sentences for the person why,
/// and what is possible. Times and lengths that are possible are values, and so is the fault of the place,
/// since only a surface knows how to write times and which commands there are.
class Refusal : public std::runtime_error {
public:
    explicit Refusal(const std::string& message, Possible possible = {})
        : std::runtime_error(message), possible_(possible)
    {
    }

    const Possible& possible() const noexcept { return possible_; }

private:
    Possible possible_;
};

/// Refuses an amendment that does not fit where the work stands.
[[noreturn]] void refuseHere(const std::string& reason);

}  // namespace quillmere::amendments
