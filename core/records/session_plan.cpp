#include <quillmere/records/session_plan.hpp>

namespace quillmere {

SessionPlan SessionPlan::blank(Identifier id)
{
    return {
        .id = id,
        .blockOutcomeID = std::nullopt,
        .intendedOutcome = {},
        .firstAction = {},
        .hazardsMitigation = {},
        .nicuFraming = {},
        .energy = 3,
        .morale = 3,
    };
}

}  // namespace quillmere
