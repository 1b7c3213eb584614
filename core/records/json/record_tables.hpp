// The JSON fields of the records of the state, in field order.
#pragma once

#include <quillmere/records/json/table.hpp>
#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::json {

/// Two identifiers may be missing in a file. The reader then makes a new random one each time.
inline constexpr auto drawnIdentifier = [](const auto&) { return Identifier::random(); };

// clang-format off

template <>
struct Table<Outcome> {
    using Fields = std::tuple<
        Field<"id",    &Outcome::id>,
        Field<"title", &Outcome::title>>;
};

template <>
struct Table<SessionPlan> {
    using Fields = std::tuple<
        Field<"id",                &SessionPlan::id>,
        // Not "blockOutcomeID": a run of capitals does not come back from "block_outcome_id".
        Field<"blockOutcomeId",    &SessionPlan::blockOutcomeID>,
        Field<"intendedOutcome",   &SessionPlan::intendedOutcome>,
        Field<"firstAction",       &SessionPlan::firstAction>,
        Field<"hazardsMitigation", &SessionPlan::hazardsMitigation>,
        Field<"nicuFraming",       &SessionPlan::nicuFraming>,
        Field<"energy",            &SessionPlan::energy>,
        Field<"morale",            &SessionPlan::morale>>;
};

template <>
struct Table<SessionReview> {
    using Fields = std::tuple<
        Field<"id",               &SessionReview::id, MadeWhenMissing<drawnIdentifier>>,
        Field<"completion",       &SessionReview::completion>,
        Field<"noteworthyResult", &SessionReview::noteworthyResult>,
        Field<"distractions",     &SessionReview::distractions>,
        Field<"improvement",      &SessionReview::improvement>>;
};

template <>
struct Table<WorkSession> {
    using Fields = std::tuple<
        Field<"id",                       &WorkSession::id>,
        Field<"number",                   &WorkSession::number>,
        Field<"plan",                     &WorkSession::plan>,
        Field<"startedAt",                &WorkSession::startedAt>,
        Field<"plannedDurationSeconds",   &WorkSession::plannedDurationSeconds>,
        Field<"pausedAt",                 &WorkSession::pausedAt>,
        Field<"accumulatedPausedSeconds", &WorkSession::accumulatedPausedSeconds>,
        Field<"endedAt",                  &WorkSession::endedAt>,
        Field<"review",                   &WorkSession::review>>;
};

template <>
struct Table<BlockReview> {
    using Fields = std::tuple<
        Field<"outputProduced",   &BlockReview::outputProduced>,
        Field<"normalComparison", &BlockReview::normalComparison>,
        Field<"boggedDown",       &BlockReview::boggedDown>,
        Field<"wentWell",         &BlockReview::wentWell>,
        Field<"lessons",          &BlockReview::lessons>>;
};

template <>
struct Table<Block> {
    using Fields = std::tuple<
        Field<"id",                        &Block::id>,
        Field<"createdAt",                 &Block::createdAt>,
        Field<"plannedStart",              &Block::plannedStart>,
        Field<"focusDurationSeconds",      &Block::focusDurationSeconds>,
        Field<"breakDurationSeconds",      &Block::breakDurationSeconds>,
        Field<"cycleCount",                &Block::cycleCount>,
        Field<"outcomes",                  &Block::outcomes>,
        Field<"whyValue",                  &Block::whyValue>,
        Field<"doneTest",                  &Block::doneTest>,
        Field<"hazards",                   &Block::hazards>,
        Field<"measurableCheck",           &Block::measurableCheck>,
        Field<"contextNotes",              &Block::contextNotes>,
        Field<"sessions",                  &Block::sessions>,
        Field<"reflection",                &Block::reflection>,
        Field<"completedAt",               &Block::completedAt>,
        Field<"scheduledStartTriggeredAt", &Block::scheduledStartTriggeredAt>>;
};

template <>
struct Table<AgentQuestion> {
    using Fields = std::tuple<
        Field<"id",         &AgentQuestion::id>,
        Field<"question",   &AgentQuestion::question>,
        Field<"createdAt",  &AgentQuestion::createdAt>,
        Field<"answer",     &AgentQuestion::answer>,
        Field<"answeredAt", &AgentQuestion::answeredAt>>;
};

template <>
struct Table<QuillmereState> {
    using Fields = std::tuple<
        Field<"id",                    &QuillmereState::id, MadeWhenMissing<drawnIdentifier>>,
        Field<"workflowState",         &QuillmereState::workflowState>,
        Field<"currentBlock",          &QuillmereState::currentBlock>,
        Field<"blockHistory",          &QuillmereState::blockHistory>,
        Field<"plannedNextSession",    &QuillmereState::plannedNextSession>,
        Field<"breakStartedAt",        &QuillmereState::breakStartedAt>,
        Field<"breakExtensionSeconds", &QuillmereState::breakExtensionSeconds>,
        Field<"breakEndNotifiedAt",    &QuillmereState::breakEndNotifiedAt>,
        Field<"agentQuestions",        &QuillmereState::agentQuestions>,
        Field<"updatedAt",             &QuillmereState::updatedAt>>;
};

// clang-format on

}  // namespace quillmere::json
