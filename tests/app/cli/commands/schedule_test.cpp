// A scheduled block.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(Start, beginsAScheduledBlockBeforeItsTime)
{
    Person person;
    person.types({"plan", "--at", "+1h"});
    const Ending ending = person.typesLater(60, {"start"});
    EXPECT_EQ(ending.code, ExitCode::done);
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(state.currentBlock->plannedStart, std::nullopt);
    EXPECT_EQ(state.currentBlock->scheduledStartTriggeredAt, moment + 60);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Cancel, discardsAScheduledBlock)
{
    const Person person;
    person.types({"plan", "--at", "+1h"});
    EXPECT_EQ(person.types({"cancel"}).code, ExitCode::done);
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    EXPECT_FALSE(state.currentBlock);
    EXPECT_EQ(state.blockHistory.size(), 0u);
    EXPECT_TRUE(filesAgree(person));
}

TEST(ScheduledBlock, beginsByItselfWhenItIsDue)
{
    const TimeZone here("UTC");
    Person person;
    person.types({"plan", "--at", "+1h"});
    EXPECT_EQ(person.typesLater(3599, {"tick"}).err, "");
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_EQ(person.typesLater(1, {"tick"}).err, "The scheduled block started at 16:00.\n");
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(state.currentBlock->scheduledStartTriggeredAt, moment + 3600);
    EXPECT_EQ(state.currentBlock->plannedStart, moment + 3600);
    EXPECT_TRUE(filesAgree(person));
}

TEST(ScheduledBlock, isShownWithItsTime)
{
    const TimeZone here("Europe/Berlin");
    const Person person;
    person.types({"plan", "--focus", "25m", "--break", "5m", "--cycles", "3", "--at", "2026-11-16 09:00"});
    const std::string status = person.types({"status"}).out;
    EXPECT_NE(status.find("\nScheduled\n  Time      2026-11-16 09:00 to 2026-11-16 10:30\n"),
              std::string::npos)
        << status;
    const Ending json = person.types({"status", "--json"});
    EXPECT_EQ(jsonAt("/planned_start", json.out), R"("2026-11-16T08:00:00Z")");
    EXPECT_EQ(jsonAt("/block_id", json.out), '"' + person.state().currentBlock->id.text() + '"');
}

}  // namespace
}  // namespace quillmere::test
