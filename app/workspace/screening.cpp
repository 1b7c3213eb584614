#include "workspace/screening.hpp"

#include "base/limits.hpp"
#include "base/refusal.hpp"
#include "base/text/failure.hpp"

#include <string>

namespace quillmere::workspace {
namespace {

/// Seconds; more than between any two dates.
constexpr double longestCountdown = 1e12;

/// False for NaN.
bool isWithin(double value, double least, double most) { return value >= least && value <= most; }

void requireWithin(double value, double least, double most, const std::string& key)
{
    if (!isWithin(value, least, most)) {
        throw base::Refusal(base::Refusal::Kind::unusableData,
                            base::unusableStateText(key + " is out of bounds"));
    }
}

void screenDuration(double seconds, const std::string& key)
{
    requireWithin(seconds, base::shortestDuration, base::longestDuration, key);
}

void screenBlock(const Block& block, const std::string& key)
{
    screenDuration(block.focusDurationSeconds, key + ".focus_duration_seconds");
    screenDuration(block.breakDurationSeconds, key + ".break_duration_seconds");
    requireWithin(static_cast<double>(block.cycleCount), 1, static_cast<double>(base::mostCycles),
                  key + ".cycle_count");
    for (std::size_t index = 0; index < block.sessions.size(); ++index) {
        const WorkSession& session = block.sessions[index];
        const std::string sessionKey = key + ".sessions[" + std::to_string(index) + "]";
        screenDuration(session.plannedDurationSeconds, sessionKey + ".planned_duration_seconds");
        requireWithin(session.accumulatedPausedSeconds, 0, base::longestSum,
                      sessionKey + ".accumulated_paused_seconds");
    }
}

}  // namespace

void requireUsable(const QuillmereState& state)
{
    if (state.currentBlock) {
        screenBlock(*state.currentBlock, "current_block");
    }
    for (std::size_t index = 0; index < state.blockHistory.size(); ++index) {
        screenBlock(state.blockHistory[index], "block_history[" + std::to_string(index) + "]");
    }
    requireWithin(state.breakExtensionSeconds, 0, base::longestSum, "break_extension_seconds");
}

void requireUsable(const WidgetSnapshot& summary)
{
    const auto frozen =
        static_cast<double>(summary.countdown ? summary.countdown->frozenRemainingSeconds : 0);
    if (!isWithin(frozen, -longestCountdown, longestCountdown) || summary.openQuestionCount < 0) {
        throw base::Refusal(base::Refusal::Kind::unusableData,
                            "The widget's summary has a number that is out of bounds.");
    }
}

}  // namespace quillmere::workspace
