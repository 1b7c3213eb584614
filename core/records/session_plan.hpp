// The person's plan for a focus session.
#pragma once

#include <quillmere/records/identifier.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace quillmere {

/// The record does not limit the ratings; the engine refuses a plan whose ratings are not 1 through 5.
struct SessionPlan {
    Identifier id;
    std::optional<Identifier> blockOutcomeID;  ///< the outcome of the block that the session serves
    std::string intendedOutcome;
    std::string firstAction;
    std::string hazardsMitigation;
    std::string nicuFraming;
    std::int64_t energy;  ///< the person's rating of their energy
    std::int64_t morale;  ///< the person's rating of their morale

    /// An empty plan with both ratings at 3.
    static SessionPlan blank(Identifier id);

    friend bool operator==(const SessionPlan&, const SessionPlan&) = default;
};

}  // namespace quillmere
