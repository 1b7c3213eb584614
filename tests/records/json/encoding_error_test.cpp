// Values without a JSON form, and their paths in the error.
#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include <cmath>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

template <class Value>
struct PlaceInRecord {
    const char* path;
    Value& (*value)(QuillmereState&);
};

// clang-format off
constexpr PlaceInRecord<double> durations[] = {
    {"break_extension_seconds",                             [](auto& s) -> double& { return s.breakExtensionSeconds; }},
    {"current_block.focus_duration_seconds",                [](auto& s) -> double& { return s.currentBlock->focusDurationSeconds; }},
    {"current_block.break_duration_seconds",                [](auto& s) -> double& { return s.currentBlock->breakDurationSeconds; }},
    {"current_block.sessions[0].planned_duration_seconds",  [](auto& s) -> double& { return s.currentBlock->sessions[0].plannedDurationSeconds; }},
    {"block_history[0].sessions[2].accumulated_paused_seconds", [](auto& s) -> double& { return s.blockHistory[0].sessions[2].accumulatedPausedSeconds; }},
};
constexpr PlaceInRecord<Instant> instants[] = {
    {"updated_at",                                 [](auto& s) -> Instant& { return s.updatedAt; }},
    {"break_started_at",                           [](auto& s) -> Instant& { return *s.breakStartedAt; }},
    {"break_end_notified_at",                      [](auto& s) -> Instant& { return *s.breakEndNotifiedAt; }},
    {"current_block.created_at",                   [](auto& s) -> Instant& { return s.currentBlock->createdAt; }},
    {"current_block.planned_start",                [](auto& s) -> Instant& { return *s.currentBlock->plannedStart; }},
    {"current_block.completed_at",                 [](auto& s) -> Instant& { return *s.currentBlock->completedAt; }},
    {"current_block.scheduled_start_triggered_at", [](auto& s) -> Instant& { return *s.currentBlock->scheduledStartTriggeredAt; }},
    {"block_history[0].sessions[1].started_at",    [](auto& s) -> Instant& { return s.blockHistory[0].sessions[1].startedAt; }},
    {"current_block.sessions[1].paused_at",        [](auto& s) -> Instant& { return *s.currentBlock->sessions[1].pausedAt; }},
    {"current_block.sessions[1].ended_at",         [](auto& s) -> Instant& { return *s.currentBlock->sessions[1].endedAt; }},
    {"agent_questions[1].created_at",              [](auto& s) -> Instant& { return s.agentQuestions[1].createdAt; }},
    {"agent_questions[0].answered_at",             [](auto& s) -> Instant& { return *s.agentQuestions[0].answeredAt; }},
};
// clang-format on

TEST(Encoding, failsForADurationThatIsInfiniteOrNotANumberAndNamesItsPlace)
{
    for (const auto& [path, duration] : durations) {
        for (const double value : {HUGE_VAL, -HUGE_VAL, std::nan("")}) {
            SCOPED_TRACE(testing::Message() << path << " " << value);
            QuillmereState state = test::completeState();
            duration(state) = value;
            const auto error = test::encodingError(state);
            ASSERT_TRUE(error);
            EXPECT_EQ(error->path(), path);
            EXPECT_EQ(error->reason(), "a duration that is infinite or not a number");
            EXPECT_THROW(test::prettyText(state), EncodingError);
        }
    }
}

TEST(Encoding, failsForAnInstantWithoutATextAndNamesItsPlace)
{
    for (const auto& [path, instant] : instants) {
        for (const double value : {HUGE_VAL, std::nan(""), 253'402'300'800.0, -62'167'219'201.0}) {
            SCOPED_TRACE(testing::Message() << path << " " << value);
            QuillmereState state = test::completeState();
            instant(state) = Instant(value);
            const auto error = test::encodingError(state);
            ASSERT_TRUE(error);
            EXPECT_EQ(error->path(), path);
            EXPECT_EQ(error->reason(),
                      "an instant that is not finite or lies outside the years 0000 to 9999");
            EXPECT_THROW(test::prettyText(state), EncodingError);
        }
    }
}

TEST(Encoding, failsForNoOtherValue)
{
    QuillmereState state = test::completeState();
    state.breakExtensionSeconds = 1.7976931348623157e308;
    state.currentBlock->focusDurationSeconds = -5e-324;
    state.currentBlock->cycleCount = INT64_MIN;
    state.plannedNextSession->energy = INT64_MAX;
    state.plannedNextSession->firstAction = "\xFF\xFE\x80";
    state.agentQuestions[0].question.assign(100'000, '\0');
    EXPECT_FALSE(test::encodingError(state));
}

TEST(Encoding, canBeUsedAgainAfterAFailure)
{
    QuillmereState state = test::completeState();
    const JsonEncoder encoder(JsonLayout::compact);
    state.breakExtensionSeconds = HUGE_VAL;
    EXPECT_THROW(encoder.encode(state), EncodingError);
    state.breakExtensionSeconds = 60.5;
    EXPECT_EQ(encoder.encode(state).view(), test::compactText(test::completeState()));
}

}  // namespace
}  // namespace quillmere
