#include <quillmere/records/session_plan.hpp>

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere {
namespace {

TEST(SessionPlan, isBlankWithTheGivenIdentifierEmptyTextsAndRatingsOfThree)
{
    const SessionPlan plan = SessionPlan::blank(test::identifier(7));
    EXPECT_EQ(plan.id, test::identifier(7));
    EXPECT_EQ(plan.blockOutcomeID, std::nullopt);
    EXPECT_EQ(plan.intendedOutcome, "");
    EXPECT_EQ(plan.firstAction, "");
    EXPECT_EQ(plan.hazardsMitigation, "");
    EXPECT_EQ(plan.nicuFraming, "");
    EXPECT_EQ(plan.energy, 3);
    EXPECT_EQ(plan.morale, 3);
}

}  // namespace
}  // namespace quillmere
