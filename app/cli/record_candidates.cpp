#include "cli/record_candidates.hpp"

#include "base/reach.hpp"
#include "base/text/local_time.hpp"
#include "lookback/words.hpp"
#include "work/naming.hpp"
#include "work/question_naming.hpp"
#include "work/recall/block_account.hpp"

#include <string_view>

namespace quillmere::cli {
namespace {

/// Years of work have thousands of sessions; a record is corrected soon after.
constexpr std::size_t mostBlocksWithSessions = 10;

Candidate blockCandidate(const Block& block, const std::string& name, base::Hours hours)
{
    const std::string title = block.outcomes.empty() ? "" : block.outcomes.front().title;
    return {name, base::localText(base::finishedAt(block), hours) + "  " + title};
}

void addEndedSessions(Candidates& candidates, const Block& block, const std::string& name, base::Hours hours)
{
    for (std::size_t index = 0; index < block.sessions.size(); ++index) {
        const WorkSession& session = block.sessions[index];
        if (session.endedAt) {
            candidates.push_back(
                {name + "." + std::to_string(index + 1),
                 base::localText(session.startedAt, hours) + "  " + lookback::nameOf(session, block)});
        }
    }
}

}  // namespace

Candidates blockCandidates(const QuillmereState& state, base::Hours hours)
{
    Candidates candidates;
    const std::vector<std::string> names = work::shortNames(state);
    for (std::size_t index = 0; index < names.size(); ++index) {
        candidates.push_back(blockCandidate(state.blockHistory[index], names[index], hours));
    }
    return candidates;
}

Candidates sessionAndBlockCandidates(const QuillmereState& state, base::Hours hours)
{
    Candidates candidates;
    if (state.currentBlock) {
        addEndedSessions(candidates, *state.currentBlock, "", hours);
    }
    const std::vector<std::string> names = work::shortNames(state);
    for (std::size_t index = 0; index < names.size(); ++index) {
        const Block& block = state.blockHistory[index];
        candidates.push_back(blockCandidate(block, names[index], hours));
        if (index < mostBlocksWithSessions) {
            addEndedSessions(candidates, block, names[index], hours);
        }
    }
    return candidates;
}

Candidates monthCandidates(const QuillmereState& state)
{
    constexpr std::size_t mostMonths = 12;
    constexpr std::size_t monthLength = std::string_view("2026-10").size();
    Candidates months;
    for (const Block& block : state.blockHistory) {
        const std::string month = base::localDayText(base::finishedAt(block)).substr(0, monthLength);
        if (months.size() < mostMonths && (months.empty() || months.back().value != month)) {
            months.push_back({month, ""});
        }
    }
    return months;
}

Candidates questionCandidates(const QuillmereState& state)
{
    Candidates open;
    Candidates answered;
    const std::vector<std::string> names = work::shortQuestionNames(state);
    for (std::size_t index = 0; index < names.size(); ++index) {
        const AgentQuestion& question = state.agentQuestions[index];
        if (question.isOpen()) {
            open.push_back({std::to_string(open.size() + 1), question.question});
        } else {
            answered.push_back({names[index], "answered: " + question.question});
        }
    }
    open.insert(open.end(), answered.begin(), answered.end());
    return open;
}

}  // namespace quillmere::cli
