// The agent's summary as JSON.
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include "support/json_members.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

AgentSnapshot summaryOf(const QuillmereState& state)
{
    return StateStore("/nowhere", StateStore::renameReplacing).agentSnapshot(state, std::nullopt);
}

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

/// Where decoding fails; "(nowhere)" when it does not.
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

constexpr std::string_view requiredKeys[] = {"schema_version", "workflow_state", "interruptible",
                                             "outcomes",       "tasks",          "sessions",
                                             "open_questions", "updated_at"};
constexpr std::string_view optionalKeys[] = {"block", "current_session", "next_session", "remaining_seconds"};
constexpr std::string_view taskKeys[] = {"first_action", "id", "status", "title"};

TEST(AgentCoding, hasAllTwelveKeysAlwaysAndNullForWhatIsAbsent)
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

TEST(AgentCoding, requiresTheKeysOfWhatIsAlwaysThere)
{
    const std::string whole = compact(summaryOf(fullState()));
    for (const std::string_view key : requiredKeys) {
        SCOPED_TRACE(key);
        EXPECT_EQ(failurePath<AgentSnapshot>(without(key, whole)), key);
        EXPECT_EQ(failurePath<AgentSnapshot>(with(key, "null", whole)), key);
    }
}

TEST(AgentCoding, takesTheKeysOfOptionalValuesMissingOrNull)
{
    const std::string whole = compact(summaryOf(fullState()));
    for (const std::string_view key : optionalKeys) {
        SCOPED_TRACE(key);
        const auto missing = decoded<AgentSnapshot>(without(key, whole));
        EXPECT_EQ(compact(missing), with(key, "null", whole));
        EXPECT_EQ(decoded<AgentSnapshot>(with(key, "null", whole)), missing);
    }
}

TEST(AgentCoding, refusesValuesOfAnotherType)
{
    const std::string whole = compact(summaryOf(fullState()));
    const struct {
        std::string_view key;
        std::vector<std::string_view> values;
    } rows[] = {
        {"schema_version", {"\"1\"", "1.5", "true", "[]", "{}", "9223372036854775808"}},
        {"workflow_state", {"1", "true", "[]", "{}"}},
        {"interruptible", {"1", "0", "\"true\"", "[]", "{}"}},
        {"block", {"1", "\"\"", "true", "[]"}},
        {"outcomes", {"1", "\"\"", "true", "{}"}},
        {"tasks", {"1", "\"\"", "true", "{}"}},
        {"sessions", {"1", "\"\"", "true", "{}"}},
        {"current_session", {"1", "\"\"", "true", "[]"}},
        {"next_session", {"1", "\"\"", "true", "[]"}},
        {"remaining_seconds", {"\"1\"", "0.5", "false", "[]", "{}", "-9223372036854775809"}},
        {"open_questions", {"1", "\"\"", "true", "{}"}},
        {"updated_at", {"1", "\"\"", "true", "[]", "{}", "\"2026-11-15T15:00:00.5Z\""}},
    };
    for (const auto& row : rows) {
        for (const std::string_view value : row.values) {
            SCOPED_TRACE(std::string(row.key) + " " + std::string(value));
            EXPECT_EQ(failurePath<AgentSnapshot>(with(row.key, value, whole)), row.key);
        }
    }
}

TEST(AgentCoding, requiresAllFourKeysOfATask)
{
    const std::string whole = compact(summaryOf(fullState()).tasks[0]);
    for (const std::string_view key : taskKeys) {
        SCOPED_TRACE(key);
        EXPECT_EQ(failurePath<AgentTaskSnapshot>(without(key, whole)), key);
        for (const std::string_view value : {"null", "1", "true", "[]", "{}"}) {
            EXPECT_EQ(failurePath<AgentTaskSnapshot>(with(key, value, whole)), key);
        }
    }
    EXPECT_EQ(failurePath<AgentTaskSnapshot>(with("id", "\"9F1C\"", whole)), "id");
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

TEST(AgentCoding, ignoresKeysItDoesNotKnow)
{
    const std::string whole = compact(summaryOf(fullState()));
    EXPECT_EQ(decoded<AgentSnapshot>("{\"later_key\":[{}]," + whole.substr(1)), summaryOf(fullState()));
}

}  // namespace
}  // namespace quillmere::test
