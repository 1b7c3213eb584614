// The JSON fields of the agent's summary.
#pragma once

#include <quillmere/records/json/record_tables.hpp>
#include <quillmere/store/agent_snapshot.hpp>

namespace quillmere::json {

// clang-format off

template <>
struct Table<AgentTaskSnapshot> {
    using Fields = std::tuple<
        Field<"id",          &AgentTaskSnapshot::id>,
        Field<"title",       &AgentTaskSnapshot::title>,
        Field<"firstAction", &AgentTaskSnapshot::firstAction>,
        Field<"status",      &AgentTaskSnapshot::status>>;
};

template <>
struct Table<AgentSnapshot> {
    using Fields = std::tuple<
        Field<"schemaVersion",    &AgentSnapshot::schemaVersion>,
        Field<"workflowState",    &AgentSnapshot::workflowState>,
        Field<"interruptible",    &AgentSnapshot::interruptible>,
        Field<"block",            &AgentSnapshot::block, NullWhenAbsent>,
        Field<"outcomes",         &AgentSnapshot::outcomes>,
        Field<"tasks",            &AgentSnapshot::tasks>,
        Field<"sessions",         &AgentSnapshot::sessions>,
        Field<"currentSession",   &AgentSnapshot::currentSession, NullWhenAbsent>,
        Field<"nextSession",      &AgentSnapshot::nextSession, NullWhenAbsent>,
        Field<"remainingSeconds", &AgentSnapshot::remainingSeconds, NullWhenAbsent>,
        Field<"openQuestions",    &AgentSnapshot::openQuestions>,
        Field<"updatedAt",        &AgentSnapshot::updatedAt>>;
};

// clang-format on

}  // namespace quillmere::json
