// States that the engine could not live with.
#include "workspace/screening.hpp"
#include "base/refusal.hpp"

#include <functional>
#include <limits>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Every number that is screened, by its key.
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

/// The key that screening complains about; empty when it does not.
std::string complaintAbout(const QuillmereState& state)
{
    try {
        workspace::requireUsable(state);
    } catch (const base::Refusal& error) {
        EXPECT_EQ(error.kind(), base::Refusal::Kind::unusableData);
        const std::string message = error.what();
        const std::string begin = "The state cannot be used: ";
        const std::string end = " is out of bounds. Nothing was changed.";
        EXPECT_EQ(message.substr(0, begin.size()), begin);
        EXPECT_EQ(message.substr(message.size() - end.size()), end);
        return message.substr(begin.size(), message.size() - begin.size() - end.size());
    }
    return "";
}

std::string complaintAbout(const Screened& screened, double value)
{
    QuillmereState state = fullState();
    screened.value(state) = value;
    return complaintAbout(state);
}

TEST(Screening, letsWhatThisProgramMakesThrough)
{
    EXPECT_EQ(complaintAbout(fullState()), "");
    EXPECT_EQ(complaintAbout(stateWithScheduledBlock()), "");
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        EXPECT_EQ(complaintAbout(stateIn(workflowState)), "");
    }
}

TEST(Screening, keepsDurationsBetweenOneSecondAnd366Days)
{
    for (const Screened& duration : durations) {
        for (const double value : {1.0, 1.5, 31'622'400.0}) {
            EXPECT_EQ(complaintAbout(duration, value), "");
        }
        for (const double value :
             {0.0, 0.999, -1.0, -1500.0, 31'622'401.0, 1e18, 1e300, -1e300, infinity, notANumber}) {
            EXPECT_EQ(complaintAbout(duration, value), duration.key) << value;
        }
    }
}

TEST(Screening, keepsPausesAndExtensionsBetweenNothingAndAThousandOfTheLongestDurations)
{
    for (const Screened& sum : sums) {
        for (const double value : {0.0, 0.5, 31'622'400'000.0}) {
            EXPECT_EQ(complaintAbout(sum, value), "");
        }
        for (const double value : {-0.001, -60.0, 31'622'400'001.0, 1e18, 1e300, infinity, notANumber}) {
            EXPECT_EQ(complaintAbout(sum, value), sum.key) << value;
        }
    }
}

TEST(Screening, keepsCyclesBetweenOneAndAThousand)
{
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    for (const std::int64_t count : {std::int64_t{1}, std::int64_t{1000}}) {
        QuillmereState state = fullState();
        state.currentBlock->cycleCount = count;
        state.blockHistory[0].cycleCount = count;
        EXPECT_EQ(complaintAbout(state), "");
    }
    for (const std::int64_t count :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1001}, std::int64_t{5000}, most, least}) {
        QuillmereState state = fullState();
        state.blockHistory[0].cycleCount = count;
        EXPECT_EQ(complaintAbout(state), "block_history[0].cycle_count");
        state.currentBlock->cycleCount = count;
        EXPECT_EQ(complaintAbout(state), "current_block.cycle_count");
    }
}

}  // namespace
}  // namespace quillmere::test
