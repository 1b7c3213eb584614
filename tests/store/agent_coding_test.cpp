// The agent's summary as JSON.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "store_testing.hpp"
#include "support/json_members.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

template <class Record>
std::string compact(const Record& record)
{
    return std::string(JsonEncoder(JsonLayout::compact).encode(record).view());
}

template <class Record>
Record decoded(const std::string& text)
{
    return StateStore::decoder().decode<Record>(Bytes(text));
}

/// The path of the decoding error; "(nowhere)" without an error.
template <class Record>
std::string failurePath(const std::string& text)
{
    try {
        decoded<Record>(text);
    } catch (const DecodingError& error) {
        return error.path();
    }
    return "(nowhere)";
}

TEST(AgentCoding, alwaysHasAllTwelveKeysWithNullForAbsentValues)
{
    EXPECT_EQ(compact(summaryOf(QuillmereState::initial(moment))),
              R"({"block":null,"current_session":null,"interruptible":true,"next_session":null,)"
              R"("open_questions":[],"outcomes":[],"remaining_seconds":null,"schema_version":1,)"
              R"("sessions":[],"tasks":[],"updated_at":"2026-11-15T15:00:00Z","workflow_state":"idle"})");
}

TEST(AgentCoding, hasTheKeysOfATaskInOrder)
{
    const AgentTaskSnapshot task{.id = identifier(1), .title = "A/B", .firstAction = "", .status = "planned"};
    EXPECT_EQ(compact(task), R"({"first_action":"","id":"9F1C2A4E-0B7D-4C55-8E21-000000000001",)"
                             R"("status":"planned","title":"A/B"})");
}

TEST(AgentCoding, writesEmbeddedRecordsAsTheStateFileHasThem)
{
    const QuillmereState state = fullState();
    const std::string text = compact(summaryOf(state));
    for (const std::string& record :
         {compact(*state.currentBlock), compact(*state.plannedNextSession), compact(*state.currentSession()),
          compact(state.agentQuestions[1]), compact(state.currentBlock->outcomes[0])}) {
        EXPECT_NE(text.find(record), std::string::npos) << record;
    }
}

TEST(AgentCoding, isReadBackAsTheSameSummary)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const AgentSnapshot snapshot = summaryOf(stateIn(workflowState));
        EXPECT_EQ(decoded<AgentSnapshot>(compact(snapshot)), snapshot);
    }
    const AgentSnapshot snapshot = summaryOf(fullState());
    EXPECT_EQ(decoded<AgentSnapshot>(compact(snapshot)), snapshot);
}

TEST(AgentCoding, namesTheTaskThatIsWrong)
{
    std::string text = compact(summaryOf(fullState()));
    text.replace(text.find("\"status\":\"current\""), 18, "\"status\":0        ");
    EXPECT_EQ(failurePath<AgentSnapshot>(text), "tasks[1].status");
}

TEST(AgentCoding, readsAnySchemaVersion)
{
    const std::string whole = compact(summaryOf(fullState()));
    EXPECT_EQ(decoded<AgentSnapshot>(with("schema_version", "2", whole)).schemaVersion, 2);
    EXPECT_EQ(decoded<AgentSnapshot>(with("schema_version", "-7", whole)).schemaVersion, -7);
}

TEST(AgentCoding, readsAnyTextAsAWorkflowStateOrAStatus)
{
    const std::string whole = compact(summaryOf(fullState()));
    EXPECT_EQ(decoded<AgentSnapshot>(with("workflow_state", "\"napping\"", whole)).workflowState, "napping");
    const std::string task = compact(summaryOf(fullState()).tasks[0]);
    EXPECT_EQ(decoded<AgentTaskSnapshot>(with("status", "\"\"", task)).status, "");
}

}  // namespace
}  // namespace quillmere::test
