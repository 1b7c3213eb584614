// Two records are equal exactly when all fields are.
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <set>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using test::identifier;
using test::moment;

/// A change of a single field. There are two for an optional: another value, and no value.
template <class Record>
struct Change {
    const char* field;
    void (*apply)(Record&);
};

template <class Record, std::size_t count>
void expectEqualOnlyWithEveryField(const Record& record, const Change<Record> (&changes)[count])
{
    EXPECT_EQ(record, Record(record));
    std::set<std::string> fields;
    for (const Change<Record>& change : changes) {
        SCOPED_TRACE(change.field);
        Record changed = record;
        change.apply(changed);
        EXPECT_FALSE(changed == record);
        EXPECT_FALSE(record == changed);
        fields.insert(change.field);
    }
    // Every field of the record is present, so the number of keys shows that no field is left out here.
    EXPECT_EQ(fields.size(), nlohmann::json::parse(test::compactText(record)).size());
}

// clang-format off

TEST(Equality, ofOutcomesLooksAtEveryField)
{
    static constexpr Change<Outcome> changes[] = {
        {"id",    [](Outcome& outcome) { outcome.id = identifier(99); }},
        {"title", [](Outcome& outcome) { outcome.title += ' '; }},
    };
    expectEqualOnlyWithEveryField(test::completeBlock().outcomes.front(), changes);
}

TEST(Equality, ofSessionPlansLooksAtEveryField)
{
    static constexpr Change<SessionPlan> changes[] = {
        {"id",                [](SessionPlan& plan) { plan.id = identifier(99); }},
        {"blockOutcomeID",    [](SessionPlan& plan) { plan.blockOutcomeID = identifier(99); }},
        {"blockOutcomeID",    [](SessionPlan& plan) { plan.blockOutcomeID.reset(); }},
        {"intendedOutcome",   [](SessionPlan& plan) { plan.intendedOutcome += '.'; }},
        {"firstAction",       [](SessionPlan& plan) { plan.firstAction.clear(); }},
        {"hazardsMitigation", [](SessionPlan& plan) { plan.hazardsMitigation.front() = 'p'; }},
        {"nicuFraming",       [](SessionPlan& plan) { plan.nicuFraming = std::string(1, '\0'); }},
        {"energy",            [](SessionPlan& plan) { plan.energy = -plan.energy; }},
        {"morale",            [](SessionPlan& plan) { plan.morale += std::int64_t{1} << 32; }},
    };
    expectEqualOnlyWithEveryField(test::samplePlan(1), changes);
}

TEST(Equality, ofSessionReviewsLooksAtEveryField)
{
    static constexpr Change<SessionReview> changes[] = {
        {"id",               [](SessionReview& review) { review.id = identifier(99); }},
        {"completion",       [](SessionReview& review) { review.completion = CompletionResult::no; }},
        {"noteworthyResult", [](SessionReview& review) { review.noteworthyResult.clear(); }},
        {"distractions",     [](SessionReview& review) { review.distractions += '.'; }},
        {"improvement",      [](SessionReview& review) { review.improvement += '.'; }},
    };
    expectEqualOnlyWithEveryField(test::sampleReview(1), changes);
}

TEST(Equality, ofWorkSessionsLooksAtEveryField)
{
    static constexpr Change<WorkSession> changes[] = {
        {"id",                       [](WorkSession& session) { session.id = identifier(99); }},
        {"number",                   [](WorkSession& session) { session.number = 0; }},
        {"plan",                     [](WorkSession& session) { session.plan.morale = 5; }},
        {"startedAt",                [](WorkSession& session) { session.startedAt = session.startedAt + 1e-6; }},
        {"plannedDurationSeconds",   [](WorkSession& session) { session.plannedDurationSeconds += 1e-9; }},
        {"pausedAt",                 [](WorkSession& session) { session.pausedAt = moment; }},
        {"pausedAt",                 [](WorkSession& session) { session.pausedAt.reset(); }},
        {"accumulatedPausedSeconds", [](WorkSession& session) { session.accumulatedPausedSeconds = 0; }},
        {"endedAt",                  [](WorkSession& session) { session.endedAt = moment; }},
        {"endedAt",                  [](WorkSession& session) { session.endedAt.reset(); }},
        {"review",                   [](WorkSession& session) { session.review->improvement.clear(); }},
        {"review",                   [](WorkSession& session) { session.review.reset(); }},
    };
    expectEqualOnlyWithEveryField(test::completeBlock().sessions.back(), changes);
}

TEST(Equality, ofBlockReviewsLooksAtEveryField)
{
    static constexpr Change<BlockReview> changes[] = {
        {"outputProduced",   [](BlockReview& review) { review.outputProduced += '.'; }},
        {"normalComparison", [](BlockReview& review) { review.normalComparison += '.'; }},
        {"boggedDown",       [](BlockReview& review) { review.boggedDown += '.'; }},
        {"wentWell",         [](BlockReview& review) { review.wentWell += '.'; }},
        {"lessons",          [](BlockReview& review) { review.lessons += '.'; }},
    };
    expectEqualOnlyWithEveryField(test::sampleReflection(), changes);
}

TEST(Equality, ofBlocksLooksAtEveryField)
{
    static constexpr Change<Block> changes[] = {
        {"id",                        [](Block& block) { block.id = identifier(99); }},
        {"createdAt",                 [](Block& block) { block.createdAt = moment; }},
        {"plannedStart",              [](Block& block) { block.plannedStart = moment; }},
        {"plannedStart",              [](Block& block) { block.plannedStart.reset(); }},
        {"focusDurationSeconds",      [](Block& block) { block.focusDurationSeconds = 1500.5; }},
        {"breakDurationSeconds",      [](Block& block) { block.breakDurationSeconds = 300.5; }},
        {"cycleCount",                [](Block& block) { block.cycleCount = 4; }},
        {"outcomes",                  [](Block& block) { std::swap(block.outcomes[0], block.outcomes[1]); }},
        {"outcomes",                  [](Block& block) { block.outcomes.pop_back(); }},
        {"whyValue",                  [](Block& block) { block.whyValue += '.'; }},
        {"doneTest",                  [](Block& block) { block.doneTest += '.'; }},
        {"hazards",                   [](Block& block) { block.hazards += '.'; }},
        {"measurableCheck",           [](Block& block) { block.measurableCheck += '.'; }},
        {"contextNotes",              [](Block& block) { block.contextNotes += '.'; }},
        {"sessions",                  [](Block& block) { block.sessions[1].plan.energy = 1; }},
        {"sessions",                  [](Block& block) { block.sessions.erase(block.sessions.begin()); }},
        {"reflection",                [](Block& block) { block.reflection->lessons.clear(); }},
        {"reflection",                [](Block& block) { block.reflection.reset(); }},
        {"completedAt",               [](Block& block) { block.completedAt = moment; }},
        {"completedAt",               [](Block& block) { block.completedAt.reset(); }},
        {"scheduledStartTriggeredAt", [](Block& block) { block.scheduledStartTriggeredAt = moment; }},
        {"scheduledStartTriggeredAt", [](Block& block) { block.scheduledStartTriggeredAt.reset(); }},
    };
    expectEqualOnlyWithEveryField(test::completeBlock(), changes);
}

TEST(Equality, ofAgentQuestionsLooksAtEveryField)
{
    static constexpr Change<AgentQuestion> changes[] = {
        {"id",         [](AgentQuestion& question) { question.id = identifier(99); }},
        {"question",   [](AgentQuestion& question) { question.question += '?'; }},
        {"createdAt",  [](AgentQuestion& question) { question.createdAt = moment; }},
        {"answer",     [](AgentQuestion& question) { question.answer = ""; }},
        {"answer",     [](AgentQuestion& question) { question.answer.reset(); }},
        {"answeredAt", [](AgentQuestion& question) { question.answeredAt = moment; }},
        {"answeredAt", [](AgentQuestion& question) { question.answeredAt.reset(); }},
    };
    expectEqualOnlyWithEveryField(test::fullState().agentQuestions.front(), changes);
}

TEST(Equality, ofStatesLooksAtEveryField)
{
    static constexpr Change<QuillmereState> changes[] = {
        {"id",                    [](QuillmereState& state) { state.id = identifier(99); }},
        {"workflowState",         [](QuillmereState& state) { state.workflowState = WorkflowState::complete; }},
        {"currentBlock",          [](QuillmereState& state) { state.currentBlock->cycleCount = 4; }},
        {"currentBlock",          [](QuillmereState& state) { state.currentBlock.reset(); }},
        {"blockHistory",          [](QuillmereState& state) { state.blockHistory[0].sessions[2].number = 4; }},
        {"blockHistory",          [](QuillmereState& state) { state.blockHistory.clear(); }},
        {"plannedNextSession",    [](QuillmereState& state) { state.plannedNextSession->energy = 1; }},
        {"plannedNextSession",    [](QuillmereState& state) { state.plannedNextSession.reset(); }},
        {"breakStartedAt",        [](QuillmereState& state) { state.breakStartedAt = moment; }},
        {"breakStartedAt",        [](QuillmereState& state) { state.breakStartedAt.reset(); }},
        {"breakExtensionSeconds", [](QuillmereState& state) { state.breakExtensionSeconds = 60; }},
        {"breakEndNotifiedAt",    [](QuillmereState& state) { state.breakEndNotifiedAt = moment; }},
        {"breakEndNotifiedAt",    [](QuillmereState& state) { state.breakEndNotifiedAt.reset(); }},
        {"agentQuestions",        [](QuillmereState& state) { state.agentQuestions[1].answer = ""; }},
        {"agentQuestions",        [](QuillmereState& state) { state.agentQuestions.pop_back(); }},
        {"updatedAt",             [](QuillmereState& state) { state.updatedAt = moment + 1; }},
    };
    expectEqualOnlyWithEveryField(test::completeState(), changes);
}

// clang-format on

TEST(Equality, failsForStatesThatDifferInUpdatedAtOnly)
{
    QuillmereState state = test::fullState();
    state.updatedAt = state.updatedAt + 0.001;
    EXPECT_NE(state, test::fullState());
}

TEST(Equality, comparesDurationsAndInstantsAsExactDoubles)
{
    QuillmereState state = test::fullState();
    QuillmereState other = state;
    state.breakExtensionSeconds = 0.0;
    other.breakExtensionSeconds = -0.0;
    EXPECT_EQ(state, other);
    state.breakExtensionSeconds = other.breakExtensionSeconds = std::nan("");
    EXPECT_NE(state, other) << "a duration that is not a number equals nothing, itself included";
}

TEST(Equality, tellsAnAbsentTextFromAnEmptyOne)
{
    AgentQuestion question = test::fullState().agentQuestions.front();
    AgentQuestion other = question;
    question.answer.reset();
    other.answer = "";
    EXPECT_NE(question, other);
}

}  // namespace
}  // namespace quillmere
