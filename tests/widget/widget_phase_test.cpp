// Phases and routes: their texts, and how workflow states map to them.
#include <quillmere/widget/widget_phase.hpp>
#include <quillmere/widget/widget_route.hpp>

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

TEST(WidgetPhase, hasTheseCasesInThisOrderWithTheseTexts)
{
    constexpr struct {
        WidgetPhase phase;
        std::string_view rawValue;
        std::string_view title;
        std::string_view symbolName;
    } rows[] = {
        {WidgetPhase::idle, "idle", "Idle", "moon.zzz"},
        {WidgetPhase::planning, "planning", "Planning", "list.bullet.clipboard"},
        {WidgetPhase::focusing, "focusing", "Focus", "target"},
        {WidgetPhase::reviewing, "reviewing", "Review", "checkmark.circle"},
        {WidgetPhase::breaking, "breaking", "Break", "cup.and.saucer"},
        {WidgetPhase::complete, "complete", "Complete", "flag.checkered"},
    };
    ASSERT_EQ(allCases<WidgetPhase>().size(), std::size(rows));
    for (std::size_t index = 0; index < std::size(rows); ++index) {
        const auto& row = rows[index];
        SCOPED_TRACE(row.rawValue);
        EXPECT_EQ(allCases<WidgetPhase>()[index], row.phase);
        EXPECT_EQ(rawValue(row.phase), row.rawValue);
        EXPECT_EQ(fromRawValue<WidgetPhase>(row.rawValue), row.phase);
        EXPECT_EQ(title(row.phase), row.title);
        EXPECT_EQ(symbolName(row.phase), row.symbolName);
    }
}

TEST(WidgetRoute, hasTheseCasesInThisOrderWithTheseTexts)
{
    constexpr struct {
        WidgetRoute route;
        std::string_view rawValue;
    } rows[] = {
        {WidgetRoute::idle, "idle"},
        {WidgetRoute::blockPlanning, "block-planning"},
        {WidgetRoute::sessionPlanning, "session-planning"},
        {WidgetRoute::focus, "focus"},
        {WidgetRoute::sessionReview, "session-review"},
        {WidgetRoute::breakTime, "break"},
        {WidgetRoute::blockReview, "block-review"},
    };
    ASSERT_EQ(allCases<WidgetRoute>().size(), std::size(rows));
    for (std::size_t index = 0; index < std::size(rows); ++index) {
        const auto& row = rows[index];
        SCOPED_TRACE(row.rawValue);
        EXPECT_EQ(allCases<WidgetRoute>()[index], row.route);
        EXPECT_EQ(rawValue(row.route), row.rawValue);
        EXPECT_EQ(fromRawValue<WidgetRoute>(row.rawValue), row.route);
    }
}

TEST(WidgetPhase, andRouteFollowFromTheWorkflowState)
{
    constexpr struct {
        WorkflowState state;
        WidgetPhase phase;
        WidgetRoute route;
    } rows[] = {
        {WorkflowState::idle, WidgetPhase::idle, WidgetRoute::idle},
        {WorkflowState::blockPlanning, WidgetPhase::planning, WidgetRoute::blockPlanning},
        {WorkflowState::sessionPlanning, WidgetPhase::planning, WidgetRoute::sessionPlanning},
        {WorkflowState::focusing, WidgetPhase::focusing, WidgetRoute::focus},
        {WorkflowState::sessionReview, WidgetPhase::reviewing, WidgetRoute::sessionReview},
        {WorkflowState::breaking, WidgetPhase::breaking, WidgetRoute::breakTime},
        {WorkflowState::blockReview, WidgetPhase::reviewing, WidgetRoute::blockReview},
        {WorkflowState::complete, WidgetPhase::complete, WidgetRoute::idle},
    };
    EXPECT_EQ(allCases<WorkflowState>().size(), std::size(rows));
    for (const auto& row : rows) {
        SCOPED_TRACE(rawValue(row.state));
        EXPECT_EQ(fromWorkflowState<WidgetPhase>(row.state), row.phase);
        EXPECT_EQ(fromWorkflowState<WidgetRoute>(row.state), row.route);
    }
}

TEST(WidgetRoute, ofAPhaseIsTheSessionsScreenAndNeverTheBlocks)
{
    constexpr struct {
        WidgetPhase phase;
        WidgetRoute route;
    } rows[] = {
        {WidgetPhase::idle, WidgetRoute::idle},
        {WidgetPhase::planning, WidgetRoute::sessionPlanning},
        {WidgetPhase::focusing, WidgetRoute::focus},
        {WidgetPhase::reviewing, WidgetRoute::sessionReview},
        {WidgetPhase::breaking, WidgetRoute::breakTime},
        {WidgetPhase::complete, WidgetRoute::idle},
    };
    EXPECT_EQ(allCases<WidgetPhase>().size(), std::size(rows));
    for (const auto& row : rows) {
        SCOPED_TRACE(rawValue(row.phase));
        EXPECT_EQ(fromPhase<WidgetRoute>(row.phase), row.route);
    }
}

TEST(WidgetPhaseDeathTest, stopsTheProgramForAValueThatIsNoCase)
{
    EXPECT_DEATH(title(static_cast<WidgetPhase>(6)), "none of its cases");
    EXPECT_DEATH(fromPhase<WidgetRoute>(static_cast<WidgetPhase>(-1)), "none of its cases");
    EXPECT_DEATH(fromWorkflowState<WidgetRoute>(static_cast<WorkflowState>(8)), "none of its cases");
}

}  // namespace
}  // namespace quillmere::test
