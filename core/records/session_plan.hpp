// What the person intends before a focus session.
#pragma once

#include <quillmere/records/identifier.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace quillmere {

/// The record sets no bounds on the ratings; the engine accepts 1 through 5 where a plan is used.
struct SessionPlan {
    Identifier id;
    std::optional<Identifier> blockOutcomeID;  ///< the block's outcome it works towards, if one is chosen
    std::string intendedOutcome;
    std::string firstAction;
    std::string hazardsMitigation;
    std::string nicuFraming;
    std::int64_t energy;  ///< the person's rating of their energy
    std::int64_t morale;  ///< the person's rating of their morale

    /// An empty plan with middling ratings (3 and 3).
    static SessionPlan blank(Identifier id);

    friend bool operator==(const SessionPlan&, const SessionPlan&) = default;
};

}  // namespace quillmere
