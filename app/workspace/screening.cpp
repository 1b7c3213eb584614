#include "workspace/screening.hpp"

#include "base/limits.hpp"
#include "base/refusal.hpp"
#include "base/text/failure.hpp"
#include "statefile/form.hpp"

#include <string>

namespace quillmere::workspace {
namespace {

/// Seconds; more than between any two dates.
constexpr double longestCountdown = 1e12;

/// Throws unless the field has a number that it may have. `place` stands before its key.
template <auto member, class Record>
void screen(const Record& record, const std::string& place)
{
    if (!base::boundsOf<member>.contain(static_cast<double>(record.*member))) {
        const std::string key = place + std::string(statefile::keyOf(member));
        throw base::Refusal(base::Refusal::Kind::unusableData,
                            base::unusableStateText(key + " is out of bounds"));
    }
}

void screenBlock(const Block& block, const std::string& key)
{
    screen<&Block::focusDurationSeconds>(block, key + ".");
    screen<&Block::breakDurationSeconds>(block, key + ".");
    screen<&Block::cycleCount>(block, key + ".");
    for (std::size_t index = 0; index < block.sessions.size(); ++index) {
        const WorkSession& session = block.sessions[index];
        const std::string sessionKey = key + ".sessions[" + std::to_string(index) + "].";
        screen<&WorkSession::plannedDurationSeconds>(session, sessionKey);
        screen<&WorkSession::accumulatedPausedSeconds>(session, sessionKey);
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
    screen<&QuillmereState::breakExtensionSeconds>(state, "");
}

void requireUsable(const WidgetSnapshot& summary)
{
    const auto frozen =
        static_cast<double>(summary.countdown ? summary.countdown->frozenRemainingSeconds : 0);
    if (!base::Bounds{-longestCountdown, longestCountdown}.contain(frozen) || summary.openQuestionCount < 0) {
        throw base::Refusal(base::Refusal::Kind::unusableData,
                            "The widget's summary has a number that is out of bounds.");
    }
}

}  // namespace quillmere::workspace
