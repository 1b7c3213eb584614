// How much of the records a display looks at: the newest finished blocks and the questions that matter now.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>
#include <span>
#include <vector>

namespace quillmere::base {

/// How far back a display or a change looks. What lies before has no effect on it, so that it need not be
/// read.
enum class Reach {
    present,  ///< where the work stands: at least five blocks
    prompts,  ///< what was written before, offered again: at least thirty
    years,    ///< all; each value reaches beyond those before
};

/// When a finished block was finished; when it was made, where the file does not say.
inline Instant finishedAt(const Block& block) { return block.completedAt.value_or(block.createdAt); }

/// Whether no block before these, the newest ones of a history, is within reach: there are enough of them,
/// and the last was finished so long ago that no block before it was worked on today.
inline bool areAllWithin(Reach reach, std::span<const Block> newest, Instant now)
{
    constexpr double threeDays =
        3 * 86'400.0;  // a local day lasts 25 hours at most, and begins when one likes
    const std::size_t least = reach == Reach::present ? 5 : 30;
    return reach != Reach::years && newest.size() >= least && finishedAt(newest.back()) < now - threeDays;
}

/// The blocks of the history within reach, newest first.
inline std::span<const Block> blocksWithin(Reach reach, const QuillmereState& state, Instant now)
{
    const std::span<const Block> history(state.blockHistory);
    std::size_t count = 0;
    while (count < history.size() && !areAllWithin(reach, history.first(count), now)) {
        ++count;
    }
    return history.first(count);
}

/// Questions without an answer are within every reach, and so are all that were asked or answered from here
/// on: how many were asked in the last minute decides whether an agent may ask another, and a display that
/// runs says what was answered elsewhere.
inline Instant recentQuestionsSince(Instant now) { return now - 3600.0; }

inline bool isWithinReach(const AgentQuestion& question, Instant now)
{
    const Instant since = recentQuestionsSince(now);
    return question.isOpen() || question.createdAt >= since || *question.answeredAt >= since;
}

/// Removes what is beyond reach.
inline void keepWithin(Reach reach, QuillmereState& state, Instant now)
{
    if (reach != Reach::years) {
        std::erase_if(state.agentQuestions,
                      [&](const AgentQuestion& question) { return !isWithinReach(question, now); });
    }
    const auto count = static_cast<std::ptrdiff_t>(blocksWithin(reach, state, now).size());
    state.blockHistory.erase(state.blockHistory.begin() + count, state.blockHistory.end());
}

}  // namespace quillmere::base
