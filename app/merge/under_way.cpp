#include "merge/under_way.hpp"

#include "merge/comparison.hpp"
#include "merge/last_start.hpp"
#include "merge/session.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <algorithm>
#include <array>
#include <compare>
#include <cstddef>
#include <optional>

namespace quillmere::merge {
namespace {

/// The states in the order in which work reaches them: a break follows a review, and the planning of the next
/// session the break. A state is not further for the name it has: `complete` leads nowhere.
constexpr auto phases = std::to_array<WorkflowState>({
    WorkflowState::complete,
    WorkflowState::idle,
    WorkflowState::blockPlanning,
    WorkflowState::breaking,
    WorkflowState::sessionPlanning,
    WorkflowState::focusing,
    WorkflowState::sessionReview,
    WorkflowState::blockReview,
});
static_assert(phases.size() == allCases<WorkflowState>().size());

constexpr std::ptrdiff_t phaseOf(const QuillmereState& state)
{
    return std::find(phases.begin(), phases.end(), state.workflowState) - phases.begin();
}

bool hasBegun(const QuillmereState& state)
{
    return state.workflowState != WorkflowState::idle && state.workflowState != WorkflowState::blockPlanning;
}

std::ptrdiff_t reviewedSessions(const Block& block)
{
    return std::count_if(block.sessions.begin(), block.sessions.end(),
                         [](const WorkSession& session) { return session.review.has_value(); });
}

/// Whether a copy in a history has all that happened to the block: every session, ended and reviewed as far
/// as it is here. No instants are compared: an abandoned session ends earlier than it was worked on.
bool hasAllOf(const Block& past, const Block& block)
{
    return std::all_of(block.sessions.begin(), block.sessions.end(), [&](const WorkSession& session) {
        return std::any_of(past.sessions.begin(), past.sessions.end(), [&](const WorkSession& own) {
            return own.id == session.id && own.endedAt && (own.review || !session.review);
        });
    });
}

/// Whether the history of the other side has the last word on a block.
bool isSettledIn(const std::vector<Block>& history, const Block& block)
{
    const auto past = std::find_if(history.begin(), history.end(),
                                   [&](const Block& candidate) { return candidate.id == block.id; });
    return past != history.end() && (past->completedAt || hasAllOf(*past, block));
}

std::optional<Instant> lastFinish(const QuillmereState& state)
{
    std::optional<Instant> last;
    for (const Block& block : state.blockHistory) {
        last = compare(last, block.completedAt) < 0 ? block.completedAt : last;
    }
    return last;
}

std::strong_ordering compareCurrentSessions(const QuillmereState& one, const QuillmereState& other)
{
    const WorkSession* const session = one.currentSession();
    const WorkSession* const rival = other.currentSession();
    if (!session || !rival) {
        return (session != nullptr) <=> (rival != nullptr);
    }
    if (session->id == rival->id) {
        return compareProgress(*session, *rival);
    }
    const std::strong_ordering order = compare(session->startedAt, rival->startedAt);
    return isDecided(order) ? order : session->id <=> rival->id;
}

std::strong_ordering comparePlans(const std::optional<SessionPlan>& one,
                                  const std::optional<SessionPlan>& other)
{
    return one && other ? compareBytes(*one, *other) : one.has_value() <=> other.has_value();
}

/// Break and next plan, which have nothing to do with which block it is.
std::strong_ordering compareBetweenSessions(const QuillmereState& one, const QuillmereState& other)
{
    const std::strong_ordering order = firstDecided({
        compare(one.breakStartedAt, other.breakStartedAt),
        compare(one.breakExtensionSeconds, other.breakExtensionSeconds),
        compare(one.breakEndNotifiedAt, other.breakEndNotifiedAt),
    });
    return isDecided(order) ? order : comparePlans(one.plannedNextSession, other.plannedNextSession);
}

/// Whether the other side has gone on from the session that this one is at.
bool isOvertaken(const QuillmereState& state, const QuillmereState& other)
{
    const WorkSession* const session = state.currentSession();
    const std::vector<WorkSession>& sessions = other.currentBlock->sessions;
    const auto found = std::find_if(sessions.begin(), sessions.end(), [&](const WorkSession& candidate) {
        return session && candidate.id == session->id;
    });
    return found != sessions.end() &&
           ((state.workflowState == WorkflowState::focusing && found->endedAt) ||
            (state.workflowState == WorkflowState::sessionReview && found->review));
}

std::strong_ordering compareWaiting(const QuillmereState& one, const QuillmereState& other)
{
    const std::strong_ordering order =
        compare(lastStartIn(*one.currentBlock), lastStartIn(*other.currentBlock));
    return isDecided(order) ? order : compare(one.updatedAt, other.updatedAt);
}

std::strong_ordering compareSameBlock(const QuillmereState& one, const QuillmereState& other)
{
    const bool neitherHasBegun = !hasBegun(one) && !hasBegun(other);
    const std::strong_ordering order = firstDecided({
        hasBegun(one) <=> hasBegun(other),
        neitherHasBegun ? compareWaiting(one, other) : std::strong_ordering::equal,
        isOvertaken(other, one) <=> isOvertaken(one, other),
        reviewedSessions(*one.currentBlock) <=> reviewedSessions(*other.currentBlock),
        phaseOf(one) <=> phaseOf(other),
        compareCurrentSessions(one, other),
    });
    return isDecided(order) ? order : compareBetweenSessions(one, other);
}

std::strong_ordering compareDifferentBlocks(const QuillmereState& one, const QuillmereState& other)
{
    const auto lastStart = [](const QuillmereState& state) {
        const Instant inBlock = lastStartIn(*state.currentBlock);
        return std::max(inBlock, state.breakStartedAt.value_or(inBlock));
    };
    const std::strong_ordering order = firstDecided({
        hasBegun(one) <=> hasBegun(other),
        compare(lastStart(one), lastStart(other)),
    });
    return isDecided(order) ? order : one.currentBlock->id <=> other.currentBlock->id;
}

std::strong_ordering compareWithoutBlock(const QuillmereState& one, const QuillmereState& other)
{
    const std::strong_ordering order = firstDecided({
        compare(lastFinish(one), lastFinish(other)),
        phaseOf(one) <=> phaseOf(other),
    });
    return isDecided(order) ? order : compareBetweenSessions(one, other);
}

std::strong_ordering compareWork(const QuillmereState& one, const QuillmereState& other)
{
    if (!one.currentBlock || !other.currentBlock) {
        const std::strong_ordering order = one.currentBlock.has_value() <=> other.currentBlock.has_value();
        return isDecided(order) ? order : compareWithoutBlock(one, other);
    }
    return one.currentBlock->id == other.currentBlock->id ? compareSameBlock(one, other)
                                                          : compareDifferentBlocks(one, other);
}

}  // namespace

UnderWay underWay(const QuillmereState& a, const QuillmereState& b)
{
    const bool aIsOut = a.currentBlock && isSettledIn(b.blockHistory, *a.currentBlock);
    const bool bIsOut = b.currentBlock && isSettledIn(a.blockHistory, *b.currentBlock);
    if (aIsOut || bIsOut) {
        return {.from = !aIsOut ? &a : !bIsOut ? &b : nullptr, .loser = nullptr};
    }
    const bool bWins = compareWork(a, b) < 0;
    const bool areTwo = a.currentBlock && b.currentBlock && a.currentBlock->id != b.currentBlock->id;
    return {.from = bWins ? &b : &a, .loser = !areTwo ? nullptr : bWins ? &a : &b};
}

}  // namespace quillmere::merge
