// The conditions on a state under which a step is possible, besides the workflow state that it starts from.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string_view>

namespace quillmere {

/// One condition on a state. Arguments and the current time are no part of it: operations check those.
struct Guard {
    bool (*holds)(const QuillmereState& state);
    std::string_view words;  ///< the condition for readers of the table; empty for `guards::none`
};

namespace guards {

inline bool always(const QuillmereState&) { return true; }
inline bool hasBlock(const QuillmereState& state) { return state.currentBlock.has_value(); }
inline bool hasNoBlock(const QuillmereState& state) { return !hasBlock(state); }
inline bool hasScheduledBlock(const QuillmereState& state)
{
    return hasBlock(state) && state.currentBlock->plannedStart;
}
inline bool hasUntriggeredBlock(const QuillmereState& state)
{
    return hasScheduledBlock(state) && !state.currentBlock->scheduledStartTriggeredAt;
}
inline bool hasCyclesLeft(const QuillmereState& state)
{
    return hasBlock(state) && state.currentBlock->hasCyclesLeft();
}
inline bool hasSession(const QuillmereState& state) { return state.currentSession() != nullptr; }
inline bool hasRunningSession(const QuillmereState& state)
{
    return hasSession(state) && !state.currentSession()->pausedAt;
}
inline bool hasPausedSession(const QuillmereState& state)
{
    return hasSession(state) && state.currentSession()->pausedAt;
}
inline bool hasSessionAndCyclesLeft(const QuillmereState& state)
{
    return hasSession(state) && hasCyclesLeft(state);
}
inline bool hasSessionOfLastCycle(const QuillmereState& state)
{
    return hasSession(state) && !hasCyclesLeft(state);
}
inline bool hasUnannouncedBreak(const QuillmereState& state)
{
    return hasBlock(state) && state.breakStartedAt && !state.breakEndNotifiedAt;
}
inline bool hasQuestion(const QuillmereState& state) { return !state.agentQuestions.empty(); }

inline constexpr Guard none{always, ""};
inline constexpr Guard noBlock{hasNoBlock, "there is no block"};
inline constexpr Guard block{hasBlock, "there is a block"};
inline constexpr Guard scheduledBlock{hasScheduledBlock, "there is a block with a planned start"};
inline constexpr Guard untriggeredBlock{hasUntriggeredBlock,
                                        "there is a block with a planned start that was not begun before"};
inline constexpr Guard cyclesLeft{hasCyclesLeft, "there is a block with cycles left"};
inline constexpr Guard session{hasSession, "there is a session"};
inline constexpr Guard runningSession{hasRunningSession, "there is a session that is not paused"};
inline constexpr Guard pausedSession{hasPausedSession, "there is a session that is paused"};
inline constexpr Guard sessionAndCyclesLeft{hasSessionAndCyclesLeft,
                                            "there is a session, and cycles are left"};
inline constexpr Guard sessionOfLastCycle{hasSessionOfLastCycle, "there is a session, and no cycle is left"};
inline constexpr Guard unannouncedBreak{hasUnannouncedBreak,
                                        "a break of the block runs, and its end is not announced"};
inline constexpr Guard question{hasQuestion, "there is a question"};

}  // namespace guards

}  // namespace quillmere
