// Numbers outside the limits of this program.
#include "workspace/screening.hpp"
#include "base/refusal.hpp"

#include <functional>
#include <limits>

#include "workspace/workspace_of.hpp"

namespace quillmere::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// A number that is screened, with its key.
struct Screened {
    const char* key;
    double& (*value)(QuillmereState&);
};

double& focusOf(QuillmereState& state) { return state.currentBlock->focusDurationSeconds; }
double& breakOf(QuillmereState& state) { return state.currentBlock->breakDurationSeconds; }
double& sessionOf(QuillmereState& state) { return state.currentBlock->sessions[1].plannedDurationSeconds; }
double& oldFocusOf(QuillmereState& state) { return state.blockHistory[0].focusDurationSeconds; }
double& oldBreakOf(QuillmereState& state) { return state.blockHistory[0].breakDurationSeconds; }
double& oldSessionOf(QuillmereState& state)
{
    return state.blockHistory[0].sessions[2].plannedDurationSeconds;
}
double& pauseOf(QuillmereState& state) { return state.currentBlock->sessions[0].accumulatedPausedSeconds; }
double& oldPauseOf(QuillmereState& state)
{
    return state.blockHistory[0].sessions[0].accumulatedPausedSeconds;
}
double& extensionOf(QuillmereState& state) { return state.breakExtensionSeconds; }

constexpr Screened durations[] = {
    {"current_block.focus_duration_seconds", focusOf},
    {"current_block.break_duration_seconds", breakOf},
    {"current_block.sessions[1].planned_duration_seconds", sessionOf},
    {"block_history[0].focus_duration_seconds", oldFocusOf},
    {"block_history[0].break_duration_seconds", oldBreakOf},
    {"block_history[0].sessions[2].planned_duration_seconds", oldSessionOf},
};

constexpr Screened sums[] = {
    {"current_block.sessions[0].accumulated_paused_seconds", pauseOf},
    {"block_history[0].sessions[0].accumulated_paused_seconds", oldPauseOf},
    {"break_extension_seconds", extensionOf},
};

/// The key in the message of the refusal; empty when the state is accepted.
std::string refusedKey(const QuillmereState& state)
{
    try {
        workspace::requireUsable(state);
    } catch (const base::Refusal& error) {
        EXPECT_EQ(error.kind(), base::Refusal::Kind::unusableData);
        const std::string message = error.what();
        const std::string begin = "The state cannot be used: ";
        const std::string end =
            " is out of bounds. Nothing was changed; quillmere restore lists earlier versions.";
        EXPECT_EQ(message.substr(0, begin.size()), begin);
        EXPECT_EQ(message.substr(message.size() - end.size()), end);
        return message.substr(begin.size(), message.size() - begin.size() - end.size());
    }
    return "";
}

std::string refusedKey(const Screened& screened, double value)
{
    QuillmereState state = fullState();
    screened.value(state) = value;
    return refusedKey(state);
}

TEST(Screening, acceptsEveryStateThatThisProgramMakes)
{
    EXPECT_EQ(refusedKey(fullState()), "");
    EXPECT_EQ(refusedKey(stateWithScheduledBlock()), "");
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        EXPECT_EQ(refusedKey(stateIn(workflowState)), "");
    }
}

TEST(Screening, acceptsDurationsFromOneSecondTo366Days)
{
    for (const Screened& duration : durations) {
        for (const double value : {1.0, 1.5, 31'622'400.0}) {
            EXPECT_EQ(refusedKey(duration, value), "");
        }
        for (const double value :
             {0.0, 0.999, -1.0, -1500.0, 31'622'401.0, 1e18, 1e300, -1e300, infinity, notANumber}) {
            EXPECT_EQ(refusedKey(duration, value), duration.key) << value;
        }
    }
}

TEST(Screening, acceptsPausesAndExtensionsUpToAThousandOfTheLongestDurations)
{
    for (const Screened& sum : sums) {
        for (const double value : {0.0, 0.5, 31'622'400'000.0}) {
            EXPECT_EQ(refusedKey(sum, value), "");
        }
        for (const double value : {-0.001, -60.0, 31'622'400'001.0, 1e18, 1e300, infinity, notANumber}) {
            EXPECT_EQ(refusedKey(sum, value), sum.key) << value;
        }
    }
}

TEST(Screening, acceptsOneToAThousandCycles)
{
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    for (const std::int64_t count : {std::int64_t{1}, std::int64_t{1000}}) {
        QuillmereState state = fullState();
        state.currentBlock->cycleCount = count;
        state.blockHistory[0].cycleCount = count;
        EXPECT_EQ(refusedKey(state), "");
    }
    for (const std::int64_t count :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1001}, std::int64_t{5000}, most, least}) {
        QuillmereState state = fullState();
        state.blockHistory[0].cycleCount = count;
        EXPECT_EQ(refusedKey(state), "block_history[0].cycle_count");
        state.currentBlock->cycleCount = count;
        EXPECT_EQ(refusedKey(state), "current_block.cycle_count");
    }
}

TEST(Screening, refusesAWidgetSummaryWithNumbersThatOverflow)
{
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    const WidgetSnapshot good = WidgetSnapshot::make(stateIn(WorkflowState::focusing), moment);
    EXPECT_NO_THROW(workspace::requireUsable(good));
    WidgetSnapshot remaining = good;
    ASSERT_TRUE(remaining.countdown.has_value());
    remaining.countdown->frozenRemainingSeconds = least;
    EXPECT_THROW(workspace::requireUsable(remaining), base::Refusal);
    WidgetSnapshot questions = good;
    questions.openQuestionCount = least;
    EXPECT_THROW(workspace::requireUsable(questions), base::Refusal);
}

constexpr double tooLong = 367.0 * 86'400;

TEST(Screening, keepsAStateOutThatAProgramReads)
{
    const Person person;
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().plannedDurationSeconds = tooLong;
    person.has(state);
    EXPECT_THROW(workspaceOf(person).look(), base::Refusal);
}

TEST(Screening, keepsAStateOutThatAnOperationLeaves)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    const std::string before = textOf(person.store().stateURL());
    const auto lengthenForEver = [](QuillmereState& state, Instant) {
        state.currentBlock->sessions.back().plannedDurationSeconds = tooLong;
    };
    EXPECT_THROW(workspaceOf(person).change([](const std::vector<workspace::Event>&) {}, lengthenForEver),
                 base::Refusal);
    EXPECT_EQ(textOf(person.store().stateURL()), before);
}

}  // namespace
}  // namespace quillmere::test
