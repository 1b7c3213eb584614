#include "agent/record_schema.hpp"
#include "agent/summary.hpp"

#include <quillmere/records/workflow_state.hpp>

namespace quillmere::agent {
namespace {

using base::SortedJson;

/// Descriptions of properties, for the model; the names of the other properties say enough.
struct Description {
    const char* definition;  ///< empty: of the summary itself
    const char* property;
    const char* text;
};

constexpr Description descriptions[] = {
    {"", "workflow_state",
     "idle: nothing in hand, or a scheduled block that waits. blockPlanning, sessionPlanning: a plan is "
     "being written. focusing: a focus session runs or is paused. sessionReview, blockReview: a look back is "
     "being written. breaking: a break runs."},
    {"", "interruptible",
     "Whether the person may be interrupted: always, but for a focus session that is not paused."},
    {"", "remaining_seconds",
     "Time left of the running focus session or break at updated_at; negative in overtime, null when no "
     "timer "
     "runs."},
    {"", "updated_at", "The moment that the summary describes."},
    {"", "block", "The block of work in hand, or scheduled."},
    {"", "outcomes", "What the block should bring about."},
    {"", "tasks", "One for each session of the block, then the planned next one."},
    {"", "sessions", "The focus sessions of the block, in order of starting."},
    {"", "current_session", "The last of the sessions, ended or not."},
    {"", "next_session", "What the person plans for the next session."},
    {"", "open_questions", "What waits for an answer, in order of asking."},
    {"task", "id", "Of the session's plan."},
    {"plan", "block_outcome_id", "The outcome of the block that it works towards."},
    {"plan", "energy", "The person's own rating, 1 to 5."},
    {"plan", "morale", "The person's own rating, 1 to 5."},
    {"session", "number", "Within the block, from 1."},
    {"session", "paused_at", "Present exactly while it is paused."},
    {"block", "planned_start", "Present when it is scheduled for later."},
    {"block", "cycle_count", "The planned number of focus sessions."},
};

void addDescriptions(SortedJson& schema)
{
    for (const Description& row : descriptions) {
        const bool isOfSummary = *row.definition == '\0';
        SortedJson& described = isOfSummary ? schema : schema.at("$defs").at(row.definition);
        described.at("properties").at(row.property)["description"] = row.text;
    }
}

/// Adds what the types of the fields do not say.
void narrow(SortedJson& schema)
{
    SortedJson& properties = schema.at("properties");
    properties.at("schema_version") = {{"const", 1}};
    properties.at("workflow_state") = enumerationSchema<WorkflowState>();
    SortedJson& definitions = schema.at("$defs");
    definitions.at("task").at("properties").at("status") = {
        {"enum", {"planned", "current", "review_draft", "reviewed"}}};
    // Only open questions are in the summary.
    definitions.at("openQuestion").at("properties").erase("answered_at");
    schema["allOf"] = SortedJson::parse(R"json([
        {"if": {"properties": {"workflow_state": {"const": "focusing"}}},
         "else": {"properties": {"interruptible": {"const": true}}}},
        {"if": {"properties": {"workflow_state": {"enum": ["focusing", "breaking"]}}},
         "else": {"properties": {"remaining_seconds": {"type": "null"}}}}
    ])json");
}

TextSchemas references()
{
    return {.identifier = definitionReference("identifier"), .instant = definitionReference("instant")};
}

template <class... Record>
void addDefinitions(SortedJson& definitions)
{
    ((definitions[definitionName<Record>] = recordSchema<Record>(references())), ...);
}

SortedJson definitionsOfSummary()
{
    SortedJson definitions = SortedJson::parse(R"json({
        "identifier": {
            "type": "string",
            "pattern": "^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$"
        },
        "instant": {
            "description": "UTC, whole seconds (RFC 3339).",
            "type": "string",
            "pattern": "^[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z$"
        }
    })json");
    addDefinitions<Outcome, AgentTaskSnapshot, AgentQuestion, SessionPlan, WorkSession, SessionReview,
                   BlockReview, Block>(definitions);
    return definitions;
}

SortedJson makeSummarySchema()
{
    SortedJson schema = recordSchema<AgentSnapshot>(references());
    schema["description"] = "The work in hand as of updated_at.";
    schema["$defs"] = definitionsOfSummary();
    narrow(schema);
    addDescriptions(schema);
    return schema;
}

}  // namespace

const SortedJson& summarySchema()
{
    static const SortedJson schema = makeSummarySchema();
    return schema;
}

}  // namespace quillmere::agent
